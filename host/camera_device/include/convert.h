/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Converters between the camera device AIDL types and the camera3 HAL records, from the camera
 * device implementation library of this platform.
 */
#pragma once

#include <aidl/android/hardware/camera/common/Status.h>
#include <aidl/android/hardware/camera/device/BufferStatus.h>
#include <aidl/android/hardware/camera/device/CameraMetadata.h>
#include <aidl/android/hardware/camera/device/NotifyMsg.h>
#include <aidl/android/hardware/camera/device/Stream.h>
#include <aidl/android/hardware/common/NativeHandle.h>
#include <android/binder_auto_utils.h>
#include <cutils/native_handle.h>
#include <hardware/camera3.h>
#include <system/camera_metadata.h>

namespace android {
namespace hardware {
namespace camera {
namespace device {
namespace implementation {

using ::aidl::android::hardware::camera::common::Status;
using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::CameraMetadata;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::android::hardware::camera::device::Stream;
using ::aidl::android::hardware::common::NativeHandle;

// camera3_stream with the AIDL stream id, so that the id can be found again from a
// camera3_stream pointer that the HAL hands back.
struct Camera3Stream : public camera3_stream {
    int mId;
};

// Views the bytes of src as camera metadata: *dst points into src.metadata (null for an empty
// list). Returns false, leaving *dst alone, when the bytes are not a valid metadata buffer.
bool convertFromAidl(const CameraMetadata& src, const camera_metadata_t** dst);

// Copies the whole metadata buffer into dst->metadata. Does nothing for a null src.
void convertToAidl(const camera_metadata_t* src, CameraMetadata* dst);

// Fills dst from src. dst->vendor_stream_tag points at src.physicalCameraId, so src must outlive
// dst's use of it.
void convertFromAidl(const Stream& src, Camera3Stream* dst);

void convertFromAidl(buffer_handle_t* bufPtr, BufferStatus status, camera3_stream_t* stream,
                     int acquireFence, camera3_stream_buffer_t* dst);

void convertToAidl(const camera3_notify_msg* src, NotifyMsg* dst);

// A new native handle holding duplicates of the descriptors of handle, and its ints; null when
// handle is empty or a descriptor cannot be duplicated. Free with native_handle_close and
// native_handle_delete.
native_handle_t* convertFromAidl(const NativeHandle& handle);

// A NativeHandle owning duplicates of the descriptors of handle, and its ints; empty for null.
NativeHandle convertToAidl(const native_handle_t* handle);

::ndk::ScopedAStatus convertToScopedAStatus(Status status);

}  // namespace implementation
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android

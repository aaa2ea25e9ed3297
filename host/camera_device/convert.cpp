/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "convert.h"

#include <android/log.h>
#include <errno.h>
#include <string.h>
#include <unistd.h>

namespace android {
namespace hardware {
namespace camera {
namespace device {
namespace implementation {

using ::aidl::android::hardware::camera::device::ErrorCode;
using ::aidl::android::hardware::camera::device::ErrorMsg;
using ::aidl::android::hardware::camera::device::ShutterMsg;

namespace {

constexpr char kLogTag[] = "android.hardware.camera.device-convert-impl";

}  // namespace

bool convertFromAidl(const CameraMetadata& src, const camera_metadata_t** dst) {
    const std::vector<uint8_t>& metadata = src.metadata;
    if (metadata.empty()) {
        *dst = nullptr;
        return true;
    }

    size_t size = metadata.size();
    const camera_metadata_t* data = reinterpret_cast<const camera_metadata_t*>(metadata.data());
    // A buffer shorter than the header cannot even be asked for its size.
    if (size < calculate_camera_metadata_size(0, 0) || get_camera_metadata_size(data) != size ||
        validate_camera_metadata_structure(data, &size) != 0) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%s: input CameraMetadata is corrupt!",
                            __FUNCTION__);
        return false;
    }
    *dst = data;
    return true;
}

void convertToAidl(const camera_metadata_t* src, CameraMetadata* dst) {
    if (src == nullptr) return;
    const uint8_t* data = reinterpret_cast<const uint8_t*>(src);
    dst->metadata.assign(data, data + get_camera_metadata_size(src));
}

void convertFromAidl(const Stream& src, Camera3Stream* dst) {
    dst->mId = src.id;
    dst->stream_type = static_cast<int>(src.streamType);
    dst->width = static_cast<uint32_t>(src.width);
    dst->height = static_cast<uint32_t>(src.height);
    dst->format = static_cast<int>(src.format);
    dst->data_space = static_cast<android_dataspace_t>(src.dataSpace);
    dst->rotation = static_cast<int>(src.rotation);
    dst->usage = static_cast<uint32_t>(src.usage);
    dst->max_buffers = 0;
    dst->priv = nullptr;
    dst->physical_camera_id = nullptr;

    dst->group_id = src.groupId;
    dst->dynamic_range_profile = static_cast<int64_t>(src.dynamicRangeProfile);
    dst->color_space = src.colorSpace;
    dst->use_case = static_cast<int64_t>(src.useCase);
    dst->vendor_stream_tag = src.physicalCameraId.c_str();
    dst->vendor_stream_hint = src.bufferSize;
}

void convertFromAidl(buffer_handle_t* bufPtr, BufferStatus status, camera3_stream_t* stream,
                     int acquireFence, camera3_stream_buffer_t* dst) {
    dst->stream = stream;
    dst->buffer = bufPtr;
    dst->status = static_cast<int>(status);
    dst->acquire_fence = acquireFence;
    dst->release_fence = -1;
    dst->vendor_reserved = 0;
    dst->vendor_priv = nullptr;
}

void convertToAidl(const camera3_notify_msg* src, NotifyMsg* dst) {
    switch (src->type) {
        case CAMERA3_MSG_ERROR: {
            const camera3_error_msg_t& error = src->message.error;
            ErrorMsg msg;
            msg.frameNumber = static_cast<int32_t>(error.frame_number);
            msg.errorStreamId = error.error_stream != nullptr
                                        ? static_cast<Camera3Stream*>(error.error_stream)->mId
                                        : -1;
            msg.errorCode = static_cast<ErrorCode>(error.error_code);
            dst->set<NotifyMsg::Tag::error>(msg);
            break;
        }
        case CAMERA3_MSG_SHUTTER: {
            ShutterMsg msg;
            msg.frameNumber = static_cast<int32_t>(src->message.shutter.frame_number);
            msg.timestamp = static_cast<int64_t>(src->message.shutter.timestamp);
            dst->set<NotifyMsg::Tag::shutter>(msg);
            break;
        }
        default:
            __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                                "%s: HIDL type converion failed. Unknown msg type 0x%x",
                                __FUNCTION__, static_cast<unsigned>(src->type));
    }
}

native_handle_t* convertFromAidl(const NativeHandle& handle) {
    if (handle.fds.empty() && handle.ints.empty()) return nullptr;

    native_handle_t* nh = native_handle_create(static_cast<int>(handle.fds.size()),
                                               static_cast<int>(handle.ints.size()));
    if (nh == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "%s: cannot create a native handle of %zu fds and %zu ints",
                            __FUNCTION__, handle.fds.size(), handle.ints.size());
        return nullptr;
    }
    for (size_t i = 0; i < handle.fds.size(); i++) {
        int fd = dup(handle.fds[i].get());
        if (fd < 0) {
            __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%s: failed to dup fd %d: %s",
                                __FUNCTION__, handle.fds[i].get(), strerror(errno));
            for (size_t j = 0; j < i; j++) close(nh->data[j]);
            native_handle_delete(nh);
            return nullptr;
        }
        nh->data[i] = fd;
    }
    for (size_t i = 0; i < handle.ints.size(); i++) {
        nh->data[handle.fds.size() + i] = handle.ints[i];
    }
    return nh;
}

NativeHandle convertToAidl(const native_handle_t* handle) {
    NativeHandle result;
    if (handle == nullptr) return result;

    result.fds.reserve(handle->numFds);
    for (int i = 0; i < handle->numFds; i++) {
        int fd = dup(handle->data[i]);
        if (fd < 0) {
            __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%s: failed to dup fd %d: %s",
                                __FUNCTION__, handle->data[i], strerror(errno));
            return NativeHandle();  // the duplicates made so far close with result
        }
        result.fds.emplace_back(fd);
    }
    result.ints.assign(handle->data + handle->numFds,
                       handle->data + handle->numFds + handle->numInts);
    return result;
}

::ndk::ScopedAStatus convertToScopedAStatus(Status status) {
    if (status == Status::OK) return ::ndk::ScopedAStatus::ok();
    return ::ndk::ScopedAStatus::fromServiceSpecificErrorWithMessage(static_cast<int32_t>(status),
                                                                     toString(status).c_str());
}

}  // namespace implementation
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * What the tests and the benchmarks play on the client side: the names a consumer client of the
 * published service works with, the way such a client reaches the service and hands its callback
 * over as a binder of another process, a session client's callback, and a camera3 output stream
 * of the HAL. Header only, so that the benchmarks can use it without the tests' support library.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineClientCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <android/binder_manager.h>
#include <hardware/camera3.h>
#include <hostplatform/BinderTesting.h>
#include <stdint.h>
#include <string.h>

#include <memory>
#include <string>
#include <vector>

namespace offlinecamera::clientside {

using ::aidl::android::hardware::camera::device::BufferRequestStatus;
using ::aidl::android::hardware::camera::device::CaptureResult;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::android::hardware::camera::device::StreamBuffer;
using ::aidl::android::hardware::camera::device::StreamBufferRet;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineClientCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineClientCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineBufferRequest;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureResult;

/* The interface on a binder marked as living in another process. */
template <typename Interface>
std::shared_ptr<Interface> RemoteInterface(const ::ndk::SpAIBinder& binder) {
    ::ndk::host::setRemote(binder.get(), true);
    return Interface::fromBinder(binder);
}

/* The published service as a client process reaches it, through the service manager. */
inline std::shared_ptr<IOfflineCameraService> ConnectToService() {
    const std::string instance = std::string(IOfflineCameraService::descriptor) + "/default";
    return RemoteInterface<IOfflineCameraService>(
            ::ndk::SpAIBinder(AServiceManager_waitForService(instance.c_str())));
}

/* A session client's callback that accepts everything and keeps nothing. */
class SessionCallback : public BnOfflineCameraSessionCallback {
  public:
    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& /*msgs*/) override {
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus processCaptureResult(const std::vector<CaptureResult>& /*results*/) override {
        return ::ndk::ScopedAStatus::ok();
    }
};

/* A camera3 output stream of the HAL. */
inline camera3_stream_t MakeStream(uint32_t width, uint32_t height, int format, uint32_t usage = 0,
                                   android_dataspace_t dataSpace = HAL_DATASPACE_UNKNOWN,
                                   int rotation = CAMERA3_STREAM_ROTATION_0) {
    camera3_stream_t stream;
    memset(&stream, 0, sizeof(stream));
    stream.stream_type = CAMERA3_STREAM_OUTPUT;
    stream.width = width;
    stream.height = height;
    stream.format = format;
    stream.usage = usage;
    stream.max_buffers = 4;
    stream.data_space = dataSpace;
    stream.rotation = rotation;
    return stream;
}

}  // namespace offlinecamera::clientside

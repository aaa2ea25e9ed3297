/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * What an offline session client plays, shared by the long leak run, the benchmarks and the fuzz
 * targets: the streams of its configuration, the capture settings it serialises, the buffers it
 * allocates, a callback that counts what reaches it, and the reference backend's handle of the
 * session it opened. Header only; its users link the camera device converters, the host graphics
 * buffers and the reference backend.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/OfflineCaptureRequest.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/OfflineSessionConfiguration.h>
#include <convert.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <stdint.h>
#include <system/camera_metadata.h>
#include <system/camera_metadata_tags.h>

#include <atomic>
#include <string>
#include <vector>

namespace offlinecamera::clientside {

using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::CaptureResult;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::android::hardware::camera::device::Stream;
using ::aidl::android::hardware::camera::device::StreamBuffer;
using ::aidl::android::hardware::camera::device::StreamConfigurationMode;
using ::aidl::android::hardware::camera::device::StreamType;
using ::aidl::android::hardware::graphics::common::BufferUsage;
using ::aidl::android::hardware::graphics::common::PixelFormat;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureRequest;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineInputFrame;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineSessionConfiguration;

/* A stream of an offline session's configuration, read by the CPU. */
inline Stream OfflineStream(int32_t id, StreamType type, uint32_t width, uint32_t height,
                            PixelFormat format) {
    Stream stream;
    stream.id = id;
    stream.streamType = type;
    stream.width = static_cast<int32_t>(width);
    stream.height = static_cast<int32_t>(height);
    stream.format = format;
    stream.usage = BufferUsage::CPU_READ_OFTEN;
    return stream;
}

/* Capture settings as a client serialises them: an exposure time and a sensitivity. */
inline std::vector<uint8_t> CaptureSettings(int64_t exposureNs, int32_t sensitivity) {
    camera_metadata_t* metadata = allocate_camera_metadata(2, 16);
    add_camera_metadata_entry(metadata, ANDROID_SENSOR_EXPOSURE_TIME, &exposureNs, 1);
    add_camera_metadata_entry(metadata, ANDROID_SENSOR_SENSITIVITY, &sensitivity, 1);
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(metadata);
    std::vector<uint8_t> copy(bytes, bytes + get_camera_metadata_size(metadata));
    free_camera_metadata(metadata);
    return copy;
}

/* A buffer the client allocated (a new memfd), as it travels in a request. */
inline StreamBuffer ClientBuffer(int32_t streamId, int64_t bufferId, uint32_t width, uint32_t height,
                                 int32_t format, BufferStatus status = BufferStatus::OK) {
    StreamBuffer buffer;
    buffer.streamId = streamId;
    buffer.bufferId = bufferId;
    buffer.status = status;
    native_handle_t* handle = ::android::hostgralloc::allocate(width, height, format, 0x3);
    if (handle != nullptr) {
        buffer.buffer = ::android::hardware::camera::device::implementation::convertToAidl(handle);
        ::android::hostgralloc::release(handle);
    }
    return buffer;
}

/* The streams of a session that fuses Y8 input frames into a Y8 output buffer. */
constexpr int32_t kFusionInputStream = 1;
constexpr int32_t kFusionOutputStream = 2;

inline OfflineSessionConfiguration FusionConfiguration(uint32_t width, uint32_t height,
                                                       const std::string& cameraId = "0") {
    OfflineSessionConfiguration config;
    config.cameraId = cameraId;
    config.streams = {
            OfflineStream(kFusionInputStream, StreamType::INPUT, width, height, PixelFormat::Y8),
            OfflineStream(kFusionOutputStream, StreamType::OUTPUT, width, height, PixelFormat::Y8)};
    config.operationMode = StreamConfigurationMode::NORMAL_MODE;
    return config;
}

/*
 * A request of `frames` input frames of one buffer each (ids from firstInputId on, the capture
 * settings in the first frame only) and one output buffer.
 */
inline OfflineCaptureRequest FusionRequest(int32_t frameNumber, int64_t firstInputId, size_t frames,
                                           int64_t outputId, uint32_t width, uint32_t height,
                                           int64_t exposureNs = 1000000,
                                           int32_t outputStream = kFusionOutputStream) {
    OfflineCaptureRequest request;
    request.frameNumber = frameNumber;
    for (size_t i = 0; i < frames; i++) {
        OfflineInputFrame frame;
        frame.inputBuffers.push_back(ClientBuffer(kFusionInputStream,
                                                  firstInputId + static_cast<int64_t>(i), width,
                                                  height, HAL_PIXEL_FORMAT_Y8));
        if (i == 0) frame.settings.metadata = CaptureSettings(exposureNs, 100);
        request.inputFrames.push_back(std::move(frame));
    }
    request.outputBuffers.push_back(
            ClientBuffer(outputStream, outputId, width, height, HAL_PIXEL_FORMAT_Y8));
    return request;
}

/* A session client's callback that counts what reaches it. */
class CountingSessionCallback : public BnOfflineCameraSessionCallback {
  public:
    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& msgs) override {
        mMessages += msgs.size();
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus processCaptureResult(const std::vector<CaptureResult>& results) override {
        mResults += results.size();
        return ::ndk::ScopedAStatus::ok();
    }

    std::atomic<size_t> mMessages{0};
    std::atomic<size_t> mResults{0};
};

/* The reference backend's handle of the session opened last, from its call records; 0 if none. */
inline uint64_t LastBackendSession() {
    const std::vector<kivref::CallRecord> calls = kivref::Calls();
    for (auto call = calls.rbegin(); call != calls.rend(); ++call) {
        if (call->slot == kivref::Slot::OpenSession) return call->session;
    }
    return 0;
}

}  // namespace offlinecamera::clientside

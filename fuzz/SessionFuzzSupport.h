/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * What the offline session fuzz targets share: the process with the published service and the
 * reference backend bound, a session client in "another process" (its callback and its session
 * reached through proxies of remote binders), the buffers it allocates and the counts that every
 * input must give back.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <android/binder_auto_utils.h>
#include <stddef.h>
#include <stdint.h>

#include <memory>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "OfflineClientSide.h"
#include "ProcessCounts.h"

namespace offlinecamera::fuzz {

using namespace ::offlinecamera::clientside;
using ::aidl::android::hardware::common::NativeHandle;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureRequest;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineInputFrame;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineSessionConfiguration;

/* Streams of the standard configuration of camera "0", all kWidth x kHeight Y8. */
constexpr int32_t kInputStream = 1;
constexpr int32_t kOutputStream = 2;
constexpr int32_t kSecondOutputStream = 3;
constexpr int32_t kWidth = 8;
constexpr int32_t kHeight = 4;

/*
 * Binds the core to the reference backend, publishes the service and connects to it as a client
 * process does; silences the log. Call once, from LLVMFuzzerInitialize.
 */
void SetUpSessionProcess();

/* Stops the process, printing both counts, unless the counts are back at start. */
void CheckGivenBack(const ::offlinecamera::test::ProcessCounts& start);

/* One session of a client in another process. */
class ClientSession {
  public:
    /* Opens the session through the published service; the backend must open one. */
    explicit ClientSession(const std::string& name);

    IOfflineCameraSession& Session() { return *mSession; }
    /* The backend's handle of the session. */
    uint64_t Handle() const { return mHandle; }
    const CountingSessionCallback& Callback() const { return *mCallback; }

    void Configure(const OfflineSessionConfiguration& config);
    /* The frame number the session answered. */
    int32_t Process(const std::vector<OfflineCaptureRequest>& requests);
    /* The client's process dies; the session stays until its last reference goes. */
    void ClientDies();
    /*
     * Closes the session (or only drops it, so that its last reference closes it) and waits
     * until the backend session has gone. The client's callback stays until this object goes.
     */
    void End(bool close);

  private:
    std::shared_ptr<CountingSessionCallback> mCallback;
    ::ndk::SpAIBinder mCallbackBinder;
    std::shared_ptr<IOfflineCameraSession> mSession;
    uint64_t mHandle = 0;
};

/*
 * Holds the metadata operations of cameras for its lifetime, as another session of the process
 * would. The backend ends the metadata made for a camera when the camera's last table closes,
 * which would hide metadata that the library forgot to destroy; with the tables held, such
 * metadata stays counted.
 */
class MetadataOpsHold {
  public:
    explicit MetadataOpsHold(std::vector<uint32_t> cameraIds);
    ~MetadataOpsHold();
    MetadataOpsHold(const MetadataOpsHold&) = delete;
    MetadataOpsHold& operator=(const MetadataOpsHold&) = delete;

  private:
    std::vector<uint32_t> mCameraIds;
};

/* How a client buffer's handle travels. */
enum class HandleKind : uint8_t {
    kValid,     // a buffer of the platform's allocator (kWidth x kHeight Y8)
    kEmpty,     // no descriptors and no ints
    kIntsOnly,  // ints without a descriptor
    kForeign,   // a descriptor with ints that the mapper does not know
    kCount
};

NativeHandle MakeHandle(HandleKind kind);
StreamBuffer MakeBuffer(int32_t streamId, int64_t bufferId, HandleKind kind,
                        BufferStatus status = BufferStatus::OK);

/* Camera "0": kInputStream as input, kOutputStream and kSecondOutputStream as outputs. */
OfflineSessionConfiguration StandardConfiguration();
/* The capture settings that the fuzzers' clients send. */
std::vector<uint8_t> SettingsBytes();
/* Metadata bytes as a SettingsChoice byte of the input selects them (SessionPrograms.h). */
std::vector<uint8_t> ReadMetadataBytes(ByteReader& input);

}  // namespace offlinecamera::fuzz

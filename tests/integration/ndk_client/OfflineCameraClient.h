/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * A vendor client of IOfflineCameraService, written against the NDK backend of
 * vendor.oru.hardware.camera.offlinecamera-V2 (libbinder_ndk and the generated headers only), as
 * a client process on the device uses the service.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineClientCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <android/binder_auto_utils.h>
#include <stdint.h>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

namespace oru::offlinecamera::client {

using ::aidl::android::hardware::camera::device::BufferRequestStatus;
using ::aidl::android::hardware::camera::device::CaptureResult;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::android::hardware::camera::device::StreamBuffer;
using ::aidl::android::hardware::camera::device::StreamBufferRet;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineClientCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineBufferRequest;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureResult;

/*
 * Buffer consumer callback. This client has no buffers of its own to lend, so it declines every
 * request; it counts what the service delivers.
 */
class ConsumerCallback : public BnOfflineClientCallback {
  public:
    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& in_msgs) override;
    ::ndk::ScopedAStatus processCaptureResult(
            const std::vector<OfflineCaptureResult>& in_results) override;
    ::ndk::ScopedAStatus requestStreamBuffers(const std::vector<OfflineBufferRequest>& in_bufReqs,
                                              std::vector<StreamBufferRet>* out_buffers,
                                              BufferRequestStatus* _aidl_return) override;
    ::ndk::ScopedAStatus returnStreamBuffers(const std::vector<StreamBuffer>& in_buffers) override;

    std::atomic<int32_t> mResults{0};
    std::atomic<int32_t> mDeclinedRequests{0};
};

/* Callback of an offline session: counts the messages and results that arrive. */
class SessionCallback : public BnOfflineCameraSessionCallback {
  public:
    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& in_msgs) override;
    ::ndk::ScopedAStatus processCaptureResult(const std::vector<CaptureResult>& in_results) override;

    std::atomic<int32_t> mMessages{0};
    std::atomic<int32_t> mResults{0};
};

class OfflineCameraClient {
  public:
    /* "vendor.oru.hardware.camera.offlinecamera.IOfflineCameraService/default" */
    static std::string InstanceName();

    /*
     * Looks the service up: waits for it to be published when wait is true, otherwise only
     * checks whether it is there. Null when it is not found or serves an older version of the
     * interface than the one this client is built with.
     */
    static std::unique_ptr<OfflineCameraClient> Connect(bool wait);

    ~OfflineCameraClient();
    OfflineCameraClient(const OfflineCameraClient&) = delete;
    OfflineCameraClient& operator=(const OfflineCameraClient&) = delete;

    int32_t servedVersion() const { return mServedVersion; }
    const std::string& servedHash() const { return mServedHash; }
    /* True when the served interface is the very one this client is built with. */
    bool sameInterface() const;
    /* True once the process that serves the service has died. */
    bool serviceDied() const { return mDeathState->died; }
    bool isRemote() const { return mService->isRemote(); }

    ::ndk::ScopedAStatus supportedOpModes(std::vector<int32_t>* modes);
    ::ndk::ScopedAStatus registerConsumer(int32_t clientId);
    ::ndk::ScopedAStatus unregisterConsumer(int32_t clientId);
    ::ndk::ScopedAStatus openSession(const std::string& name,
                                     std::shared_ptr<IOfflineCameraSession>* session);

    const std::shared_ptr<ConsumerCallback>& consumerCallback() const { return mConsumer; }
    const std::shared_ptr<SessionCallback>& sessionCallback() const { return mSession; }

  private:
    struct DeathState {
        std::atomic<bool> died{false};
    };

    explicit OfflineCameraClient(std::shared_ptr<IOfflineCameraService> service);
    bool init();

    static void onServiceDied(void* cookie);
    static void onUnlinked(void* cookie);

    std::shared_ptr<IOfflineCameraService> mService;
    std::shared_ptr<ConsumerCallback> mConsumer;
    std::shared_ptr<SessionCallback> mSession;
    // Shared with the death link's cookie, which the binder library frees through onUnlinked.
    std::shared_ptr<DeathState> mDeathState;
    ::ndk::ScopedAIBinder_DeathRecipient mDeathRecipient;
    int32_t mServedVersion = 0;
    std::string mServedHash;
};

}  // namespace oru::offlinecamera::client

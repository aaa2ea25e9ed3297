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
using ::ndk::ScopedAStatus;

/* Buffer consumer callback. This client has no buffers to lend, so it declines every request. */
class ConsumerCallback : public BnOfflineClientCallback {
  public:
    ScopedAStatus notify(const std::vector<NotifyMsg>&) override { return ScopedAStatus::ok(); }
    ScopedAStatus processCaptureResult(const std::vector<OfflineCaptureResult>&) override {
        return ScopedAStatus::ok();
    }
    ScopedAStatus requestStreamBuffers(const std::vector<OfflineBufferRequest>& in_bufReqs,
                                       std::vector<StreamBufferRet>* out_buffers,
                                       BufferRequestStatus* _aidl_return) override;
    ScopedAStatus returnStreamBuffers(const std::vector<StreamBuffer>&) override {
        return ScopedAStatus::ok();
    }
};

/* Callback of an offline session: counts the results that arrive. */
class SessionCallback : public BnOfflineCameraSessionCallback {
  public:
    ScopedAStatus notify(const std::vector<NotifyMsg>&) override { return ScopedAStatus::ok(); }
    ScopedAStatus processCaptureResult(const std::vector<CaptureResult>& in_results) override {
        mResults += static_cast<int32_t>(in_results.size());
        return ScopedAStatus::ok();
    }

    std::atomic<int32_t> mResults{0};
};

class OfflineCameraClient {
  public:
    /* Waits for "<descriptor>/default"; null if it is not declared or older than this client. */
    static std::unique_ptr<OfflineCameraClient> Connect();

    const std::shared_ptr<IOfflineCameraService>& service() const { return mService; }
    /* True once the process that serves the service has died. */
    bool serviceDied() const { return *mDied; }

    /* Registers this client's buffer consumer callback under the id. */
    ScopedAStatus registerConsumer(int32_t clientId) {
        return mService->registerClient(clientId, mConsumer);
    }
    /* Opens a session whose results go to this client's session callback. */
    ScopedAStatus openSession(const std::string& name,
                              std::shared_ptr<IOfflineCameraSession>* session) {
        return mService->openOfflineSeesion(name, mSession, session);
    }

  private:
    OfflineCameraClient() = default;

    std::shared_ptr<IOfflineCameraService> mService;
    std::shared_ptr<ConsumerCallback> mConsumer = ::ndk::SharedRefBase::make<ConsumerCallback>();
    std::shared_ptr<SessionCallback> mSession = ::ndk::SharedRefBase::make<SessionCallback>();
    // Shared with the death link's cookie, which the binder library frees once the link ends.
    std::shared_ptr<std::atomic<bool>> mDied = std::make_shared<std::atomic<bool>>(false);
    // Deleting the recipient with the client undoes the link.
    ::ndk::ScopedAIBinder_DeathRecipient mDeathRecipient;
};

}  // namespace oru::offlinecamera::client

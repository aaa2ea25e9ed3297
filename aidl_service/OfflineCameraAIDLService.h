/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * OfflineCameraAIDLService: the binder service IOfflineCameraService, published by
 * RegisterOfflineCameraAIDLService() under "<descriptor>/default".
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraService.h>
#include <android/binder_auto_utils.h>
#include <android/binder_ibinder.h>
#include <stdint.h>

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "OfflineCameraService.h"

/* Publishes IOfflineCameraService; the hosting process calls it once at start-up. */
extern "C" OFFLINE_CAMERA_EXPORT void RegisterOfflineCameraAIDLService();

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

class OfflineCameraAIDLService;

/* Death-watch cookie of one registered client; its address is fixed for the service's life. */
struct ClientSlot {
    int32_t clientId;
    OfflineCameraAIDLService* service;
    bool inUse;
};

/* A buffer lent to the producer on a consumer's behalf. */
struct ClientBufferRecord {
    int32_t streamId;
    int64_t bufferId;
    buffer_handle_t handle;
};

class OfflineCameraAIDLService : public BnOfflineCameraService {
  public:
    static constexpr size_t kMaxClients = 10;

    OfflineCameraAIDLService();
    ~OfflineCameraAIDLService() override;

    ::ndk::ScopedAStatus getSupportedOpModes(std::vector<int32_t>* _aidl_return) override;
    ::ndk::ScopedAStatus registerClient(
            int32_t in_clientId,
            const std::shared_ptr<IOfflineClientCallback>& in_callback) override;
    ::ndk::ScopedAStatus unRegisterClient(int32_t in_clientId) override;
    ::ndk::ScopedAStatus openOfflineSeesion(
            const std::string& in_clientSessionName,
            const std::shared_ptr<IOfflineCameraSessionCallback>& in_callback,
            std::shared_ptr<IOfflineCameraSession>* _aidl_return) override;
    ::ndk::ScopedAStatus getOfflineStaticCaps(
            ::aidl::android::hardware::camera::device::CameraMetadata* _aidl_return) override;

    /* The callback record that this service hands to the core with every registration. */
    const ClientCallbacks& clientCallbacks() const { return mClientCallbacks; }

  private:
    /* Consumer callbacks handed to the core; pPrivateData is the service. */
    static int32_t processCaptureResultCb(const ClientCallbacks* pCallbackOps, int32_t clientId,
                                          const camera3_capture_result_t* pCaptureResult);
    static uint32_t requestStreamBuffersCb(const ClientCallbacks* pCallbackOps, int32_t clientId,
                                           std::vector<StreamBufferRequest> requests);
    static void returnBuffersCb(const ClientCallbacks* pCallbackOps, int32_t clientId,
                                std::vector<buffer_handle_t*> buffers);

    /* Service operations behind the three callbacks. */
    uint32_t requestStreamBuffers(int32_t clientId, std::vector<StreamBufferRequest> requests);
    void returnBuffers(int32_t clientId, std::vector<buffer_handle_t*> buffers);
    void processCaptureResult(int32_t clientId, const camera3_capture_result_t* pCaptureResult);

    /* The registered callback of a client, empty when there is none. Takes mCallbackLock. */
    std::shared_ptr<IOfflineClientCallback> findCallback(int32_t clientId);

    /* Death notification of a client's callback binder; the cookie is its ClientSlot. */
    static void binderDied(void* cookie);

    std::unordered_map<int32_t, std::shared_ptr<IOfflineClientCallback>> mCallbackMap;
    std::unordered_map<int32_t, std::vector<ClientBufferRecord>> mClientBuffers;
    ClientCallbacks mClientCallbacks;
    ::ndk::ScopedAIBinder_DeathRecipient mDeathRecipient;
    ClientSlot mClientSlots[kMaxClients];
    // Guards mCallbackMap, and mClientBuffers where clients register; the producer's callbacks
    // use the lists of lent buffers without it. Taken before mSlotLock when both are needed.
    std::mutex mCallbackLock;
    // Guards mClientSlots.
    std::mutex mSlotLock;
};

}  // namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation

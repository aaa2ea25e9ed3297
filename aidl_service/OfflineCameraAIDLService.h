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

#include <list>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "Locks.h"
#include "OfflineCameraService.h"

/* Publishes IOfflineCameraService; the hosting process calls it once at start-up. */
extern "C" OFFLINE_CAMERA_EXPORT void RegisterOfflineCameraAIDLService();

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

struct ClientDeathCookie;

/*
 * Death-watch bookkeeping of one registered client; its address is fixed for the service's life.
 * The cookie of the client's death link is a separate object, pCookie, which the binder library
 * hands back until the link is gone.
 */
struct ClientSlot {
    int32_t clientId;
    bool inUse;
    ClientDeathCookie* pCookie;
};

/*
 * A buffer lent to the producer on a consumer's behalf. The producer holds the address of
 * handle, which stays where it is until the record is erased.
 */
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

    /* The registered callback of a client, empty when there is none. */
    std::shared_ptr<IOfflineClientCallback> findCallback(int32_t clientId) EXCLUDES(mCallbackLock);

    /* Death notification of a client's callback binder; the cookie is its ClientDeathCookie. */
    static void binderDied(void* cookie);
    /* The end of a death link: its cookie goes. */
    static void deathLinkEnded(void* cookie);
    /* Drops the registration that a death cookie watches, if it is still the registered one. */
    void clientDied(const ClientDeathCookie& cookie) EXCLUDES(mCallbackLock, mSlotLock);

    /*
     * Records a buffer lent on clientId's behalf; the producer is given the address of the
     * record's handle.
     */
    ClientBufferRecord* recordLentBuffer(int32_t clientId, const ClientBufferRecord& record)
            EXCLUDES(mCallbackLock);
    /*
     * Finds the lent buffer whose handle is what pBuffer reads, erases its record and gives it
     * back; false when the client lent no such buffer. A client id without a list of lent
     * buffers stops the process.
     */
    bool takeLentBuffer(int32_t clientId, const buffer_handle_t* pBuffer,
                        ClientBufferRecord* pRecord) EXCLUDES(mCallbackLock);
    /* Erases and frees the lent buffers that a result hands back, without a client to tell. */
    void forgetLentBuffers(int32_t clientId, const camera3_capture_result_t* pCaptureResult)
            EXCLUDES(mCallbackLock);

    // Guards mCallbackMap and mClientBuffers. Taken before mSlotLock when both are needed, and
    // never held while a client is called.
    ::offlinecamera::Mutex mCallbackLock ACQUIRED_BEFORE(mSlotLock);
    // Guards mClientSlots.
    ::offlinecamera::Mutex mSlotLock;
    std::unordered_map<int32_t, std::shared_ptr<IOfflineClientCallback>> mCallbackMap
            GUARDED_BY(mCallbackLock);
    // Lists of buffers lent per client id; a list is made at the client's first registration and
    // stays, with the buffers still lent, for the life of the service. Records stay where they
    // are until erased, as the producer holds pointers into them.
    std::unordered_map<int32_t, std::list<ClientBufferRecord>> mClientBuffers
            GUARDED_BY(mCallbackLock);
    ClientCallbacks mClientCallbacks;
    ::ndk::ScopedAIBinder_DeathRecipient mDeathRecipient;
    ClientSlot mClientSlots[kMaxClients] GUARDED_BY(mSlotLock);
};

}  // namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation

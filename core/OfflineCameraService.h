/*
 * Copyright (C) 2026 Oru Camera
 *
 * OfflineCameraService: the process-wide core of the offline camera library and its in-process
 * interface for the camera HAL. It binds the offline processing backend, keeps the backend's
 * tables and the static camera metadata, and keeps the registry of buffer consumer clients that
 * the HAL (the producer) works with.
 */
#pragma once

#include <hardware/camera3.h>
#include <pthread.h>
#include <stdint.h>
#include <system/camera_metadata.h>

#include <set>
#include <unordered_map>
#include <vector>

#include "KivOfflineInterface.h"

#define OFFLINE_CAMERA_EXPORT __attribute__((visibility("default")))

/* One buffer request handed to a consumer: the producer's stream and output array. */
struct StreamBufferRequest {
    camera3_stream_t* stream;
    uint32_t numBuffers;
    uint32_t status;
    camera3_stream_buffer_t* pOutputBuffers;
};

/*
 * Consumer callbacks. Each function receives the record itself first and finds its callee in
 * pPrivateData. The record is owned by the caller of RegisterConsumerClient and must outlive
 * the service.
 */
struct ClientCallbacks {
    int32_t (*pResult)(const ClientCallbacks* pSelf, int32_t clientId,
                       const camera3_capture_result_t* pResult);
    uint32_t (*pRequestBuffers)(const ClientCallbacks* pSelf, int32_t clientId,
                                std::vector<StreamBufferRequest> requests);
    void (*pReturnBuffers)(const ClientCallbacks* pSelf, int32_t clientId,
                           std::vector<buffer_handle_t*> buffers);
    void* pPrivateData;
};

class OFFLINE_CAMERA_EXPORT OfflineCameraService {
  public:
    /* The process-wide instance, made on first use and destroyed at process exit. */
    static OfflineCameraService* GetInstance();

    /*
     * Builds an instance and binds the backend. Code in the process uses GetInstance(); a
     * separate instance owns its own backend context and is meant for isolated use such as
     * bring-up checks of a backend.
     */
    OfflineCameraService();
    ~OfflineCameraService();

    OfflineCameraService(const OfflineCameraService&) = delete;
    OfflineCameraService& operator=(const OfflineCameraService&) = delete;

    /* Binds the backend; called once, by the constructor. */
    void Initialize();

    /* Static camera metadata read from the backend; null when it could not be built. */
    camera_metadata_t* GetOfflineStaticCaps();

    /* Consumer client registry. The first valid callback record serves every client. */
    void RegisterConsumerClient(int32_t clientId, const ClientCallbacks* pCallbacks);
    void unRegisterConsumerClient(int32_t clientId);

    /* A producer is registered exactly as long as the consumer with its id. */
    bool RegisterProducerClient(int32_t clientId);
    void UnRegisterProducerClient(int32_t clientId);

  private:
    struct MetaOpsEntry {
        const KivMetadataOps* pMetaOps;
        int32_t refCount;
    };

    /* Steps of Initialize that need a mapped backend; returns early on the first failure. */
    void BindBackend(PFNKivOfflineOpenContext pfnOpenContext);

    void* mLibHandle;
    const KivOfflineIntfCbs* pOfflineIntfCbs;
    const KivOfflineBufferOps* pOfflineBufferOps;
    std::unordered_map<uint32_t, MetaOpsEntry> mMetaOpsMap;
    // Guards mMetaOpsMap and every call into a backend metadata operations table.
    pthread_mutex_t mMetaOpsLock;
    // The client registry below is not locked: the HAL must not register or unregister a client
    // while its producer is using it.
    const ClientCallbacks* mpClientCallbacks;
    std::set<int32_t> mClientIds;
    camera_metadata_t* m_pStaticMeta;
};

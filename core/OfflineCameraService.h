/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * OfflineCameraService: the process-wide core of the offline camera library and its in-process
 * interface for the camera HAL. It binds the offline processing backend, keeps the backend's
 * tables and the static camera metadata, and keeps the registry of buffer consumer clients that
 * the HAL (the producer) works with.
 */
#pragma once

#include <hardware/camera3.h>
#include <stdint.h>
#include <system/camera_metadata.h>

#include <set>
#include <unordered_map>
#include <vector>

#include "KivOfflineInterface.h"
#include "Locks.h"

#define OFFLINE_CAMERA_EXPORT __attribute__((visibility("default")))

/*
 * One buffer request handed to a consumer: the producer's stream and output array.
 * Kept on purpose: numBuffers is the first request's count in every element of a call. The
 * consumer side never fills more than numOutputBuffers entries, the room of this request's own
 * array.
 */
struct StreamBufferRequest {
    camera3_stream_t* stream;
    uint32_t numBuffers;
    uint32_t status;
    camera3_stream_buffer_t* pOutputBuffers;
    uint32_t numOutputBuffers;
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

    /*
     * Consumer client registry. Kept on purpose: the first valid callback record serves every
     * client. Binder threads register and unregister while the producer's threads use it.
     */
    void RegisterConsumerClient(int32_t clientId, const ClientCallbacks* pCallbacks);
    void unRegisterConsumerClient(int32_t clientId);

    /* A producer is registered exactly as long as the consumer with its id. */
    bool RegisterProducerClient(int32_t clientId);
    void UnRegisterProducerClient(int32_t clientId);

    /*
     * Producer operations: buffers are asked from, and results handed to, the consumer registered
     * under clientId. Both return 4 (CAMERA3_BUF_REQ_FAILED_UNKNOWN) for an unknown client.
     */
    int32_t RequestStreamBuffers(int32_t clientId, uint32_t numBufferReqs,
                                 const camera3_buffer_request_t* pBufferReqs,
                                 uint32_t* pNumReturnedBufReqs,
                                 camera3_stream_buffer_ret_t* pReturnedBufReqs);
    int32_t ProcessCaptureResult(int32_t clientId, const camera3_capture_result_t* pResult);

    /*
     * Per-camera backend metadata operations, opened on first use and shared by count.
     * InitMetaOps answers whether the call took a hold (the count went up), which its caller
     * gives back with one DeInitMetaOps.
     */
    bool InitMetaOps(uint32_t cameraId);
    void DeInitMetaOps(uint32_t cameraId);

    /* Backend session operations, forwarded as they are. */
    uint64_t OpenSession(const KivOfflineSessionInfo* pSessionInfo);
    int32_t ConfigureSession(uint64_t hSession, KivOfflineSessionConfigInfo* pConfigInfo);
    int32_t ExecuteRequest(uint64_t hSession, KivOfflineCaptureRequestInfo* pRequest);
    int32_t Flush(uint64_t hSession, KivOfflineFlushInfo* pFlushInfo);
    int32_t Dump(uint64_t hSession);
    /* Closes the backend session, then drops the session's hold on the camera's operations. */
    int32_t CloseSession(uint32_t cameraId, uint64_t hSession);
    /* Closes the backend session of a session that holds no metadata operations. */
    int32_t CloseSession(uint64_t hSession);
    int32_t TranslateToKivBuffer(const camera3_stream_buffer_t* pHalBuffer,
                                 KivStreamBuffer* pKivBuffer);
    int32_t TranslateFromKivBuffer(const KivStreamBuffer* pKivBuffer,
                                   camera3_stream_buffer_t* pHalBuffer);

    /* Metadata conversion through the camera's operations; null or 1 when it has none. */
    camera_metadata_t* CreateAndroidMetadata(uint32_t cameraId, KivMetadataHandle hMetadata,
                                             int32_t arg0, int32_t arg1, uint32_t arg2,
                                             uint32_t* pOut);
    KivMetadataHandle CreateByAndroidMetadata(uint32_t cameraId, const camera_metadata_t* pMetadata,
                                              int32_t arg0, int32_t arg1, uint32_t arg2);
    KivMetadataHandle CreateKivMetaData(uint32_t cameraId, const uint32_t* pTags, uint32_t count);
    // Kept on purpose: the exported name's spelling.
    int32_t DestoryKivMetadata(uint32_t cameraId, KivMetadataHandle hMetadata);
    int32_t ReleaseAndroidMetadata(uint32_t cameraId, camera_metadata_t* pMetadata);

  private:
    struct MetaOpsEntry {
        const KivMetadataOps* pMetaOps;
        int32_t refCount;
    };

    /* How a camera without metadata operations is reported by one conversion. */
    struct NotFoundLog {
        bool canNotFind;  // "Can not find" wording, else "Not find"
        int line;
        const char* function;
    };

    /* Steps of Initialize that need a mapped backend; returns early on the first failure. */
    void BindBackend(PFNKivOfflineOpenContext pfnOpenContext);

    /*
     * Runs call(table) on the camera's metadata operations with mMetaOpsLock held and returns
     * its result; failure when the camera has no entry (logged) or its table is closed.
     */
    template <typename Result, typename Call>
    Result CallMetaOps(uint32_t cameraId, const NotFoundLog& notFound, Result failure, Call call)
            EXCLUDES(mMetaOpsLock);
    void LogMetaOpsNotFound(const NotFoundLog& notFound, uint32_t cameraId) REQUIRES(mMetaOpsLock);

    /* The registered callback record when clientId is a registered consumer, else null. */
    const ClientCallbacks* FindConsumer(int32_t clientId, size_t* pNumClients = nullptr)
            EXCLUDES(mClientLock);

    // Written by the constructor and the destructor only, read without a lock.
    void* mLibHandle;
    const KivOfflineIntfCbs* pOfflineIntfCbs;
    const KivOfflineBufferOps* pOfflineBufferOps;
    // Guards mMetaOpsMap and is held across every call into a backend metadata operations table.
    offlinecamera::Mutex mMetaOpsLock;
    std::unordered_map<uint32_t, MetaOpsEntry> mMetaOpsMap GUARDED_BY(mMetaOpsLock);
    // Guards the client registry. Never held while a consumer callback runs.
    offlinecamera::Mutex mClientLock;
    const ClientCallbacks* mpClientCallbacks GUARDED_BY(mClientLock);
    std::set<int32_t> mClientIds GUARDED_BY(mClientLock);
    camera_metadata_t* m_pStaticMeta;
};

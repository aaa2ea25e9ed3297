/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Tables and records of the offline processing backend ("/vendor/lib64/hw/com.oru.kiv.offline.so").
 *
 * The backend is a closed library: everything here is a wire format fixed by it. Tables are
 * arrays of function pointers owned by the backend; slots that this library never calls are
 * declared as opaque entries so that the later slots keep their positions. Records use natural
 * alignment with 64-bit pointers; every size and offset is pinned below.
 */
#pragma once

#include <hardware/camera3.h>
#include <stddef.h>
#include <stdint.h>
#include <system/camera_metadata.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Opaque backend metadata handle. */
typedef void* KivMetadataHandle;

/* A table slot whose signature is the backend's own and that this library never calls. */
typedef void (*KivOpaqueEntry)(void);

struct KivOfflineIntfCbs;
struct KivMetadataOps;
struct KivOfflineBufferOps;
struct KivOfflineCallbacks;

/* Opens the metadata operations of one camera; cameraId 0xFFFFFFFF means no particular camera. */
typedef struct KivMetadataOpsOpenInfo {
    uint32_t cameraId;
    uint32_t reserved0;
    uint64_t reserved1;
} KivMetadataOpsOpenInfo;

#define KIV_CAMERA_ID_ANY 0xFFFFFFFFu

/* Returned by value from pfnGetStaticInfo; only the first field is read by the service. */
typedef struct KivOfflineStaticInfo {
    KivMetadataHandle pStaticMetadata;
    uint8_t reserved[160];
} KivOfflineStaticInfo;

/* The backend's stream buffer. Its fields are the backend's; the translation slots fill it. */
typedef struct KivStreamBuffer {
    uint64_t opaque[24];
} KivStreamBuffer;

/* Session creation. pCallbacks must stay valid for the life of the backend session. */
typedef struct KivOfflineSessionInfo {
    const char* pSessionName;
    uint64_t reserved;
    const struct KivOfflineCallbacks* pCallbacks;
} KivOfflineSessionInfo;

typedef struct KivOfflineFlushInfo {
    uint32_t flushFlags;
} KivOfflineFlushInfo;

typedef struct KivOfflineSessionConfigInfo {
    const char* pCameraId;
    uint32_t numStreams;
    uint32_t padding0;
    camera3_stream_t** ppStreams;
    uint32_t operationMode;
    uint32_t padding1;
    KivMetadataHandle pSessionParameters;
    uint64_t reserved;
} KivOfflineSessionConfigInfo;

/* One input frame, or the output, of a request. */
typedef struct KivOfflineStreamInfo {
    uint32_t numBuffers;
    uint32_t padding;
    KivStreamBuffer* pBuffers;
    uint64_t reserved;
    KivMetadataHandle pMetadata;
} KivOfflineStreamInfo;

typedef struct KivOfflineCaptureRequestInfo {
    uint32_t numInputs;
    uint32_t padding;
    KivOfflineStreamInfo* pInputs;
    KivOfflineStreamInfo* pOutput;
    uint64_t reserved0;
    uint32_t* pFrameNumber;
    uint64_t reserved1;
    uint64_t reserved2;
} KivOfflineCaptureRequestInfo;

/* Output part or input part of a result record. */
typedef struct KivOfflineResultInfo {
    uint32_t numBuffers;
    uint32_t padding0;
    const KivStreamBuffer* pBuffers;
    uint32_t partialResult;
    uint32_t padding1;
    KivMetadataHandle pMetadata;
} KivOfflineResultInfo;

typedef struct KivOfflineCaptureResult {
    uint32_t frameNumber;
    uint32_t padding;
    const KivOfflineResultInfo* pOutput;
    const KivOfflineResultInfo* pInput;
    uint64_t reserved;
} KivOfflineCaptureResult;

typedef int32_t (*PFNKivProcessOfflineResult)(const struct KivOfflineCallbacks* pCallbackOps,
                                              uint32_t numResults,
                                              const KivOfflineCaptureResult* pResults);
typedef int32_t (*PFNKivProcessOfflineMessage)(const struct KivOfflineCallbacks* pCallbackOps,
                                               uint32_t numMessages,
                                               const camera3_notify_msg_t* pMessages);

/* Callbacks of one session; the backend hands the record back with every call. */
typedef struct KivOfflineCallbacks {
    PFNKivProcessOfflineResult pfnProcessResult;
    PFNKivProcessOfflineMessage pfnProcessMessage;
    uint64_t reserved0;
    uint64_t reserved1;
    void* pPrivateData;
} KivOfflineCallbacks;

/* Per-camera metadata operations, returned by pfnOpenMetadataOps. */
typedef struct KivMetadataOps {
    int32_t (*pfnClose)(const struct KivMetadataOps* pOps);
    KivOpaqueEntry pfnReserved1;
    KivMetadataHandle (*pfnCreateKivMetadata)(const struct KivMetadataOps* pOps,
                                              const uint32_t* pTags, uint32_t count);
    KivOpaqueEntry pfnReserved3;
    int32_t (*pfnDestroyKivMetadata)(KivMetadataHandle hMetadata);
    KivOpaqueEntry pfnReserved5;
    KivMetadataHandle (*pfnCreateByAndroidMetadata)(const struct KivMetadataOps* pOps,
                                                    const camera_metadata_t* pMetadata,
                                                    int32_t arg0, int32_t arg1, uint32_t arg2);
    camera_metadata_t* (*pfnCreateAndroidMetadata)(const struct KivMetadataOps* pOps,
                                                   KivMetadataHandle hMetadata, int32_t arg0,
                                                   int32_t arg1, uint32_t arg2, uint32_t* pOut);
    int32_t (*pfnReleaseAndroidMetadata)(const struct KivMetadataOps* pOps,
                                         camera_metadata_t* pMetadata);
} KivMetadataOps;

/* Buffer operations; only the first slot is used. */
typedef struct KivOfflineBufferOps {
    int32_t (*pfnClose)(const struct KivOfflineBufferOps* pOps);
} KivOfflineBufferOps;

/* Main entry table, returned by KivOfflineOpenContext. */
typedef struct KivOfflineIntfCbs {
    KivOpaqueEntry pfnReserved0;
    KivOpaqueEntry pfnReserved1;
    KivOpaqueEntry pfnReserved2;
    int32_t (*pfnCloseContext)(const struct KivOfflineIntfCbs* pCbs);
    KivOfflineStaticInfo (*pfnGetStaticInfo)(const struct KivOfflineIntfCbs* pCbs);
    uint64_t (*pfnOpenSession)(const struct KivOfflineIntfCbs* pCbs,
                               const KivOfflineSessionInfo* pInfo);
    int32_t (*pfnCloseSession)(uint64_t hSession);
    int32_t (*pfnConfigureSession)(uint64_t hSession, KivOfflineSessionConfigInfo* pInfo);
    int32_t (*pfnExecuteRequest)(uint64_t hSession, KivOfflineCaptureRequestInfo* pRequest);
    int32_t (*pfnFlush)(uint64_t hSession, KivOfflineFlushInfo* pInfo);
    int32_t (*pfnDump)(uint64_t hSession);
    const KivMetadataOps* (*pfnOpenMetadataOps)(const struct KivOfflineIntfCbs* pCbs,
                                                const KivMetadataOpsOpenInfo* pInfo);
    const KivOfflineBufferOps* (*pfnGetBufferOps)(const struct KivOfflineIntfCbs* pCbs);
    int32_t (*pfnTranslateToKivBuffer)(const camera3_stream_buffer_t* pHalBuffer,
                                       KivStreamBuffer* pKivBuffer);
    int32_t (*pfnTranslateFromKivBuffer)(const KivStreamBuffer* pKivBuffer,
                                         camera3_stream_buffer_t* pHalBuffer);
} KivOfflineIntfCbs;

/* The backend's only exported symbol. */
#define KIV_OFFLINE_OPEN_CONTEXT_SYMBOL "KivOfflineOpenContext"
#define KIV_OFFLINE_CONTEXT_NAME "HAL3 Extension"
#define KIV_OFFLINE_CONTEXT_VERSION 257u

typedef const KivOfflineIntfCbs* (*PFNKivOfflineOpenContext)(const char* pName, uint32_t version);

#ifdef __cplusplus
}  // extern "C"

#define KIV_PIN_SIZE(type, size) static_assert(sizeof(type) == (size), #type " size")
#define KIV_PIN_OFFSET(type, field, offset) \
    static_assert(offsetof(type, field) == (offset), #type "." #field " offset")

KIV_PIN_SIZE(KivMetadataOpsOpenInfo, 16);
KIV_PIN_OFFSET(KivMetadataOpsOpenInfo, cameraId, 0);
KIV_PIN_OFFSET(KivMetadataOpsOpenInfo, reserved0, 4);
KIV_PIN_OFFSET(KivMetadataOpsOpenInfo, reserved1, 8);

KIV_PIN_SIZE(KivOfflineStaticInfo, 168);
KIV_PIN_OFFSET(KivOfflineStaticInfo, pStaticMetadata, 0);

KIV_PIN_SIZE(KivStreamBuffer, 192);

KIV_PIN_SIZE(KivOfflineSessionInfo, 24);
KIV_PIN_OFFSET(KivOfflineSessionInfo, pSessionName, 0);
KIV_PIN_OFFSET(KivOfflineSessionInfo, reserved, 8);
KIV_PIN_OFFSET(KivOfflineSessionInfo, pCallbacks, 16);

KIV_PIN_SIZE(KivOfflineFlushInfo, 4);
KIV_PIN_OFFSET(KivOfflineFlushInfo, flushFlags, 0);

KIV_PIN_SIZE(KivOfflineSessionConfigInfo, 48);
KIV_PIN_OFFSET(KivOfflineSessionConfigInfo, pCameraId, 0);
KIV_PIN_OFFSET(KivOfflineSessionConfigInfo, numStreams, 8);
KIV_PIN_OFFSET(KivOfflineSessionConfigInfo, ppStreams, 16);
KIV_PIN_OFFSET(KivOfflineSessionConfigInfo, operationMode, 24);
KIV_PIN_OFFSET(KivOfflineSessionConfigInfo, pSessionParameters, 32);
KIV_PIN_OFFSET(KivOfflineSessionConfigInfo, reserved, 40);

KIV_PIN_SIZE(KivOfflineStreamInfo, 32);
KIV_PIN_OFFSET(KivOfflineStreamInfo, numBuffers, 0);
KIV_PIN_OFFSET(KivOfflineStreamInfo, pBuffers, 8);
KIV_PIN_OFFSET(KivOfflineStreamInfo, reserved, 16);
KIV_PIN_OFFSET(KivOfflineStreamInfo, pMetadata, 24);

KIV_PIN_SIZE(KivOfflineCaptureRequestInfo, 56);
KIV_PIN_OFFSET(KivOfflineCaptureRequestInfo, numInputs, 0);
KIV_PIN_OFFSET(KivOfflineCaptureRequestInfo, pInputs, 8);
KIV_PIN_OFFSET(KivOfflineCaptureRequestInfo, pOutput, 16);
KIV_PIN_OFFSET(KivOfflineCaptureRequestInfo, reserved0, 24);
KIV_PIN_OFFSET(KivOfflineCaptureRequestInfo, pFrameNumber, 32);
KIV_PIN_OFFSET(KivOfflineCaptureRequestInfo, reserved1, 40);
KIV_PIN_OFFSET(KivOfflineCaptureRequestInfo, reserved2, 48);

KIV_PIN_SIZE(KivOfflineResultInfo, 32);
KIV_PIN_OFFSET(KivOfflineResultInfo, numBuffers, 0);
KIV_PIN_OFFSET(KivOfflineResultInfo, pBuffers, 8);
KIV_PIN_OFFSET(KivOfflineResultInfo, partialResult, 16);
KIV_PIN_OFFSET(KivOfflineResultInfo, pMetadata, 24);

KIV_PIN_SIZE(KivOfflineCaptureResult, 32);
KIV_PIN_OFFSET(KivOfflineCaptureResult, frameNumber, 0);
KIV_PIN_OFFSET(KivOfflineCaptureResult, pOutput, 8);
KIV_PIN_OFFSET(KivOfflineCaptureResult, pInput, 16);
KIV_PIN_OFFSET(KivOfflineCaptureResult, reserved, 24);

KIV_PIN_SIZE(KivOfflineCallbacks, 40);
KIV_PIN_OFFSET(KivOfflineCallbacks, pfnProcessResult, 0);
KIV_PIN_OFFSET(KivOfflineCallbacks, pfnProcessMessage, 8);
KIV_PIN_OFFSET(KivOfflineCallbacks, reserved0, 16);
KIV_PIN_OFFSET(KivOfflineCallbacks, reserved1, 24);
KIV_PIN_OFFSET(KivOfflineCallbacks, pPrivateData, 32);

KIV_PIN_SIZE(KivMetadataOps, 9 * 8);
KIV_PIN_OFFSET(KivMetadataOps, pfnClose, 0);
KIV_PIN_OFFSET(KivMetadataOps, pfnCreateKivMetadata, 2 * 8);
KIV_PIN_OFFSET(KivMetadataOps, pfnDestroyKivMetadata, 4 * 8);
KIV_PIN_OFFSET(KivMetadataOps, pfnCreateByAndroidMetadata, 6 * 8);
KIV_PIN_OFFSET(KivMetadataOps, pfnCreateAndroidMetadata, 7 * 8);
KIV_PIN_OFFSET(KivMetadataOps, pfnReleaseAndroidMetadata, 8 * 8);

KIV_PIN_OFFSET(KivOfflineBufferOps, pfnClose, 0);

KIV_PIN_SIZE(KivOfflineIntfCbs, 15 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnCloseContext, 3 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnGetStaticInfo, 4 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnOpenSession, 5 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnCloseSession, 6 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnConfigureSession, 7 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnExecuteRequest, 8 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnFlush, 9 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnDump, 10 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnOpenMetadataOps, 11 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnGetBufferOps, 12 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnTranslateToKivBuffer, 13 * 8);
KIV_PIN_OFFSET(KivOfflineIntfCbs, pfnTranslateFromKivBuffer, 14 * 8);

#undef KIV_PIN_SIZE
#undef KIV_PIN_OFFSET
#endif  // __cplusplus

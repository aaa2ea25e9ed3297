/*
 * Copyright (C) 2026 Oru Camera
 */
#include "OfflineCameraService.h"

#include <android/log.h>
#include <string.h>
#include <vorn/VornOsUtils.h>

namespace {

constexpr const char* kLogTag = "KivOfflineCameraSevice";
constexpr const char* kBackendLibraryPath = "/vendor/lib64/hw/com.oru.kiv.offline.so";

// Static metadata is copied into a buffer of this fixed capacity.
constexpr size_t kStaticMetaEntries = 10;
constexpr size_t kStaticMetaDataBytes = 80;

}  // namespace

OfflineCameraService* OfflineCameraService::GetInstance() {
    static OfflineCameraService sInstance;
    return &sInstance;
}

OfflineCameraService::OfflineCameraService()
    : mLibHandle(nullptr),
      pOfflineIntfCbs(nullptr),
      pOfflineBufferOps(nullptr),
      mpClientCallbacks(nullptr),
      m_pStaticMeta(nullptr) {
    mMetaOpsMap.max_load_factor(1.0f);
    pthread_mutex_init(&mMetaOpsLock, nullptr);
    Initialize();
}

void OfflineCameraService::Initialize() {
    mLibHandle = Vorn::OsUtils::LibMap(kBackendLibraryPath);
    if (mLibHandle != nullptr) {
        auto pfnOpenContext = reinterpret_cast<PFNKivOfflineOpenContext>(
                Vorn::OsUtils::LibGetAddr(mLibHandle, KIV_OFFLINE_OPEN_CONTEXT_SYMBOL));
        if (pfnOpenContext != nullptr) {
            BindBackend(pfnOpenContext);
        }
    }
    __android_log_print(ANDROID_LOG_INFO, kLogTag,
                        "%d %s: pOfflineIntfCbs %p, pOfflineBufferOps %p m_pStaticMeta %p", 266,
                        "Initialize", pOfflineIntfCbs, pOfflineBufferOps, m_pStaticMeta);
}

void OfflineCameraService::BindBackend(PFNKivOfflineOpenContext pfnOpenContext) {
    // A backend that answers null here is not supported.
    pOfflineIntfCbs = pfnOpenContext(KIV_OFFLINE_CONTEXT_NAME, KIV_OFFLINE_CONTEXT_VERSION);

    if (pOfflineIntfCbs->pfnGetBufferOps != nullptr) {
        pOfflineBufferOps = pOfflineIntfCbs->pfnGetBufferOps(pOfflineIntfCbs);
    }

    if (pOfflineIntfCbs->pfnOpenMetadataOps == nullptr) {
        return;
    }
    KivMetadataOpsOpenInfo openInfo = {KIV_CAMERA_ID_ANY, 0, 0};
    const KivMetadataOps* pMetaOps = pOfflineIntfCbs->pfnOpenMetadataOps(pOfflineIntfCbs, &openInfo);
    if (pMetaOps == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s: Failed to open Metadata Ops", 259,
                            "Initialize");
        return;
    }

    KivOfflineStaticInfo staticInfo;
    memset(&staticInfo, 0, sizeof(staticInfo));
    staticInfo = pOfflineIntfCbs->pfnGetStaticInfo(pOfflineIntfCbs);

    m_pStaticMeta = allocate_camera_metadata(kStaticMetaEntries, kStaticMetaDataBytes);
    if (m_pStaticMeta == nullptr) {
        // The metadata operations opened above stay open in this case.
        __android_log_print(ANDROID_LOG_WARN, kLogTag, "%d %s: Failed to allocate metadata", 254,
                            "Initialize");
        return;
    }

    camera_metadata_t* pBackendMeta = pMetaOps->pfnCreateAndroidMetadata(
            pMetaOps, staticInfo.pStaticMetadata, 0, 0, 0, nullptr);
    if (pBackendMeta != nullptr) {
        // Fixed-capacity copy: characteristics that do not fit leave the buffer empty.
        (void)copy_camera_metadata(m_pStaticMeta, get_camera_metadata_size(m_pStaticMeta),
                                   pBackendMeta);
    }
    pMetaOps->pfnReleaseAndroidMetadata(pMetaOps, pBackendMeta);
    pMetaOps->pfnClose(pMetaOps);
}

OfflineCameraService::~OfflineCameraService() {
    if (m_pStaticMeta != nullptr) {
        free_camera_metadata(m_pStaticMeta);
        m_pStaticMeta = nullptr;
    }

    if (pOfflineBufferOps != nullptr && pOfflineBufferOps->pfnClose != nullptr) {
        if (pOfflineBufferOps->pfnClose(pOfflineBufferOps) != 0) {
            __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s: Failed to close buffer ops", 58,
                                "~OfflineCameraService");
        }
    }

    for (auto& entry : mMetaOpsMap) {
        const KivMetadataOps* pMetaOps = entry.second.pMetaOps;
        if (pMetaOps != nullptr && pMetaOps->pfnClose != nullptr) {
            if (pMetaOps->pfnClose(pMetaOps) != 0) {
                __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s: Failed to close meta ops",
                                    68, "~OfflineCameraService");
            }
        }
    }
    mMetaOpsMap.clear();

    if (pOfflineIntfCbs != nullptr && pOfflineIntfCbs->pfnCloseContext != nullptr) {
        if (pOfflineIntfCbs->pfnCloseContext(pOfflineIntfCbs) != 0) {
            __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s: Failed to close buffer ops", 79,
                                "~OfflineCameraService");
        }
    }

    if (mLibHandle != nullptr) {
        Vorn::OsUtils::LibUnmap(mLibHandle);
        mLibHandle = nullptr;
    }

    pthread_mutex_destroy(&mMetaOpsLock);
}

camera_metadata_t* OfflineCameraService::GetOfflineStaticCaps() {
    return m_pStaticMeta;
}

void OfflineCameraService::RegisterConsumerClient(int32_t clientId,
                                                  const ClientCallbacks* pCallbacks) {
    // Only the first valid record is checked and kept; it serves every consumer client.
    if (mpClientCallbacks == nullptr) {
        if (pCallbacks == nullptr) {
            __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s: invalid input pCallbacks%p",
                                298, "RegisterConsumerClient", pCallbacks);
            return;
        }
        if (pCallbacks->pRequestBuffers == nullptr || pCallbacks->pResult == nullptr ||
            pCallbacks->pReturnBuffers == nullptr || pCallbacks->pPrivateData == nullptr) {
            __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                                "%d %s: invalid input pRequestBuffers %p, pResult:%p "
                                "pReturnBuffers:%p,pPrivateData:%p",
                                287, "RegisterConsumerClient",
                                reinterpret_cast<void*>(pCallbacks->pRequestBuffers),
                                reinterpret_cast<void*>(pCallbacks->pResult),
                                reinterpret_cast<void*>(pCallbacks->pReturnBuffers),
                                pCallbacks->pPrivateData);
            return;
        }
        mpClientCallbacks = pCallbacks;
    }

    __android_log_print(ANDROID_LOG_INFO, kLogTag, "%d %s: save clientID :%d", 303,
                        "RegisterConsumerClient", clientId);
    mClientIds.insert(clientId);
}

void OfflineCameraService::unRegisterConsumerClient(int32_t clientId) {
    mClientIds.erase(clientId);
}

bool OfflineCameraService::RegisterProducerClient(int32_t clientId) {
    if (mClientIds.count(clientId) != 0) {
        __android_log_print(ANDROID_LOG_INFO, kLogTag,
                            "%d %s: Save producer clientID :%d, client size:%zu", 338,
                            "RegisterProducerClient", clientId, mClientIds.size());
        return true;
    }
    __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                        "%d %s: Can not register this producer clientID:%d", 342,
                        "RegisterProducerClient", clientId);
    return false;
}

void OfflineCameraService::UnRegisterProducerClient(int32_t clientId) {
    if (mClientIds.count(clientId) == 0) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s: Do not have this clientID: :%d",
                            359, "UnRegisterProducerClient", clientId);
    }
}

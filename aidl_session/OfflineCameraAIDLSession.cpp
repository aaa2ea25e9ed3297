/*
 * Copyright (C) 2026 Oru Camera
 */
#include "OfflineCameraAIDLSession.h"

#include <android/log.h>

#include "HandleImporter.h"
#include "OfflineCameraService.h"

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

namespace {

using ::android::hardware::camera::common::V1_0::helper::HandleImporter;

constexpr const char* kLogTag = "KivOfflineAIDLSession";

// Imports and frees the buffers of every session in the process.
HandleImporter gHandleImporter;

// Descriptor i of a handle for the log, -1 where the handle has none.
int HandleFd(buffer_handle_t handle, int i) {
    if (handle == nullptr || i >= handle->numFds) {
        return -1;
    }
    return handle->data[i];
}

}  // namespace

OfflineCameraAIDLSession::OfflineCameraAIDLSession(
        const std::string& sessionName,
        const std::shared_ptr<IOfflineCameraSessionCallback>& clientCallback)
    : mClientCallback(clientCallback),
      mKivSessionHandle(0),
      mSessionName(sessionName),
      mIsClosed(0),
      mOfflineCallbacks(),
      mFrameworkCameraId(0),
      mSessionMetadata(nullptr) {
    mOfflineCallbacks.pfnProcessResult = ProcessOfflineResultCb;
    mOfflineCallbacks.pfnProcessMessage = ProcessOfflineMessageCb;
    mOfflineCallbacks.reserved0 = 0;
    mOfflineCallbacks.reserved1 = 0;
    mOfflineCallbacks.pPrivateData = this;

    // The backend keeps the callbacks record for the whole life of its session.
    KivOfflineSessionInfo sessionInfo = {mSessionName.c_str(), 0, &mOfflineCallbacks};
    mKivSessionHandle = OfflineCameraService::GetInstance()->OpenSession(&sessionInfo);
    if (mKivSessionHandle != 0) {
        __android_log_print(ANDROID_LOG_INFO, kLogTag,
                            "%d %s: Open an Offline session:%lu. clientSessionName:%s", 76,
                            "OfflineCameraAIDLSession", mKivSessionHandle, mSessionName.c_str());
    } else {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "%d %s: Open offline session failed! clientSessionName:%s ", 81,
                            "OfflineCameraAIDLSession", mSessionName.c_str());
    }

    mDeathRecipient = ::ndk::ScopedAIBinder_DeathRecipient(AIBinder_DeathRecipient_new(binderDied));
    ::ndk::SpAIBinder binder = mClientCallback->asBinder();
    // A client in this process cannot be watched; the session works the same without it.
    (void)AIBinder_linkToDeath(binder.get(), mDeathRecipient.get(), this);
}

// After the close, members go in reverse order: the returned-buffer list and the two request
// array lists (holding nothing by then), the lock, the buffer cache, the streams, the name, then
// the death recipient (which ends the death link) and the client callback.
OfflineCameraAIDLSession::~OfflineCameraAIDLSession() {
    if (mIsClosed == 0) {
        (void)closeOfflineSession();
    }
}

void OfflineCameraAIDLSession::binderDied(void* cookie) {
    auto* pSession = static_cast<OfflineCameraAIDLSession*>(cookie);
    if (pSession == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s: pSession is NULL", 114,
                            "binderDied");
        return;
    }
    // The session stays open: the client's own close or the last reference ends it.
    __android_log_print(ANDROID_LOG_INFO, kLogTag, "%d %s: client callback die, session name:%s",
                        110, "binderDied", pSession->mSessionName.c_str());
}

::ndk::ScopedAStatus OfflineCameraAIDLSession::configureOfflineSession(
        const OfflineSessionConfiguration& /*in_config*/) {
    // Configuration is not served by this build yet.
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus OfflineCameraAIDLSession::processOfflineRequest(
        const std::vector<OfflineCaptureRequest>& /*in_requests*/, int32_t* /*_aidl_return*/) {
    // Offline requests are not served by this build yet.
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus OfflineCameraAIDLSession::closeOfflineSession() {
    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    // The backend stops delivering before the cached buffers go.
    (void)pService->CloseSession(mFrameworkCameraId, mKivSessionHandle);

    std::lock_guard<std::mutex> lock(mBufferCacheLock);
    freeBufferCache();
    freeReturnedBuffers();
    if (mSessionMetadata != nullptr) {
        __android_log_print(ANDROID_LOG_INFO, kLogTag,
                            "%d %s, release configure metadata, mSessionName:%s", 877,
                            "closeOfflineSession", mSessionName.c_str());
        // The close above has already dropped this session's hold on the camera's metadata
        // operations; when it was the last one, the release finds no table and is only logged.
        (void)pService->DestoryKivMetadata(mFrameworkCameraId, mSessionMetadata);
        mSessionMetadata = nullptr;
    }
    mIsClosed = 1;
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus OfflineCameraAIDLSession::flushOfflineSession(
        const OfflineFlushInfo& in_flushInfo) {
    KivOfflineFlushInfo flushInfo = {static_cast<uint32_t>(in_flushInfo.flushFlags)};
    (void)OfflineCameraService::GetInstance()->Flush(mKivSessionHandle, &flushInfo);
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus OfflineCameraAIDLSession::dumpOfflineSession() {
    (void)OfflineCameraService::GetInstance()->Dump(mKivSessionHandle);
    return ::ndk::ScopedAStatus::ok();
}

void OfflineCameraAIDLSession::freeBufferCache() {
    for (auto& stream : mBufferCache) {
        for (auto& buffer : stream.second) {
            gHandleImporter.freeBuffer(buffer.second);
        }
        stream.second.clear();
    }
    mBufferCache.clear();
}

void OfflineCameraAIDLSession::freeReturnedBuffers() {
    for (buffer_handle_t handle : mReturnedBuffers) {
        __android_log_print(ANDROID_LOG_INFO, kLogTag, "%d %s, fd:%d,%d", 182,
                            "freeReturnedBuffers", HandleFd(handle, 0), HandleFd(handle, 1));
        gHandleImporter.freeBuffer(handle);
    }
    mReturnedBuffers.clear();
}

int32_t OfflineCameraAIDLSession::ProcessOfflineResultCb(
        const KivOfflineCallbacks* /*pCallbackOps*/, uint32_t /*numResults*/,
        const KivOfflineCaptureResult* /*pResults*/) {
    // Results reach clients with offline request processing; until then nothing is delivered.
    return 0;
}

int32_t OfflineCameraAIDLSession::ProcessOfflineMessageCb(
        const KivOfflineCallbacks* /*pCallbackOps*/, uint32_t /*numMessages*/,
        const camera3_notify_msg_t* /*pMessages*/) {
    return 0;
}

}  // namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation

/*
 * Copyright (C) 2026 Oru Camera
 *
 * OfflineCameraAIDLSession: the IOfflineCameraSession object behind one client's offline session.
 * It opens a backend session when it is made, forwards the client's calls to the backend through
 * OfflineCameraService, and owns what lives between open and close: the client's callback, the
 * configured streams, the imported buffers and the session parameters in backend form.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSession.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.h>
#include <android/binder_auto_utils.h>
#include <convert.h>
#include <cutils/native_handle.h>
#include <stdint.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "KivOfflineInterface.h"

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

class OfflineCameraAIDLSession : public BnOfflineCameraSession {
  public:
    /*
     * Opens the backend session (a handle of 0 when the backend refuses; the object is usable
     * either way) and watches the client callback's binder.
     */
    OfflineCameraAIDLSession(const std::string& sessionName,
                             const std::shared_ptr<IOfflineCameraSessionCallback>& clientCallback);
    /* Closes the session first if the client did not. */
    ~OfflineCameraAIDLSession() override;

    // Every method answers OK; what the backend reports goes to the log only.
    ::ndk::ScopedAStatus configureOfflineSession(
            const OfflineSessionConfiguration& in_config) override;
    ::ndk::ScopedAStatus processOfflineRequest(const std::vector<OfflineCaptureRequest>& in_requests,
                                               int32_t* _aidl_return) override;
    ::ndk::ScopedAStatus closeOfflineSession() override;
    ::ndk::ScopedAStatus flushOfflineSession(const OfflineFlushInfo& in_flushInfo) override;
    ::ndk::ScopedAStatus dumpOfflineSession() override;

    /* Backend callbacks; pCallbackOps is the session's mOfflineCallbacks. */
    static int32_t ProcessOfflineResultCb(const KivOfflineCallbacks* pCallbackOps,
                                          uint32_t numResults,
                                          const KivOfflineCaptureResult* pResults);
    static int32_t ProcessOfflineMessageCb(const KivOfflineCallbacks* pCallbackOps,
                                           uint32_t numMessages,
                                           const camera3_notify_msg_t* pMessages);

  private:
    using Camera3Stream = ::android::hardware::camera::device::implementation::Camera3Stream;

    /* Death notification of the client callback's binder; the cookie is the session. */
    static void binderDied(void* cookie);

    /* Frees every imported buffer still cached for a stream. Called with mBufferCacheLock. */
    void freeBufferCache();
    /* Frees the buffers that results gave back. */
    void freeReturnedBuffers();

    std::shared_ptr<IOfflineCameraSessionCallback> mClientCallback;
    ::ndk::ScopedAIBinder_DeathRecipient mDeathRecipient;
    uint64_t mKivSessionHandle;
    std::string mSessionName;
    int32_t mIsClosed;
    // Stream pointers handed to the backend point into this map's entries, so entries are never
    // moved or erased while the session lives.
    std::map<int32_t, Camera3Stream> mStreamMap;
    // Imported handles per stream id and buffer id, until a result returns them.
    std::map<int32_t, std::unordered_map<uint64_t, buffer_handle_t>> mBufferCache;
    // Guards mBufferCache and serialises closing with the result path's lookups in it.
    std::mutex mBufferCacheLock;
    std::vector<void*> mRequestBufferArrays;
    std::vector<void*> mRequestHalBufferArrays;
    KivOfflineCallbacks mOfflineCallbacks;
    uint32_t mFrameworkCameraId;
    std::vector<buffer_handle_t> mReturnedBuffers;
    KivMetadataHandle mSessionMetadata;
};

}  // namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * OfflineCameraAIDLSession: the IOfflineCameraSession object behind one client's offline session.
 * It opens a backend session when it is made, forwards the client's calls to the backend through
 * OfflineCameraService, and owns what lives between open and close: the client's callback, the
 * configured streams, the imported buffers and the session parameters in backend form.
 *
 * Binder threads call the interface methods, also several at once and also from inside the
 * session's own callbacks (a binder call that a client makes while it handles a callback runs on
 * the thread that made the callback); the backend calls the result and message callbacks from
 * threads of its own.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSession.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.h>
#include <android/binder_auto_utils.h>
#include <convert.h>
#include <cutils/native_handle.h>
#include <stdint.h>

#include <atomic>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "KivOfflineInterface.h"
#include "Locks.h"

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

class OfflineCameraAIDLSession : public BnOfflineCameraSession {
  public:
    /*
     * Makes a session and opens its backend session (a handle of 0 when the backend refuses; the
     * session is usable either way), and watches the client callback's binder. The backend is
     * given the session only once the session is owned by the returned reference, so that every
     * callback can hold it.
     */
    static std::shared_ptr<OfflineCameraAIDLSession> Open(
            const std::string& sessionName,
            const std::shared_ptr<IOfflineCameraSessionCallback>& clientCallback);
    /* Closes the session first if the client did not. */
    ~OfflineCameraAIDLSession() override;

    // Kept on purpose: every method answers OK; what the backend reports goes to the log only.
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
    using CameraMetadata = ::aidl::android::hardware::camera::device::CameraMetadata;
    using Stream = ::aidl::android::hardware::camera::device::Stream;
    using StreamBuffer = ::aidl::android::hardware::camera::device::StreamBuffer;
    friend class ::ndk::SharedRefBase;
    class DeliveryScope;
    class RequestScope;

    OfflineCameraAIDLSession(const std::string& sessionName,
                             const std::shared_ptr<IOfflineCameraSessionCallback>& clientCallback);
    /* Opens the backend session and links the death watch. */
    void openBackendSession();

    /*
     * Stores one camera3 record per stream in mStreamMap (an id seen before is overwritten in
     * place, and only where it changed), makes sure each stream has a buffer cache, and appends
     * the records' addresses to out. Takes the list by value, as the streams' text fields are
     * copied into the session.
     */
    void convertStreamType(std::vector<Stream> streams, std::vector<camera3_stream_t*>& out)
            EXCLUDES(mBufferCacheLock);
    /* Backend metadata for the camera of the session made from client metadata; null if none. */
    KivMetadataHandle convertToOfflineMetadata(const CameraMetadata& metadata);

    /*
     * Validates and imports every buffer of a request into mBufferCache. handles receives, per
     * buffer (inputs first, then outputs), its imported handle, or null. Returns the failure
     * mark of the last event: 0 when the request can be converted.
     */
    int32_t convertAndImportBuffer(const OfflineCaptureRequest& request,
                                   std::vector<buffer_handle_t>& handles) EXCLUDES(mBufferCacheLock);
    /* Imports one buffer under mBufferCacheLock; updates *pFailure as the last event. */
    buffer_handle_t importBuffer(int32_t streamId, int64_t bufferId, const native_handle_t* handle,
                                 int32_t* pFailure) EXCLUDES(mBufferCacheLock);
    /*
     * Fills one input or output entry of a backend request from buffers, whose imported handles
     * start at handles[*pNext]; the camera3 buffers point into handles, which must outlive the
     * backend call. The arrays are appended to bufferArrays and halBufferArrays.
     */
    void convertBuffers(const std::vector<StreamBuffer>& buffers,
                        std::vector<buffer_handle_t>& handles, size_t* pNext,
                        int32_t bufferArrayLine, int32_t halArrayLine,
                        std::vector<void*>* bufferArrays, std::vector<void*>* halBufferArrays,
                        KivOfflineStreamInfo* pInfo) EXCLUDES(mBufferCacheLock);

    /*
     * Finds the cached buffer of a camera3 buffer given back by the backend, removes it, queues
     * its handle in mReturnedBuffers and gives its stream and buffer ids; false if it is not
     * cached (the buffer id is then 0).
     */
    bool returnCachedBuffer(const camera3_stream_buffer_t& buffer, int32_t* pStreamId,
                            uint64_t* pBufferId) EXCLUDES(mBufferCacheLock);

    int32_t ProcessOfflineResult(uint32_t numResults, const KivOfflineCaptureResult* pResults)
            EXCLUDES(mDeliveryLock, mBufferCacheLock);
    void returnInputBuffers(const KivOfflineCaptureResult& result) EXCLUDES(mBufferCacheLock);
    int32_t ProcessOfflineMessage(uint32_t numMessages, const camera3_notify_msg_t* pMessages);

    /* Death notification of the client callback's binder; the cookie names the session. */
    static void binderDied(void* cookie);
    /* The end of the death link: its cookie goes. */
    static void deathLinkEnded(void* cookie);

    /* Takes one of the session's holds on a camera's metadata operations; false if it has none. */
    bool takeMetaOpsHold(uint32_t cameraId) EXCLUDES(mConfigLock);
    /* Frees every imported buffer still cached. */
    void freeBufferCache() REQUIRES(mBufferCacheLock);
    /* Frees the buffers that results gave back. */
    void freeReturnedBuffers() EXCLUDES(mBufferCacheLock);
    /* Waits until no request of another thread is in progress on this session. */
    void waitForRequestsOfOtherThreads() REQUIRES(mBufferCacheLock);

    // Set once by Open, read without a lock.
    std::shared_ptr<IOfflineCameraSessionCallback> mClientCallback;
    ::ndk::ScopedAIBinder_DeathRecipient mDeathRecipient;
    uint64_t mKivSessionHandle;
    std::string mSessionName;
    KivOfflineCallbacks mOfflineCallbacks;

    // Guards the streams, the buffer cache, the returned buffers and the close, and counts the
    // calls in progress. Never held while the backend or the client is called.
    ::offlinecamera::Mutex mBufferCacheLock;
    // Signalled when a request or a delivery ends.
    ::offlinecamera::Condition mCallEnded;
    int32_t mIsClosed GUARDED_BY(mBufferCacheLock);
    // Stream pointers handed to the backend point into this map's entries, so entries are never
    // moved or erased while the session lives.
    std::map<int32_t, Camera3Stream> mStreamMap GUARDED_BY(mBufferCacheLock);
    // Physical camera ids that stream records point at; kept for the session's life, since the
    // backend may hold a record's pointer.
    std::set<std::string> mPhysicalCameraIds GUARDED_BY(mBufferCacheLock);
    // Imported handles per stream id and buffer id, until a result returns them.
    std::map<int32_t, std::unordered_map<uint64_t, buffer_handle_t>> mBufferCache
            GUARDED_BY(mBufferCacheLock);
    // Buffers that results gave back and that wait to be freed.
    std::vector<buffer_handle_t> mReturnedBuffers GUARDED_BY(mBufferCacheLock);
    // Requests in progress per thread, and deliveries in progress.
    std::map<std::thread::id, uint32_t> mRequestThreads GUARDED_BY(mBufferCacheLock);
    uint32_t mDeliveries GUARDED_BY(mBufferCacheLock);

    // Written by configuration, read by requests and deliveries.
    std::atomic<uint32_t> mFrameworkCameraId;

    // Guards what configuration keeps for the close.
    ::offlinecamera::Mutex mConfigLock;
    KivMetadataHandle mSessionMetadata GUARDED_BY(mConfigLock);
    // The holds on metadata operations that configurations took, per camera id.
    std::map<uint32_t, uint32_t> mMetaOpsHolds GUARDED_BY(mConfigLock);

    // Held by a result delivery for its whole run, the client call included, so that the client
    // receives the results of this session in the order the backend delivers them. A delivery
    // entered again on the same thread (from a call that the client makes inside its callback)
    // goes ahead.
    ::offlinecamera::Mutex mDeliveryLock{::offlinecamera::Mutex::Kind::kRecursive};
};

}  // namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation

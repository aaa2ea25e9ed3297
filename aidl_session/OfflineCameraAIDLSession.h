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
    using CameraMetadata = ::aidl::android::hardware::camera::device::CameraMetadata;
    using Stream = ::aidl::android::hardware::camera::device::Stream;
    using StreamBuffer = ::aidl::android::hardware::camera::device::StreamBuffer;

    /*
     * Stores one camera3 record per stream in mStreamMap (an id seen before is overwritten in
     * place), makes sure each stream has a buffer cache, and appends the records' addresses to
     * out. Takes the list by value, as the streams' text fields are copied into the session.
     */
    void convertStreamType(std::vector<Stream> streams, std::vector<camera3_stream_t*>& out);
    /* Backend metadata for the camera of the session made from client metadata; null if none. */
    KivMetadataHandle convertToOfflineMetadata(const CameraMetadata& metadata);

    /*
     * Validates and imports every buffer of a request into mBufferCache. locations receives, per
     * buffer (inputs first, then outputs), where its imported handle is cached, or null. Returns
     * the failure mark of the last event: 0 when the request can be converted.
     */
    int32_t convertAndImportBuffer(const OfflineCaptureRequest& request,
                                   std::vector<buffer_handle_t*>& locations);
    /* Imports one buffer under mBufferCacheLock; updates *pFailure as the last event. */
    buffer_handle_t* importBuffer(int32_t streamId, int64_t bufferId, const native_handle_t* handle,
                                  int32_t* pFailure);
    /*
     * Fills one input or output entry of a backend request from buffers, whose cached handles
     * start at locations[*pNext]. The arrays go to the request's allocation lists.
     */
    void convertBuffers(const std::vector<StreamBuffer>& buffers,
                        const std::vector<buffer_handle_t*>& locations, size_t* pNext,
                        int32_t bufferArrayLine, int32_t halArrayLine, KivOfflineStreamInfo* pInfo);
    /* Frees the arrays of the request that was just executed. */
    void freeRequestArrays();

    /* Finds the cached buffer with this handle, removes it and gives its id; false if none. */
    bool removeCachedBuffer(int32_t streamId, buffer_handle_t handle, uint64_t* pBufferId);

    int32_t ProcessOfflineResult(uint32_t numResults, const KivOfflineCaptureResult* pResults);
    void returnInputBuffers(const KivOfflineCaptureResult& result);
    int32_t ProcessOfflineMessage(uint32_t numMessages, const camera3_notify_msg_t* pMessages);

    /* Death notification of the client callback's binder; the cookie is the session. */
    static void binderDied(void* cookie);

    /* Frees every imported buffer still cached for a stream. Called with mBufferCacheLock. */
    void freeBufferCache();
    /* Frees the buffers that results gave back. Called with gResultLock, or when closing. */
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
    // Physical camera id of each configured stream: the stream records point at these strings,
    // which live as long as the records.
    std::map<int32_t, std::string> mPhysicalCameraIds;
};

}  // namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation

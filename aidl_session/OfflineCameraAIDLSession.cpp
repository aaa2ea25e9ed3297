/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "OfflineCameraAIDLSession.h"

#include <errno.h>
#include <stdlib.h>
#include <string.h>
#include <syslog.h>
#include <unistd.h>
#include <vorn/VornMemory.h>

#include "HandleImporter.h"
#include "OfflineCameraService.h"
#include "OfflineLog.h"

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

using ::offlinecamera::MutexLock;

namespace {

using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::CaptureResult;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::android::hardware::common::NativeHandle;
using ::android::hardware::camera::common::V1_0::helper::HandleImporter;
using ::android::hardware::camera::device::implementation::Camera3Stream;
using ::android::hardware::camera::device::implementation::convertFromAidl;
using ::android::hardware::camera::device::implementation::convertToAidl;

constexpr const char* kLogTag = "KivOfflineAIDLSession";

// Backend operation modes of the platform's stream configuration modes 0 to 6; any other mode
// is 0x8000. Kept on purpose: modes 3 and 4 map crossed, which is the backend's numbering.
constexpr uint32_t kBackendOperationModes[] = {0x8001, 0x8002, 0x8003, 0x8005,
                                               0x8004, 0x8006, 0x8007};
constexpr uint32_t kDefaultBackendOperationMode = 0x8000;

// Imports and frees the buffers of every session in the process.
HandleImporter gHandleImporter;

// The vendor tag text of a configured stream record: none.
constexpr char kNoVendorStreamTag[] = "";

uint32_t BackendOperationMode(int32_t operationMode, int32_t backendOperationMode) {
    if (backendOperationMode != 0) {
        return static_cast<uint32_t>(backendOperationMode);
    }
    const uint32_t index = static_cast<uint32_t>(operationMode);
    if (index < sizeof(kBackendOperationModes) / sizeof(kBackendOperationModes[0])) {
        return kBackendOperationModes[index];
    }
    return kDefaultBackendOperationMode;
}

// Releases a handle made by convertFromAidl: its duplicated descriptors, then the handle.
void DeleteConvertedHandle(native_handle_t* handle) {
    if (handle != nullptr) {
        native_handle_close(handle);
        native_handle_delete(handle);
    }
}

// Empties an AIDL handle, closing every descriptor it owns.
void CloseNativeHandle(NativeHandle* handle) {
    for (auto& fd : handle->fds) {
        if (fd.get() == -1) {
            continue;
        }
        const int raw = fd.release();
        if (close(raw) != 0) {
            syslog(LOG_ERR, "Could not close FD %d: %s", raw, strerror(errno));
        }
    }
    handle->fds.clear();
}

// The client's id of the stream a camera3 buffer belongs to; -1 without a stream.
int32_t StreamIdOf(const camera3_stream_buffer_t& buffer) {
    if (buffer.stream == nullptr) {
        return -1;
    }
    return static_cast<const Camera3Stream*>(buffer.stream)->mId;
}

buffer_handle_t HandleOf(const camera3_stream_buffer_t& buffer) {
    return buffer.buffer != nullptr ? *buffer.buffer : nullptr;
}

// The cookie of a session's death link: what the death notice logs. The binder library hands it
// to binderDied and then to deathLinkEnded, which deletes it, whether the client died or the
// session went first; a death notice never reads the session itself.
struct SessionDeathCookie {
    std::string sessionName;
};

// Descriptor i of a handle for the log, -1 where the handle has none.
int HandleFd(buffer_handle_t handle, int i) {
    if (handle == nullptr || i >= handle->numFds) {
        return -1;
    }
    return handle->data[i];
}

}  // namespace

// A delivery from the backend. The session may lose its last client reference while the
// delivery runs (the client drops it from inside its callback, or on another binder thread): the
// delivery holds a reference of its own, so that the session goes only after the delivery ends,
// on the delivering thread. A delivery that starts while the session is already being destroyed
// holds none; the destructor waits for it instead.
class OfflineCameraAIDLSession::DeliveryScope {
  public:
    explicit DeliveryScope(OfflineCameraAIDLSession* pSession) : mSession(pSession) {
        {
            MutexLock lock(pSession->mBufferCacheLock);
            pSession->mDeliveries++;
        }
        mKeepAlive = pSession->ref<OfflineCameraAIDLSession>();
    }
    ~DeliveryScope() {
        {
            MutexLock lock(mSession->mBufferCacheLock);
            mSession->mDeliveries--;
            mSession->mCallEnded.broadcast();
        }
        // When this is the last reference, the session is destroyed here.
        mKeepAlive.reset();
    }
    DeliveryScope(const DeliveryScope&) = delete;
    DeliveryScope& operator=(const DeliveryScope&) = delete;

  private:
    OfflineCameraAIDLSession* const mSession;
    std::shared_ptr<OfflineCameraAIDLSession> mKeepAlive;
};

// A processOfflineRequest call in progress on the calling thread: the close waits for it before
// it frees the buffers that the request imported and hands to the backend.
class OfflineCameraAIDLSession::RequestScope {
  public:
    explicit RequestScope(OfflineCameraAIDLSession* pSession) : mSession(pSession) {
        MutexLock lock(pSession->mBufferCacheLock);
        pSession->mRequestThreads[std::this_thread::get_id()]++;
    }
    ~RequestScope() {
        MutexLock lock(mSession->mBufferCacheLock);
        auto it = mSession->mRequestThreads.find(std::this_thread::get_id());
        if (--it->second == 0) {
            mSession->mRequestThreads.erase(it);
        }
        mSession->mCallEnded.broadcast();
    }
    RequestScope(const RequestScope&) = delete;
    RequestScope& operator=(const RequestScope&) = delete;

  private:
    OfflineCameraAIDLSession* const mSession;
};

std::shared_ptr<OfflineCameraAIDLSession> OfflineCameraAIDLSession::Open(
        const std::string& sessionName,
        const std::shared_ptr<IOfflineCameraSessionCallback>& clientCallback) {
    std::shared_ptr<OfflineCameraAIDLSession> session =
            ::ndk::SharedRefBase::make<OfflineCameraAIDLSession>(sessionName, clientCallback);
    if (session != nullptr) {
        session->openBackendSession();
    }
    return session;
}

OfflineCameraAIDLSession::OfflineCameraAIDLSession(
        const std::string& sessionName,
        const std::shared_ptr<IOfflineCameraSessionCallback>& clientCallback)
    : mClientCallback(clientCallback),
      mKivSessionHandle(0),
      mSessionName(sessionName),
      mOfflineCallbacks(),
      mIsClosed(0),
      mDeliveries(0),
      mFrameworkCameraId(0),
      mSessionMetadata(nullptr) {
    mOfflineCallbacks.pfnProcessResult = ProcessOfflineResultCb;
    mOfflineCallbacks.pfnProcessMessage = ProcessOfflineMessageCb;
    mOfflineCallbacks.reserved0 = 0;
    mOfflineCallbacks.reserved1 = 0;
    mOfflineCallbacks.pPrivateData = this;
}

void OfflineCameraAIDLSession::openBackendSession() {
    // The backend keeps the callbacks record for the whole life of its session.
    KivOfflineSessionInfo sessionInfo = {mSessionName.c_str(), 0, &mOfflineCallbacks};
    mKivSessionHandle = OfflineCameraService::GetInstance()->OpenSession(&sessionInfo);
    if (mKivSessionHandle != 0) {
        OFFLINE_LOGI(kLogTag, "%d %s: Open an Offline session:%lu. clientSessionName:%s", 76,
                     "OfflineCameraAIDLSession", mKivSessionHandle, mSessionName.c_str());
    } else {
        // Kept on purpose: the session lives on with handle 0 and answers OK to everything.
        OFFLINE_LOGE(kLogTag, "%d %s: Open offline session failed! clientSessionName:%s ", 81,
                     "OfflineCameraAIDLSession", mSessionName.c_str());
    }

    mDeathRecipient = ::ndk::ScopedAIBinder_DeathRecipient(AIBinder_DeathRecipient_new(binderDied));
    AIBinder_DeathRecipient_setOnUnlinked(mDeathRecipient.get(), deathLinkEnded);
    if (mClientCallback != nullptr) {
        ::ndk::SpAIBinder binder = mClientCallback->asBinder();
        // A client in this process cannot be watched; the session works the same without it. A
        // failed link has ended, and its cookie with it.
        (void)AIBinder_linkToDeath(binder.get(), mDeathRecipient.get(),
                                   new SessionDeathCookie{mSessionName});
    }
}

// Then members go in reverse order: the delivery lock, what configuration kept, the buffer cache
// and the streams, the lock, the name, the death recipient (which ends the death link) and the
// client callback.
OfflineCameraAIDLSession::~OfflineCameraAIDLSession() {
    bool closed;
    {
        MutexLock lock(mBufferCacheLock);
        closed = mIsClosed != 0;
    }
    if (!closed) {
        (void)closeOfflineSession();
    }
    {
        MutexLock lock(mBufferCacheLock);
        // A backend whose close returns while one of its deliveries is still under way.
        while (mDeliveries != 0) {
            mCallEnded.wait(mBufferCacheLock);
        }
        // What arrived after the close: buffers of requests made after it, and input buffers
        // that a delivery after it gave back.
        freeBufferCache();
    }
    freeReturnedBuffers();
}

void OfflineCameraAIDLSession::binderDied(void* cookie) {
    const auto* pCookie = static_cast<const SessionDeathCookie*>(cookie);
    if (pCookie == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s: pSession is NULL", 114, "binderDied");
        return;
    }
    // Kept on purpose: the session stays open; the client's own close or the last reference
    // ends it.
    OFFLINE_LOGI(kLogTag, "%d %s: client callback die, session name:%s", 110, "binderDied",
                 pCookie->sessionName.c_str());
}

void OfflineCameraAIDLSession::deathLinkEnded(void* cookie) {
    delete static_cast<SessionDeathCookie*>(cookie);
}

::ndk::ScopedAStatus OfflineCameraAIDLSession::configureOfflineSession(
        const OfflineSessionConfiguration& in_config) {
    KivOfflineSessionConfigInfo configInfo;
    memset(&configInfo, 0, sizeof(configInfo));
    configInfo.pCameraId = in_config.cameraId.c_str();
    configInfo.numStreams = static_cast<uint32_t>(in_config.streams.size());
    configInfo.reserved = 0;
    const uint32_t cameraId = static_cast<uint32_t>(atoi(in_config.cameraId.c_str()));
    mFrameworkCameraId = cameraId;

    // Kept on purpose: every configuration takes the camera's metadata operations once more. The
    // close gives back each hold that was taken.
    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    if (pService->InitMetaOps(cameraId)) {
        MutexLock lock(mConfigLock);
        mMetaOpsHolds[cameraId]++;
    }

    std::vector<camera3_stream_t*> streams;
    convertStreamType(in_config.streams, streams);
    OFFLINE_LOGI(kLogTag, "%s ppStream :%p, streams:%p", "configureOfflineSession",
                 static_cast<void*>(streams.data()), static_cast<void*>(&streams));
    configInfo.ppStreams = streams.data();
    configInfo.operationMode = BackendOperationMode(static_cast<int32_t>(in_config.operationMode),
                                                    in_config.backendOperationMode);

    configInfo.pSessionParameters = convertToOfflineMetadata(in_config.sessionParams);
    {
        // Kept on purpose: a previous configuration's parameters are not released here; the
        // newest ones are kept until the close.
        MutexLock lock(mConfigLock);
        mSessionMetadata = configInfo.pSessionParameters;
    }

    {
        MutexLock lock(mBufferCacheLock);
        for (size_t i = 0; i < configInfo.numStreams && i < streams.size(); i++) {
            const camera3_stream_t* pStream = streams[i];
            OFFLINE_LOGV(kLogTag, "%s: i: %zu, id: %d, streamType: %d, width:%d, height:%d",
                         "configureOfflineSession", i, in_config.streams[i].id,
                         pStream->stream_type, pStream->width, pStream->height);
        }
    }

    (void)pService->ConfigureSession(mKivSessionHandle, &configInfo);
    return ::ndk::ScopedAStatus::ok();
}

void OfflineCameraAIDLSession::convertStreamType(std::vector<Stream> streams,
                                                 std::vector<camera3_stream_t*>& out) {
    if (streams.empty()) {
        OFFLINE_LOGE(kLogTag, "%d %s StreamSize is zero", 508, "convertStreamType");
        return;
    }
    MutexLock lock(mBufferCacheLock);
    for (const Stream& stream : streams) {
        Camera3Stream record;
        memset(&record, 0, sizeof(record));
        convertFromAidl(stream, &record);
        // The list is released when configuration returns; the session keeps the text.
        record.physical_camera_id =
                mPhysicalCameraIds.insert(stream.physicalCameraId).first->c_str();
        // The backend reads no vendor extension of a stream it is configured with.
        record.vendor_stream_tag = kNoVendorStreamTag;
        record.dynamic_range_profile = 0;
        record.vendor_stream_hint = 0;
        record.color_space = 0;
        // The backend holds pointers to the records, also while it works on requests: an entry
        // is overwritten in place, and only when it changes.
        Camera3Stream& entry = mStreamMap[stream.id];
        if (memcmp(&entry, &record, sizeof(record)) != 0) {
            memcpy(&entry, &record, sizeof(record));
        }
        (void)mBufferCache[record.mId];
        out.push_back(&entry);
    }
}

KivMetadataHandle OfflineCameraAIDLSession::convertToOfflineMetadata(const CameraMetadata& metadata) {
    if (metadata.metadata.empty()) {
        OFFLINE_LOGE(kLogTag, "%d %s metaSize is zero", 475, "convertToOfflineMetadata");
        return nullptr;
    }
    // The view must stay aligned and alive while the backend reads it.
    CameraMetadata copy = metadata;
    const camera_metadata_t* pMetadata = nullptr;
    if (!convertFromAidl(copy, &pMetadata) || pMetadata == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s convert from AIDL meta to camera_metadata_t failed", 466,
                     "convertToOfflineMetadata");
        return nullptr;
    }
    return OfflineCameraService::GetInstance()->CreateByAndroidMetadata(
            mFrameworkCameraId, pMetadata, 0, 0, 0xFFFFFFFF);
}

namespace {

void FreeArrays(std::vector<void*>* arrays) {
    for (void*& pArray : *arrays) {
        VornFree(pArray);
        pArray = nullptr;
    }
    arrays->clear();
}

}  // namespace

::ndk::ScopedAStatus OfflineCameraAIDLSession::processOfflineRequest(
        const std::vector<OfflineCaptureRequest>& in_requests, int32_t* _aidl_return) {
    RequestScope inProgress(this);
    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    for (const OfflineCaptureRequest& request : in_requests) {
        KivOfflineCaptureRequestInfo info;
        memset(&info, 0, sizeof(info));
        uint32_t frameNumber = static_cast<uint32_t>(request.frameNumber);
        info.pFrameNumber = &frameNumber;
        info.numInputs = static_cast<uint32_t>(request.inputFrames.size());
        info.pInputs = static_cast<KivOfflineStreamInfo*>(
                VornCalloc(info.numInputs, sizeof(KivOfflineStreamInfo)));
        info.pOutput =
                static_cast<KivOfflineStreamInfo*>(VornCalloc(1, sizeof(KivOfflineStreamInfo)));
        info.reserved2 = 0;

        // The imported handle of each buffer, which the camera3 buffers handed to the backend
        // point at until ExecuteRequest returns; null for a buffer that was not imported.
        std::vector<buffer_handle_t> handles;
        const int32_t failure = convertAndImportBuffer(request, handles);
        // Metadata made for a request goes to the backend inside the entries; without them it
        // would be lost, so a request whose entries could not be allocated is not converted.
        const bool haveEntries =
                (info.numInputs == 0 || info.pInputs != nullptr) && info.pOutput != nullptr;
        // The arrays allocated for this request, freed once the backend has taken it.
        std::vector<void*> bufferArrays;
        std::vector<void*> halBufferArrays;
        // Kept on purpose: a failed request still goes to the backend, with its entries left
        // empty.
        if (failure == 0 && haveEntries) {
            size_t next = 0;
            for (size_t i = 0; i < request.inputFrames.size(); i++) {
                const OfflineInputFrame& frame = request.inputFrames[i];
                KivOfflineStreamInfo* pInput = &info.pInputs[i];
                convertBuffers(frame.inputBuffers, handles, &next, 617, 627, &bufferArrays,
                               &halBufferArrays, pInput);
                const CameraMetadata* pSettings = &frame.settings;
                if (pSettings->metadata.empty()) {
                    // Clients send the settings once, in the first frame.
                    OFFLINE_LOGW(kLogTag,
                                 "%d %s: avoid Binder transaction failure use first frame meta as "
                                 "source",
                                 655, "convertAndImportBuffer");
                    pSettings = &request.inputFrames[0].settings;
                }
                pInput->pMetadata = convertToOfflineMetadata(*pSettings);
            }
            convertBuffers(request.outputBuffers, handles, &next, 669, 680, &bufferArrays,
                           &halBufferArrays, info.pOutput);
            // Empty result metadata for the backend to fill.
            info.pOutput->pMetadata = pService->CreateKivMetaData(mFrameworkCameraId, nullptr, 0);
        }

        (void)pService->ExecuteRequest(mKivSessionHandle, &info);

        // Kept on purpose: the answer is the number the backend gave the request, not the
        // client's.
        *_aidl_return = static_cast<int32_t>(*info.pFrameNumber);
        OFFLINE_LOGI(kLogTag, "%d %s: original request frameNum :%d. override frameNum:%d", 770,
                     "processOfflineRequest", request.frameNumber, *_aidl_return);

        VornFree(info.pInputs);
        VornFree(info.pOutput);
        FreeArrays(&bufferArrays);
        FreeArrays(&halBufferArrays);
    }
    return ::ndk::ScopedAStatus::ok();
}

int32_t OfflineCameraAIDLSession::convertAndImportBuffer(const OfflineCaptureRequest& request,
                                                         std::vector<buffer_handle_t>& handles) {
    int32_t failure = 0;
    std::vector<native_handle_t*> received;
    std::vector<int32_t> streamIds;
    std::vector<int64_t> bufferIds;
    auto collect = [&](const StreamBuffer& buffer) {
        received.push_back(convertFromAidl(buffer.buffer));
        streamIds.push_back(buffer.streamId);
        bufferIds.push_back(buffer.bufferId);
    };

    // Kept on purpose: an invalid buffer is logged and marked, and otherwise handled like the
    // others.
    int32_t numInputBuffers = 0;
    for (const OfflineInputFrame& frame : request.inputFrames) {
        for (const StreamBuffer& buffer : frame.inputBuffers) {
            if (buffer.streamId == -1 || buffer.bufferId == 0) {
                OFFLINE_LOGE(kLogTag, "%d %s: invalid streamId in inputBuffer (%d), bufferId (%ld)",
                             548, "convertAndImportBuffer", buffer.streamId,
                             static_cast<long>(buffer.bufferId));
                failure = 1;
            }
            collect(buffer);
            numInputBuffers++;
        }
    }
    int32_t numOutputBuffers = 0;
    for (const StreamBuffer& buffer : request.outputBuffers) {
        if (buffer.streamId == -1 || buffer.bufferId == 0) {
            OFFLINE_LOGE(kLogTag, "%d %s: invalid streamId in outputBuffer (%d), bufferid(%ld)",
                         569, "convertAndImportBuffer", buffer.streamId,
                         static_cast<long>(buffer.bufferId));
            failure = 1;
        }
        collect(buffer);
        numOutputBuffers++;
    }
    const int32_t numAllBuffers = numInputBuffers + numOutputBuffers;
    if (numAllBuffers != static_cast<int32_t>(received.size())) {
        OFFLINE_LOGE(kLogTag,
                     "%d %s: buffersize is not right, numAllBuffers:%d, numInputBuffers:%d, "
                     "numOutputBuffers:%d,numInvalidbuffer:%d",
                     588, "convertAndImportBuffer", numAllBuffers, numInputBuffers,
                     numOutputBuffers, static_cast<int32_t>(received.size()));
        failure = 1;
    }

    // Kept on purpose: the mark holds the last event, so an import that succeeds clears a
    // failure before it.
    handles.assign(received.size(), nullptr);
    for (size_t i = 0; i < received.size(); i++) {
        handles[i] = importBuffer(streamIds[i], bufferIds[i], received[i], &failure);
        DeleteConvertedHandle(received[i]);
    }
    return failure;
}

buffer_handle_t OfflineCameraAIDLSession::importBuffer(int32_t streamId, int64_t bufferId,
                                                       const native_handle_t* handle,
                                                       int32_t* pFailure) {
    if (bufferId == 0 && handle == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s: bufferId %lu has null buffer handle!", 715, "importBuffer",
                     static_cast<unsigned long>(bufferId));
        *pFailure = 1;
        return nullptr;
    }
    MutexLock lock(mBufferCacheLock);
    std::unordered_map<uint64_t, buffer_handle_t>& streamBuffers = mBufferCache[streamId];
    const uint64_t key = static_cast<uint64_t>(bufferId);
    if (streamBuffers.find(key) != streamBuffers.end()) {
        OFFLINE_LOGE(kLogTag, "%d %s: streamId :%d, bufferId %lu not returned yet, used again!",
                     740, "importBuffer", streamId, static_cast<unsigned long>(key));
        *pFailure = 1;
        return nullptr;
    }
    // A buffer without a handle (an empty handle, or one whose descriptors could not be taken
    // over) cannot be imported.
    buffer_handle_t imported = handle;
    if (handle == nullptr || !gHandleImporter.importBuffer(imported)) {
        OFFLINE_LOGE(kLogTag, "%d %s: output buffer for stream %d is invalid!", 729, "importBuffer",
                     streamId);
        *pFailure = 6;
        return nullptr;
    }
    streamBuffers[key] = imported;
    *pFailure = 0;
    return imported;
}

void OfflineCameraAIDLSession::convertBuffers(const std::vector<StreamBuffer>& buffers,
                                              std::vector<buffer_handle_t>& handles, size_t* pNext,
                                              int32_t bufferArrayLine, int32_t halArrayLine,
                                              std::vector<void*>* bufferArrays,
                                              std::vector<void*>* halBufferArrays,
                                              KivOfflineStreamInfo* pInfo) {
    const size_t first = *pNext;
    *pNext += buffers.size();
    if (buffers.empty()) {
        return;
    }
    auto* pKivBuffers =
            static_cast<KivStreamBuffer*>(VornCalloc(buffers.size(), sizeof(KivStreamBuffer)));
    if (pKivBuffers == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s: malloc memory failed", bufferArrayLine,
                     "convertAndImportBuffer");
        return;
    }
    bufferArrays->push_back(pKivBuffers);
    auto* pHalBuffers = static_cast<camera3_stream_buffer_t*>(
            VornCalloc(buffers.size(), sizeof(camera3_stream_buffer_t)));
    if (pHalBuffers == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s: malloc memory failed", halArrayLine, "convertAndImportBuffer");
        return;
    }
    halBufferArrays->push_back(pHalBuffers);

    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    for (size_t j = 0; j < buffers.size(); j++) {
        Camera3Stream* pStream;
        {
            // Kept on purpose: a stream never configured gets an empty record.
            MutexLock lock(mBufferCacheLock);
            pStream = &mStreamMap[buffers[j].streamId];
        }
        // The AIDL fences are not used: the client hands over buffers ready to read and write.
        // A buffer that was not imported is handed over without a handle.
        convertFromAidl(&handles[first + j], buffers[j].status, pStream, -1, &pHalBuffers[j]);
        (void)pService->TranslateToKivBuffer(&pHalBuffers[j], &pKivBuffers[j]);
    }
    pInfo->numBuffers = static_cast<uint32_t>(buffers.size());
    pInfo->pBuffers = pKivBuffers;
}

bool OfflineCameraAIDLSession::takeMetaOpsHold(uint32_t cameraId) {
    MutexLock lock(mConfigLock);
    auto hold = mMetaOpsHolds.find(cameraId);
    if (hold == mMetaOpsHolds.end()) {
        return false;
    }
    if (--hold->second == 0) {
        mMetaOpsHolds.erase(hold);
    }
    return true;
}

void OfflineCameraAIDLSession::waitForRequestsOfOtherThreads() {
    const std::thread::id self = std::this_thread::get_id();
    for (;;) {
        bool others = false;
        for (const auto& requests : mRequestThreads) {
            others = others || requests.first != self;
        }
        if (!others) {
            return;
        }
        mCallEnded.wait(mBufferCacheLock);
    }
}

::ndk::ScopedAStatus OfflineCameraAIDLSession::closeOfflineSession() {
    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    const uint32_t cameraId = mFrameworkCameraId;
    // The backend stops delivering before the cached buffers go. The close gives back the
    // session's hold on the camera's metadata operations, if it holds one: closing a session
    // never configured, or closing again, must not give back another session's hold.
    if (takeMetaOpsHold(cameraId)) {
        (void)pService->CloseSession(cameraId, mKivSessionHandle);
    } else {
        (void)pService->CloseSession(mKivSessionHandle);
    }

    {
        MutexLock lock(mBufferCacheLock);
        // A request on another thread may still hand its imported buffers to the backend.
        waitForRequestsOfOtherThreads();
        freeBufferCache();
    }
    freeReturnedBuffers();

    KivMetadataHandle sessionMetadata;
    std::map<uint32_t, uint32_t> holds;
    {
        MutexLock lock(mConfigLock);
        sessionMetadata = mSessionMetadata;
        mSessionMetadata = nullptr;
        holds.swap(mMetaOpsHolds);
    }
    if (sessionMetadata != nullptr) {
        OFFLINE_LOGI(kLogTag, "%d %s, release configure metadata, mSessionName:%s", 877,
                     "closeOfflineSession", mSessionName.c_str());
        // Kept on purpose: the close above has already dropped this session's hold on the
        // camera's metadata operations; when it was the last one, the release finds no table and
        // is only logged.
        (void)pService->DestoryKivMetadata(cameraId, sessionMetadata);
    }
    // The holds that further configurations took.
    for (const auto& hold : holds) {
        for (uint32_t i = 0; i < hold.second; i++) {
            pService->DeInitMetaOps(hold.first);
        }
    }

    MutexLock lock(mBufferCacheLock);
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
    std::vector<buffer_handle_t> returned;
    {
        MutexLock lock(mBufferCacheLock);
        returned.swap(mReturnedBuffers);
    }
    for (buffer_handle_t handle : returned) {
        OFFLINE_LOGI(kLogTag, "%d %s, fd:%d,%d", 182, "freeReturnedBuffers", HandleFd(handle, 0),
                     HandleFd(handle, 1));
        gHandleImporter.freeBuffer(handle);
    }
}

bool OfflineCameraAIDLSession::returnCachedBuffer(const camera3_stream_buffer_t& buffer,
                                                  int32_t* pStreamId, uint64_t* pBufferId) {
    const buffer_handle_t handle = HandleOf(buffer);
    MutexLock lock(mBufferCacheLock);
    // The stream record is read under the lock that configuration writes it under.
    *pStreamId = StreamIdOf(buffer);
    std::unordered_map<uint64_t, buffer_handle_t>& streamBuffers = mBufferCache[*pStreamId];
    for (auto it = streamBuffers.begin(); it != streamBuffers.end(); ++it) {
        if (it->second == handle) {
            *pBufferId = it->first;
            streamBuffers.erase(it);
            mReturnedBuffers.push_back(handle);
            return true;
        }
    }
    *pBufferId = 0;
    return false;
}

int32_t OfflineCameraAIDLSession::ProcessOfflineResultCb(const KivOfflineCallbacks* pCallbackOps,
                                                         uint32_t numResults,
                                                         const KivOfflineCaptureResult* pResults) {
    if (pCallbackOps == nullptr || pResults == nullptr || pCallbackOps->pPrivateData == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s,pCallbackOps OR pResult is NULL!", 393,
                     "ProcessOfflineResultCb");
        return 1;
    }
    auto* pSession = static_cast<OfflineCameraAIDLSession*>(pCallbackOps->pPrivateData);
    DeliveryScope delivery(pSession);
    return pSession->ProcessOfflineResult(numResults, pResults);
}

int32_t OfflineCameraAIDLSession::ProcessOfflineResult(uint32_t numResults,
                                                       const KivOfflineCaptureResult* pResults) {
    MutexLock deliveryLock(mDeliveryLock);
    if (mClientCallback == nullptr) {
        OFFLINE_LOGE(kLogTag,
                     "%d %s, Callback is NULL or result is NULL! Can not return result to Client",
                     372, "ProcessOfflineResult");
        return 1;
    }

    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    std::vector<CaptureResult> results(numResults);
    int32_t status = 0;
    for (uint32_t i = 0; i < numResults; i++) {
        const KivOfflineCaptureResult& record = pResults[i];
        if (record.pInput != nullptr && record.pOutput == nullptr) {
            // Kept on purpose: input buffers come back in a record of their own, which ends the
            // delivery; they are freed by the next delivery that reaches the client.
            returnInputBuffers(record);
            return status;
        }
        if (record.pOutput == nullptr) {
            continue;
        }
        const KivOfflineResultInfo& output = *record.pOutput;
        CaptureResult& result = results[i];
        result.frameNumber = static_cast<int32_t>(record.frameNumber);
        auto* pHalBuffers = static_cast<camera3_stream_buffer_t*>(
                VornCalloc(output.numBuffers, sizeof(camera3_stream_buffer_t)));
        result.outputBuffers.resize(output.numBuffers);
        if (pHalBuffers != nullptr && output.pBuffers != nullptr) {
            for (uint32_t j = 0; j < output.numBuffers; j++) {
                camera3_stream_buffer_t& halBuffer = pHalBuffers[j];
                (void)pService->TranslateFromKivBuffer(&output.pBuffers[j], &halBuffer);
                StreamBuffer& buffer = result.outputBuffers[j];
                OFFLINE_LOGI(kLogTag, "%d %s, buffer.size:%zu", 302, "ProcessOfflineResult",
                             buffer.buffer.fds.size());
                int32_t streamId = -1;
                uint64_t bufferId = 0;
                if (!returnCachedBuffer(halBuffer, &streamId, &bufferId)) {
                    // Kept on purpose: the wording of the message.
                    OFFLINE_LOGE(kLogTag, "%d %s, this outbuffer is not invalid outbuffer:%p", 317,
                                 "ProcessOfflineResult",
                                 static_cast<const void*>(HandleOf(halBuffer)));
                    status = 4;
                }
                buffer.streamId = streamId;
                buffer.bufferId = static_cast<int64_t>(bufferId);
                buffer.status = static_cast<BufferStatus>(halBuffer.status);
                // The client knows its buffer by stream and buffer id.
                CloseNativeHandle(&buffer.buffer);
            }
        }
        VornFree(pHalBuffers);

        if (output.pMetadata == nullptr) {
            continue;
        }
        result.partialResult = static_cast<int32_t>(output.partialResult);
        camera_metadata_t* pCameraMetadata = pService->CreateAndroidMetadata(
                mFrameworkCameraId, output.pMetadata, 1, 1, 0, nullptr);
        if (pCameraMetadata == nullptr) {
            OFFLINE_LOGE(kLogTag, "%d %s, CreateAndroidMetadata failed, pCameraMetadata is NULL",
                         352, "ProcessOfflineResult");
            status = 1;
        } else {
            convertToAidl(pCameraMetadata, &result.result);
            (void)pService->ReleaseAndroidMetadata(mFrameworkCameraId, pCameraMetadata);
        }
        OFFLINE_LOGI(kLogTag, "%d %s, release output metadata, frameNumber:%d", 357,
                     "ProcessOfflineResult", record.frameNumber);
        (void)pService->DestoryKivMetadata(mFrameworkCameraId, output.pMetadata);
    }

    // Kept on purpose: one buffer the session does not know withholds every result of the call.
    if (status == 0) {
        (void)mClientCallback->processCaptureResult(results);
    }
    freeReturnedBuffers();
    return status;
}

void OfflineCameraAIDLSession::returnInputBuffers(const KivOfflineCaptureResult& result) {
    const KivOfflineResultInfo& input = *result.pInput;
    OFFLINE_LOGI(kLogTag, "%d %s, offlineSession return the input buffer", 238,
                 "ProcessOfflineResult");
    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    auto* pHalBuffers = static_cast<camera3_stream_buffer_t*>(
            VornCalloc(input.numBuffers, sizeof(camera3_stream_buffer_t)));
    if (pHalBuffers != nullptr && input.pBuffers != nullptr) {
        for (uint32_t j = 0; j < input.numBuffers; j++) {
            (void)pService->TranslateFromKivBuffer(&input.pBuffers[j], &pHalBuffers[j]);
            int32_t streamId = -1;
            uint64_t bufferId = 0;
            if (!returnCachedBuffer(pHalBuffers[j], &streamId, &bufferId)) {
                OFFLINE_LOGE(kLogTag, "%d %s, this buffer is not invalid buffer:%p", 262,
                             "ProcessOfflineResult",
                             static_cast<const void*>(HandleOf(pHalBuffers[j])));
            }
        }
    }
    VornFree(pHalBuffers);
    if (input.pMetadata != nullptr) {
        OFFLINE_LOGI(kLogTag, "%d %s, release input metadata, frameNumber:%d", 274,
                     "ProcessOfflineResult", result.frameNumber);
        (void)pService->DestoryKivMetadata(mFrameworkCameraId, input.pMetadata);
    }
}

int32_t OfflineCameraAIDLSession::ProcessOfflineMessageCb(const KivOfflineCallbacks* pCallbackOps,
                                                          uint32_t numMessages,
                                                          const camera3_notify_msg_t* pMessages) {
    if (pCallbackOps == nullptr || pMessages == nullptr || pCallbackOps->pPrivateData == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s, pCallbackOps OR pMessage is NULL!", 162,
                     "ProcessOfflineMessageCb");
        return 1;
    }
    auto* pSession = static_cast<OfflineCameraAIDLSession*>(pCallbackOps->pPrivateData);
    DeliveryScope delivery(pSession);
    return pSession->ProcessOfflineMessage(numMessages, pMessages);
}

int32_t OfflineCameraAIDLSession::ProcessOfflineMessage(uint32_t numMessages,
                                                        const camera3_notify_msg_t* pMessages) {
    if (mClientCallback == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s, Callback Or Message is NULL! Can not return message to Client",
                     144, "ProcessOfflineMessage");
        return 1;
    }
    std::vector<NotifyMsg> messages(numMessages);
    for (uint32_t i = 0; i < numMessages; i++) {
        convertToAidl(&pMessages[i], &messages[i]);
    }
    (void)mClientCallback->notify(messages);
    return 0;
}

}  // namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "OfflineCameraAIDLSession.h"

#include <android/log.h>
#include <errno.h>
#include <stdlib.h>
#include <string.h>
#include <syslog.h>
#include <unistd.h>
#include <vorn/VornMemory.h>

#include "HandleImporter.h"
#include "OfflineCameraService.h"

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

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
// is 0x8000. Modes 3 and 4 map crossed: that is the backend's numbering.
constexpr uint32_t kBackendOperationModes[] = {0x8001, 0x8002, 0x8003, 0x8005,
                                               0x8004, 0x8006, 0x8007};
constexpr uint32_t kDefaultBackendOperationMode = 0x8000;

// Imports and frees the buffers of every session in the process.
HandleImporter gHandleImporter;

// Serialises the result deliveries of all sessions.
std::mutex gResultLock;

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
    if (mClientCallback != nullptr) {
        ::ndk::SpAIBinder binder = mClientCallback->asBinder();
        // A client in this process cannot be watched; the session works the same without it.
        (void)AIBinder_linkToDeath(binder.get(), mDeathRecipient.get(), this);
    }
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
        const OfflineSessionConfiguration& in_config) {
    KivOfflineSessionConfigInfo configInfo;
    memset(&configInfo, 0, sizeof(configInfo));
    configInfo.pCameraId = in_config.cameraId.c_str();
    configInfo.numStreams = static_cast<uint32_t>(in_config.streams.size());
    configInfo.reserved = 0;
    mFrameworkCameraId = static_cast<uint32_t>(atoi(in_config.cameraId.c_str()));

    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    pService->InitMetaOps(mFrameworkCameraId);

    std::vector<camera3_stream_t*> streams;
    convertStreamType(in_config.streams, streams);
    __android_log_print(ANDROID_LOG_INFO, kLogTag, "%s ppStream :%p, streams:%p",
                        "configureOfflineSession", static_cast<void*>(streams.data()),
                        static_cast<void*>(&streams));
    configInfo.ppStreams = streams.data();
    configInfo.operationMode = BackendOperationMode(static_cast<int32_t>(in_config.operationMode),
                                                    in_config.backendOperationMode);

    // A previous configuration's parameters are not released here: the newest one is kept.
    configInfo.pSessionParameters = convertToOfflineMetadata(in_config.sessionParams);
    mSessionMetadata = configInfo.pSessionParameters;

    for (size_t i = 0; i < configInfo.numStreams && i < streams.size(); i++) {
        camera3_stream_t* pStream = streams[i];
        __android_log_print(ANDROID_LOG_VERBOSE, kLogTag,
                            "%s: i: %zu, id: %d, streamType: %d, width:%d, height:%d",
                            "configureOfflineSession", i, in_config.streams[i].id,
                            pStream->stream_type, pStream->width, pStream->height);
        // The backend reads no vendor extension of a stream it is configured with.
        pStream->vendor_stream_tag = "";
        pStream->dynamic_range_profile = 0;
        pStream->vendor_stream_hint = 0;
        pStream->color_space = 0;
    }

    (void)pService->ConfigureSession(mKivSessionHandle, &configInfo);
    return ::ndk::ScopedAStatus::ok();
}

void OfflineCameraAIDLSession::convertStreamType(std::vector<Stream> streams,
                                                 std::vector<camera3_stream_t*>& out) {
    if (streams.empty()) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s StreamSize is zero", 508,
                            "convertStreamType");
        return;
    }
    for (const Stream& stream : streams) {
        Camera3Stream record;
        memset(&record, 0, sizeof(record));
        convertFromAidl(stream, &record);
        Camera3Stream& entry = mStreamMap[stream.id];
        entry = record;
        (void)mBufferCache[record.mId];
        // The list is released when configuration returns; the session keeps the text.
        std::string& physicalCameraId = mPhysicalCameraIds[stream.id];
        physicalCameraId = stream.physicalCameraId;
        entry.physical_camera_id = physicalCameraId.c_str();
        out.push_back(&entry);
    }
}

KivMetadataHandle OfflineCameraAIDLSession::convertToOfflineMetadata(const CameraMetadata& metadata) {
    if (metadata.metadata.empty()) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s metaSize is zero", 475,
                            "convertToOfflineMetadata");
        return nullptr;
    }
    // The view must stay aligned and alive while the backend reads it.
    CameraMetadata copy = metadata;
    const camera_metadata_t* pMetadata = nullptr;
    if (!convertFromAidl(copy, &pMetadata) || pMetadata == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "%d %s convert from AIDL meta to camera_metadata_t failed", 466,
                            "convertToOfflineMetadata");
        return nullptr;
    }
    return OfflineCameraService::GetInstance()->CreateByAndroidMetadata(
            mFrameworkCameraId, pMetadata, 0, 0, 0xFFFFFFFF);
}

::ndk::ScopedAStatus OfflineCameraAIDLSession::processOfflineRequest(
        const std::vector<OfflineCaptureRequest>& in_requests, int32_t* _aidl_return) {
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

        std::vector<buffer_handle_t*> locations;
        const int32_t failure = convertAndImportBuffer(request, locations);
        // Metadata made for a request goes to the backend inside the entries; without them it
        // would be lost, so a request whose entries could not be allocated is not converted.
        const bool haveEntries =
                (info.numInputs == 0 || info.pInputs != nullptr) && info.pOutput != nullptr;
        // A failed request still goes to the backend, with its entries left empty.
        if (failure == 0 && haveEntries) {
            size_t next = 0;
            for (size_t i = 0; i < request.inputFrames.size(); i++) {
                const OfflineInputFrame& frame = request.inputFrames[i];
                KivOfflineStreamInfo* pInput = &info.pInputs[i];
                convertBuffers(frame.inputBuffers, locations, &next, 617, 627, pInput);
                const CameraMetadata* pSettings = &frame.settings;
                if (pSettings->metadata.empty()) {
                    // Clients send the settings once, in the first frame.
                    __android_log_print(ANDROID_LOG_WARN, kLogTag,
                                        "%d %s: avoid Binder transaction failure use first frame "
                                        "meta as source",
                                        655, "convertAndImportBuffer");
                    pSettings = &request.inputFrames[0].settings;
                }
                pInput->pMetadata = convertToOfflineMetadata(*pSettings);
            }
            convertBuffers(request.outputBuffers, locations, &next, 669, 680, info.pOutput);
            // Empty result metadata for the backend to fill.
            info.pOutput->pMetadata = pService->CreateKivMetaData(mFrameworkCameraId, nullptr, 0);
        }

        (void)pService->ExecuteRequest(mKivSessionHandle, &info);

        *_aidl_return = static_cast<int32_t>(*info.pFrameNumber);
        __android_log_print(ANDROID_LOG_INFO, kLogTag,
                            "%d %s: original request frameNum :%d. override frameNum:%d", 770,
                            "processOfflineRequest", request.frameNumber, *_aidl_return);

        VornFree(info.pInputs);
        VornFree(info.pOutput);
        freeRequestArrays();
    }
    return ::ndk::ScopedAStatus::ok();
}

int32_t OfflineCameraAIDLSession::convertAndImportBuffer(const OfflineCaptureRequest& request,
                                                         std::vector<buffer_handle_t*>& locations) {
    int32_t failure = 0;
    std::vector<native_handle_t*> handles;
    std::vector<int32_t> streamIds;
    std::vector<int64_t> bufferIds;
    auto collect = [&](const StreamBuffer& buffer) {
        handles.push_back(convertFromAidl(buffer.buffer));
        streamIds.push_back(buffer.streamId);
        bufferIds.push_back(buffer.bufferId);
    };

    int32_t numInputBuffers = 0;
    for (const OfflineInputFrame& frame : request.inputFrames) {
        for (const StreamBuffer& buffer : frame.inputBuffers) {
            if (buffer.streamId == -1 || buffer.bufferId == 0) {
                __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                                    "%d %s: invalid streamId in inputBuffer (%d), bufferId (%ld)",
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
            __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                                "%d %s: invalid streamId in outputBuffer (%d), bufferid(%ld)", 569,
                                "convertAndImportBuffer", buffer.streamId,
                                static_cast<long>(buffer.bufferId));
            failure = 1;
        }
        collect(buffer);
        numOutputBuffers++;
    }
    const int32_t numAllBuffers = numInputBuffers + numOutputBuffers;
    if (numAllBuffers != static_cast<int32_t>(handles.size())) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "%d %s: buffersize is not right, numAllBuffers:%d, "
                            "numInputBuffers:%d, numOutputBuffers:%d,numInvalidbuffer:%d",
                            588, "convertAndImportBuffer", numAllBuffers, numInputBuffers,
                            numOutputBuffers, static_cast<int32_t>(handles.size()));
        failure = 1;
    }

    locations.assign(handles.size(), nullptr);
    for (size_t i = 0; i < handles.size(); i++) {
        locations[i] = importBuffer(streamIds[i], bufferIds[i], handles[i], &failure);
        DeleteConvertedHandle(handles[i]);
    }
    return failure;
}

buffer_handle_t* OfflineCameraAIDLSession::importBuffer(int32_t streamId, int64_t bufferId,
                                                        const native_handle_t* handle,
                                                        int32_t* pFailure) {
    if (bufferId == 0 && handle == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "%d %s: bufferId %lu has null buffer handle!", 715, "importBuffer",
                            static_cast<unsigned long>(bufferId));
        *pFailure = 1;
        return nullptr;
    }
    std::lock_guard<std::mutex> lock(mBufferCacheLock);
    std::unordered_map<uint64_t, buffer_handle_t>& streamBuffers = mBufferCache[streamId];
    const uint64_t key = static_cast<uint64_t>(bufferId);
    if (streamBuffers.find(key) != streamBuffers.end()) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "%d %s: streamId :%d, bufferId %lu not returned yet, used again!", 740,
                            "importBuffer", streamId, static_cast<unsigned long>(key));
        *pFailure = 1;
        return nullptr;
    }
    // A buffer without a handle (an empty handle, or one whose descriptors could not be taken
    // over) cannot be imported.
    buffer_handle_t imported = handle;
    if (handle == nullptr || !gHandleImporter.importBuffer(imported)) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "%d %s: output buffer for stream %d is invalid!", 729, "importBuffer",
                            streamId);
        *pFailure = 6;
        return nullptr;
    }
    buffer_handle_t& cached = streamBuffers[key];
    cached = imported;
    *pFailure = 0;
    return &cached;
}

void OfflineCameraAIDLSession::convertBuffers(const std::vector<StreamBuffer>& buffers,
                                              const std::vector<buffer_handle_t*>& locations,
                                              size_t* pNext, int32_t bufferArrayLine,
                                              int32_t halArrayLine, KivOfflineStreamInfo* pInfo) {
    const size_t first = *pNext;
    *pNext += buffers.size();
    if (buffers.empty()) {
        return;
    }
    auto* pKivBuffers =
            static_cast<KivStreamBuffer*>(VornCalloc(buffers.size(), sizeof(KivStreamBuffer)));
    if (pKivBuffers == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s: malloc memory failed",
                            bufferArrayLine, "convertAndImportBuffer");
        return;
    }
    mRequestBufferArrays.push_back(pKivBuffers);
    auto* pHalBuffers = static_cast<camera3_stream_buffer_t*>(
            VornCalloc(buffers.size(), sizeof(camera3_stream_buffer_t)));
    if (pHalBuffers == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s: malloc memory failed", halArrayLine,
                            "convertAndImportBuffer");
        return;
    }
    mRequestHalBufferArrays.push_back(pHalBuffers);

    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    // Buffers that were not imported are handed over without a handle.
    buffer_handle_t noBuffer = nullptr;
    for (size_t j = 0; j < buffers.size(); j++) {
        // A stream never configured gets an empty record.
        Camera3Stream& stream = mStreamMap[buffers[j].streamId];
        const size_t index = first + j;
        buffer_handle_t* pHandle = index < locations.size() && locations[index] != nullptr
                                           ? locations[index]
                                           : &noBuffer;
        // The AIDL fences are not used: the client hands over buffers ready to read and write.
        convertFromAidl(pHandle, buffers[j].status, &stream, -1, &pHalBuffers[j]);
        (void)pService->TranslateToKivBuffer(&pHalBuffers[j], &pKivBuffers[j]);
    }
    pInfo->numBuffers = static_cast<uint32_t>(buffers.size());
    pInfo->pBuffers = pKivBuffers;
}

void OfflineCameraAIDLSession::freeRequestArrays() {
    for (void*& pArray : mRequestBufferArrays) {
        VornFree(pArray);
        pArray = nullptr;
    }
    mRequestBufferArrays.clear();
    for (void*& pArray : mRequestHalBufferArrays) {
        VornFree(pArray);
        pArray = nullptr;
    }
    mRequestHalBufferArrays.clear();
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

bool OfflineCameraAIDLSession::removeCachedBuffer(int32_t streamId, buffer_handle_t handle,
                                                  uint64_t* pBufferId) {
    std::lock_guard<std::mutex> lock(mBufferCacheLock);
    std::unordered_map<uint64_t, buffer_handle_t>& streamBuffers = mBufferCache[streamId];
    for (auto it = streamBuffers.begin(); it != streamBuffers.end(); ++it) {
        if (it->second == handle) {
            *pBufferId = it->first;
            streamBuffers.erase(it);
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
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s,pCallbackOps OR pResult is NULL!",
                            393, "ProcessOfflineResultCb");
        return 1;
    }
    auto* pSession = static_cast<OfflineCameraAIDLSession*>(pCallbackOps->pPrivateData);
    return pSession->ProcessOfflineResult(numResults, pResults);
}

int32_t OfflineCameraAIDLSession::ProcessOfflineResult(uint32_t numResults,
                                                       const KivOfflineCaptureResult* pResults) {
    std::lock_guard<std::mutex> resultLock(gResultLock);
    if (mClientCallback == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "%d %s, Callback is NULL or result is NULL! Can not return result to "
                            "Client",
                            372, "ProcessOfflineResult");
        return 1;
    }

    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    std::vector<CaptureResult> results(numResults);
    int32_t status = 0;
    for (uint32_t i = 0; i < numResults; i++) {
        const KivOfflineCaptureResult& record = pResults[i];
        if (record.pInput != nullptr && record.pOutput == nullptr) {
            // Input buffers come back in a record of their own, which ends the delivery; they
            // are freed by the next delivery that reaches the client.
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
                const int32_t streamId = StreamIdOf(halBuffer);
                StreamBuffer& buffer = result.outputBuffers[j];
                __android_log_print(ANDROID_LOG_INFO, kLogTag, "%d %s, buffer.size:%zu", 302,
                                    "ProcessOfflineResult", buffer.buffer.fds.size());
                const buffer_handle_t handle = HandleOf(halBuffer);
                uint64_t bufferId = 0;
                if (removeCachedBuffer(streamId, handle, &bufferId)) {
                    mReturnedBuffers.push_back(handle);
                } else {
                    __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                                        "%d %s, this outbuffer is not invalid outbuffer:%p", 317,
                                        "ProcessOfflineResult", static_cast<const void*>(handle));
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
            __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                                "%d %s, CreateAndroidMetadata failed, pCameraMetadata is NULL", 352,
                                "ProcessOfflineResult");
            status = 1;
        } else {
            convertToAidl(pCameraMetadata, &result.result);
            (void)pService->ReleaseAndroidMetadata(mFrameworkCameraId, pCameraMetadata);
        }
        __android_log_print(ANDROID_LOG_INFO, kLogTag,
                            "%d %s, release output metadata, frameNumber:%d", 357,
                            "ProcessOfflineResult", record.frameNumber);
        (void)pService->DestoryKivMetadata(mFrameworkCameraId, output.pMetadata);
    }

    // One buffer the session does not know withholds every result of the call.
    if (status == 0) {
        (void)mClientCallback->processCaptureResult(results);
    }
    freeReturnedBuffers();
    return status;
}

void OfflineCameraAIDLSession::returnInputBuffers(const KivOfflineCaptureResult& result) {
    const KivOfflineResultInfo& input = *result.pInput;
    __android_log_print(ANDROID_LOG_INFO, kLogTag, "%d %s, offlineSession return the input buffer",
                        238, "ProcessOfflineResult");
    OfflineCameraService* pService = OfflineCameraService::GetInstance();
    auto* pHalBuffers = static_cast<camera3_stream_buffer_t*>(
            VornCalloc(input.numBuffers, sizeof(camera3_stream_buffer_t)));
    if (pHalBuffers != nullptr && input.pBuffers != nullptr) {
        for (uint32_t j = 0; j < input.numBuffers; j++) {
            (void)pService->TranslateFromKivBuffer(&input.pBuffers[j], &pHalBuffers[j]);
            const buffer_handle_t handle = HandleOf(pHalBuffers[j]);
            uint64_t bufferId = 0;
            if (removeCachedBuffer(StreamIdOf(pHalBuffers[j]), handle, &bufferId)) {
                mReturnedBuffers.push_back(handle);
            } else {
                __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                                    "%d %s, this buffer is not invalid buffer:%p", 262,
                                    "ProcessOfflineResult", static_cast<const void*>(handle));
            }
        }
    }
    VornFree(pHalBuffers);
    if (input.pMetadata != nullptr) {
        __android_log_print(ANDROID_LOG_INFO, kLogTag,
                            "%d %s, release input metadata, frameNumber:%d", 274,
                            "ProcessOfflineResult", result.frameNumber);
        (void)pService->DestoryKivMetadata(mFrameworkCameraId, input.pMetadata);
    }
}

int32_t OfflineCameraAIDLSession::ProcessOfflineMessageCb(const KivOfflineCallbacks* pCallbackOps,
                                                          uint32_t numMessages,
                                                          const camera3_notify_msg_t* pMessages) {
    if (pCallbackOps == nullptr || pMessages == nullptr || pCallbackOps->pPrivateData == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s, pCallbackOps OR pMessage is NULL!",
                            162, "ProcessOfflineMessageCb");
        return 1;
    }
    auto* pSession = static_cast<OfflineCameraAIDLSession*>(pCallbackOps->pPrivateData);
    return pSession->ProcessOfflineMessage(numMessages, pMessages);
}

int32_t OfflineCameraAIDLSession::ProcessOfflineMessage(uint32_t numMessages,
                                                        const camera3_notify_msg_t* pMessages) {
    if (mClientCallback == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "%d %s, Callback Or Message is NULL! Can not return message to Client",
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

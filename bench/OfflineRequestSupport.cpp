/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "OfflineRequestSupport.h"

#include <ui/GraphicBufferMapper.h>

#include <chrono>

#include "BenchSupport.h"
#include "OfflineClientSide.h"

namespace offlinecamera::bench {

using ::aidl::android::hardware::camera::device::StreamConfigurationMode;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineInputFrame;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineSessionConfiguration;
using ::android::hardware::camera::device::implementation::convertFromAidl;
using ::android::hardware::camera::device::implementation::convertToAidl;

namespace {

constexpr const char* kSessionName = "bench-offline";
constexpr int32_t kFormat = HAL_PIXEL_FORMAT_YCBCR_420_888;
// The backend's mode for the platform's normal stream configuration mode.
constexpr uint32_t kNormalBackendMode = 0x8001;

std::vector<Stream> OfflineStreams() {
    return {OfflineStream(kOfflineInputStream, StreamType::INPUT, kOfflineWidth, kOfflineHeight,
                          PixelFormat::YCBCR_420_888),
            OfflineStream(kOfflineOutputStream, StreamType::OUTPUT, kOfflineWidth, kOfflineHeight,
                          PixelFormat::YCBCR_420_888)};
}

}  // namespace

::ndk::ScopedAStatus ResultWaiter::notify(const std::vector<NotifyMsg>& msgs) {
    std::lock_guard<std::mutex> lock(mLock);
    mMessages += msgs.size();
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus ResultWaiter::processCaptureResult(const std::vector<CaptureResult>& results) {
    std::lock_guard<std::mutex> lock(mLock);
    for (const CaptureResult& result : results) {
        mResults++;
        mLast.frameNumber = result.frameNumber;
        mLast.buffers.clear();
        for (const StreamBuffer& buffer : result.outputBuffers) {
            mLast.buffers.emplace_back(buffer.streamId, buffer.bufferId);
        }
        mLast.metadataBytes = result.result.metadata.size();
    }
    mArrived.notify_all();
    return ::ndk::ScopedAStatus::ok();
}

std::shared_ptr<IOfflineCameraSessionCallback> ResultWaiter::Remote() {
    return RemoteInterface<IOfflineCameraSessionCallback>(asBinder());
}

bool ResultWaiter::WaitForResults(size_t count) {
    std::unique_lock<std::mutex> lock(mLock);
    // A guard against a result that never comes, not a measure.
    return mArrived.wait_for(lock, std::chrono::seconds(1), [&] { return mResults >= count; });
}

size_t ResultWaiter::Results() {
    std::lock_guard<std::mutex> lock(mLock);
    return mResults;
}

size_t ResultWaiter::Messages() {
    std::lock_guard<std::mutex> lock(mLock);
    return mMessages;
}

SeenOfflineResult ResultWaiter::Last() {
    std::lock_guard<std::mutex> lock(mLock);
    return mLast;
}

OfflineClient::OfflineClient() {
    for (size_t i = 0; i < kOfflineInputBuffers + 1; i++) {
        mPool.push_back(
                ::android::hostgralloc::allocate(kOfflineWidth, kOfflineHeight, kFormat, 0x3));
    }
    mSettings = CaptureSettings(10000000, 400);
}

OfflineClient::~OfflineClient() {
    for (native_handle_t* handle : mPool) {
        if (handle != nullptr) ::android::hostgralloc::release(handle);
    }
}

std::vector<OfflineCaptureRequest> OfflineClient::Request(int32_t frameNumber) const {
    auto buffer = [this](int32_t streamId, size_t index) {
        StreamBuffer streamBuffer;
        streamBuffer.streamId = streamId;
        streamBuffer.bufferId = static_cast<int64_t>(index) + 1;
        streamBuffer.buffer = convertToAidl(mPool[index]);
        streamBuffer.status = BufferStatus::OK;
        return streamBuffer;
    };
    std::vector<OfflineCaptureRequest> requests(1);
    OfflineCaptureRequest& request = requests[0];
    request.frameNumber = frameNumber;
    OfflineInputFrame& frame = request.inputFrames.emplace_back();
    for (size_t i = 0; i < kOfflineInputBuffers; i++) {
        frame.inputBuffers.push_back(buffer(kOfflineInputStream, i));
    }
    frame.settings.metadata = mSettings;
    request.outputBuffers.push_back(buffer(kOfflineOutputStream, kOfflineInputBuffers));
    return requests;
}

LibraryOfflineSession::LibraryOfflineSession()
    : mWaiter(::ndk::SharedRefBase::make<ResultWaiter>()) {
    std::shared_ptr<IOfflineCameraSession> opened;
    if (!Service().openOfflineSeesion(kSessionName, mWaiter->Remote(), &opened).isOk() ||
        opened == nullptr) {
        return;
    }
    OfflineSessionConfiguration config;
    config.cameraId = "0";
    config.streams = OfflineStreams();
    config.operationMode = StreamConfigurationMode::NORMAL_MODE;
    mSession = RemoteInterface<IOfflineCameraSession>(opened->asBinder());
    (void)mSession->configureOfflineSession(config);
}

LibraryOfflineSession::~LibraryOfflineSession() {
    if (mSession != nullptr) (void)mSession->closeOfflineSession();
}

bool LibraryOfflineSession::Process(const std::vector<OfflineCaptureRequest>& requests) {
    const size_t expected = mWaiter->Results() + requests.size();
    int32_t frameNumber = -1;
    return mSession->processOfflineRequest(requests, &frameNumber).isOk() &&
           mWaiter->WaitForResults(expected);
}

BaselineOfflineSession::BaselineOfflineSession()
    : mWaiter(::ndk::SharedRefBase::make<ResultWaiter>()),
      mClient(mWaiter->Remote()),
      mBackend(BaselineBackend()),
      mCallbacks{OnResult, OnMessage, 0, 0, this} {
    mImported.reserve(kBuffers);
    if (mBackend == nullptr) return;
    const KivMetadataOpsOpenInfo openInfo = {0, 0, 0};
    mMetaOps = mBackend->pfnOpenMetadataOps(mBackend, &openInfo);
    const KivOfflineSessionInfo info = {kSessionName, 0, &mCallbacks};
    mSession = mBackend->pfnOpenSession(mBackend, &info);
    if (mSession == 0) return;
    const std::vector<Stream> streams = OfflineStreams();
    camera3_stream_t* pointers[2];
    for (size_t i = 0; i < 2; i++) {
        mStreams[i] = {};
        convertFromAidl(streams[i], &mStreams[i]);
        mStreams[i].vendor_stream_tag = "";
        pointers[i] = &mStreams[i];
    }
    KivOfflineSessionConfigInfo config = {};
    config.pCameraId = "0";
    config.numStreams = 2;
    config.ppStreams = pointers;
    config.operationMode = kNormalBackendMode;
    (void)mBackend->pfnConfigureSession(mSession, &config);
}

BaselineOfflineSession::~BaselineOfflineSession() {
    if (mSession != 0) (void)mBackend->pfnCloseSession(mSession);
    if (mMetaOps != nullptr) (void)mMetaOps->pfnClose(mMetaOps);
    for (const Imported& imported : mImported) {
        ::android::GraphicBufferMapper::get().freeBuffer(imported.handle);
    }
    for (buffer_handle_t handle : mReleased) {
        ::android::GraphicBufferMapper::get().freeBuffer(handle);
    }
}

bool BaselineOfflineSession::Process(const std::vector<OfflineCaptureRequest>& requests) {
    const size_t expected = mWaiter->Results() + requests.size();
    for (const OfflineCaptureRequest& request : requests) {
        KivStreamBuffer kivBuffers[kBuffers];
        size_t count = 0;
        // Imports one buffer and translates it for the backend.
        auto add = [&](const StreamBuffer& buffer, camera3_stream_t* stream) {
            if (count == kBuffers) return false;
            native_handle_t* received = convertFromAidl(buffer.buffer);
            if (received == nullptr) return false;
            buffer_handle_t handle = nullptr;
            const bool imported = ::android::GraphicBufferMapper::get().importBufferNoValidate(
                                          received, &handle) == ::android::OK;
            native_handle_close(received);
            native_handle_delete(received);
            if (!imported) return false;
            mHandles[count] = handle;
            {
                std::lock_guard<std::mutex> lock(mImportedLock);
                mImported.push_back({buffer.streamId, buffer.bufferId, handle});
            }
            const camera3_stream_buffer_t halBuffer = {
                    stream, &mHandles[count], static_cast<int>(buffer.status), -1, -1, 0, nullptr};
            (void)mBackend->pfnTranslateToKivBuffer(&halBuffer, &kivBuffers[count]);
            count++;
            return true;
        };

        std::vector<KivOfflineStreamInfo> inputs(request.inputFrames.size());
        for (size_t i = 0; i < request.inputFrames.size(); i++) {
            const OfflineInputFrame& frame = request.inputFrames[i];
            KivOfflineStreamInfo& input = inputs[i];
            input.pBuffers = &kivBuffers[count];
            for (const StreamBuffer& buffer : frame.inputBuffers) {
                if (!add(buffer, &mStreams[0])) return false;
            }
            input.numBuffers = static_cast<uint32_t>(frame.inputBuffers.size());
            const camera_metadata_t* settings = nullptr;
            if (convertFromAidl(frame.settings, &settings) && settings != nullptr) {
                input.pMetadata =
                        mMetaOps->pfnCreateByAndroidMetadata(mMetaOps, settings, 0, 0, 0xFFFFFFFF);
            }
        }
        KivOfflineStreamInfo output = {};
        output.pBuffers = &kivBuffers[count];
        for (const StreamBuffer& buffer : request.outputBuffers) {
            if (!add(buffer, &mStreams[1])) return false;
        }
        output.numBuffers = static_cast<uint32_t>(request.outputBuffers.size());
        output.pMetadata = mMetaOps->pfnCreateKivMetadata(mMetaOps, nullptr, 0);

        uint32_t frameNumber = static_cast<uint32_t>(request.frameNumber);
        KivOfflineCaptureRequestInfo info = {};
        info.numInputs = static_cast<uint32_t>(inputs.size());
        info.pInputs = inputs.data();
        info.pOutput = &output;
        info.pFrameNumber = &frameNumber;
        if (mBackend->pfnExecuteRequest(mSession, &info) != 0) return false;
    }
    return mWaiter->WaitForResults(expected);
}

bool BaselineOfflineSession::Release(buffer_handle_t handle, Imported* pReleased) {
    std::lock_guard<std::mutex> lock(mImportedLock);
    for (auto it = mImported.begin(); it != mImported.end(); ++it) {
        if (it->handle == handle) {
            *pReleased = *it;
            mImported.erase(it);
            return true;
        }
    }
    return false;
}

int32_t BaselineOfflineSession::OnResult(const KivOfflineCallbacks* pCallbacks, uint32_t numResults,
                                         const KivOfflineCaptureResult* pResults) {
    auto* self = static_cast<BaselineOfflineSession*>(pCallbacks->pPrivateData);
    std::vector<CaptureResult> results;
    // Buffers given back are freed once a result has gone to the client, so that the client
    // hears of its result first: input buffers come back alone, before the output.
    std::vector<buffer_handle_t>& released = self->mReleased;
    auto giveBack = [self, &released](const KivStreamBuffer& kivBuffer, Imported* pImported) {
        camera3_stream_buffer_t halBuffer = {};
        (void)self->mBackend->pfnTranslateFromKivBuffer(&kivBuffer, &halBuffer);
        *pImported = {};
        if (halBuffer.buffer == nullptr || !self->Release(*halBuffer.buffer, pImported)) {
            return halBuffer.status;
        }
        released.push_back(pImported->handle);
        return halBuffer.status;
    };
    for (uint32_t i = 0; i < numResults; i++) {
        const KivOfflineCaptureResult& record = pResults[i];
        if (record.pOutput == nullptr) {
            if (record.pInput == nullptr) continue;
            Imported imported;
            for (uint32_t j = 0; j < record.pInput->numBuffers; j++) {
                (void)giveBack(record.pInput->pBuffers[j], &imported);
            }
            if (record.pInput->pMetadata != nullptr) {
                (void)self->mMetaOps->pfnDestroyKivMetadata(record.pInput->pMetadata);
            }
            continue;
        }
        const KivOfflineResultInfo& output = *record.pOutput;
        CaptureResult& result = results.emplace_back();
        result.frameNumber = static_cast<int32_t>(record.frameNumber);
        result.outputBuffers.resize(output.numBuffers);
        for (uint32_t j = 0; j < output.numBuffers; j++) {
            Imported imported;
            const int status = giveBack(output.pBuffers[j], &imported);
            result.outputBuffers[j].streamId = imported.streamId;
            result.outputBuffers[j].bufferId = imported.bufferId;
            result.outputBuffers[j].status = static_cast<BufferStatus>(status);
        }
        if (output.pMetadata != nullptr) {
            result.partialResult = static_cast<int32_t>(output.partialResult);
            camera_metadata_t* metadata = self->mMetaOps->pfnCreateAndroidMetadata(
                    self->mMetaOps, output.pMetadata, 1, 1, 0, nullptr);
            if (metadata != nullptr) {
                convertToAidl(metadata, &result.result);
                (void)self->mMetaOps->pfnReleaseAndroidMetadata(self->mMetaOps, metadata);
            }
            (void)self->mMetaOps->pfnDestroyKivMetadata(output.pMetadata);
        }
    }
    if (results.empty()) return 0;
    (void)self->mClient->processCaptureResult(results);
    for (buffer_handle_t handle : released) {
        ::android::GraphicBufferMapper::get().freeBuffer(handle);
    }
    released.clear();
    return 0;
}

int32_t BaselineOfflineSession::OnMessage(const KivOfflineCallbacks* pCallbacks,
                                          uint32_t numMessages,
                                          const camera3_notify_msg_t* pMessages) {
    auto* self = static_cast<BaselineOfflineSession*>(pCallbacks->pPrivateData);
    std::vector<NotifyMsg> messages(numMessages);
    for (uint32_t i = 0; i < numMessages; i++) convertToAidl(&pMessages[i], &messages[i]);
    (void)self->mClient->notify(messages);
    return 0;
}

}  // namespace offlinecamera::bench

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "BenchSupport.h"

#include <android/binder_manager.h>
#include <android/log.h>
#include <convert.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <hostplatform/VornTesting.h>
#include <string.h>
#include <ui/GraphicBufferMapper.h>

#include <string>

#include "OfflineCameraAIDLService.h"
#include "OfflineCameraService.h"

namespace offlinecamera::bench {

using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::CaptureResult;
using ::aidl::android::hardware::camera::device::Stream;
using ::aidl::android::hardware::camera::device::StreamBuffersVal;
using ::aidl::android::hardware::camera::device::StreamRotation;
using ::aidl::android::hardware::camera::device::StreamType;
using ::aidl::android::hardware::graphics::common::BufferUsage;
using ::aidl::android::hardware::graphics::common::Dataspace;
using ::aidl::android::hardware::graphics::common::PixelFormat;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo;
using ::android::hardware::camera::device::implementation::convertFromAidl;
using ::android::hardware::camera::device::implementation::convertToAidl;

namespace {

constexpr const char* kSessionName = "bench";

// Set once by SetUpProcess(), before any benchmark or check runs.
std::shared_ptr<IOfflineCameraService> gService;
const KivOfflineIntfCbs* gBaselineBackend = nullptr;

void DropLine(const struct __android_logger_data* /*data*/, const char* /*message*/) {}

int32_t IgnoreResults(const KivOfflineCallbacks* /*pCallbackOps*/, uint32_t /*numResults*/,
                      const KivOfflineCaptureResult* /*pResults*/) {
    return 0;
}

int32_t IgnoreMessages(const KivOfflineCallbacks* /*pCallbackOps*/, uint32_t /*numMessages*/,
                       const camera3_notify_msg_t* /*pMessages*/) {
    return 0;
}

}  // namespace

void SetUpProcess() {
    Vorn::Host::SetVendorRoot(BENCH_VENDOR_ROOT);
    RegisterOfflineCameraAIDLService();
    OfflineCameraService::GetInstance();
    gService = ConnectToService();
    // Opened the way the library opens its own context.
    gBaselineBackend = KivOfflineOpenContext("HAL3 Extension", 257);
}

IOfflineCameraService& Service() {
    return *gService;
}

const KivOfflineIntfCbs* BaselineBackend() {
    return gBaselineBackend;
}

void SilenceLog() {
    __android_log_set_logger(DropLine);
}

void LogToStderr() {
    __android_log_set_logger(__android_log_stderr_logger);
}

std::shared_ptr<IOfflineCameraSessionCallback> MakeSessionCallback() {
    auto callback = ::ndk::SharedRefBase::make<SessionCallback>();
    ::ndk::SpAIBinder binder = callback->asBinder();
    ::ndk::host::setRemote(binder.get(), true);
    return callback;
}

bool LibrarySessionCycle(const std::shared_ptr<IOfflineCameraSessionCallback>& callback) {
    std::shared_ptr<IOfflineCameraSession> session;
    if (!gService->openOfflineSeesion(kSessionName, callback, &session).isOk() ||
        session == nullptr) {
        return false;
    }
    const OfflineFlushInfo flushInfo;
    (void)session->flushOfflineSession(flushInfo);
    (void)session->dumpOfflineSession();
    (void)session->closeOfflineSession();
    return true;
}

bool BaselineSessionCycle() {
    const KivOfflineIntfCbs* backend = gBaselineBackend;
    if (backend == nullptr) return false;
    const KivOfflineCallbacks callbacks = {IgnoreResults, IgnoreMessages, 0, 0, nullptr};
    const KivOfflineSessionInfo info = {kSessionName, 0, &callbacks};
    const uint64_t session = backend->pfnOpenSession(backend, &info);
    if (session == 0) return false;
    KivOfflineFlushInfo flushInfo = {0};
    (void)backend->pfnFlush(session, &flushInfo);
    (void)backend->pfnDump(session);
    (void)backend->pfnCloseSession(session);
    return true;
}

PoolClient::PoolClient(size_t poolSize, uint32_t width, uint32_t height, int32_t format)
    : mLent(poolSize, false) {
    mPool.reserve(poolSize);
    for (size_t i = 0; i < poolSize; i++) {
        mPool.push_back(::android::hostgralloc::allocate(width, height, format, 0));
    }
}

PoolClient::~PoolClient() {
    for (native_handle_t* handle : mPool) {
        if (handle != nullptr) ::android::hostgralloc::release(handle);
    }
}

::ndk::ScopedAStatus PoolClient::notify(const std::vector<NotifyMsg>& /*msgs*/) {
    return ::ndk::ScopedAStatus::ok();
}

void PoolClient::TakeBack(const std::vector<StreamBuffer>& buffers) {
    for (const StreamBuffer& buffer : buffers) {
        const size_t index = static_cast<size_t>(buffer.bufferId - 1);
        if (buffer.bufferId > 0 && index < mLent.size() && mLent[index]) {
            mLent[index] = false;
            mLentCount--;
        }
        mCameBack.push_back(buffer.bufferId);
    }
}

::ndk::ScopedAStatus PoolClient::processCaptureResult(
        const std::vector<OfflineCaptureResult>& results) {
    std::lock_guard<std::mutex> lock(mLock);
    for (const OfflineCaptureResult& result : results) {
        mResultCount++;
        mMetadataBytes += result.result.metadata.size();
        TakeBack(result.outputBuffers);
    }
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus PoolClient::returnStreamBuffers(const std::vector<StreamBuffer>& buffers) {
    std::lock_guard<std::mutex> lock(mLock);
    TakeBack(buffers);
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus PoolClient::requestStreamBuffers(
        const std::vector<OfflineBufferRequest>& bufReqs, std::vector<StreamBufferRet>* buffers,
        BufferRequestStatus* status) {
    std::lock_guard<std::mutex> lock(mLock);
    buffers->resize(bufReqs.size());
    for (size_t i = 0; i < bufReqs.size(); i++) {
        std::vector<StreamBuffer> lent(static_cast<size_t>(bufReqs[i].numBuffersRequested));
        for (StreamBuffer& buffer : lent) {
            // The next free buffer of the pool, in pool order.
            size_t tries = 0;
            while (mLent[mNext] && tries++ < mPool.size()) mNext = (mNext + 1) % mPool.size();
            if (mLent[mNext]) {
                *status = BufferRequestStatus::FAILED_PARTIAL;
                return ::ndk::ScopedAStatus::ok();
            }
            mLent[mNext] = true;
            mLentCount++;
            buffer.streamId = 10 + static_cast<int32_t>(i);
            buffer.bufferId = static_cast<int64_t>(mNext) + 1;
            buffer.buffer = convertToAidl(mPool[mNext]);
            buffer.status = BufferStatus::OK;
            mNext = (mNext + 1) % mPool.size();
        }
        (*buffers)[i].streamId = 10 + static_cast<int32_t>(i);
        (*buffers)[i].val = StreamBuffersVal::make<StreamBuffersVal::Tag::buffers>(std::move(lent));
    }
    *status = BufferRequestStatus::OK;
    return ::ndk::ScopedAStatus::ok();
}

std::shared_ptr<IOfflineClientCallback> PoolClient::Remote() {
    return RemoteInterface<IOfflineClientCallback>(asBinder());
}

size_t PoolClient::LentCount() {
    std::lock_guard<std::mutex> lock(mLock);
    return mLentCount;
}

size_t PoolClient::ResultCount() {
    std::lock_guard<std::mutex> lock(mLock);
    return mResultCount;
}

size_t PoolClient::MetadataBytes() {
    std::lock_guard<std::mutex> lock(mLock);
    return mMetadataBytes;
}

std::vector<int64_t> PoolClient::CameBack() {
    std::lock_guard<std::mutex> lock(mLock);
    return mCameBack;
}

void PoolClient::ClearSeen() {
    std::lock_guard<std::mutex> lock(mLock);
    mResultCount = 0;
    mMetadataBytes = 0;
    mCameBack.clear();
}

camera_metadata_t* MakeResultMetadata(int64_t timestamp) {
    camera_metadata_t* metadata = allocate_camera_metadata(4, 64);
    if (metadata == nullptr) return nullptr;
    const int64_t exposure = 33000000;
    const int32_t sensitivity = 100;
    const uint8_t aeState = 2;
    add_camera_metadata_entry(metadata, ANDROID_SENSOR_TIMESTAMP, &timestamp, 1);
    add_camera_metadata_entry(metadata, ANDROID_SENSOR_EXPOSURE_TIME, &exposure, 1);
    add_camera_metadata_entry(metadata, ANDROID_SENSOR_SENSITIVITY, &sensitivity, 1);
    add_camera_metadata_entry(metadata, ANDROID_CONTROL_AE_STATE, &aeState, 1);
    return metadata;
}

HalProducer::HalProducer(int32_t clientId) : mClientId(clientId) {}

int32_t HalProducer::Request(const std::vector<camera3_stream_t*>& streams,
                             const std::vector<uint32_t>& counts) {
    const size_t n = streams.size();
    mRequests.resize(n);
    mReturned.resize(n);
    mOutputs.resize(n);
    for (size_t i = 0; i < n; i++) {
        mRequests[i] = {streams[i], counts[i]};
        mOutputs[i].resize(counts[i]);
        camera3_stream_buffer_ret_t& ret = mReturned[i];
        memset(&ret, 0, sizeof(ret));
        ret.stream = streams[i];
        ret.status = CAMERA3_PS_BUF_REQ_OK;
        ret.output_buffers = mOutputs[i].data();
    }
    uint32_t numReturned = 0;
    const int32_t status = OfflineCameraService::GetInstance()->RequestStreamBuffers(
            mClientId, static_cast<uint32_t>(n), mRequests.data(), &numReturned, mReturned.data());
    if (status != CAMERA3_BUF_REQ_OK) return status;
    for (size_t i = 0; i < numReturned; i++) {
        for (uint32_t j = 0; j < mReturned[i].num_output_buffers; j++) {
            mHeld.push_back({streams[i], *mOutputs[i][j].buffer});
        }
    }
    return status;
}

int32_t HalProducer::Return(size_t count, uint32_t frameNumber, const camera_metadata_t* metadata) {
    mResultBuffers.resize(count);
    for (size_t k = 0; k < count; k++) {
        HeldBuffer& held = mHeld[mHeld.size() - 1 - k];
        camera3_stream_buffer_t& buffer = mResultBuffers[k];
        buffer.stream = held.stream;
        buffer.buffer = &held.handle;
        buffer.status = CAMERA3_BUFFER_STATUS_OK;
        buffer.acquire_fence = -1;
        buffer.release_fence = -1;
    }
    camera3_capture_result_t result;
    memset(&result, 0, sizeof(result));
    result.frame_number = frameNumber;
    result.result = metadata;
    result.num_output_buffers = static_cast<uint32_t>(count);
    result.output_buffers = count > 0 ? mResultBuffers.data() : nullptr;
    result.partial_result = 1;
    const int32_t status =
            OfflineCameraService::GetInstance()->ProcessCaptureResult(mClientId, &result);
    mHeld.resize(mHeld.size() - count);
    return status;
}

BaselineBroker::BaselineBroker(std::shared_ptr<IOfflineClientCallback> client)
    : mClient(std::move(client)) {}

BaselineBroker::~BaselineBroker() {
    for (const Imported& imported : mImported) {
        ::android::GraphicBufferMapper::get().freeBuffer(imported.handle);
    }
}

bool BaselineBroker::Request(const std::vector<camera3_stream_t*>& streams,
                             const std::vector<uint32_t>& counts) {
    std::vector<OfflineBufferRequest> requests(streams.size());
    for (size_t i = 0; i < streams.size(); i++) {
        const camera3_stream_t* pStream = streams[i];
        Stream& stream = requests[i].stream;
        stream.streamType = static_cast<StreamType>(pStream->stream_type);
        stream.width = static_cast<int32_t>(pStream->width);
        stream.height = static_cast<int32_t>(pStream->height);
        stream.format = static_cast<PixelFormat>(pStream->format);
        stream.usage = static_cast<BufferUsage>(pStream->usage);
        stream.dataSpace = static_cast<Dataspace>(pStream->data_space);
        stream.rotation = static_cast<StreamRotation>(pStream->rotation);
        stream.bufferSize = stream.width * stream.height * 2;
        requests[i].numBuffersRequested = static_cast<int32_t>(counts[i]);
    }
    std::vector<StreamBufferRet> returned;
    BufferRequestStatus status = BufferRequestStatus::OK;
    if (!mClient->requestStreamBuffers(requests, &returned, &status).isOk() ||
        status != BufferRequestStatus::OK || returned.size() != requests.size()) {
        return false;
    }
    for (const StreamBufferRet& ret : returned) {
        for (const StreamBuffer& buffer : ret.val.get<StreamBuffersVal::Tag::buffers>()) {
            native_handle_t* received = convertFromAidl(buffer.buffer);
            if (received == nullptr) return false;
            buffer_handle_t handle = nullptr;
            const bool imported = ::android::GraphicBufferMapper::get().importBufferNoValidate(
                                          received, &handle) == ::android::OK;
            native_handle_close(received);
            native_handle_delete(received);
            if (!imported) return false;
            mImported.push_back({buffer.streamId, buffer.bufferId, handle});
        }
    }
    return true;
}

void BaselineBroker::Return(size_t count, uint32_t frameNumber, const camera_metadata_t* metadata) {
    std::vector<OfflineCaptureResult> results(1);
    OfflineCaptureResult& result = results[0];
    result.frameNumber = frameNumber;
    if (metadata != nullptr) convertToAidl(metadata, &result.result);
    result.outputBuffers.resize(count);
    for (size_t k = 0; k < count; k++) {
        const Imported& imported = mImported[mImported.size() - 1 - k];
        result.outputBuffers[k].streamId = imported.streamId;
        result.outputBuffers[k].bufferId = imported.bufferId;
        result.outputBuffers[k].status = BufferStatus::OK;
    }
    (void)mClient->processCaptureResult(results);
    for (size_t k = 0; k < count; k++) {
        ::android::GraphicBufferMapper::get().freeBuffer(mImported.back().handle);
        mImported.pop_back();
    }
}

}  // namespace offlinecamera::bench

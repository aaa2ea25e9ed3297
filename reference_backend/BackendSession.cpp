/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Backend sessions and their slots. Each session owns a worker thread: executed requests are
 * copied and queued, and the worker reports each one in order through the session's callbacks
 * (shutter, then the returned input buffers, then the output with its result metadata). The
 * output buffers hold the mean of the input frames.
 */
#define LOG_TAG "KivReferenceBackend"

#include "BackendSession.h"

#include <inttypes.h>
#include <log/log.h>
#include <stdlib.h>
#include <time.h>

#include "BackendMetadata.h"
#include "FrameFusion.h"
#include "ReferenceBackend.h"
#include "StreamBufferRecord.h"

namespace kivref {

namespace {

Registry& Reg() {
    return Registry::Get();
}

int64_t BootTimeNs() {
    struct timespec now;
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<int64_t>(now.tv_sec) * 1000000000LL + now.tv_nsec;
}

// Copies one input frame or the output of a request; false when its buffers were not made by
// this backend's translation.
bool CopyFrame(const KivOfflineStreamInfo& info, std::vector<KivStreamBuffer>* buffers) {
    if (info.numBuffers != 0 && info.pBuffers == nullptr) return false;
    buffers->assign(info.pBuffers, info.pBuffers + info.numBuffers);
    for (const KivStreamBuffer& buffer : *buffers) {
        StreamBufferRecord record;
        if (!ReadStreamBuffer(buffer, &record)) return false;
        // The caller's camera3 buffers stay valid until ExecuteRequest returns: each must still
        // read the handle that its translation read.
        if (record.source != nullptr && *record.source != record.handle) {
            ALOGE("buffer %p: its camera3 buffer now reads handle %p", record.handle,
                  *record.source);
            return false;
        }
    }
    return true;
}

void SetStatus(std::vector<KivStreamBuffer>* buffers, int32_t status) {
    for (KivStreamBuffer& buffer : *buffers) {
        StreamBufferRecord record;
        ReadStreamBuffer(buffer, &record);
        record.status = status;
        record.acquireFence = -1;
        record.releaseFence = -1;
        WriteStreamBuffer(record, &buffer);
    }
}

// A handle that a request held goes back to the caller with a result (GiveBack), or ends in the
// backend when no result carries it (Drop).
void GiveBack(const std::shared_ptr<BackendMetadata>& metadata) {
    if (metadata != nullptr) metadata->Unhold();
}

void Drop(const std::shared_ptr<BackendMetadata>& metadata) {
    if (metadata == nullptr) return;
    metadata->Unhold();
    Reg().RemoveMetadata(metadata.get());
}

}  // namespace

BackendSession::BackendSession(uint64_t handle, std::string name,
                               const KivOfflineCallbacks* callbacks,
                               const KivOfflineIntfCbs* context, uint32_t firstFrameNumber)
    : mHandle(handle),
      mName(std::move(name)),
      mCallbacks(callbacks),
      mContext(context),
      mNextFrameNumber(firstFrameNumber) {}

BackendSession::~BackendSession() {
    if (!mWorker.joinable()) return;
    {
        std::lock_guard<std::mutex> lock(mLock);
        mStopping = true;
        mAbandoned = true;
        mChanged.notify_all();
    }
    if (mWorker.get_id() == std::this_thread::get_id()) {
        mWorker.detach();
    } else {
        mWorker.join();
    }
}

void BackendSession::Start() {
    std::lock_guard<std::mutex> lock(mLock);
    mWorker = std::thread([self = shared_from_this()] { self->Run(); });
    mWorkerId = mWorker.get_id();
}

bool BackendSession::OnWorkerLocked() const {
    return std::this_thread::get_id() == mWorkerId;
}

bool BackendSession::DeliverableLocked() const {
    return !mAbandoned && !mRequests.empty() && (mRequests.front().flushed || Reg().AutoDeliver());
}

void BackendSession::Run() {
    std::unique_lock<std::mutex> lock(mLock);
    for (;;) {
        mChanged.wait(lock,
                      [this] { return !mInjected.empty() || DeliverableLocked() || mStopping; });
        if (!mInjected.empty()) {
            Injected* injected = mInjected.front();
            mInjected.pop_front();
            int32_t status = -1;
            if (!mAbandoned) {
                mBusy = true;
                lock.unlock();
                status = RunInjected(*injected);
                lock.lock();
                mBusy = false;
            }
            injected->status = status;
            injected->done = true;
            mChanged.notify_all();
            continue;
        }
        if (DeliverableLocked()) {
            Request request = std::move(mRequests.front());
            mRequests.pop_front();
            mBusy = true;
            lock.unlock();
            if (request.flushed) {
                ProcessFlushed(request);
            } else {
                Process(request);
            }
            lock.lock();
            mBusy = false;
            if (request.flushed) mFlushPending--;
            mDelivered++;
            mChanged.notify_all();
            continue;
        }
        // Woken for a change that left nothing to do (automatic delivery turned off again).
        if (!mStopping) continue;
        // Stopping with nothing left to deliver: what is still held goes without callbacks.
        std::deque<Request> held = std::move(mRequests);
        mRequests.clear();
        mFlushPending = 0;
        lock.unlock();
        if (!held.empty()) {
            ALOGW("session %" PRIu64 ": released %zu undelivered requests", mHandle, held.size());
        }
        for (Request& request : held) Release(request);
        lock.lock();
        mChanged.notify_all();
        return;
    }
}

int32_t BackendSession::Configure(const KivOfflineSessionConfigInfo& info) {
    if (info.numStreams != 0 && info.ppStreams == nullptr) {
        ALOGE("session %" PRIu64 ": %u streams without a stream array", mHandle, info.numStreams);
        return -1;
    }
    if (info.pSessionParameters != nullptr &&
        Reg().FindMetadata(info.pSessionParameters) == nullptr) {
        ALOGW("session %" PRIu64 ": session parameters %p are not a live handle", mHandle,
              info.pSessionParameters);
    }
    std::lock_guard<std::mutex> lock(mLock);
    mCameraIdText = info.pCameraId != nullptr ? info.pCameraId : "";
    mCameraId = static_cast<uint32_t>(atoi(mCameraIdText.c_str()));
    mStreams.assign(info.ppStreams, info.ppStreams + info.numStreams);
    mOperationMode = info.operationMode;
    mSessionParameters = info.pSessionParameters;
    mConfigured = true;
    ALOGI("session %" PRIu64 ": camera \"%s\", %zu streams, operation mode 0x%x, parameters %p",
          mHandle, mCameraIdText.c_str(), mStreams.size(), mOperationMode, mSessionParameters);
    for (size_t i = 0; i < mStreams.size(); i++) {
        const camera3_stream_t* stream = mStreams[i];
        if (stream == nullptr) continue;
        ALOGI("session %" PRIu64 ": stream %zu %p type %d %ux%u format 0x%x", mHandle, i, stream,
              stream->stream_type, stream->width, stream->height, stream->format);
    }
    return 0;
}

int32_t BackendSession::Execute(const KivOfflineCaptureRequestInfo& info, CallRecord record) {
    Request request;
    bool valid = info.numInputs == 0 || info.pInputs != nullptr;
    std::vector<std::shared_ptr<BackendMetadata>> held;
    // Takes over a metadata handle until a result hands it back.
    auto take = [&held](KivMetadataHandle handle, std::shared_ptr<BackendMetadata>* out) {
        if (handle == nullptr) return true;
        std::shared_ptr<BackendMetadata> metadata = Reg().FindMetadata(handle);
        if (metadata == nullptr || metadata->OwnedByContext() || !metadata->Hold()) {
            ALOGE("%p is not a metadata handle that a request can take", handle);
            return false;
        }
        held.push_back(metadata);
        *out = std::move(metadata);
        return true;
    };
    for (uint32_t i = 0; valid && i < info.numInputs; i++) {
        Frame frame;
        valid = CopyFrame(info.pInputs[i], &frame.buffers) &&
                take(info.pInputs[i].pMetadata, &frame.metadata);
        request.inputs.push_back(std::move(frame));
    }
    if (valid && info.pOutput != nullptr) {
        request.hasOutput = true;
        valid = CopyFrame(*info.pOutput, &request.output.buffers) &&
                take(info.pOutput->pMetadata, &request.output.metadata);
    }
    record.ints[0] = info.numInputs;
    record.ints[1] = static_cast<int64_t>(request.output.buffers.size());

    std::lock_guard<std::mutex> lock(mLock);
    if (!valid || mStopping) {
        ALOGE("session %" PRIu64 ": request refused (%s)", mHandle,
              mStopping ? "session closing" : "malformed request");
        for (const std::shared_ptr<BackendMetadata>& metadata : held) metadata->Unhold();
        record.status = -1;
        Reg().Record(std::move(record));
        return -1;
    }
    request.frameNumber = mNextFrameNumber++;
    if (info.pFrameNumber != nullptr) *info.pFrameNumber = request.frameNumber;
    record.ints[2] = request.frameNumber;
    Reg().Record(std::move(record));
    ALOGI("session %" PRIu64 ": frame %u queued, %u inputs, %zu output buffers", mHandle,
          request.frameNumber, info.numInputs, request.output.buffers.size());
    mRequests.push_back(std::move(request));
    mChanged.notify_all();
    return 0;
}

int32_t BackendSession::Flush(uint32_t flags, CallRecord record) {
    std::unique_lock<std::mutex> lock(mLock);
    if (mStopping) {
        record.status = -1;
        Reg().Record(std::move(record));
        return -1;
    }
    Reg().Record(std::move(record));
    size_t flushed = 0;
    for (Request& request : mRequests) {
        if (request.flushed) continue;
        request.flushed = true;
        mFlushPending++;
        flushed++;
    }
    mFlushed += flushed;
    ALOGI("session %" PRIu64 ": flush 0x%x returns %zu queued requests", mHandle, flags, flushed);
    mChanged.notify_all();
    if (OnWorkerLocked()) return 0;
    mChanged.wait(lock, [this] { return (mFlushPending == 0 && !mBusy) || mAbandoned; });
    return 0;
}

void BackendSession::Dump() {
    std::lock_guard<std::mutex> lock(mLock);
    ALOGI("session %" PRIu64
          " \"%s\" (context %p): %s, camera \"%s\" (%u), %zu streams, "
          "operation mode 0x%x, parameters %p, next frame %u, %zu queued, %" PRIu64
          " delivered, %" PRIu64 " flushed",
          mHandle, mName.c_str(), mContext, mConfigured ? "configured" : "not configured",
          mCameraIdText.c_str(), mCameraId, mStreams.size(), mOperationMode, mSessionParameters,
          mNextFrameNumber, mRequests.size(), mDelivered, mFlushed);
}

bool BackendSession::BeginClose() {
    std::lock_guard<std::mutex> lock(mLock);
    if (mStopping) return false;
    mStopping = true;
    if (OnWorkerLocked()) {
        // Closed from one of its own callbacks: the worker cannot wait for itself, so it stops
        // delivering and finishes on its own once the callback returns.
        mAbandoned = true;
        mWorker.detach();
    }
    mChanged.notify_all();
    return true;
}

void BackendSession::FinishClose() {
    if (mWorker.joinable()) mWorker.join();
    ALOGI("session %" PRIu64 " \"%s\" closed", mHandle, mName.c_str());
}

int32_t BackendSession::Inject(Injected* injected) {
    std::unique_lock<std::mutex> lock(mLock);
    if (mStopping) return -1;
    if (OnWorkerLocked()) {
        lock.unlock();
        return RunInjected(*injected);
    }
    mInjected.push_back(injected);
    mChanged.notify_all();
    mChanged.wait(lock, [injected] { return injected->done; });
    return injected->status;
}

int32_t BackendSession::DeliverResults(const std::vector<KivOfflineCaptureResult>& results) {
    Injected injected;
    injected.results = &results;
    return Inject(&injected);
}

int32_t BackendSession::DeliverMessages(const std::vector<camera3_notify_msg_t>& messages) {
    Injected injected;
    injected.messages = &messages;
    return Inject(&injected);
}

int32_t BackendSession::RunInjected(const Injected& injected) {
    if (mCallbacks == nullptr) return -1;
    if (injected.results != nullptr) {
        if (mCallbacks->pfnProcessResult == nullptr) return -1;
        uint32_t count = static_cast<uint32_t>(injected.results->size());
        return mCallbacks->pfnProcessResult(mCallbacks, count, injected.results->data());
    }
    if (mCallbacks->pfnProcessMessage == nullptr) return -1;
    uint32_t count = static_cast<uint32_t>(injected.messages->size());
    return mCallbacks->pfnProcessMessage(mCallbacks, count, injected.messages->data());
}

void BackendSession::WaitIdle() {
    std::unique_lock<std::mutex> lock(mLock);
    if (OnWorkerLocked()) return;
    mChanged.wait(lock, [this] {
        return mAbandoned || (mInjected.empty() && !mBusy && !DeliverableLocked());
    });
}

int32_t BackendSession::Pending() {
    std::lock_guard<std::mutex> lock(mLock);
    return static_cast<int32_t>(mRequests.size());
}

void BackendSession::Wake() {
    std::lock_guard<std::mutex> lock(mLock);
    mChanged.notify_all();
}

bool BackendSession::Abandoned() {
    std::lock_guard<std::mutex> lock(mLock);
    return mAbandoned;
}

void BackendSession::SendMessage(const camera3_notify_msg_t& message) {
    // Closed from one of its own callbacks: the callbacks record may be gone with its owner.
    if (mCallbacks == nullptr || Abandoned() || mCallbacks->pfnProcessMessage == nullptr) return;
    int32_t status = mCallbacks->pfnProcessMessage(mCallbacks, 1, &message);
    if (status != 0) ALOGW("session %" PRIu64 ": message callback returned %d", mHandle, status);
}

bool BackendSession::SendResult(const KivOfflineCaptureResult& result) {
    if (mCallbacks == nullptr || Abandoned() || mCallbacks->pfnProcessResult == nullptr) {
        return false;
    }
    int32_t status = mCallbacks->pfnProcessResult(mCallbacks, 1, &result);
    if (status != 0) {
        ALOGW("session %" PRIu64 ": result callback for frame %u returned %d", mHandle,
              result.frameNumber, status);
    }
    return true;
}

void BackendSession::FuseInputs(Request& request) {
    std::vector<StreamBufferRecord> inputs;
    for (const Frame& frame : request.inputs) {
        for (const KivStreamBuffer& buffer : frame.buffers) {
            inputs.emplace_back();
            ReadStreamBuffer(buffer, &inputs.back());
        }
    }
    for (KivStreamBuffer& buffer : request.output.buffers) {
        StreamBufferRecord output;
        ReadStreamBuffer(buffer, &output);
        if (!IsFusableFormat(output.format)) {
            ALOGI("session %" PRIu64 ": frame %u: format 0x%x is not fused, output left as is",
                  mHandle, request.frameNumber, output.format);
            continue;
        }
        size_t fused = 0;
        FuseStatus status = FuseFrames(inputs, output, &fused);
        if (status == FuseStatus::Fused) {
            ALOGI("session %" PRIu64 ": frame %u: %zu of %zu input buffers fused into %ux%u 0x%x",
                  mHandle, request.frameNumber, fused, inputs.size(), output.width, output.height,
                  output.format);
            continue;
        }
        ALOGE("session %" PRIu64 ": frame %u: output buffer %p not produced (%s)", mHandle,
              request.frameNumber, output.handle,
              status == FuseStatus::NoInputs ? "no matching input" : "lock failed");
        output.status = CAMERA3_BUFFER_STATUS_ERROR;
        WriteStreamBuffer(output, &buffer);
    }
}

void BackendSession::ReturnInputs(Request& request, int32_t bufferStatus) {
    if (request.inputs.empty()) return;
    std::vector<KivStreamBuffer> buffers;
    KivMetadataHandle settings = nullptr;
    for (size_t i = 0; i < request.inputs.size(); i++) {
        Frame& frame = request.inputs[i];
        SetStatus(&frame.buffers, bufferStatus);
        buffers.insert(buffers.end(), frame.buffers.begin(), frame.buffers.end());
        // The first frame's settings go back with the input buffers; the others end here.
        if (i == 0) {
            GiveBack(frame.metadata);
            settings = frame.metadata.get();
        } else {
            Drop(frame.metadata);
        }
    }
    KivOfflineResultInfo input = {};
    input.numBuffers = static_cast<uint32_t>(buffers.size());
    input.pBuffers = buffers.empty() ? nullptr : buffers.data();
    input.pMetadata = settings;
    KivOfflineCaptureResult result = {};
    result.frameNumber = request.frameNumber;
    result.pInput = &input;
    if (!SendResult(result)) Drop(request.inputs[0].metadata);
}

void BackendSession::Process(Request& request) {
    int64_t timestamp = BootTimeNs();
    // The result metadata is written before the input settings are handed back.
    BackendMetadata* output = request.output.metadata.get();
    if (output != nullptr) {
        BackendMetadata* settings =
                request.inputs.empty() ? nullptr : request.inputs[0].metadata.get();
        camera_metadata_t* copy = settings != nullptr ? settings->Clone() : nullptr;
        if (copy != nullptr) {
            output->Merge(copy);
            free_camera_metadata(copy);
        }
        int32_t frameCount = static_cast<int32_t>(request.frameNumber);
        if (output->Set(ANDROID_SENSOR_TIMESTAMP, &timestamp, 1) != 0 ||
            output->Set(ANDROID_REQUEST_FRAME_COUNT, &frameCount, 1) != 0) {
            ALOGE("session %" PRIu64 ": cannot write the result of frame %u", mHandle,
                  request.frameNumber);
        }
    }
    SetStatus(&request.output.buffers, CAMERA3_BUFFER_STATUS_OK);
    FuseInputs(request);

    camera3_notify_msg_t shutter = {};
    shutter.type = CAMERA3_MSG_SHUTTER;
    shutter.message.shutter.frame_number = request.frameNumber;
    shutter.message.shutter.timestamp = static_cast<uint64_t>(timestamp);
    SendMessage(shutter);

    ReturnInputs(request, CAMERA3_BUFFER_STATUS_OK);

    if (!request.hasOutput) return;
    GiveBack(request.output.metadata);
    KivOfflineResultInfo part = {};
    part.numBuffers = static_cast<uint32_t>(request.output.buffers.size());
    part.pBuffers = request.output.buffers.empty() ? nullptr : request.output.buffers.data();
    part.partialResult = 1;
    part.pMetadata = output;
    KivOfflineCaptureResult result = {};
    result.frameNumber = request.frameNumber;
    result.pOutput = &part;
    if (!SendResult(result)) Drop(request.output.metadata);
}

void BackendSession::ProcessFlushed(Request& request) {
    camera3_notify_msg_t error = {};
    error.type = CAMERA3_MSG_ERROR;
    error.message.error.frame_number = request.frameNumber;
    error.message.error.error_stream = nullptr;
    error.message.error.error_code = CAMERA3_MSG_ERROR_REQUEST;
    SendMessage(error);

    ReturnInputs(request, CAMERA3_BUFFER_STATUS_ERROR);

    if (!request.hasOutput) return;
    // A flushed request has no result metadata.
    Drop(request.output.metadata);
    SetStatus(&request.output.buffers, CAMERA3_BUFFER_STATUS_ERROR);
    KivOfflineResultInfo part = {};
    part.numBuffers = static_cast<uint32_t>(request.output.buffers.size());
    part.pBuffers = request.output.buffers.empty() ? nullptr : request.output.buffers.data();
    KivOfflineCaptureResult result = {};
    result.frameNumber = request.frameNumber;
    result.pOutput = &part;
    SendResult(result);
}

void BackendSession::Release(Request& request) {
    for (Frame& frame : request.inputs) Drop(frame.metadata);
    Drop(request.output.metadata);
}

// ---------------------------------------------------------------------------------------------
// Session slots

uint64_t SlotOpenSession(const KivOfflineIntfCbs* cbs, const KivOfflineSessionInfo* info) {
    CallRecord record;
    record.slot = Slot::OpenSession;
    record.table = cbs;
    if (info != nullptr) {
        record.pointer = info->pCallbacks;
        record.text = info->pSessionName != nullptr ? info->pSessionName : "";
    }
    uint64_t handle = 0;
    if (Reg().FindContext(cbs) == nullptr || info == nullptr || info->reserved != 0 ||
        info->pCallbacks == nullptr || info->pCallbacks->reserved0 != 0 ||
        info->pCallbacks->reserved1 != 0) {
        ALOGE("%s: bad arguments (context %p, info %p)", __func__, cbs, info);
    } else if (!Reg().IsFailing(Slot::OpenSession)) {
        handle = Reg().NextSessionHandle();
        auto session = std::make_shared<BackendSession>(handle, record.text, info->pCallbacks, cbs,
                                                        Reg().ScriptSnapshot().firstFrameNumber);
        session->Start();
        Reg().AddSession(handle, std::move(session));
        ALOGI("%s: session %" PRIu64 " \"%s\"", __func__, handle, record.text.c_str());
    }
    record.session = handle;
    Reg().Record(std::move(record));
    return handle;
}

int32_t SlotCloseSession(uint64_t handle) {
    CallRecord record;
    record.slot = Slot::CloseSession;
    record.session = handle;
    std::shared_ptr<BackendSession> session = Reg().FindSession(handle);
    if (session == nullptr || !session->BeginClose()) {
        ALOGE("%s: %" PRIu64 " is not an open session", __func__, handle);
        record.status = -1;
        Reg().Record(std::move(record));
        return -1;
    }
    record.status = Reg().IsFailing(Slot::CloseSession) ? -1 : 0;
    int32_t status = record.status;
    Reg().Record(std::move(record));
    session->FinishClose();
    Reg().RemoveSession(handle);
    return status;
}

int32_t SlotConfigureSession(uint64_t handle, KivOfflineSessionConfigInfo* info) {
    CallRecord record;
    record.slot = Slot::ConfigureSession;
    record.session = handle;
    if (info != nullptr) {
        record.text = info->pCameraId != nullptr ? info->pCameraId : "";
        record.cameraId = static_cast<uint32_t>(atoi(record.text.c_str()));
        record.ints[0] = info->numStreams;
        record.ints[1] = info->operationMode;
        record.pointer = info->pSessionParameters;
        for (uint32_t i = 0; info->ppStreams != nullptr && i < info->numStreams; i++) {
            const camera3_stream_t* stream = info->ppStreams[i];
            record.streams.push_back(stream);
            record.streamRecords.push_back(stream != nullptr ? *stream : camera3_stream_t{});
        }
    }
    int32_t status = -1;
    std::shared_ptr<BackendSession> session = Reg().FindSession(handle);
    if (session == nullptr || info == nullptr) {
        ALOGE("%s: bad arguments (session %" PRIu64 ", info %p)", __func__, handle, info);
    } else if (!Reg().IsFailing(Slot::ConfigureSession)) {
        status = session->Configure(*info);
    }
    record.status = status;
    Reg().Record(std::move(record));
    return status;
}

int32_t SlotExecuteRequest(uint64_t handle, KivOfflineCaptureRequestInfo* request) {
    WaitIfHeld(Slot::ExecuteRequest);
    CallRecord record;
    record.slot = Slot::ExecuteRequest;
    record.session = handle;
    record.pointer = request;
    std::shared_ptr<BackendSession> session = Reg().FindSession(handle);
    if (session == nullptr || request == nullptr || Reg().IsFailing(Slot::ExecuteRequest)) {
        if (session == nullptr || request == nullptr) {
            ALOGE("%s: bad arguments (session %" PRIu64 ", request %p)", __func__, handle, request);
        }
        record.status = -1;
        Reg().Record(std::move(record));
        return -1;
    }
    return session->Execute(*request, std::move(record));
}

int32_t SlotFlush(uint64_t handle, KivOfflineFlushInfo* info) {
    CallRecord record;
    record.slot = Slot::Flush;
    record.session = handle;
    uint32_t flags = info != nullptr ? info->flushFlags : 0;
    record.ints[0] = flags;
    std::shared_ptr<BackendSession> session = Reg().FindSession(handle);
    if (session == nullptr || Reg().IsFailing(Slot::Flush)) {
        if (session == nullptr) ALOGE("%s: %" PRIu64 " is not an open session", __func__, handle);
        record.status = -1;
        Reg().Record(std::move(record));
        return -1;
    }
    return session->Flush(flags, std::move(record));
}

int32_t SlotDump(uint64_t handle) {
    CallRecord record;
    record.slot = Slot::Dump;
    record.session = handle;
    int32_t status = -1;
    std::shared_ptr<BackendSession> session = Reg().FindSession(handle);
    if (session == nullptr) {
        ALOGE("%s: %" PRIu64 " is not an open session", __func__, handle);
    } else if (!Reg().IsFailing(Slot::Dump)) {
        session->Dump();
        status = 0;
    }
    record.status = status;
    Reg().Record(std::move(record));
    return status;
}

}  // namespace kivref

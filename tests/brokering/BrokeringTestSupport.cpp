/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "BrokeringTestSupport.h"

#include <android/binder_manager.h>
#include <convert.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/GrallocTesting.h>
#include <string.h>
#include <sys/mman.h>

#include "OfflineCameraAIDLService.h"
#include "OfflineCameraService.h"

namespace offlinecamera::test {

using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::StreamBufferRequestError;
using ::aidl::android::hardware::camera::device::StreamBuffersVal;
using ::android::hardware::camera::device::implementation::convertToAidl;

namespace {

SeenBuffer Seen(const StreamBuffer& buffer) {
    SeenBuffer seen;
    seen.streamId = buffer.streamId;
    seen.bufferId = buffer.bufferId;
    seen.status = buffer.status;
    seen.hasHandle = !buffer.buffer.fds.empty() || !buffer.buffer.ints.empty();
    seen.hasFences = !buffer.acquireFence.fds.empty() || !buffer.releaseFence.fds.empty();
    return seen;
}

std::vector<SeenBuffer> Seen(const std::vector<StreamBuffer>& buffers) {
    std::vector<SeenBuffer> seen;
    for (const StreamBuffer& buffer : buffers) seen.push_back(Seen(buffer));
    return seen;
}

}  // namespace

std::ostream& operator<<(std::ostream& os, const SeenBuffer& b) {
    return os << "{stream " << b.streamId << ", buffer " << b.bufferId << ", status "
              << static_cast<int>(b.status) << (b.hasHandle ? ", handle" : "")
              << (b.hasFences ? ", fences" : "") << "}";
}

TestClient::~TestClient() {
    for (auto& entry : mBuffers) {
        ::android::hostgralloc::release(entry.second);
    }
}

void TestClient::SetReply(Reply reply) {
    std::lock_guard<std::mutex> lock(mLock);
    mReply = reply;
}

::ndk::ScopedAStatus TestClient::notify(const std::vector<NotifyMsg>& /*msgs*/) {
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus TestClient::processCaptureResult(
        const std::vector<OfflineCaptureResult>& results) {
    std::lock_guard<std::mutex> lock(mLock);
    for (const OfflineCaptureResult& result : results) {
        mResults.push_back({result.frameNumber, result.result.metadata, Seen(result.outputBuffers)});
    }
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus TestClient::returnStreamBuffers(const std::vector<StreamBuffer>& buffers) {
    std::lock_guard<std::mutex> lock(mLock);
    mReturns.push_back(Seen(buffers));
    return ::ndk::ScopedAStatus::ok();
}

std::vector<StreamBuffer> TestClient::LendLocked(const OfflineBufferRequest& request, size_t index) {
    int32_t count = request.numBuffersRequested;
    if (mReply == Reply::kOneBufferTooMany) count++;
    std::vector<StreamBuffer> lent(static_cast<size_t>(count));
    for (int32_t n = 0; n < count; n++) {
        StreamBuffer& buffer = lent[static_cast<size_t>(n)];
        buffer.streamId = ClientStreamId(index);
        buffer.bufferId = mNextBufferId++;
        native_handle_t* handle =
                ::android::hostgralloc::allocate(static_cast<uint32_t>(request.stream.width),
                                                 static_cast<uint32_t>(request.stream.height),
                                                 static_cast<int32_t>(request.stream.format),
                                                 static_cast<uint64_t>(request.stream.usage));
        if (handle == nullptr) {
            ADD_FAILURE() << "cannot allocate a buffer for " << request.toString();
            continue;
        }
        mBuffers[buffer.bufferId] = handle;
        const bool second = index == 0 && n == 1;
        if (second && mReply == Reply::kSecondBufferEmpty) continue;
        buffer.buffer = convertToAidl(handle);
        if (second && mReply == Reply::kSecondBufferUnimportable) {
            buffer.buffer.ints[0] = 0;  // not a buffer of this platform's allocator
        }
    }
    return lent;
}

::ndk::ScopedAStatus TestClient::requestStreamBuffers(
        const std::vector<OfflineBufferRequest>& bufReqs, std::vector<StreamBufferRet>* buffers,
        BufferRequestStatus* status) {
    std::lock_guard<std::mutex> lock(mLock);
    mRequests.push_back(bufReqs);
    if (mReply == Reply::kTransactionFails) {
        return ::ndk::ScopedAStatus::fromStatus(STATUS_FAILED_TRANSACTION);
    }
    if (mReply == Reply::kStatusFails) {
        *status = BufferRequestStatus::FAILED_PARTIAL;
        return ::ndk::ScopedAStatus::ok();
    }
    size_t entries = bufReqs.size();
    if (mReply == Reply::kOneEntryTooFew) entries--;
    buffers->resize(entries);
    for (size_t i = 0; i < entries; i++) {
        StreamBufferRet& ret = (*buffers)[i];
        ret.streamId = ClientStreamId(i);
        if (mReply == Reply::kErrorInsteadOfBuffers) {
            ret.val = StreamBuffersVal::make<StreamBuffersVal::Tag::error>(
                    StreamBufferRequestError::NO_BUFFER_AVAILABLE);
        } else {
            ret.val = StreamBuffersVal::make<StreamBuffersVal::Tag::buffers>(
                    LendLocked(bufReqs[i], i));
        }
    }
    *status = BufferRequestStatus::OK;
    return ::ndk::ScopedAStatus::ok();
}

std::vector<std::vector<OfflineBufferRequest>> TestClient::Requests() {
    std::lock_guard<std::mutex> lock(mLock);
    return mRequests;
}

std::vector<SeenResult> TestClient::Results() {
    std::lock_guard<std::mutex> lock(mLock);
    return mResults;
}

std::vector<std::vector<SeenBuffer>> TestClient::Returns() {
    std::lock_guard<std::mutex> lock(mLock);
    return mReturns;
}

std::vector<uint8_t> TestClient::Contents(int64_t bufferId) {
    std::lock_guard<std::mutex> lock(mLock);
    auto entry = mBuffers.find(bufferId);
    if (entry == mBuffers.end()) return {};
    const native_handle_t* handle = entry->second;
    const size_t size = static_cast<size_t>(handle->data[handle->numFds + 7]);
    void* mapping = mmap(nullptr, size, PROT_READ, MAP_SHARED, handle->data[0], 0);
    if (mapping == MAP_FAILED) return {};
    const uint8_t* bytes = static_cast<const uint8_t*>(mapping);
    std::vector<uint8_t> contents(bytes, bytes + size);
    munmap(mapping, size);
    return contents;
}

std::shared_ptr<IOfflineClientCallback> TestClient::Remote() {
    return RemoteInterface<IOfflineClientCallback>(asBinder());
}

void TestClient::Die() {
    ::ndk::SpAIBinder binder = asBinder();
    ::ndk::host::kill(binder.get());
}

namespace {

// Entries past the room of each output array, and what they hold until someone writes them.
constexpr size_t kGuardEntries = 4;
constexpr uint8_t kGuardByte = 0xA5;

}  // namespace

int32_t Producer::Request(const std::vector<camera3_stream_t*>& streams,
                          const std::vector<uint32_t>& counts) {
    // Arrays of at least one record, so that a call without requests still passes real arrays.
    const size_t n = streams.size();
    std::vector<camera3_buffer_request_t> requests(std::max<size_t>(n, 1));
    mReturned.emplace_back(std::max<size_t>(n, 1));
    mOutputs.emplace_back(n);
    mCounts.push_back(counts);
    for (size_t i = 0; i < n; i++) {
        requests[i] = {streams[i], counts[i]};
        std::vector<camera3_stream_buffer_t>& outputs = mOutputs.back()[i];
        outputs.resize(counts[i] + kGuardEntries);
        memset(outputs.data() + counts[i], kGuardByte,
               kGuardEntries * sizeof(camera3_stream_buffer_t));
        camera3_stream_buffer_ret_t& ret = mReturned.back()[i];
        memset(&ret, 0, sizeof(ret));
        ret.stream = streams[i];
        ret.status = CAMERA3_PS_BUF_REQ_OK;
        ret.output_buffers = mOutputs.back()[i].data();
    }
    mReturnedCount = kUntouchedCount;
    return OfflineCameraService::GetInstance()->RequestStreamBuffers(
            mClientId, static_cast<uint32_t>(n), requests.data(), &mReturnedCount,
            mReturned.back().data());
}

bool Producer::ArraysIntact() const {
    for (size_t call = 0; call < mOutputs.size(); call++) {
        for (size_t i = 0; i < mOutputs[call].size(); i++) {
            const uint8_t* guard =
                    reinterpret_cast<const uint8_t*>(mOutputs[call][i].data() + mCounts[call][i]);
            for (size_t k = 0; k < kGuardEntries * sizeof(camera3_stream_buffer_t); k++) {
                if (guard[k] != kGuardByte) return false;
            }
        }
    }
    return true;
}

int32_t Producer::Result(uint32_t frameNumber, const camera_metadata_t* metadata,
                         const std::vector<camera3_stream_buffer_t>& buffers) {
    camera3_capture_result_t& result = mLastResult;
    memset(&result, 0, sizeof(result));
    result.frame_number = frameNumber;
    result.result = metadata;
    result.num_output_buffers = static_cast<uint32_t>(buffers.size());
    result.output_buffers = buffers.empty() ? nullptr : buffers.data();
    result.partial_result = 1;
    return OfflineCameraService::GetInstance()->ProcessCaptureResult(mClientId, &result);
}

bool IsIllegalArgument(const ::ndk::ScopedAStatus& status) {
    return status.getExceptionCode() == EX_SERVICE_SPECIFIC && status.getServiceSpecificError() == 1;
}

Scenario::Scenario(ChildScenario& child) : mChild(child) {
    RegisterOfflineCameraAIDLService();
    OfflineCameraService::GetInstance();
    mService = ConnectToService();
    mChild.Settle();
    LogCapture::Clear();
}

void RunScenario(ScenarioFn scenario) {
    RunInChild([scenario](ChildScenario& child) {
        Scenario s(child);
        scenario(s);
    });
}

}  // namespace offlinecamera::test

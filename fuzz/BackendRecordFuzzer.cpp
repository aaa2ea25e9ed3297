/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * What the backend hands to a live session: arrays of result records (output parts, input
 * returns, records with both) whose stream buffers are the backend's translation of buffers the
 * session imported, of buffers it never saw, of buffers without a stream, or bytes the backend
 * never wrote; whose metadata is live backend metadata, none, or an address that is not
 * metadata; and arrays of notify messages of any type, frame and error code, naming no stream
 * or a configured one. They are delivered from the session's backend thread
 * (kivref::DeliverResults / DeliverMessages), interleaved with the backend's own deliveries of
 * the requests it holds, flushes and further requests.
 *
 * Every pointer in a record points at memory of this fuzzer or at what the session handed to
 * the backend (its stream records, its imported handle values): a closed backend never hands out
 * wild pointers, and the library is not expected to survive them. Buffer counts match the
 * arrays. Bytes the backend never wrote are made to differ from the backend's own record header,
 * so that its translation refuses them instead of trusting pointers in them.
 *
 * Each input opens a session configured with the standard streams whose backend holds two
 * requests, and closes it at the end; the live metadata that no delivery consumed is destroyed
 * by the fuzzer. Then every buffer, descriptor, vendor allocation, backend metadata, metadata
 * operation table, backend session and binder must be given back.
 *
 * The encoding is in SessionPrograms.h.
 */
#include <hardware/camera3.h>
#include <hostplatform/KivReferenceBackend.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <deque>
#include <set>
#include <vector>

#include "FuzzSupport.h"
#include "OfflineCameraService.h"
#include "SessionFuzzSupport.h"
#include "SessionPrograms.h"

namespace {

using namespace ::offlinecamera::fuzz;

static_assert(sizeof(KivStreamBuffer) == kKivStreamBufferBytes, "backend stream buffer size");

// The first bytes of every stream buffer record the backend writes; set at start-up.
uint8_t gBackendHeader[8];
// A handle that no session ever imported.
const native_handle_t gUnknownHandle = {};
// Bytes that are not backend metadata.
uint8_t gNotMetadata[64];

// A buffer the session translated for the backend: its stream record and imported handle.
struct Translated {
    camera3_stream_t* stream;
    buffer_handle_t handle;
};

class RecordProgram {
  public:
    RecordProgram(const uint8_t* data, size_t size) : mInput(data, size) {}

    void Run();

  private:
    // One more request of the standard shape: two input frames (settings in the first) and
    // outputs on both output streams; the second request also has an output on a stream that
    // was never configured.
    void Request();
    // Takes the translations and stream records of the calls since the last look.
    void TakeCalls();

    void Results();
    void Messages();
    const KivOfflineResultInfo* Part();
    KivStreamBuffer Buffer();
    KivStreamBuffer Translate(camera3_stream_t* stream, buffer_handle_t handle, int32_t status);
    KivMetadataHandle Metadata();

    ByteReader mInput;
    ClientSession mClient{"fuzz-records"};
    int64_t mNextBufferId = 1;
    size_t mRequests = 0;
    std::vector<camera3_stream_t*> mStreams;  // the configured stream records, in order
    std::vector<Translated> mTranslated;
    // Live metadata this fuzzer made that no delivery has destroyed yet.
    std::set<KivMetadataHandle> mLiveMetadata;
    // What the records of one delivery point at.
    std::deque<KivOfflineResultInfo> mParts;
    std::deque<std::vector<KivStreamBuffer>> mBuffers;
    std::deque<buffer_handle_t> mHandles;
};

void RecordProgram::TakeCalls() {
    for (const kivref::CallRecord& call : kivref::Calls()) {
        if (call.slot == kivref::Slot::ConfigureSession) {
            mStreams.clear();
            for (const camera3_stream_t* stream : call.streams) {
                mStreams.push_back(const_cast<camera3_stream_t*>(stream));
            }
        } else if (call.slot == kivref::Slot::TranslateToKivBuffer && call.handle != nullptr &&
                   !call.streams.empty()) {
            mTranslated.push_back({const_cast<camera3_stream_t*>(call.streams[0]),
                                   static_cast<buffer_handle_t>(call.handle)});
        } else if (call.slot == kivref::Slot::DestroyKivMetadata) {
            mLiveMetadata.erase(const_cast<KivMetadataHandle>(call.handle));
        }
    }
    kivref::ClearCalls();
}

void RecordProgram::Request() {
    OfflineCaptureRequest request;
    request.frameNumber = static_cast<int32_t>(mRequests);
    for (int i = 0; i < 2; i++) {
        OfflineInputFrame frame;
        frame.inputBuffers.push_back(MakeBuffer(kInputStream, mNextBufferId++, HandleKind::kValid));
        if (i == 0) frame.settings.metadata = SettingsBytes();
        request.inputFrames.push_back(std::move(frame));
    }
    request.outputBuffers.push_back(MakeBuffer(kOutputStream, mNextBufferId++, HandleKind::kValid));
    request.outputBuffers.push_back(
            MakeBuffer(kSecondOutputStream, mNextBufferId++, HandleKind::kValid));
    if (mRequests == 1) {
        request.outputBuffers.push_back(MakeBuffer(9, mNextBufferId++, HandleKind::kValid));
    }
    mRequests++;
    std::vector<OfflineCaptureRequest> requests;
    requests.push_back(std::move(request));
    (void)mClient.Process(requests);
    TakeCalls();
}

KivStreamBuffer RecordProgram::Translate(camera3_stream_t* stream, buffer_handle_t handle,
                                         int32_t status) {
    mHandles.push_back(handle);
    const camera3_stream_buffer_t buffer = {stream, &mHandles.back(), status, -1, -1, 0, nullptr};
    KivStreamBuffer translated;
    memset(&translated, 0, sizeof(translated));
    Check(OfflineCameraService::GetInstance()->TranslateToKivBuffer(&buffer, &translated) == 0);
    return translated;
}

KivStreamBuffer RecordProgram::Buffer() {
    const auto choice =
            static_cast<BufferChoice>(mInput.Below(static_cast<size_t>(BufferChoice::kCount)));
    if (choice == BufferChoice::kArbitrary) {
        KivStreamBuffer bytes;
        uint8_t* raw = reinterpret_cast<uint8_t*>(&bytes);
        for (size_t i = 0; i < sizeof(bytes); i++) raw[i] = mInput.Next();
        if (memcmp(raw, gBackendHeader, sizeof(gBackendHeader)) == 0) raw[0] ^= 1;
        return bytes;
    }
    const size_t index = mInput.Next();
    const int32_t status = static_cast<int8_t>(mInput.Next());
    buffer_handle_t unknown = &gUnknownHandle;
    switch (choice) {
        case BufferChoice::kCached:
            if (!mTranslated.empty()) {
                const Translated& cached = mTranslated[index % mTranslated.size()];
                return Translate(cached.stream, cached.handle, status);
            }
            return Translate(nullptr, unknown, status);
        case BufferChoice::kUnknownHandle:
            return Translate(mStreams.empty() ? nullptr : mStreams[index % mStreams.size()],
                             unknown, status);
        default:
            return Translate(
                    nullptr,
                    mTranslated.empty() ? unknown : mTranslated[index % mTranslated.size()].handle,
                    status);
    }
}

KivMetadataHandle RecordProgram::Metadata() {
    switch (static_cast<MetadataChoice>(mInput.Below(static_cast<size_t>(MetadataChoice::kCount)))) {
        case MetadataChoice::kLive: {
            KivMetadataHandle metadata =
                    OfflineCameraService::GetInstance()->CreateKivMetaData(0, nullptr, 0);
            Check(metadata != nullptr);
            mLiveMetadata.insert(metadata);
            return metadata;
        }
        case MetadataChoice::kGarbage:
            return gNotMetadata;
        default:
            return nullptr;
    }
}

const KivOfflineResultInfo* RecordProgram::Part() {
    const uint8_t buffersByte = mInput.Next();
    std::vector<KivStreamBuffer>& buffers = mBuffers.emplace_back(buffersByte % 5);
    for (KivStreamBuffer& buffer : buffers) buffer = Buffer();
    KivOfflineResultInfo& part = mParts.emplace_back();
    memset(&part, 0, sizeof(part));
    part.numBuffers = static_cast<uint32_t>(buffers.size());
    part.pBuffers = (buffersByte & 0x80) != 0 || buffers.empty() ? nullptr : buffers.data();
    part.partialResult = mInput.U32();
    part.pMetadata = Metadata();
    return &part;
}

void RecordProgram::Results() {
    const uint8_t countByte = mInput.Next();
    std::vector<KivOfflineCaptureResult> records;
    // Without room reserved an empty list has no array, and the callback gets null.
    if ((countByte & 0x80) == 0) records.reserve(1);
    records.resize(countByte % 5);
    for (KivOfflineCaptureResult& record : records) {
        memset(&record, 0, sizeof(record));
        const auto part =
                static_cast<PartChoice>(mInput.Below(static_cast<size_t>(PartChoice::kCount)));
        record.frameNumber = mInput.U32();
        if (part != PartChoice::kInput) record.pOutput = Part();
        if (part != PartChoice::kOutput) record.pInput = Part();
    }
    const int32_t status = kivref::DeliverResults(mClient.Handle(), records);
    Check(status == 0 || status == 1 || status == 4);
    mParts.clear();
    mBuffers.clear();
    mHandles.clear();
    TakeCalls();
}

void RecordProgram::Messages() {
    const uint8_t countByte = mInput.Next();
    std::vector<camera3_notify_msg_t> messages;
    if ((countByte & 0x80) == 0) messages.reserve(1);
    messages.resize(countByte % 5);
    for (camera3_notify_msg_t& message : messages) {
        memset(&message, 0, sizeof(message));
        constexpr int kTypes[] = {CAMERA3_MSG_ERROR, CAMERA3_MSG_SHUTTER, 0};
        const size_t typeChoice = mInput.Below(4);
        message.type = typeChoice < 3 ? kTypes[typeChoice] : static_cast<int8_t>(mInput.Next());
        const uint32_t frameNumber = mInput.U32();
        if (message.type == CAMERA3_MSG_ERROR) {
            message.message.error.frame_number = frameNumber;
            message.message.error.error_code = static_cast<int>(mInput.Below(6));
            const size_t stream = mInput.Below(4);
            message.message.error.error_stream =
                    stream < mStreams.size() && stream < 3 ? mStreams[stream] : nullptr;
        } else if (message.type == CAMERA3_MSG_SHUTTER) {
            message.message.shutter.frame_number = frameNumber;
            message.message.shutter.timestamp = static_cast<uint64_t>(mInput.I64());
        }
    }
    const int32_t status = kivref::DeliverMessages(mClient.Handle(), messages);
    Check(status == 0 || status == 1);
}

void RecordProgram::Run() {
    kivref::SetAutoDeliver(false);
    mClient.Configure(StandardConfiguration());
    Request();
    Request();
    for (size_t step = 0; step < kMaxSteps && !mInput.Done(); step++) {
        switch (static_cast<RecordOp>(mInput.Below(static_cast<size_t>(RecordOp::kCount)))) {
            case RecordOp::kResults:
            case RecordOp::kCount:
                Results();
                break;
            case RecordOp::kMessages:
                Messages();
                break;
            case RecordOp::kDeliverHeld:
                kivref::SetAutoDeliver(true);
                Check(kivref::WaitIdle(mClient.Handle()));
                kivref::SetAutoDeliver(false);
                break;
            case RecordOp::kFlush:
                Check(mClient.Session().flushOfflineSession(OfflineFlushInfo()).isOk());
                break;
            case RecordOp::kRequest:
                Request();
                break;
        }
    }
    TakeCalls();
    for (KivMetadataHandle metadata : mLiveMetadata) {
        (void)OfflineCameraService::GetInstance()->DestoryKivMetadata(0, metadata);
    }
    // Closing releases what the backend still holds, without callbacks.
    mClient.End(true);
    kivref::SetAutoDeliver(true);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    SetUpSessionProcess();
    // The header of a record the backend writes, to keep arbitrary bytes from imitating one.
    const camera3_stream_buffer_t buffer = {nullptr, nullptr, 0, -1, -1, 0, nullptr};
    KivStreamBuffer translated;
    Check(OfflineCameraService::GetInstance()->TranslateToKivBuffer(&buffer, &translated) == 0);
    memcpy(gBackendHeader, &translated, sizeof(gBackendHeader));
    memset(gNotMetadata, 0x5a, sizeof(gNotMetadata));
    kivref::ClearCalls();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MetadataOpsHold hold({0});
    const auto start = ::offlinecamera::test::ProcessCounts::Take();
    RecordProgram(data, size).Run();
    kivref::ClearCalls();
    CheckGivenBack(start);
    return 0;
}

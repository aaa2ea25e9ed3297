/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Offline requests as a remote client sends them to a live session: lists of requests with
 * input frames of zero or more buffers, output buffers on configured, unconfigured and invalid
 * stream ids, buffer ids that are zero or repeat, handles that are valid, empty or unknown to
 * the mapper, and settings that are valid, empty, truncated or garbage. The reference backend
 * delivers the results from its own thread (or holds them until a flush or until delivery is
 * turned back on). Each input opens its own session and ends it in one of the ways a client
 * does (closing, dropping, dying first); then every buffer, descriptor, vendor allocation,
 * backend metadata, metadata operation table, backend session and binder must be given back.
 *
 * The encoding is in SessionPrograms.h.
 */
#include <hostplatform/KivReferenceBackend.h>
#include <hostplatform/VornTesting.h>
#include <stddef.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <vector>

#include "FuzzSupport.h"
#include "SessionFuzzSupport.h"
#include "SessionPrograms.h"

namespace {

using namespace ::offlinecamera::fuzz;

class RequestProgram {
  public:
    RequestProgram(const uint8_t* data, size_t size) : mInput(data, size) {}

    /* Plays the input and checks that everything was given back. */
    void Run();

  private:
    void Play(uint8_t header);
    std::vector<OfflineCaptureRequest> Requests();
    OfflineCaptureRequest Request();
    StreamBuffer Buffer();
    HandleKind Handle();

    ByteReader mInput;
    size_t mValidBuffers = 0;
};

HandleKind RequestProgram::Handle() {
    const uint8_t choice = static_cast<uint8_t>(mInput.Below(8));
    HandleKind kind = choice <= 4 ? HandleKind::kValid : static_cast<HandleKind>(choice - 4);
    if (kind != HandleKind::kEmpty && mValidBuffers >= kMaxValidBuffers) return HandleKind::kEmpty;
    if (kind != HandleKind::kEmpty && kind != HandleKind::kIntsOnly) mValidBuffers++;
    return kind;
}

StreamBuffer RequestProgram::Buffer() {
    const size_t streamChoice = mInput.Below(kNumStreamChoices);
    const int32_t streamId =
            streamChoice < kNumStreamChoices - 1 ? kStreamChoices[streamChoice] : mInput.I32();
    const uint8_t idByte = mInput.Next();
    const int64_t bufferId = idByte < kArbitraryId ? idByte % 8 : mInput.I64();
    const HandleKind kind = Handle();
    const BufferStatus status = mInput.Bit() ? BufferStatus::ERROR : BufferStatus::OK;
    return MakeBuffer(streamId, bufferId, kind, status);
}

OfflineCaptureRequest RequestProgram::Request() {
    OfflineCaptureRequest request;
    request.frameNumber = mInput.I32();
    const size_t frames = mInput.Below(4);
    for (size_t i = 0; i < frames; i++) {
        OfflineInputFrame frame;
        const size_t buffers = mInput.Below(5);
        for (size_t j = 0; j < buffers; j++) frame.inputBuffers.push_back(Buffer());
        frame.settings.metadata = ReadMetadataBytes(mInput);
        request.inputFrames.push_back(std::move(frame));
    }
    const size_t outputs = mInput.Below(4);
    for (size_t j = 0; j < outputs; j++) request.outputBuffers.push_back(Buffer());
    return request;
}

std::vector<OfflineCaptureRequest> RequestProgram::Requests() {
    std::vector<OfflineCaptureRequest> requests(mInput.Below(4));
    for (OfflineCaptureRequest& request : requests) request = Request();
    return requests;
}

void RequestProgram::Run() {
    const uint8_t header = mInput.Next();
    const auto configuration = static_cast<ConfigurationChoice>(header & 0x3);
    // The cameras that the session makes metadata for are held apart from it, so that metadata
    // the library does not destroy stays counted.
    std::vector<uint32_t> cameras = {0};
    if (configuration == ConfigurationChoice::kStandardThenCameraOne) cameras.push_back(1);
    MetadataOpsHold hold(cameras);
    const auto start = ::offlinecamera::test::ProcessCounts::Take();
    Play(header);
    // The backend's record of calls would grow with the run.
    kivref::ClearCalls();
    CheckGivenBack(start);
}

void RequestProgram::Play(uint8_t header) {
    const auto configuration = static_cast<ConfigurationChoice>(header & 0x3);
    bool autoDeliver = (header & 0x4) == 0;
    const auto end = static_cast<SessionEnd>((header >> 3) & 0x3);
    const bool diesAfterEnd = (header & 0x20) != 0;

    ClientSession client("fuzz-requests");
    kivref::SetAutoDeliver(autoDeliver);
    if (configuration != ConfigurationChoice::kNone) client.Configure(StandardConfiguration());
    if (configuration == ConfigurationChoice::kStandardTwice) {
        client.Configure(StandardConfiguration());
    } else if (configuration == ConfigurationChoice::kStandardThenCameraOne) {
        OfflineSessionConfiguration config = StandardConfiguration();
        config.cameraId = "1";
        client.Configure(config);
    }

    for (size_t step = 0; step < kMaxSteps && !mInput.Done(); step++) {
        switch (static_cast<RequestOp>(mInput.Below(static_cast<size_t>(RequestOp::kCount)))) {
            case RequestOp::kRequests: {
                const std::vector<OfflineCaptureRequest> requests = Requests();
                const int32_t frameNumber = client.Process(requests);
                // An empty list leaves the answer alone.
                if (requests.empty()) Check(frameNumber == -1);
                break;
            }
            case RequestOp::kFlush:
                Check(client.Session().flushOfflineSession(OfflineFlushInfo()).isOk());
                break;
            case RequestOp::kToggleDelivery:
                autoDeliver = !autoDeliver;
                kivref::SetAutoDeliver(autoDeliver);
                break;
            case RequestOp::kWaitIdle:
            case RequestOp::kCount:
                Check(kivref::WaitIdle(client.Handle()));
                break;
            case RequestOp::kFailAllocation: {
                const int successes = static_cast<int>(mInput.Below(16));
                Vorn::Host::FailAllocations(successes);
                break;
            }
        }
    }

    if (end == SessionEnd::kDieThenClose || end == SessionEnd::kDieThenDrop) client.ClientDies();
    kivref::SetAutoDeliver(true);
    Check(kivref::WaitIdle(client.Handle()));
    Vorn::Host::ClearAllocationFailures();
    client.End(end == SessionEnd::kClose || end == SessionEnd::kDieThenClose);
    // The death of a client whose session is gone reaches nothing of the session.
    if (diesAfterEnd) client.ClientDies();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    SetUpSessionProcess();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    RequestProgram(data, size).Run();
    return 0;
}

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Consumer registration, unregistration and client deaths, interleaved with the camera HAL's
 * producer calls, as seen through the published IOfflineCameraService.
 *
 * Each input is a short program over a fixed set of client ids (zero and negative ones among
 * them) and up to twelve client objects in "other processes": register (a new or an existing
 * callback object, or none), unregister, kill a client's process, make the next death link fail,
 * register or unregister the producer, ask for buffers (the client answering as scripted), and
 * hand results back. At the end the fuzzer cleans up as a HAL does and checks that imports,
 * descriptors and binders are back where they were.
 *
 * The fuzzer plays a camera HAL that keeps the producer's contract: each output array has room
 * for its own request's count (and not one entry more, so that the address sanitizer sees a
 * write past it), it zeroes its output arrays before a request and treats every entry that comes
 * back with a buffer as lent, also when the request as a whole failed. It holds any number of
 * buffers, asks with any counts and hands buffers back in any order.
 * The process stop that brokering has by design is kept out of the way: a client reply holding an
 * error instead of a buffer list ends the process in the generated union accessor, so the fuzz
 * clients always answer with the buffers alternative. (The other one, a buffer coming back for a
 * client id without a list of lent buffers, cannot be reached through the service: every
 * registration makes that list.)
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineClientCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <android/binder_manager.h>
#include <convert.h>
#include <hardware/camera3.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/VornTesting.h>
#include <stdint.h>
#include <string.h>
#include <system/camera_metadata.h>
#include <system/camera_metadata_tags.h>
#include <system/graphics.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "OfflineCameraAIDLService.h"
#include "OfflineCameraService.h"
#include "RegistrationProgram.h"

namespace {

using ::aidl::android::hardware::camera::device::BufferRequestStatus;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::android::hardware::camera::device::StreamBuffer;
using ::aidl::android::hardware::camera::device::StreamBufferRet;
using ::aidl::android::hardware::camera::device::StreamBuffersVal;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineClientCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineClientCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineBufferRequest;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureResult;
using ::android::hardware::camera::device::implementation::convertToAidl;
namespace hostgralloc = ::android::hostgralloc;

using ::offlinecamera::fuzz::Check;
using ::offlinecamera::fuzz::kNumClients;
using ::offlinecamera::fuzz::kNumIds;
using ::offlinecamera::fuzz::RegistrationOp;
using ::offlinecamera::fuzz::Reply;
constexpr const int32_t (&kIds)[kNumIds] = ::offlinecamera::fuzz::kClientIds;

constexpr size_t kMaxOps = 64;

struct ReplyScript {
    Reply reply = Reply::kLend;
    size_t faultAt = 0;  // stream or buffer the fault applies to, modulo their number
    BufferRequestStatus status = BufferRequestStatus::FAILED_UNKNOWN;
};
// Read by whichever client answers: the fuzzer runs one call at a time.
ReplyScript gReply;

/* A consumer client in another process. Its buffers travel as duplicates in the reply. */
class FuzzClient : public BnOfflineClientCallback {
  public:
    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>&) override {
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus processCaptureResult(const std::vector<OfflineCaptureResult>&) override {
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus returnStreamBuffers(const std::vector<StreamBuffer>&) override {
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus requestStreamBuffers(const std::vector<OfflineBufferRequest>& bufReqs,
                                              std::vector<StreamBufferRet>* buffers,
                                              BufferRequestStatus* status) override;

    std::shared_ptr<IOfflineClientCallback> Remote() {
        ::ndk::SpAIBinder binder = asBinder();
        ::ndk::host::setRemote(binder.get(), true);
        return IOfflineClientCallback::fromBinder(binder);
    }
    void Die() {
        ::ndk::SpAIBinder binder = asBinder();
        ::ndk::host::kill(binder.get());
    }
};

::ndk::ScopedAStatus FuzzClient::requestStreamBuffers(
        const std::vector<OfflineBufferRequest>& bufReqs, std::vector<StreamBufferRet>* buffers,
        BufferRequestStatus* status) {
    const ReplyScript& script = gReply;
    if (script.reply == Reply::kTransactionFails) {
        return ::ndk::ScopedAStatus::fromStatus(STATUS_FAILED_TRANSACTION);
    }
    if (script.reply == Reply::kStatusFails) {
        *status = script.status;
        return ::ndk::ScopedAStatus::ok();
    }
    // The service never asks with an empty list.
    Check(!bufReqs.empty());
    size_t entries = bufReqs.size();
    if (script.reply == Reply::kEntryMissing) entries--;
    if (script.reply == Reply::kEntryExtra) entries++;
    const size_t faultStream = script.faultAt % bufReqs.size();
    size_t position = 0;
    buffers->resize(entries);
    for (size_t i = 0; i < entries; i++) {
        // An extra entry repeats the last request.
        const OfflineBufferRequest& request = bufReqs[std::min(i, bufReqs.size() - 1)];
        int32_t count = std::max(request.numBuffersRequested, 0);
        if (i == faultStream && script.reply == Reply::kLendFewer && count > 0) count--;
        if (i == faultStream && script.reply == Reply::kOneBufferTooMany) count++;
        std::vector<StreamBuffer> lent(static_cast<size_t>(count));
        for (StreamBuffer& buffer : lent) {
            buffer.streamId = static_cast<int32_t>(i);
            buffer.bufferId = static_cast<int64_t>(++position);
            const bool faulty = position - 1 == script.faultAt % 8;
            if (faulty && script.reply == Reply::kEmptyHandle) continue;
            native_handle_t* handle =
                    hostgralloc::allocate(static_cast<uint32_t>(request.stream.width),
                                          static_cast<uint32_t>(request.stream.height),
                                          static_cast<int32_t>(request.stream.format),
                                          static_cast<uint64_t>(request.stream.usage));
            Check(handle != nullptr);
            buffer.buffer = convertToAidl(handle);
            hostgralloc::release(handle);
            if (faulty && script.reply == Reply::kUnimportable) {
                buffer.buffer.ints[0] = 0;  // not a buffer of this platform's allocator
            }
        }
        (*buffers)[i].streamId = static_cast<int32_t>(i);
        (*buffers)[i].val = StreamBuffersVal::make<StreamBuffersVal::Tag::buffers>(std::move(lent));
    }
    *status = BufferRequestStatus::OK;
    return ::ndk::ScopedAStatus::ok();
}

/* Reads the program; past its end every byte reads as zero. */
class Program : public ::offlinecamera::fuzz::ByteReader {
  public:
    using ByteReader::ByteReader;
    size_t IdIndex() { return Below(kNumIds); }
};

/* Output streams of the HAL's configuration; all formats are ones the allocator knows. */
std::array<camera3_stream_t, 4> gStreams;
// Metadata that results may carry; never changed after start-up.
camera_metadata_t* gResultMetadata = nullptr;
// A handle the library never lent; results may name it.
const native_handle_t gNotLentHandle = {};
buffer_handle_t gNotLent = &gNotLentHandle;
std::shared_ptr<IOfflineCameraService> gService;

void MakeStreams() {
    struct Shape {
        uint32_t width, height;
        int format;
    };
    const Shape shapes[] = {{16, 8, HAL_PIXEL_FORMAT_RGBA_8888},
                            {8, 4, HAL_PIXEL_FORMAT_YCBCR_420_888},
                            {64, 1, HAL_PIXEL_FORMAT_BLOB},
                            {6, 2, HAL_PIXEL_FORMAT_RAW16}};
    for (size_t i = 0; i < gStreams.size(); i++) {
        camera3_stream_t& stream = gStreams[i];
        memset(&stream, 0, sizeof(stream));
        stream.stream_type = CAMERA3_STREAM_OUTPUT;
        stream.width = shapes[i].width;
        stream.height = shapes[i].height;
        stream.format = shapes[i].format;
        stream.usage = 0x3;
        stream.max_buffers = 4;
        stream.data_space = HAL_DATASPACE_UNKNOWN;
        stream.rotation = static_cast<int>(i % 4);
    }
}

/* One input's run: the HAL's view of what it holds, and the clients' processes. */
class Run {
  public:
    explicit Run(OfflineCameraService* core) : mCore(core) {}

    void Step(Program& program);
    void CleanUp();
    size_t HeldCount() const {
        size_t count = 0;
        for (const auto& held : mHeld) count += held.size();
        return count;
    }

  private:
    void Register(Program& program);
    void Request(Program& program);
    void Result(Program& program);
    /* Gives back the last-held buffer of the id alone; false when the id has no consumer. */
    bool ReturnOne(size_t idIndex);

    OfflineCameraService* mCore;
    std::array<std::shared_ptr<FuzzClient>, kNumClients> mClients;
    // Buffers the HAL holds per id.
    std::array<std::vector<buffer_handle_t*>, kNumIds> mHeld;
    uint32_t mFrame = 0;
};

void Run::Step(Program& program) {
    switch (static_cast<RegistrationOp>(program.Below(::offlinecamera::fuzz::kNumOps))) {
        case RegistrationOp::kRegister:
            Register(program);
            break;
        case RegistrationOp::kUnregister:
            (void)gService->unRegisterClient(kIds[program.IdIndex()]);
            break;
        case RegistrationOp::kKill: {
            const std::shared_ptr<FuzzClient>& client = mClients[program.Below(kNumClients)];
            if (client != nullptr) client->Die();
            break;
        }
        case RegistrationOp::kFailLink: {
            constexpr binder_status_t kFailures[] = {STATUS_DEAD_OBJECT, STATUS_UNKNOWN_ERROR,
                                                     STATUS_NO_MEMORY};
            ::ndk::host::failNextLinkToDeath(kFailures[program.Below(3)]);
            break;
        }
        case RegistrationOp::kProducer: {
            const int32_t id = kIds[program.IdIndex()];
            if (program.Next() & 1) {
                (void)mCore->RegisterProducerClient(id);
            } else {
                mCore->UnRegisterProducerClient(id);
            }
            break;
        }
        case RegistrationOp::kRequest:
            Request(program);
            break;
        case RegistrationOp::kResult:
        case RegistrationOp::kNumOps:
            Result(program);
            break;
    }
    Check(hostgralloc::liveImportCount() == HeldCount());
}

void Run::Register(Program& program) {
    const int32_t id = kIds[program.IdIndex()];
    const uint8_t choice = program.Next();
    if (choice % 16 == 15) {
        Check(!gService->registerClient(id, nullptr).isOk());
        return;
    }
    std::shared_ptr<FuzzClient>& client = mClients[choice % kNumClients];
    if (client == nullptr || (choice & 0x10) != 0) {
        client = ::ndk::SharedRefBase::make<FuzzClient>();
    }
    (void)gService->registerClient(id, client->Remote());
}

void Run::Request(Program& program) {
    const size_t idIndex = program.IdIndex();
    const size_t numStreams = program.Below(3);
    uint32_t counts[2] = {};
    const camera3_stream_t* streams[2] = {};
    for (size_t i = 0; i < 2; i++) {
        counts[i] = program.Below(4);
        streams[i] = &gStreams[program.Below(gStreams.size())];
    }
    gReply.reply = static_cast<Reply>(program.Below(static_cast<size_t>(Reply::kCount)));
    gReply.faultAt = program.Next();
    constexpr BufferRequestStatus kStatuses[] = {
            BufferRequestStatus::FAILED_PARTIAL, BufferRequestStatus::FAILED_CONFIGURING,
            BufferRequestStatus::FAILED_ILLEGAL_ARGUMENTS, BufferRequestStatus::FAILED_UNKNOWN};
    gReply.status = kStatuses[gReply.faultAt % 4];

    camera3_buffer_request_t requests[2] = {};
    camera3_stream_buffer_ret_t returned[2] = {};
    std::vector<camera3_stream_buffer_t> outputs[2];
    for (size_t i = 0; i < numStreams; i++) {
        requests[i].stream = const_cast<camera3_stream_t*>(streams[i]);
        requests[i].num_buffers_requested = counts[i];
        outputs[i].assign(counts[i], camera3_stream_buffer_t{});
        returned[i].stream = requests[i].stream;
        returned[i].status = CAMERA3_PS_BUF_REQ_OK;
        returned[i].output_buffers = outputs[i].data();
    }
    if (gReply.reply == Reply::kImportFails) {
        hostgralloc::failNext(hostgralloc::Op::Import, ::android::NO_MEMORY);
    }
    uint32_t numReturned = 0;
    const int32_t status = mCore->RequestStreamBuffers(
            kIds[idIndex], static_cast<uint32_t>(numStreams), requests, &numReturned, returned);
    hostgralloc::clearFailures();

    size_t filled = 0;
    for (size_t i = 0; i < numStreams; i++) {
        for (const camera3_stream_buffer_t& output : outputs[i]) {
            if (output.buffer == nullptr) continue;
            Check(output.stream == requests[i].stream && *output.buffer != nullptr);
            Check(output.acquire_fence == -1 && output.release_fence == -1);
            mHeld[idIndex].push_back(output.buffer);
            filled++;
        }
    }
    if (status == CAMERA3_BUF_REQ_OK) {
        Check(numReturned == numStreams);
        // Each stream is asked for the first request's count, or for less where it has less
        // room.
        size_t asked = 0;
        for (size_t i = 0; i < numStreams; i++) asked += std::min(counts[0], counts[i]);
        if (gReply.reply == Reply::kLend) Check(filled == asked);
    }
}

void Run::Result(Program& program) {
    const size_t idIndex = program.IdIndex();
    const uint8_t shape = program.Next();
    if (shape == 0xff) {
        (void)mCore->ProcessCaptureResult(kIds[idIndex], nullptr);
        return;
    }
    std::vector<buffer_handle_t*>& held = mHeld[idIndex];
    const size_t count = std::min<size_t>(shape % 4, held.size());
    const bool withMetadata = (shape & 0x04) != 0;
    const bool withUnknown = (shape & 0x08) != 0;
    const int bufferStatus =
            (shape & 0x10) != 0 ? CAMERA3_BUFFER_STATUS_ERROR : CAMERA3_BUFFER_STATUS_OK;

    // Any of the held buffers, in any order.
    std::vector<buffer_handle_t*> chosen;
    std::vector<buffer_handle_t*> rest = held;
    for (size_t n = 0; n < count; n++) {
        const size_t k = program.Below(rest.size());
        chosen.push_back(rest[k]);
        rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(k));
    }
    std::vector<camera3_stream_buffer_t> outputs;
    for (buffer_handle_t* buffer : chosen) {
        outputs.push_back({&gStreams[0], buffer, bufferStatus, -1, -1, 0, nullptr});
    }
    const size_t unknownAt = withUnknown ? program.Below(count + 1) : count;
    if (withUnknown) {
        const camera3_stream_buffer_t notLent = {&gStreams[0], &gNotLent, bufferStatus, -1,
                                                 -1,           0,         nullptr};
        outputs.insert(outputs.begin() + static_cast<std::ptrdiff_t>(unknownAt), notLent);
    }

    camera3_capture_result_t result = {};
    result.frame_number = ++mFrame;
    result.result = withMetadata ? gResultMetadata : nullptr;
    result.num_output_buffers = static_cast<uint32_t>(outputs.size());
    result.output_buffers = outputs.empty() ? nullptr : outputs.data();
    result.partial_result = 1;
    if (mCore->ProcessCaptureResult(kIds[idIndex], &result) == 0) {
        // Buffers before a buffer that was never lent go back; the rest stay with the HAL.
        for (size_t n = 0; n < unknownAt; n++) {
            held.erase(std::find(held.begin(), held.end(), chosen[n]));
        }
    }
}

bool Run::ReturnOne(size_t idIndex) {
    std::vector<buffer_handle_t*>& held = mHeld[idIndex];
    camera3_stream_buffer_t output = {
            &gStreams[0], held.back(), CAMERA3_BUFFER_STATUS_ERROR, -1, -1, 0, nullptr};
    camera3_capture_result_t result = {};
    result.frame_number = ++mFrame;
    result.num_output_buffers = 1;
    result.output_buffers = &output;
    if (mCore->ProcessCaptureResult(kIds[idIndex], &result) != 0) return false;
    held.pop_back();
    return true;
}

void Run::CleanUp() {
    ::ndk::host::failNextLinkToDeath(STATUS_OK);
    // Ids without buffers leave first, so that the ids that still hold some find free slots.
    for (size_t i = 0; i < kNumIds; i++) {
        if (mHeld[i].empty()) (void)gService->unRegisterClient(kIds[i]);
    }
    // Registered ids give their buffers back and leave; then the others come back to do so.
    for (bool registered : {true, false}) {
        for (size_t i = 0; i < kNumIds; i++) {
            if (mHeld[i].empty() || mCore->RegisterProducerClient(kIds[i]) != registered) {
                continue;
            }
            if (!registered) {
                auto client = ::ndk::SharedRefBase::make<FuzzClient>();
                Check(gService->registerClient(kIds[i], client->Remote()).isOk());
            }
            while (!mHeld[i].empty()) Check(ReturnOne(i));
            Check(gService->unRegisterClient(kIds[i]).isOk());
        }
    }
    for (int32_t id : kIds) {
        (void)gService->unRegisterClient(id);
        Check(!mCore->RegisterProducerClient(id));
    }
    for (auto& client : mClients) client.reset();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    offlinecamera::fuzz::SilenceLog();
    Vorn::Host::SetVendorRoot(FUZZ_VENDOR_ROOT);
    RegisterOfflineCameraAIDLService();
    (void)OfflineCameraService::GetInstance();

    // The service as a client process finds it.
    const std::string instance = std::string(IOfflineCameraService::descriptor) + "/default";
    ::ndk::SpAIBinder binder(AServiceManager_waitForService(instance.c_str()));
    ::ndk::host::setRemote(binder.get(), true);
    gService = IOfflineCameraService::fromBinder(binder);
    Check(gService != nullptr);

    MakeStreams();
    gResultMetadata = allocate_camera_metadata(1, 8);
    const int32_t sensitivity = 100;
    Check(add_camera_metadata_entry(gResultMetadata, ANDROID_SENSOR_SENSITIVITY, &sensitivity, 1) ==
          0);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const size_t startImports = hostgralloc::liveImportCount();
    const size_t startFds = offlinecamera::fuzz::CountOpenFds();
    const size_t startBinders = ::ndk::host::liveBinderCount();
    Check(startImports == 0);

    Program program(data, size);
    Run run(OfflineCameraService::GetInstance());
    for (size_t op = 0; op < kMaxOps && !program.Done(); op++) {
        run.Step(program);
    }
    run.CleanUp();

    if (hostgralloc::liveImportCount() != startImports) __builtin_trap();
    if (offlinecamera::fuzz::CountOpenFds() != startFds) __builtin_trap();
    if (::ndk::host::liveBinderCount() != startBinders) __builtin_trap();
    return 0;
}

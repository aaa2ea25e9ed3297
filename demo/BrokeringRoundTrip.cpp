/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The brokering act of the host demo: the vendor client lends buffers from its own allocator,
 * the camera HAL in the library's process draws into them through the graphics buffer mapper.
 */
#include "BrokeringRoundTrip.h"

#include <convert.h>
#include <hardware/camera3.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/GrallocTesting.h>
#include <stdio.h>
#include <string.h>
#include <sys/mman.h>
#include <ui/GraphicBufferMapper.h>

#include <map>
#include <string>
#include <vector>

#include "ClientSide.h"

namespace demo {

namespace {

using namespace ::offlinecamera::clientside;
using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::StreamBuffersVal;
using ::android::hardware::camera::device::implementation::convertToAidl;

constexpr int32_t kClientId = 7;
constexpr uint32_t kBuffersPerStream = 2;

// Size in bytes of a packed buffer of the formats the demo uses.
size_t BufferBytes(int format, uint32_t width, uint32_t height) {
    const size_t pixels = static_cast<size_t>(width) * height;
    return format == HAL_PIXEL_FORMAT_RGBA_8888 ? pixels * 4 : pixels * 3 / 2;
}

// ---- The vendor client, in its own process on a device ----------------------------------------

// A buffer consumer: lends buffers from its own allocator and checks what comes back.
class DemoClient : public BnOfflineClientCallback {
  public:
    ~DemoClient() override {
        for (auto& entry : mBuffers) android::hostgralloc::release(entry.second.handle);
    }

    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>&) override {
        return ::ndk::ScopedAStatus::ok();
    }

    ::ndk::ScopedAStatus requestStreamBuffers(const std::vector<OfflineBufferRequest>& requests,
                                              std::vector<StreamBufferRet>* returned,
                                              BufferRequestStatus* status) override {
        returned->resize(requests.size());
        for (size_t i = 0; i < requests.size(); i++) {
            const auto& stream = requests[i].stream;
            std::vector<StreamBuffer> buffers(requests[i].numBuffersRequested);
            for (StreamBuffer& buffer : buffers) {
                LentBuffer lent;
                lent.handle = android::hostgralloc::allocate(
                        static_cast<uint32_t>(stream.width), static_cast<uint32_t>(stream.height),
                        static_cast<int32_t>(stream.format), static_cast<uint64_t>(stream.usage));
                lent.bytes = BufferBytes(static_cast<int>(stream.format),
                                         static_cast<uint32_t>(stream.width),
                                         static_cast<uint32_t>(stream.height));
                buffer.streamId = 10 + static_cast<int32_t>(i);
                buffer.bufferId = mNextBufferId++;
                buffer.buffer = convertToAidl(lent.handle);
                mBuffers[buffer.bufferId] = lent;
                printf("  client: lends buffer %lld of stream %d (%dx%d, %zu bytes)\n",
                       static_cast<long long>(buffer.bufferId), buffer.streamId, stream.width,
                       stream.height, lent.bytes);
            }
            (*returned)[i].streamId = 10 + static_cast<int32_t>(i);
            (*returned)[i].val =
                    StreamBuffersVal::make<StreamBuffersVal::Tag::buffers>(std::move(buffers));
        }
        *status = BufferRequestStatus::OK;
        return ::ndk::ScopedAStatus::ok();
    }

    ::ndk::ScopedAStatus processCaptureResult(
            const std::vector<OfflineCaptureResult>& results) override {
        for (const OfflineCaptureResult& result : results) {
            printf("  client: result of frame %lld", static_cast<long long>(result.frameNumber));
            const auto* metadata =
                    reinterpret_cast<const camera_metadata_t*>(result.result.metadata.data());
            camera_metadata_ro_entry_t timestamp;
            if (!result.result.metadata.empty() &&
                find_camera_metadata_ro_entry(metadata, ANDROID_SENSOR_TIMESTAMP, &timestamp) == 0) {
                printf(", sensor timestamp %lld ns", static_cast<long long>(timestamp.data.i64[0]));
                mMetadataResults++;
            }
            printf("\n");
            for (const StreamBuffer& buffer : result.outputBuffers) {
                Check(buffer);
            }
        }
        return ::ndk::ScopedAStatus::ok();
    }

    ::ndk::ScopedAStatus returnStreamBuffers(const std::vector<StreamBuffer>& buffers) override {
        for (const StreamBuffer& buffer : buffers) {
            printf("  client: buffer %lld comes back unused\n",
                   static_cast<long long>(buffer.bufferId));
            mUnused++;
        }
        return ::ndk::ScopedAStatus::ok();
    }

    size_t Lent() const { return mBuffers.size(); }
    size_t Filled() const { return mFilled; }
    size_t Unused() const { return mUnused; }
    size_t MetadataResults() const { return mMetadataResults; }

  private:
    struct LentBuffer {
        native_handle_t* handle = nullptr;
        size_t bytes = 0;
    };

    // Looks at a returned buffer in the client's own mapping of it.
    void Check(const StreamBuffer& buffer) {
        auto lent = mBuffers.find(buffer.bufferId);
        if (buffer.status == BufferStatus::ERROR || lent == mBuffers.end()) {
            printf("    buffer %lld of stream %d: not filled, back to the pool\n",
                   static_cast<long long>(buffer.bufferId), buffer.streamId);
            mUnused++;
            return;
        }
        const size_t bytes = lent->second.bytes;
        void* mapping = mmap(nullptr, bytes, PROT_READ, MAP_SHARED, lent->second.handle->data[0], 0);
        if (mapping == MAP_FAILED) return;
        const uint8_t* pixels = static_cast<const uint8_t*>(mapping);
        size_t same = 0;
        while (same < bytes && pixels[same] == pixels[0]) same++;
        printf("    buffer %lld of stream %d: %zu bytes, %s 0x%02x\n",
               static_cast<long long>(buffer.bufferId), buffer.streamId, bytes,
               same == bytes ? "every byte is the HAL's" : "NOT all", pixels[0]);
        if (same == bytes && pixels[0] != 0) mFilled++;
        munmap(mapping, bytes);
    }

    std::map<int64_t, LentBuffer> mBuffers;
    int64_t mNextBufferId = 1;
    size_t mFilled = 0;
    size_t mUnused = 0;
    size_t mMetadataResults = 0;
};

// ---- The camera HAL, in the library's process -------------------------------------------------

// The HAL draws into a lent buffer through the graphics buffer mapper.
bool Draw(const camera3_stream_buffer_t& buffer, uint8_t value) {
    const camera3_stream_t* stream = buffer.stream;
    void* address = nullptr;
    android::GraphicBufferMapper& mapper = android::GraphicBufferMapper::get();
    if (mapper.lock(*buffer.buffer, 0x30,
                    android::Rect(static_cast<int32_t>(stream->width),
                                  static_cast<int32_t>(stream->height)),
                    &address) != android::OK) {
        return false;
    }
    memset(address, value, BufferBytes(stream->format, stream->width, stream->height));
    return mapper.unlock(*buffer.buffer) == android::OK;
}

camera3_capture_result_t Result(uint32_t frameNumber, const camera_metadata_t* metadata,
                                const std::vector<camera3_stream_buffer_t>& buffers) {
    camera3_capture_result_t result;
    memset(&result, 0, sizeof(result));
    result.frame_number = frameNumber;
    result.result = metadata;
    result.num_output_buffers = static_cast<uint32_t>(buffers.size());
    result.output_buffers = buffers.data();
    result.partial_result = 1;
    return result;
}

// One capture's worth of buffer brokering between the HAL and the client; false on a failure.
bool RoundTrip(OfflineCameraService* core, const std::shared_ptr<DemoClient>& client) {
    printf("== camera HAL: producer of client %d\n", kClientId);
    if (!core->RegisterProducerClient(kClientId)) return false;

    // Streams whose buffers the CPU reads and writes.
    camera3_stream_t preview =
            MakeStream(160, 120, HAL_PIXEL_FORMAT_YCBCR_420_888, 0x33, HAL_DATASPACE_V0_JFIF);
    camera3_stream_t analysis =
            MakeStream(80, 60, HAL_PIXEL_FORMAT_RGBA_8888, 0x33, HAL_DATASPACE_V0_JFIF);
    camera3_buffer_request_t requests[] = {{&preview, kBuffersPerStream},
                                           {&analysis, kBuffersPerStream}};
    camera3_stream_buffer_t output[2][kBuffersPerStream] = {};
    camera3_stream_buffer_ret_t returned[2] = {{&preview, CAMERA3_PS_BUF_REQ_OK, 0, output[0]},
                                               {&analysis, CAMERA3_PS_BUF_REQ_OK, 0, output[1]}};
    uint32_t numReturned = 0;
    printf("== camera HAL: asks for %u buffers of each of 2 streams\n", kBuffersPerStream);
    const int32_t status =
            core->RequestStreamBuffers(kClientId, 2, requests, &numReturned, returned);
    printf("  HAL: status %d, %u streams served\n", status, numReturned);
    if (status != CAMERA3_BUF_REQ_OK) return false;

    // The first buffer of each stream is drawn into; the HAL gives the second ones back unused
    // at once, in a result whose buffers carry the error status. It hands them over last lent
    // first: its buffer pointers lead into the service's list of lent buffers, where the records
    // after one that leaves move up a place.
    printf("== camera HAL: returns the buffers it does not need\n");
    camera3_stream_buffer_t unused[] = {output[1][1], output[0][1]};
    for (camera3_stream_buffer_t& buffer : unused) buffer.status = CAMERA3_BUFFER_STATUS_ERROR;
    std::vector<camera3_stream_buffer_t> unusedList(std::begin(unused), std::end(unused));
    camera3_capture_result_t errorResult = Result(1, nullptr, unusedList);
    core->ProcessCaptureResult(kClientId, &errorResult);

    printf("== camera HAL: draws frame 1 through the mapper and sends the result\n");
    if (!Draw(output[0][0], 0x5a) || !Draw(output[1][0], 0xa5)) return false;
    camera_metadata_t* metadata = allocate_camera_metadata(2, 16);
    const int64_t timestamp = 1000000000;
    const int32_t requestId = 1;
    add_camera_metadata_entry(metadata, ANDROID_SENSOR_TIMESTAMP, &timestamp, 1);
    add_camera_metadata_entry(metadata, ANDROID_REQUEST_ID, &requestId, 1);
    std::vector<camera3_stream_buffer_t> filled = {output[0][0], output[1][0]};
    camera3_capture_result_t result = Result(1, metadata, filled);
    core->ProcessCaptureResult(kClientId, &result);
    free_camera_metadata(metadata);
    return client->Filled() == 2 && client->Unused() == 2 && client->MetadataResults() == 1;
}

}  // namespace

bool PlayBrokeringRoundTrip(OfflineCameraService* core,
                            const std::shared_ptr<IOfflineCameraService>& service) {
    printf("== vendor client: registers as buffer consumer %d\n", kClientId);
    std::shared_ptr<DemoClient> client = ::ndk::SharedRefBase::make<DemoClient>();
    // The callback lives in the client's process: the service receives a proxy of its binder.
    ::ndk::SpAIBinder clientBinder = client->asBinder();
    ndk::host::setRemote(clientBinder.get(), true);
    if (!service->registerClient(kClientId, IOfflineClientCallback::fromBinder(clientBinder)).isOk()) {
        printf("  registration failed\n");
        return false;
    }

    const bool roundTrip = RoundTrip(core, client);
    const size_t lent = client->Lent();
    const size_t filled = client->Filled();
    const size_t unused = client->Unused();

    printf("== vendor client: its process dies\n");
    ndk::host::kill(clientBinder.get());
    printf("== camera HAL: the producer of client %d is gone\n", kClientId);
    const bool stillThere = core->RegisterProducerClient(kClientId);
    clientBinder = nullptr;
    client = nullptr;

    printf("  brokering: %zu buffers lent, %zu came back drawn by the HAL with frame 1's metadata, "
           "%zu came back unused; client %s after its death\n",
           lent, filled, unused, stillThere ? "STILL registered" : "unregistered");
    return roundTrip && !stillThere;
}

}  // namespace demo

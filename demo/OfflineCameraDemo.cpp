/*
 * Host demo: plays the camera HAL process that loads the offline camera library, and a vendor
 * client that finds the published service, registers as a buffer consumer and lends the HAL
 * buffers for a capture.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineClientCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <android/binder_manager.h>
#include <android/log.h>
#include <dlfcn.h>
#include <hardware/camera3.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/GrallocTesting.h>
#include <stdio.h>
#include <string.h>
#include <sys/mman.h>
#include <ui/GraphicBufferMapper.h>
#include <unistd.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "OfflineCameraService.h"

using ::aidl::android::hardware::camera::device::BufferRequestStatus;
using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::android::hardware::camera::device::StreamBuffer;
using ::aidl::android::hardware::camera::device::StreamBufferRet;
using ::aidl::android::hardware::camera::device::StreamBuffersVal;
using ::aidl::android::hardware::common::NativeHandle;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineClientCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineClientCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineBufferRequest;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureResult;

namespace {

constexpr int32_t kClientId = 7;
constexpr uint32_t kBuffersPerStream = 2;

void PrintStaticCaps(const camera_metadata_t* caps) {
    if (caps == nullptr) {
        printf("  static metadata: none (is the backend installed?)\n");
        return;
    }
    size_t count = get_camera_metadata_entry_count(caps);
    printf("  static metadata: %zu entries, %zu bytes\n", count, get_camera_metadata_size(caps));
    for (size_t i = 0; i < count; i++) {
        camera_metadata_ro_entry_t entry;
        if (get_camera_metadata_ro_entry(caps, i, &entry) != 0) continue;
        const char* section = get_camera_metadata_section_name(entry.tag);
        const char* name = get_camera_metadata_tag_name(entry.tag);
        printf("    %s.%s (%zu values)\n", section ? section : "?", name ? name : "?", entry.count);
    }
}

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
                buffer.buffer = Share(lent.handle);
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

    // A parcel carries duplicates of the descriptors to the other process.
    static NativeHandle Share(const native_handle_t* handle) {
        NativeHandle shared;
        for (int i = 0; i < handle->numFds; i++) {
            shared.fds.emplace_back(dup(handle->data[i]));
        }
        shared.ints.assign(&handle->data[handle->numFds],
                           &handle->data[handle->numFds + handle->numInts]);
        return shared;
    }

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

camera3_stream_t Stream(uint32_t width, uint32_t height, int format) {
    camera3_stream_t stream;
    memset(&stream, 0, sizeof(stream));
    stream.stream_type = CAMERA3_STREAM_OUTPUT;
    stream.width = width;
    stream.height = height;
    stream.format = format;
    stream.usage = 0x33;  // CPU reads and writes
    stream.max_buffers = kBuffersPerStream;
    stream.data_space = HAL_DATASPACE_V0_JFIF;
    return stream;
}

// One capture's worth of buffer brokering between the HAL and the client; false on a failure.
bool RoundTrip(OfflineCameraService* core, const std::shared_ptr<DemoClient>& client) {
    printf("== camera HAL: producer of client %d\n", kClientId);
    fflush(stdout);
    if (!core->RegisterProducerClient(kClientId)) return false;
    fflush(stderr);

    camera3_stream_t preview = Stream(160, 120, HAL_PIXEL_FORMAT_YCBCR_420_888);
    camera3_stream_t analysis = Stream(80, 60, HAL_PIXEL_FORMAT_RGBA_8888);
    camera3_buffer_request_t requests[] = {{&preview, kBuffersPerStream},
                                           {&analysis, kBuffersPerStream}};
    camera3_stream_buffer_t output[2][kBuffersPerStream] = {};
    camera3_stream_buffer_ret_t returned[2] = {{&preview, CAMERA3_PS_BUF_REQ_OK, 0, output[0]},
                                               {&analysis, CAMERA3_PS_BUF_REQ_OK, 0, output[1]}};
    uint32_t numReturned = 0;
    printf("== camera HAL: asks for %u buffers of each of 2 streams\n", kBuffersPerStream);
    fflush(stdout);
    const int32_t status =
            core->RequestStreamBuffers(kClientId, 2, requests, &numReturned, returned);
    fflush(stderr);
    printf("  HAL: status %d, %u streams served\n", status, numReturned);
    if (status != CAMERA3_BUF_REQ_OK) return false;

    // The first buffer of each stream is drawn into; the HAL gives the second ones back unused
    // at once, in a result whose buffers carry the error status. It hands them over last lent
    // first: its buffer pointers lead into the service's list of lent buffers, where the records
    // after one that leaves move up a place.
    printf("== camera HAL: returns the buffers it does not need\n");
    fflush(stdout);
    camera3_stream_buffer_t unused[] = {output[1][1], output[0][1]};
    for (camera3_stream_buffer_t& buffer : unused) buffer.status = CAMERA3_BUFFER_STATUS_ERROR;
    std::vector<camera3_stream_buffer_t> unusedList(std::begin(unused), std::end(unused));
    camera3_capture_result_t errorResult = Result(1, nullptr, unusedList);
    core->ProcessCaptureResult(kClientId, &errorResult);
    fflush(stderr);

    printf("== camera HAL: draws frame 1 through the mapper and sends the result\n");
    fflush(stdout);
    if (!Draw(output[0][0], 0x5a) || !Draw(output[1][0], 0xa5)) return false;
    camera_metadata_t* metadata = allocate_camera_metadata(2, 16);
    const int64_t timestamp = 1000000000;
    const int32_t requestId = 1;
    add_camera_metadata_entry(metadata, ANDROID_SENSOR_TIMESTAMP, &timestamp, 1);
    add_camera_metadata_entry(metadata, ANDROID_REQUEST_ID, &requestId, 1);
    std::vector<camera3_stream_buffer_t> filled = {output[0][0], output[1][0]};
    camera3_capture_result_t result = Result(1, metadata, filled);
    core->ProcessCaptureResult(kClientId, &result);
    fflush(stderr);
    free_camera_metadata(metadata);
    return client->Filled() == 2 && client->Unused() == 2 && client->MetadataResults() == 1;
}

}  // namespace

int main(int argc, char** argv) {
    setvbuf(stdout, nullptr, _IOLBF, 0);
    // Show every priority, as logcat would with log.tag set to VERBOSE.
    __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
    const char* library = argc > 1 ? argv[1] : "vendor.oru.hardware.camera.offlinecamera-impl.so";

    printf("== camera HAL process: loading %s\n", library);
    void* handle = dlopen(library, RTLD_NOW | RTLD_GLOBAL);
    if (handle == nullptr) {
        fprintf(stderr, "cannot load the library: %s\n", dlerror());
        return 1;
    }
    auto registerService =
            reinterpret_cast<void (*)()>(dlsym(handle, "RegisterOfflineCameraAIDLService"));
    if (registerService == nullptr) {
        fprintf(stderr, "RegisterOfflineCameraAIDLService is not exported\n");
        return 1;
    }
    registerService();
    fflush(stderr);

    printf("== camera HAL process: binding the offline backend\n");
    OfflineCameraService* core = OfflineCameraService::GetInstance();
    fflush(stderr);
    PrintStaticCaps(core->GetOfflineStaticCaps());

    const std::string instance = std::string(IOfflineCameraService::descriptor) + "/default";
    printf("== vendor client: looking up %s\n", instance.c_str());
    ::ndk::SpAIBinder binder(AServiceManager_waitForService(instance.c_str()));
    std::shared_ptr<IOfflineCameraService> service = IOfflineCameraService::fromBinder(binder);
    if (service == nullptr) {
        fprintf(stderr, "the service is not published\n");
        return 1;
    }
    int32_t version = 0;
    std::string hash;
    if (!service->getInterfaceVersion(&version).isOk() || !service->getInterfaceHash(&hash).isOk()) {
        fprintf(stderr, "the service does not answer\n");
        return 1;
    }
    printf("  published: %s\n  interface version %d, hash %s\n", instance.c_str(), version,
           hash.c_str());

    printf("== vendor client: registers as buffer consumer %d\n", kClientId);
    fflush(stdout);
    std::shared_ptr<DemoClient> client = ::ndk::SharedRefBase::make<DemoClient>();
    // The callback lives in the client's process: the service receives a proxy of its binder.
    ::ndk::SpAIBinder clientBinder = client->asBinder();
    ndk::host::setRemote(clientBinder.get(), true);
    if (!service->registerClient(kClientId, IOfflineClientCallback::fromBinder(clientBinder)).isOk()) {
        fprintf(stderr, "registration failed\n");
        return 1;
    }
    fflush(stderr);

    const bool roundTrip = RoundTrip(core, client);
    const size_t lent = client->Lent();
    const size_t filled = client->Filled();
    const size_t unused = client->Unused();

    printf("== vendor client: its process dies\n");
    fflush(stdout);
    ndk::host::kill(clientBinder.get());
    fflush(stderr);
    printf("== camera HAL: the producer of client %d is gone\n", kClientId);
    fflush(stdout);
    const bool stillThere = core->RegisterProducerClient(kClientId);
    fflush(stderr);
    clientBinder = nullptr;
    client = nullptr;

    printf("== camera HAL process: a second registration only logs\n");
    fflush(stdout);
    registerService();
    fflush(stderr);

    const size_t imports = android::hostgralloc::liveImportCount();
    printf("== summary: %zu buffers lent, %zu came back drawn by the HAL with frame 1's metadata, "
           "%zu came back unused; client %s after its death; %zu buffers still imported\n",
           lent, filled, unused, stillThere ? "STILL registered" : "unregistered", imports);
    const bool ok = roundTrip && !stillThere && imports == 0;
    printf("== %s\n", ok ? "done" : "FAILED");
    return ok ? 0 : 1;
}

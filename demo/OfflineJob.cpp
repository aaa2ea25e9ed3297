/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The vendor client of the demo's offline job. It lives in another process on a device: its
 * session callback is a binder marked remote, its buffers come from its own allocator and travel
 * as NativeHandles, and it reads the fused pixels in its own mapping of its buffers.
 */
#include "OfflineJob.h"

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <convert.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <sys/mman.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <random>

#include "ClientSide.h"
#include "DemoImage.h"

namespace demo {

namespace {

using namespace ::offlinecamera::clientside;
using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::CameraMetadata;
using ::aidl::android::hardware::camera::device::Stream;
using ::aidl::android::hardware::camera::device::StreamConfigurationMode;
using ::aidl::android::hardware::camera::device::StreamRotation;
using ::aidl::android::hardware::camera::device::StreamType;
using ::aidl::android::hardware::graphics::common::BufferUsage;
using ::aidl::android::hardware::graphics::common::Dataspace;
using ::aidl::android::hardware::graphics::common::PixelFormat;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureRequest;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineInputFrame;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineSessionConfiguration;
using ::android::hardware::camera::device::implementation::convertFromAidl;
using ::android::hardware::camera::device::implementation::convertToAidl;

constexpr uint32_t kWidth = 320;
constexpr uint32_t kHeight = 240;
constexpr int32_t kInputStream = 0;
constexpr int32_t kOutputStream = 1;
constexpr int kRequests = 4;
constexpr int kFramesPerRequest = 6;
constexpr double kNoiseSigma = 25.0;
constexpr uint32_t kNoiseSeed = 20260115;
constexpr auto kResultTimeout = std::chrono::seconds(10);

// What the client keeps of a result: the binder parcelables own descriptors and are not copied.
struct ReceivedResult {
    int32_t frameNumber = 0;
    std::vector<int32_t> streamIds;
    std::vector<int64_t> bufferIds;
    std::vector<BufferStatus> statuses;
    int64_t exposureTime = -1;
};

class SessionClient : public BnOfflineCameraSessionCallback {
  public:
    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& msgs) override {
        std::lock_guard<std::mutex> lock(mLock);
        for (const NotifyMsg& msg : msgs) {
            if (msg.getTag() == NotifyMsg::Tag::shutter) {
                const auto& shutter = msg.get<NotifyMsg::Tag::shutter>();
                printf("  client: shutter of frame %d at %lld ns\n", shutter.frameNumber,
                       static_cast<long long>(shutter.timestamp));
                mShutters.push_back(shutter.frameNumber);
            } else {
                const auto& error = msg.get<NotifyMsg::Tag::error>();
                printf("  client: error %d for frame %d\n", static_cast<int>(error.errorCode),
                       error.frameNumber);
            }
        }
        return ::ndk::ScopedAStatus::ok();
    }

    ::ndk::ScopedAStatus processCaptureResult(const std::vector<CaptureResult>& results) override {
        std::lock_guard<std::mutex> lock(mLock);
        for (const CaptureResult& result : results) {
            ReceivedResult received;
            received.frameNumber = result.frameNumber;
            for (const StreamBuffer& buffer : result.outputBuffers) {
                received.streamIds.push_back(buffer.streamId);
                received.bufferIds.push_back(buffer.bufferId);
                received.statuses.push_back(buffer.status);
            }
            const camera_metadata_t* metadata = nullptr;
            camera_metadata_ro_entry_t entry;
            if (convertFromAidl(result.result, &metadata) && metadata != nullptr &&
                find_camera_metadata_ro_entry(metadata, ANDROID_SENSOR_EXPOSURE_TIME, &entry) == 0) {
                received.exposureTime = entry.data.i64[0];
            }
            printf("  client: result of frame %d: %zu output buffer(s), %zu metadata bytes, "
                   "exposure %lld ns\n",
                   result.frameNumber, result.outputBuffers.size(), result.result.metadata.size(),
                   static_cast<long long>(received.exposureTime));
            mResults.push_back(std::move(received));
        }
        mChanged.notify_all();
        return ::ndk::ScopedAStatus::ok();
    }

    // Waits until `count` results have arrived; false when they did not in time.
    bool WaitForResults(size_t count) {
        std::unique_lock<std::mutex> lock(mLock);
        return mChanged.wait_for(lock, kResultTimeout, [&] { return mResults.size() >= count; });
    }

    std::vector<ReceivedResult> Results() {
        std::lock_guard<std::mutex> lock(mLock);
        return mResults;
    }

    std::vector<int32_t> Shutters() {
        std::lock_guard<std::mutex> lock(mLock);
        return mShutters;
    }

  private:
    // Guards mResults and mShutters, written on the service's delivery threads.
    std::mutex mLock;
    std::condition_variable mChanged;
    std::vector<ReceivedResult> mResults;
    std::vector<int32_t> mShutters;
};

// A buffer of the client's own allocator.
struct ClientBuffer {
    native_handle_t* handle = nullptr;
    int64_t id = 0;
};

// The client's buffers; a pool of fixed capacity, so that the records it hands out stay put.
class BufferPool {
  public:
    explicit BufferPool(size_t capacity) { mBuffers.reserve(capacity); }
    ~BufferPool() {
        for (ClientBuffer& buffer : mBuffers) android::hostgralloc::release(buffer.handle);
    }

    // A new Y8 buffer holding `image`, or null.
    const ClientBuffer* Allocate(const GreyImage& image) {
        if (mBuffers.size() == mBuffers.capacity()) return nullptr;
        ClientBuffer buffer;
        buffer.handle = android::hostgralloc::allocate(image.width, image.height,
                                                       HAL_PIXEL_FORMAT_Y8, kUsage);
        if (buffer.handle == nullptr) return nullptr;
        buffer.id = mNextId++;
        mBuffers.push_back(buffer);
        if (!Access(buffer, PROT_WRITE, [&image](uint8_t* pixels) {
                memcpy(pixels, image.pixels.data(), image.pixels.size());
            })) {
            return nullptr;
        }
        return &mBuffers.back();
    }

    // The buffer's pixels as the client's own mapping shows them.
    static bool Read(const ClientBuffer& buffer, GreyImage* image) {
        *image = GreyImage(kWidth, kHeight);
        return Access(buffer, PROT_READ, [image](uint8_t* pixels) {
            memcpy(image->pixels.data(), pixels, image->pixels.size());
        });
    }

    static StreamBuffer Lend(int32_t streamId, const ClientBuffer& buffer) {
        StreamBuffer lent;
        lent.streamId = streamId;
        lent.bufferId = buffer.id;
        lent.buffer = convertToAidl(buffer.handle);
        lent.status = BufferStatus::OK;
        return lent;
    }

    static constexpr uint64_t kUsage = static_cast<uint64_t>(BufferUsage::CPU_READ_OFTEN) |
                                       static_cast<uint64_t>(BufferUsage::CPU_WRITE_OFTEN);

  private:
    template <typename Use>
    static bool Access(const ClientBuffer& buffer, int protection, Use use) {
        const size_t bytes = size_t{kWidth} * kHeight;
        void* mapping = mmap(nullptr, bytes, protection, MAP_SHARED, buffer.handle->data[0], 0);
        if (mapping == MAP_FAILED) return false;
        use(static_cast<uint8_t*>(mapping));
        munmap(mapping, bytes);
        return true;
    }

    std::vector<ClientBuffer> mBuffers;
    int64_t mNextId = 1;
};

Stream MakeStream(int32_t id, StreamType type) {
    Stream stream;
    stream.id = id;
    stream.streamType = type;
    stream.width = kWidth;
    stream.height = kHeight;
    stream.format = PixelFormat::Y8;
    stream.usage = static_cast<BufferUsage>(BufferPool::kUsage);
    stream.dataSpace = Dataspace::UNKNOWN;
    stream.rotation = StreamRotation::ROTATION_0;
    return stream;
}

// Camera metadata of the given entries, packed as a parcel carries it.
CameraMetadata Pack(camera_metadata_t* metadata) {
    CameraMetadata packed;
    convertToAidl(metadata, &packed);
    free_camera_metadata(metadata);
    return packed;
}

CameraMetadata SessionParameters() {
    camera_metadata_t* parameters = allocate_camera_metadata(1, 0);
    const uint8_t intent = ANDROID_CONTROL_CAPTURE_INTENT_STILL_CAPTURE;
    add_camera_metadata_entry(parameters, ANDROID_CONTROL_CAPTURE_INTENT, &intent, 1);
    return Pack(parameters);
}

CameraMetadata CaptureSettings(int64_t exposureNs, int32_t iso) {
    camera_metadata_t* settings = allocate_camera_metadata(2, 16);
    add_camera_metadata_entry(settings, ANDROID_SENSOR_EXPOSURE_TIME, &exposureNs, 1);
    add_camera_metadata_entry(settings, ANDROID_SENSOR_SENSITIVITY, &iso, 1);
    return Pack(settings);
}

// The handle of the backend session opened last, from the backend's record of calls.
uint64_t LastBackendSession() {
    uint64_t handle = 0;
    for (const kivref::CallRecord& call : kivref::Calls()) {
        if (call.slot == kivref::Slot::OpenSession) handle = call.session;
    }
    return handle;
}

int64_t ExposureOf(int request) {
    return (10 + 5 * request) * 1000000LL;
}

// Checks the results against the requests and fills the report's result figures.
void CheckResults(const std::vector<ReceivedResult>& results,
                  const std::vector<const ClientBuffer*>& outputs, OfflineJobReport* report) {
    report->exposureEchoed = !results.empty();
    for (const ReceivedResult& result : results) {
        report->resultFrameNumbers.push_back(result.frameNumber);
        auto assigned = std::find(report->assignedFrameNumbers.begin(),
                                  report->assignedFrameNumbers.end(), result.frameNumber);
        if (assigned == report->assignedFrameNumbers.end()) continue;
        const size_t request = static_cast<size_t>(assigned - report->assignedFrameNumbers.begin());
        if (result.exposureTime != ExposureOf(static_cast<int>(request))) {
            report->exposureEchoed = false;
        }
        for (size_t i = 0; i < result.bufferIds.size(); i++) {
            if (result.streamIds[i] == kOutputStream &&
                result.bufferIds[i] == outputs[request]->id &&
                result.statuses[i] == BufferStatus::OK) {
                report->outputBuffersBack++;
            }
        }
    }
}

}  // namespace

OfflineJobReport RunOfflineJob(const std::shared_ptr<IOfflineCameraService>& service,
                               const std::string& outputDir) {
    OfflineJobReport report;
    report.importsBefore = android::hostgralloc::liveImportCount();

    printf("== vendor client: opens an offline session with its callback\n");
    std::shared_ptr<SessionClient> client = ::ndk::SharedRefBase::make<SessionClient>();
    std::shared_ptr<IOfflineCameraSessionCallback> callback =
            RemoteInterface<IOfflineCameraSessionCallback>(client->asBinder());
    std::shared_ptr<IOfflineCameraSession> opened;
    if (!service->openOfflineSeesion("demo-denoise", callback, &opened).isOk() ||
        opened == nullptr) {
        report.failure = "the session did not open";
        return report;
    }
    std::shared_ptr<IOfflineCameraSession> session =
            RemoteInterface<IOfflineCameraSession>(opened->asBinder());
    opened = nullptr;

    printf("== vendor client: configures camera 0: input stream %d and output stream %d, "
           "%ux%u Y8\n",
           kInputStream, kOutputStream, kWidth, kHeight);
    OfflineSessionConfiguration config;
    config.cameraId = "0";
    config.streams.push_back(MakeStream(kInputStream, StreamType::INPUT));
    config.streams.push_back(MakeStream(kOutputStream, StreamType::OUTPUT));
    config.operationMode = StreamConfigurationMode::NORMAL_MODE;
    config.sessionParams = SessionParameters();
    session->configureOfflineSession(config);

    const GreyImage scene = MakeScene(kWidth, kHeight);
    std::mt19937 random(kNoiseSeed);
    BufferPool pool(kRequests * (kFramesPerRequest + 1));
    std::vector<const ClientBuffer*> outputs;
    GreyImage firstNoisy;
    for (int r = 0; r < kRequests && report.failure.empty(); r++) {
        OfflineCaptureRequest request;
        request.frameNumber = r + 1;
        for (int f = 0; f < kFramesPerRequest; f++) {
            GreyImage noisy = AddNoise(scene, kNoiseSigma, &random);
            report.bestInputPsnr = std::max(report.bestInputPsnr, Psnr(noisy, scene));
            const ClientBuffer* buffer = pool.Allocate(noisy);
            if (buffer == nullptr) {
                report.failure = "cannot allocate a client buffer";
                break;
            }
            if (firstNoisy.pixels.empty()) firstNoisy = std::move(noisy);
            OfflineInputFrame frame;
            frame.inputBuffers.push_back(BufferPool::Lend(kInputStream, *buffer));
            // The settings travel once, with the first frame.
            if (f == 0) frame.settings = CaptureSettings(ExposureOf(r), 800);
            request.inputFrames.push_back(std::move(frame));
        }
        if (!report.failure.empty()) break;
        const ClientBuffer* output = pool.Allocate(GreyImage(kWidth, kHeight));
        if (output == nullptr) {
            report.failure = "cannot allocate a client buffer";
            break;
        }
        outputs.push_back(output);
        request.outputBuffers.push_back(BufferPool::Lend(kOutputStream, *output));

        printf("== vendor client: request %d: %d noisy frames (buffers %lld..%lld), output "
               "buffer %lld, exposure %lld ms\n",
               request.frameNumber, kFramesPerRequest,
               static_cast<long long>(output->id - kFramesPerRequest),
               static_cast<long long>(output->id - 1), static_cast<long long>(output->id),
               static_cast<long long>(ExposureOf(r) / 1000000));
        std::vector<OfflineCaptureRequest> requests;
        requests.push_back(std::move(request));
        int32_t frameNumber = -1;
        session->processOfflineRequest(requests, &frameNumber);
        printf("  client: request %d goes by frame number %d\n", r + 1, frameNumber);
        report.clientFrameNumbers.push_back(r + 1);
        report.assignedFrameNumbers.push_back(frameNumber);
        report.inputBuffersSent += kFramesPerRequest;
        report.outputBuffersSent++;
    }

    printf("== vendor client: waits for the results\n");
    if (report.failure.empty() && !client->WaitForResults(outputs.size())) {
        report.failure = "results missing after 10 s";
    }
    // The client has the last result while the service is still finishing that delivery, in
    // which it frees the buffers that came back; the backend's worker is idle once it has.
    kivref::WaitIdle(LastBackendSession());
    report.importsAfterResults = android::hostgralloc::liveImportCount();
    CheckResults(client->Results(), outputs, &report);
    report.shutterFrameNumbers = client->Shutters();

    printf("== vendor client: reads the fused outputs in its own mappings\n");
    for (size_t i = 0; i < outputs.size(); i++) {
        GreyImage fused;
        if (!BufferPool::Read(*outputs[i], &fused)) {
            report.failure = "cannot map an output buffer";
            break;
        }
        report.fusedPsnr.push_back(Psnr(fused, scene));
        printf("  client: output buffer %lld: PSNR %.2f dB\n",
               static_cast<long long>(outputs[i]->id), report.fusedPsnr.back());
        if (i != 0) continue;
        std::string error;
        report.noisyPng = outputDir + "/noisy-input.png";
        report.fusedPng = outputDir + "/fused-output.png";
        if (!WritePng(firstNoisy, report.noisyPng, &error) ||
            !WritePng(fused, report.fusedPng, &error)) {
            report.failure = "cannot write the images: " + error;
        }
    }

    printf("== vendor client: closes the session\n");
    session->closeOfflineSession();
    return report;
}

}  // namespace demo

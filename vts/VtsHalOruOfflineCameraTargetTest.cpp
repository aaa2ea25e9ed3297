/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Device test of IOfflineCameraService: for every declared instance, against the service that
 * the camera HAL process publishes, the interface's version and hash, the operation modes, the
 * static capabilities, an offline session that takes one request and delivers its result, and a
 * buffer consumer's registration.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineClientCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <android/binder_manager.h>
#include <android/hardware_buffer.h>
#include <ctype.h>
#include <gtest/gtest.h>
#include <system/camera_metadata.h>
#include <system/camera_metadata_tags.h>
#include <unistd.h>
#include <vndk/hardware_buffer.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace {

using ::aidl::android::hardware::camera::device::BufferRequestStatus;
using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::CameraMetadata;
using ::aidl::android::hardware::camera::device::CaptureResult;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::android::hardware::camera::device::Stream;
using ::aidl::android::hardware::camera::device::StreamBuffer;
using ::aidl::android::hardware::camera::device::StreamBufferRet;
using ::aidl::android::hardware::camera::device::StreamConfigurationMode;
using ::aidl::android::hardware::camera::device::StreamRotation;
using ::aidl::android::hardware::camera::device::StreamType;
using ::aidl::android::hardware::common::NativeHandle;
using ::aidl::android::hardware::graphics::common::BufferUsage;
using ::aidl::android::hardware::graphics::common::Dataspace;
using ::aidl::android::hardware::graphics::common::PixelFormat;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineClientCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineBufferRequest;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureRequest;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureResult;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineInputFrame;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineSessionConfiguration;

constexpr std::chrono::seconds kResultTimeout(10);
// camera common Status::ILLEGAL_ARGUMENT, as the service reports refused arguments.
constexpr int32_t kIllegalArgument = 1;
// A consumer id that no client of a device is expected to use.
constexpr int32_t kConsumerId = 0x5654;
constexpr uint32_t kWidth = 320;
constexpr uint32_t kHeight = 240;
constexpr int32_t kInputStream = 0;
constexpr int32_t kOutputStream = 1;

// Full instance names ("<descriptor>/<instance>") of the declared instances of the service.
std::vector<std::string> DeclaredInstances() {
    std::vector<std::string> instances;
    AServiceManager_forEachDeclaredInstance(
            IOfflineCameraService::descriptor, &instances, [](const char* instance, void* context) {
                static_cast<std::vector<std::string>*>(context)->push_back(
                        std::string(IOfflineCameraService::descriptor) + "/" + instance);
            });
    return instances;
}

// Camera metadata serialised as a parcel carries it.
CameraMetadata Pack(camera_metadata_t* metadata) {
    CameraMetadata packed;
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(metadata);
    packed.metadata.assign(bytes, bytes + get_camera_metadata_size(metadata));
    free_camera_metadata(metadata);
    return packed;
}

// Whether the bytes hold well-formed camera metadata; its entry count in *entries.
bool ValidMetadata(const CameraMetadata& packed, size_t* entries) {
    camera_metadata_t* copy = allocate_copy_camera_metadata_checked(
            reinterpret_cast<const camera_metadata_t*>(packed.metadata.data()),
            packed.metadata.size());
    if (copy == nullptr) return false;
    *entries = get_camera_metadata_entry_count(copy);
    free_camera_metadata(copy);
    return true;
}

// A graphics buffer of the client's own, lent to the service in requests.
class ClientBuffer {
  public:
    ClientBuffer(uint32_t width, uint32_t height) {
        AHardwareBuffer_Desc desc = {};
        desc.width = width;
        desc.height = height;
        desc.layers = 1;
        desc.format = AHARDWAREBUFFER_FORMAT_Y8Cb8Cr8_420;
        desc.usage = AHARDWAREBUFFER_USAGE_CPU_READ_OFTEN | AHARDWAREBUFFER_USAGE_CPU_WRITE_OFTEN;
        if (AHardwareBuffer_allocate(&desc, &mBuffer) != 0) mBuffer = nullptr;
    }
    ~ClientBuffer() {
        if (mBuffer != nullptr) AHardwareBuffer_release(mBuffer);
    }
    ClientBuffer(const ClientBuffer&) = delete;
    ClientBuffer& operator=(const ClientBuffer&) = delete;

    bool valid() const { return mBuffer != nullptr; }

    // The buffer as a request carries it: duplicates of the handle's descriptors.
    StreamBuffer ToStreamBuffer(int32_t streamId, int64_t bufferId) const {
        StreamBuffer buffer;
        buffer.streamId = streamId;
        buffer.bufferId = bufferId;
        buffer.status = BufferStatus::OK;
        const native_handle_t* handle = AHardwareBuffer_getNativeHandle(mBuffer);
        for (int i = 0; i < handle->numFds; i++) {
            buffer.buffer.fds.emplace_back(dup(handle->data[i]));
        }
        buffer.buffer.ints.assign(handle->data + handle->numFds,
                                  handle->data + handle->numFds + handle->numInts);
        return buffer;
    }

  private:
    AHardwareBuffer* mBuffer = nullptr;
};

// What reached a session client's callback.
class SessionCallback : public BnOfflineCameraSessionCallback {
  public:
    struct Result {
        int32_t frameNumber;
        std::vector<std::pair<int64_t, BufferStatus>> outputBuffers;  // id and status
        bool metadataValid;
    };

    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& msgs) override {
        std::lock_guard<std::mutex> lock(mLock);
        for (const NotifyMsg& msg : msgs) {
            if (msg.getTag() == NotifyMsg::Tag::shutter) {
                mShutters.push_back(msg.get<NotifyMsg::Tag::shutter>().frameNumber);
            } else {
                mErrors++;
            }
        }
        mChanged.notify_all();
        return ::ndk::ScopedAStatus::ok();
    }

    ::ndk::ScopedAStatus processCaptureResult(const std::vector<CaptureResult>& results) override {
        std::lock_guard<std::mutex> lock(mLock);
        for (const CaptureResult& result : results) {
            Result received{result.frameNumber, {}, true};
            size_t entries = 0;
            if (!result.result.metadata.empty()) {
                received.metadataValid = ValidMetadata(result.result, &entries);
            }
            for (const StreamBuffer& buffer : result.outputBuffers) {
                received.outputBuffers.emplace_back(buffer.bufferId, buffer.status);
            }
            mResults.push_back(received);
        }
        mChanged.notify_all();
        return ::ndk::ScopedAStatus::ok();
    }

    // Waits until a shutter and a result carrying an output buffer have come for frameNumber.
    bool WaitForFrame(int32_t frameNumber, Result* result) {
        std::unique_lock<std::mutex> lock(mLock);
        return mChanged.wait_for(lock, kResultTimeout, [&] {
            auto withBuffers = std::find_if(mResults.begin(), mResults.end(), [&](const Result& r) {
                return r.frameNumber == frameNumber && !r.outputBuffers.empty();
            });
            if (withBuffers == mResults.end()) return false;
            *result = *withBuffers;
            return std::count(mShutters.begin(), mShutters.end(), frameNumber) != 0;
        });
    }

    size_t Errors() {
        std::lock_guard<std::mutex> lock(mLock);
        return mErrors;
    }

  private:
    std::mutex mLock;
    std::condition_variable mChanged;
    std::vector<Result> mResults;
    std::vector<int32_t> mShutters;
    size_t mErrors = 0;
};

// A buffer consumer that lends nothing.
class ConsumerCallback : public BnOfflineClientCallback {
  public:
    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>&) override {
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus processCaptureResult(const std::vector<OfflineCaptureResult>&) override {
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus requestStreamBuffers(const std::vector<OfflineBufferRequest>& requests,
                                              std::vector<StreamBufferRet>* buffers,
                                              BufferRequestStatus* status) override {
        buffers->resize(requests.size());
        *status = BufferRequestStatus::FAILED_UNKNOWN;
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus returnStreamBuffers(const std::vector<StreamBuffer>&) override {
        return ::ndk::ScopedAStatus::ok();
    }
};

Stream OfflineStream(int32_t id, StreamType type) {
    Stream stream;
    stream.id = id;
    stream.streamType = type;
    stream.width = kWidth;
    stream.height = kHeight;
    stream.format = PixelFormat::YCBCR_420_888;
    stream.usage = static_cast<BufferUsage>(static_cast<int64_t>(BufferUsage::CPU_READ_OFTEN) |
                                            static_cast<int64_t>(BufferUsage::CPU_WRITE_OFTEN));
    stream.dataSpace = Dataspace::UNKNOWN;
    stream.rotation = StreamRotation::ROTATION_0;
    return stream;
}

CameraMetadata CaptureSettings() {
    camera_metadata_t* settings = allocate_camera_metadata(2, 16);
    const int64_t exposureNs = 10000000;
    const int32_t sensitivity = 100;
    add_camera_metadata_entry(settings, ANDROID_SENSOR_EXPOSURE_TIME, &exposureNs, 1);
    add_camera_metadata_entry(settings, ANDROID_SENSOR_SENSITIVITY, &sensitivity, 1);
    return Pack(settings);
}

void ExpectServiceSpecific(int32_t error, const ::ndk::ScopedAStatus& status) {
    EXPECT_EQ(EX_SERVICE_SPECIFIC, status.getExceptionCode()) << status.getDescription();
    EXPECT_EQ(error, status.getServiceSpecificError()) << status.getDescription();
}

class OfflineCameraServiceTest : public ::testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        ASSERT_TRUE(AServiceManager_isDeclared(GetParam().c_str()));
        mService = IOfflineCameraService::fromBinder(
                ::ndk::SpAIBinder(AServiceManager_waitForService(GetParam().c_str())));
        ASSERT_NE(nullptr, mService) << GetParam();
    }

    std::shared_ptr<IOfflineCameraService> mService;
};

TEST_P(OfflineCameraServiceTest, ServesTheFrozenInterface) {
    int32_t version = 0;
    std::string hash;
    ASSERT_TRUE(mService->getInterfaceVersion(&version).isOk());
    ASSERT_TRUE(mService->getInterfaceHash(&hash).isOk());
    // A newer service serves this test's clients too; the version this test was built with
    // must be served with its frozen hash.
    EXPECT_GE(version, IOfflineCameraService::version);
    if (version == IOfflineCameraService::version) {
        EXPECT_EQ(IOfflineCameraService::hash, hash);
    }
    EXPECT_EQ(40u, hash.size()) << hash;
    EXPECT_TRUE(mService->isRemote());
}

TEST_P(OfflineCameraServiceTest, ListsDistinctOperationModes) {
    std::vector<int32_t> modes;
    ASSERT_TRUE(mService->getSupportedOpModes(&modes).isOk());
    EXPECT_FALSE(modes.empty());
    EXPECT_EQ(modes.size(), std::set<int32_t>(modes.begin(), modes.end()).size());
    EXPECT_TRUE(std::all_of(modes.begin(), modes.end(), [](int32_t mode) { return mode >= 0; }));
    std::vector<int32_t> again;
    ASSERT_TRUE(mService->getSupportedOpModes(&again).isOk());
    EXPECT_EQ(modes, again);
}

TEST_P(OfflineCameraServiceTest, HandsOutValidStaticCapabilities) {
    CameraMetadata caps;
    ASSERT_TRUE(mService->getOfflineStaticCaps(&caps).isOk());
    size_t entries = 0;
    ASSERT_TRUE(ValidMetadata(caps, &entries)) << caps.metadata.size() << " bytes";
    EXPECT_GT(entries, 0u);
}

TEST_P(OfflineCameraServiceTest, SessionProcessesARequestAndCloses) {
    std::shared_ptr<SessionCallback> callback = ::ndk::SharedRefBase::make<SessionCallback>();
    std::shared_ptr<IOfflineCameraSession> session;
    ExpectServiceSpecific(kIllegalArgument,
                          mService->openOfflineSeesion("vts-offline", nullptr, &session));
    ASSERT_TRUE(mService->openOfflineSeesion("vts-offline", callback, &session).isOk());
    ASSERT_NE(nullptr, session);

    OfflineSessionConfiguration config;
    config.cameraId = "0";
    config.streams.push_back(OfflineStream(kInputStream, StreamType::INPUT));
    config.streams.push_back(OfflineStream(kOutputStream, StreamType::OUTPUT));
    config.operationMode = StreamConfigurationMode::NORMAL_MODE;
    ASSERT_TRUE(session->configureOfflineSession(config).isOk());

    ClientBuffer input(kWidth, kHeight);
    ClientBuffer output(kWidth, kHeight);
    ASSERT_TRUE(input.valid() && output.valid());
    std::vector<OfflineCaptureRequest> requests(1);
    requests[0].frameNumber = 1;
    requests[0].inputFrames.resize(1);
    requests[0].inputFrames[0].inputBuffers.push_back(input.ToStreamBuffer(kInputStream, 1));
    requests[0].inputFrames[0].settings = CaptureSettings();
    requests[0].outputBuffers.push_back(output.ToStreamBuffer(kOutputStream, 2));
    int32_t frameNumber = -1;
    ASSERT_TRUE(session->processOfflineRequest(requests, &frameNumber).isOk());

    SessionCallback::Result result{};
    EXPECT_TRUE(callback->WaitForFrame(frameNumber, &result))
            << "no shutter and result of frame " << frameNumber;
    EXPECT_EQ((std::vector<std::pair<int64_t, BufferStatus>>{{2, BufferStatus::OK}}),
              result.outputBuffers);
    EXPECT_TRUE(result.metadataValid);
    EXPECT_EQ(0u, callback->Errors());
    EXPECT_TRUE(session->closeOfflineSession().isOk());
}

TEST_P(OfflineCameraServiceTest, RegistersAndUnregistersAConsumer) {
    std::shared_ptr<ConsumerCallback> callback = ::ndk::SharedRefBase::make<ConsumerCallback>();
    ExpectServiceSpecific(kIllegalArgument, mService->registerClient(kConsumerId, nullptr));
    ExpectServiceSpecific(kIllegalArgument, mService->unRegisterClient(kConsumerId));
    for (int round = 0; round < 2; round++) {
        ASSERT_TRUE(mService->registerClient(kConsumerId, callback).isOk());
        ExpectServiceSpecific(kIllegalArgument, mService->registerClient(kConsumerId, callback));
        ASSERT_TRUE(mService->unRegisterClient(kConsumerId).isOk());
        ExpectServiceSpecific(kIllegalArgument, mService->unRegisterClient(kConsumerId));
    }
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(OfflineCameraServiceTest);
INSTANTIATE_TEST_SUITE_P(PerInstance, OfflineCameraServiceTest,
                         ::testing::ValuesIn(DeclaredInstances()),
                         [](const ::testing::TestParamInfo<std::string>& info) {
                             std::string name = info.param.substr(info.param.rfind('/') + 1);
                             std::replace_if(
                                     name.begin(), name.end(),
                                     [](char c) { return !isalnum(static_cast<unsigned char>(c)); },
                                     '_');
                             return name;
                         });

}  // namespace

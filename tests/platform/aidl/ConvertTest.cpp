/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Converters of the camera device implementation (convert.h).
 */
#include <android/log.h>
#include <convert.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "PlatformTestSupport.h"

namespace {

using namespace ::android::hardware::camera::device::implementation;
using ::aidl::android::hardware::camera::device::ErrorCode;
using ::aidl::android::hardware::camera::device::StreamRotation;
using ::aidl::android::hardware::camera::device::StreamType;
using ::aidl::android::hardware::graphics::common::BufferUsage;
using ::aidl::android::hardware::graphics::common::Dataspace;
using ::aidl::android::hardware::graphics::common::PixelFormat;
using ::offlinecamera::test::LogCapture;
using ::offlinecamera::test::LogLine;

constexpr char kTag[] = "android.hardware.camera.device-convert-impl";

class ConvertTest : public platformtest::FdBalancedTest {
  protected:
    void SetUp() override {
        FdBalancedTest::SetUp();
        LogCapture::Start();
    }

    static bool SameFile(int a, int b) {
        struct stat sa, sb;
        return fstat(a, &sa) == 0 && fstat(b, &sb) == 0 && sa.st_dev == sb.st_dev &&
               sa.st_ino == sb.st_ino;
    }
};

// A metadata buffer with one int64 entry, whose payload lives in the data area.
camera_metadata_t* MakeMetadata(int64_t exposure) {
    camera_metadata_t* metadata = allocate_camera_metadata(2, 16);
    if (metadata != nullptr) {
        add_camera_metadata_entry(metadata, ANDROID_SENSOR_EXPOSURE_TIME, &exposure, 1);
    }
    return metadata;
}

TEST_F(ConvertTest, MetadataRoundTripViewsTheBytesInPlace) {
    camera_metadata_t* original = MakeMetadata(33000);
    ASSERT_NE(original, nullptr);
    CameraMetadata aidl;
    convertToAidl(original, &aidl);
    ASSERT_EQ(aidl.metadata.size(), get_camera_metadata_size(original));
    EXPECT_EQ(memcmp(aidl.metadata.data(), original, aidl.metadata.size()), 0);
    free_camera_metadata(original);

    const camera_metadata_t* view = nullptr;
    ASSERT_TRUE(convertFromAidl(aidl, &view));
    EXPECT_EQ(reinterpret_cast<const uint8_t*>(view), aidl.metadata.data());
    camera_metadata_ro_entry_t entry;
    ASSERT_EQ(find_camera_metadata_ro_entry(view, ANDROID_SENSOR_EXPOSURE_TIME, &entry), 0);
    EXPECT_EQ(entry.data.i64[0], 33000);

    // Null metadata leaves the bytes alone; no bytes view as null.
    convertToAidl(nullptr, &aidl);
    EXPECT_EQ(aidl.metadata.size(), get_camera_metadata_size(view));
    aidl.metadata.clear();
    EXPECT_TRUE(convertFromAidl(aidl, &view));
    EXPECT_EQ(view, nullptr);
}

TEST_F(ConvertTest, CorruptMetadataIsRefused) {
    CameraMetadata good;
    camera_metadata_t* original = MakeMetadata(1);
    convertToAidl(original, &good);
    free_camera_metadata(original);
    ASSERT_FALSE(good.metadata.empty());

    CameraMetadata longer = good;  // size field no longer matches the byte count
    longer.metadata.push_back(0);
    CameraMetadata shorter;  // too short to hold a header
    shorter.metadata.assign(good.metadata.begin(), good.metadata.begin() + 8);
    CameraMetadata inconsistent = good;  // entry count above the entry capacity
    const uint32_t entryCount = 3;
    memcpy(inconsistent.metadata.data() + 12, &entryCount, sizeof(entryCount));

    for (const CameraMetadata* bad : {&longer, &shorter, &inconsistent}) {
        LogCapture::Clear();
        const camera_metadata_t* view = nullptr;
        EXPECT_FALSE(convertFromAidl(*bad, &view));
        EXPECT_EQ(view, nullptr);
        EXPECT_TRUE(LogCapture::Contains(LogLine{
                ANDROID_LOG_ERROR, kTag, "convertFromAidl: input CameraMetadata is corrupt!"}))
                << LogCapture::Dump();
    }
}

TEST_F(ConvertTest, NativeHandlesAreDuplicatedBothWays) {
    int pipeFds[2];
    ASSERT_EQ(pipe(pipeFds), 0);
    NativeHandle aidl;
    aidl.fds.emplace_back(pipeFds[0]);
    aidl.fds.emplace_back(pipeFds[1]);
    aidl.ints = {10, 20, 30};

    native_handle_t* handle = convertFromAidl(aidl);
    ASSERT_NE(handle, nullptr);
    ASSERT_EQ(handle->numFds, 2);
    ASSERT_EQ(handle->numInts, 3);
    for (int i = 0; i < 2; i++) {
        EXPECT_NE(handle->data[i], aidl.fds[i].get());
        EXPECT_TRUE(SameFile(handle->data[i], aidl.fds[i].get()));
    }
    EXPECT_EQ(std::vector<int>(handle->data + 2, handle->data + 5), aidl.ints);
    native_handle_close(handle);
    native_handle_delete(handle);

    EXPECT_EQ(convertFromAidl(NativeHandle()), nullptr);
    NativeHandle intsOnly;
    intsOnly.ints = {1};
    handle = convertFromAidl(intsOnly);
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(handle->numFds, 0);
    EXPECT_EQ(handle->data[0], 1);
    native_handle_delete(handle);

    // A failed duplication closes the ones made before it (checked by TearDown).
    const int notOpen = 1000;
    ASSERT_EQ(fcntl(notOpen, F_GETFD), -1);
    aidl.fds.emplace_back(notOpen);
    EXPECT_EQ(convertFromAidl(aidl), nullptr);
    (void)aidl.fds[2].release();

    // The other way the record owns duplicates and leaves the handle's descriptors open.
    EXPECT_TRUE(convertToAidl(static_cast<const native_handle_t*>(nullptr)).fds.empty());

    handle = native_handle_create(1, 2);
    ASSERT_NE(handle, nullptr);
    handle->data[0] = open("/dev/null", O_RDONLY | O_CLOEXEC);
    handle->data[1] = 7;
    handle->data[2] = 8;
    {
        NativeHandle owned = convertToAidl(handle);
        ASSERT_EQ(owned.fds.size(), 1u);
        EXPECT_NE(owned.fds[0].get(), handle->data[0]);
        EXPECT_TRUE(SameFile(owned.fds[0].get(), handle->data[0]));
        EXPECT_EQ(owned.ints, std::vector<int32_t>({7, 8}));
    }
    native_handle_close(handle);
    native_handle_delete(handle);
}

TEST_F(ConvertTest, StreamAndStreamBufferFillHalAndVendorFields) {
    using ::aidl::android::hardware::camera::metadata::RequestAvailableDynamicRangeProfilesMap;
    using ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases;
    Stream stream;
    stream.id = 11;
    stream.streamType = StreamType::INPUT;
    stream.width = 4000;
    stream.format = PixelFormat::YCBCR_420_888;
    // Camera input usage plus a bit above the 32 that the HAL record keeps.
    stream.usage = static_cast<BufferUsage>(int64_t{1} << 32 | int64_t{1} << 18);
    stream.dataSpace = Dataspace::JFIF;
    stream.rotation = StreamRotation::ROTATION_270;
    stream.physicalCameraId = "phys-2";
    stream.bufferSize = 123456;
    stream.dynamicRangeProfile = static_cast<RequestAvailableDynamicRangeProfilesMap>(0x8);
    stream.useCase = static_cast<ScalerAvailableStreamUseCases>(0x10001);
    stream.colorSpace = 5;

    Camera3Stream hal;
    memset(&hal, 0xa5, sizeof(hal));
    convertFromAidl(stream, &hal);
    EXPECT_EQ(hal.mId, 11);
    EXPECT_EQ(hal.stream_type, CAMERA3_STREAM_INPUT);
    EXPECT_EQ(hal.width, 4000u);
    EXPECT_EQ(hal.format, HAL_PIXEL_FORMAT_YCBCR_420_888);
    EXPECT_EQ(hal.usage, 1u << 18);
    EXPECT_EQ(hal.data_space, HAL_DATASPACE_V0_JFIF);
    EXPECT_EQ(hal.rotation, CAMERA3_STREAM_ROTATION_270);
    EXPECT_EQ(hal.priv, nullptr);
    EXPECT_EQ(hal.physical_camera_id, nullptr);
    EXPECT_EQ(hal.dynamic_range_profile, 0x8);
    EXPECT_EQ(hal.color_space, 5);
    EXPECT_EQ(hal.use_case, 0x10001);
    EXPECT_EQ(hal.vendor_stream_tag, stream.physicalCameraId.c_str());
    EXPECT_EQ(hal.vendor_stream_hint, 123456);

    buffer_handle_t buffer = nullptr;
    camera3_stream_buffer_t halBuffer;
    memset(&halBuffer, 0xa5, sizeof(halBuffer));
    convertFromAidl(&buffer, BufferStatus::ERROR, &hal, 9, &halBuffer);
    EXPECT_EQ(halBuffer.stream, &hal);
    EXPECT_EQ(halBuffer.buffer, &buffer);
    EXPECT_EQ(halBuffer.status, CAMERA3_BUFFER_STATUS_ERROR);
    EXPECT_EQ(halBuffer.acquire_fence, 9);
    EXPECT_EQ(halBuffer.release_fence, -1);
    EXPECT_EQ(halBuffer.vendor_reserved, 0u);
    EXPECT_EQ(halBuffer.vendor_priv, nullptr);
}

TEST_F(ConvertTest, NotifyMessages) {
    Camera3Stream stream{};
    stream.mId = 42;
    camera3_notify_msg_t hal{};
    hal.type = CAMERA3_MSG_ERROR;
    hal.message.error = {7, &stream, CAMERA3_MSG_ERROR_BUFFER};
    NotifyMsg msg;
    convertToAidl(&hal, &msg);
    ASSERT_EQ(msg.getTag(), NotifyMsg::error);
    EXPECT_EQ(msg.get<NotifyMsg::error>().frameNumber, 7);
    EXPECT_EQ(msg.get<NotifyMsg::error>().errorStreamId, 42);
    EXPECT_EQ(msg.get<NotifyMsg::error>().errorCode, ErrorCode::ERROR_BUFFER);

    hal.message.error = {8, nullptr, CAMERA3_MSG_ERROR_DEVICE};
    convertToAidl(&hal, &msg);
    EXPECT_EQ(msg.get<NotifyMsg::error>().errorStreamId, -1);
    EXPECT_EQ(msg.get<NotifyMsg::error>().errorCode, ErrorCode::ERROR_DEVICE);

    hal = {};
    hal.type = CAMERA3_MSG_SHUTTER;
    hal.message.shutter = {9, 1234567890123ull};
    convertToAidl(&hal, &msg);
    ASSERT_EQ(msg.getTag(), NotifyMsg::shutter);
    EXPECT_EQ(msg.get<NotifyMsg::shutter>().frameNumber, 9);
    EXPECT_EQ(msg.get<NotifyMsg::shutter>().timestamp, 1234567890123);
    EXPECT_EQ(msg.get<NotifyMsg::shutter>().readoutTimestamp, 0);

    hal.type = 0x17;
    const NotifyMsg before = msg;
    convertToAidl(&hal, &msg);
    EXPECT_EQ(msg, before);
    EXPECT_TRUE(LogCapture::Contains(
            LogLine{ANDROID_LOG_ERROR, kTag,
                    "convertToAidl: HIDL type converion failed. Unknown msg type 0x17"}))
            << LogCapture::Dump();
}

TEST_F(ConvertTest, ScopedAStatusCarriesTheStatusName) {
    EXPECT_TRUE(convertToScopedAStatus(Status::OK).isOk());
    ::ndk::ScopedAStatus status = convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    EXPECT_EQ(status.getExceptionCode(), EX_SERVICE_SPECIFIC);
    EXPECT_EQ(status.getServiceSpecificError(), 1);
    EXPECT_STREQ(status.getMessage(), "ILLEGAL_ARGUMENT");
    EXPECT_EQ(convertToScopedAStatus(Status::INTERNAL_ERROR).getDescription(),
              "Status(-8, EX_SERVICE_SPECIFIC): '6: INTERNAL_ERROR'");
}

}  // namespace

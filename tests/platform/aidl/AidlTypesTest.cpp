/*
 * Generated camera device types: union access, defaults and text forms.
 */
#include <aidl/android/hardware/camera/common/Status.h>
#include <aidl/android/hardware/camera/device/NotifyMsg.h>
#include <aidl/android/hardware/camera/device/Stream.h>
#include <aidl/android/hardware/camera/device/StreamBufferRet.h>
#include <aidl/android/hardware/camera/device/StreamBuffersVal.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using ::aidl::android::hardware::camera::common::Status;
using ::aidl::android::hardware::camera::device::ErrorCode;
using ::aidl::android::hardware::camera::device::ErrorMsg;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::android::hardware::camera::device::ShutterMsg;
using ::aidl::android::hardware::camera::device::Stream;
using ::aidl::android::hardware::camera::device::StreamBuffer;
using ::aidl::android::hardware::camera::device::StreamBufferRequestError;
using ::aidl::android::hardware::camera::device::StreamBufferRet;
using ::aidl::android::hardware::camera::device::StreamBuffersVal;
using ::aidl::android::hardware::camera::device::StreamType;

TEST(AidlUnionTest, DefaultsToFirstFieldWithItsDefault) {
    StreamBuffersVal val;
    ASSERT_EQ(val.getTag(), StreamBuffersVal::error);
    EXPECT_EQ(val.get<StreamBuffersVal::error>(), StreamBufferRequestError::UNKNOWN_ERROR);

    NotifyMsg msg;
    ASSERT_EQ(msg.getTag(), NotifyMsg::error);
    EXPECT_EQ(msg.get<NotifyMsg::error>(), ErrorMsg());
}

TEST(AidlUnionTest, SetMakeAndConstructSelectTheAlternative) {
    StreamBuffersVal val;
    std::vector<StreamBuffer> buffers(2);
    buffers[1].bufferId = 7;
    int fds[2];
    ASSERT_EQ(pipe(fds), 0);
    buffers[1].buffer.fds.emplace_back(fds[0]);
    val.set<StreamBuffersVal::buffers>(std::move(buffers));
    ASSERT_EQ(val.getTag(), StreamBuffersVal::buffers);
    ASSERT_EQ(val.get<StreamBuffersVal::buffers>().size(), 2u);
    EXPECT_EQ(val.get<StreamBuffersVal::buffers>()[1].bufferId, 7);
    EXPECT_EQ(val.get<StreamBuffersVal::buffers>()[1].buffer.fds[0].get(), fds[0]);
    close(fds[1]);

    StreamBufferRet ret;
    ret.val = std::move(val);
    EXPECT_EQ(ret.val.getTag(), StreamBuffersVal::buffers);

    ShutterMsg shutter;
    shutter.readoutTimestamp = 6;
    NotifyMsg made = NotifyMsg::make<NotifyMsg::shutter>(shutter);
    NotifyMsg constructed(shutter);
    EXPECT_EQ(made, constructed);
    EXPECT_EQ(made.get<NotifyMsg::shutter>().readoutTimestamp, 6);
    EXPECT_NE(made, NotifyMsg());
}

using AidlUnionDeathTest = ::testing::Test;

TEST_F(AidlUnionDeathTest, WrongTagStopsTheProcess) {
    StreamBuffersVal val;
    EXPECT_DEATH((void)val.get<StreamBuffersVal::buffers>(),
                 "StreamBuffersVal\\.h:[0-9]+: .*get.*: assertion \"bad access: a wrong tag\" "
                 "failed");
    const NotifyMsg msg = ShutterMsg();
    EXPECT_DEATH((void)msg.get<NotifyMsg::error>(),
                 "NotifyMsg\\.h:[0-9]+: .*: assertion \"bad access: a wrong tag\" failed");
}

TEST(AidlTypesTest, ParcelableDefaultsAndText) {
    Stream stream;
    EXPECT_EQ(stream.streamType, StreamType(0));
    EXPECT_EQ(stream.id, 0);
    stream.id = 2;
    stream.physicalCameraId = "5";
    EXPECT_EQ(stream.toString().rfind("Stream{id: 2, streamType: OUTPUT, ", 0), 0u)
            << stream.toString();
    EXPECT_NE(stream.toString().find("physicalCameraId: 5, "), std::string::npos);

    ErrorMsg error;
    error.frameNumber = 1;
    error.errorStreamId = -1;
    error.errorCode = ErrorCode::ERROR_BUFFER;
    NotifyMsg msg = error;
    EXPECT_EQ(msg.toString(),
              "NotifyMsg{error: ErrorMsg{frameNumber: 1, errorStreamId: -1, errorCode: "
              "ERROR_BUFFER}}");
}

TEST(AidlTypesTest, EnumText) {
    EXPECT_EQ(toString(Status::INTERNAL_ERROR), "INTERNAL_ERROR");
    EXPECT_EQ(toString(static_cast<Status>(42)), "42");
    EXPECT_EQ(toString(StreamBufferRequestError::NO_BUFFER_AVAILABLE), "NO_BUFFER_AVAILABLE");
}

}  // namespace

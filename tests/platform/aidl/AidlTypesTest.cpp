/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Generated camera device types: union access, defaults and text forms.
 */
#include <aidl/android/hardware/camera/common/Status.h>
#include <aidl/android/hardware/camera/device/NotifyMsg.h>
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
using ::aidl::android::hardware::camera::device::StreamBuffer;
using ::aidl::android::hardware::camera::device::StreamBufferRequestError;
using ::aidl::android::hardware::camera::device::StreamBufferRet;
using ::aidl::android::hardware::camera::device::StreamBuffersVal;

TEST(AidlUnionTest, DefaultIsTheFirstFieldAndSetSelectsTheAlternative) {
    StreamBuffersVal val;
    ASSERT_EQ(val.getTag(), StreamBuffersVal::error);
    EXPECT_EQ(val.get<StreamBuffersVal::error>(), StreamBufferRequestError::UNKNOWN_ERROR);
    EXPECT_EQ(NotifyMsg().getTag(), NotifyMsg::error);

    std::vector<StreamBuffer> buffers(2);
    buffers[1].bufferId = 7;
    int fds[2];
    ASSERT_EQ(pipe(fds), 0);
    buffers[1].buffer.fds.emplace_back(fds[0]);
    val.set<StreamBuffersVal::buffers>(std::move(buffers));
    StreamBufferRet ret;
    ret.val = std::move(val);
    ASSERT_EQ(ret.val.getTag(), StreamBuffersVal::buffers);
    ASSERT_EQ(ret.val.get<StreamBuffersVal::buffers>().size(), 2u);
    EXPECT_EQ(ret.val.get<StreamBuffersVal::buffers>()[1].bufferId, 7);
    EXPECT_EQ(ret.val.get<StreamBuffersVal::buffers>()[1].buffer.fds[0].get(), fds[0]);
    close(fds[1]);

    ShutterMsg shutter;
    shutter.readoutTimestamp = 6;
    NotifyMsg made = NotifyMsg::make<NotifyMsg::shutter>(shutter);
    EXPECT_EQ(made, NotifyMsg(shutter));
    EXPECT_EQ(made.get<NotifyMsg::shutter>().readoutTimestamp, 6);
    EXPECT_NE(made, NotifyMsg());
}

using AidlUnionDeathTest = ::testing::Test;

TEST_F(AidlUnionDeathTest, WrongTagStopsTheProcess) {
    const NotifyMsg msg = ShutterMsg();
    EXPECT_DEATH((void)msg.get<NotifyMsg::error>(),
                 "NotifyMsg\\.h:[0-9]+: .*: assertion \"bad access: a wrong tag\" failed");
}

TEST(AidlTypesTest, TextForms) {
    ErrorMsg error;
    error.frameNumber = 1;
    error.errorStreamId = -1;
    error.errorCode = ErrorCode::ERROR_BUFFER;
    EXPECT_EQ(NotifyMsg(error).toString(),
              "NotifyMsg{error: ErrorMsg{frameNumber: 1, errorStreamId: -1, errorCode: "
              "ERROR_BUFFER}}");
    EXPECT_EQ(toString(static_cast<Status>(42)), "42");
}

}  // namespace

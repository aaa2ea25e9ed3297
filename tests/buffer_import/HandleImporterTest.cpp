/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * HandleImporter over the host GraphicBufferMapper: imports, fences, locks and their failures.
 */
#include <fcntl.h>
#include <gtest/gtest.h>
#include <hostplatform/GrallocTesting.h>
#include <sys/stat.h>
#include <unistd.h>

#include "HandleImporter.h"
#include "LogCapture.h"
#include "ResourceBalance.h"

namespace offlinecamera::test {
namespace {

using android::hardware::camera::common::V1_0::helper::HandleImporter;
namespace gralloc = android::hostgralloc;
using gralloc::Op;

constexpr const char* kTag = "HandleImporter";

LogLine ImporterError(const std::string& text) {
    return {ANDROID_LOG_ERROR, kTag, text};
}

class HandleImporterTest : public BalancedTest {
  protected:
    void SetUp() override {
        BalancedTest::SetUp();
        gralloc::resetCounters();
    }
    void TearDown() override {
        gralloc::clearFailures();
        gralloc::setUnlockFence(false);
        BalancedTest::TearDown();
    }

    HandleImporter mImporter;
};

bool SameFile(int a, int b) {
    struct stat sa {};
    struct stat sb {};
    return fstat(a, &sa) == 0 && fstat(b, &sb) == 0 && sa.st_dev == sb.st_dev &&
           sa.st_ino == sb.st_ino;
}

TEST_F(HandleImporterTest, ImportGivesALocalCopyThatFreeReleases) {
    native_handle_t* sent = gralloc::allocate(64, 1, HAL_PIXEL_FORMAT_BLOB, 0);
    ASSERT_NE(sent, nullptr);
    buffer_handle_t handle = sent;
    ASSERT_TRUE(mImporter.importBuffer(handle));
    ASSERT_NE(handle, sent);
    EXPECT_EQ(gralloc::liveImportCount(), 1u);
    EXPECT_NE(handle->data[0], sent->data[0]);
    EXPECT_TRUE(SameFile(handle->data[0], sent->data[0]));
    // The sender's handle stays the sender's.
    gralloc::release(sent);

    mImporter.freeBuffer(handle);
    EXPECT_EQ(gralloc::liveImportCount(), 0u);
    EXPECT_TRUE(LogCapture::Lines(kTag).empty());
}

TEST_F(HandleImporterTest, EmptyHandleBecomesNullWithoutTheMapper) {
    native_handle_t* empty = native_handle_create(0, 0);
    buffer_handle_t handle = empty;
    EXPECT_TRUE(mImporter.importBuffer(handle));
    EXPECT_EQ(handle, nullptr);
    EXPECT_EQ(gralloc::callCount(Op::Import), 0u);
    native_handle_delete(empty);

    mImporter.freeBuffer(nullptr);
    EXPECT_EQ(gralloc::callCount(Op::Free), 0u);
}

TEST_F(HandleImporterTest, MapperFailuresAreLoggedAndLeaveTheHandle) {
    native_handle_t* sent = gralloc::allocate(16, 16, HAL_PIXEL_FORMAT_YCBCR_420_888, 0);
    buffer_handle_t handle = sent;

    gralloc::failNext(Op::Import, android::NO_MEMORY);
    EXPECT_FALSE(mImporter.importBuffer(handle));
    EXPECT_EQ(handle, sent);
    gralloc::failNext(Op::Import, android::BAD_VALUE);
    EXPECT_FALSE(mImporter.importBufferInternal(handle));
    EXPECT_EQ(handle, sent);

    ASSERT_TRUE(mImporter.importBuffer(handle));
    gralloc::failNext(Op::Lock, android::BAD_VALUE);
    EXPECT_EQ(mImporter.lock(handle, 0, android::Rect(16, 16)), nullptr);
    gralloc::failNext(Op::LockYCbCr, android::BAD_VALUE);
    const android_ycbcr layout = mImporter.lockYCbCr(handle, 0, android::Rect(16, 16));
    EXPECT_EQ(layout.y, nullptr);
    EXPECT_EQ(layout.cb, nullptr);
    EXPECT_EQ(layout.ystride, 0u);
    gralloc::failNext(Op::Free, android::BAD_VALUE);
    mImporter.freeBuffer(handle);  // the injected failure keeps the import alive
    EXPECT_EQ(gralloc::liveImportCount(), 1u);
    mImporter.freeBuffer(handle);
    gralloc::release(sent);

    EXPECT_EQ(LogCapture::Lines(kTag),
              (std::vector<LogLine>{
                      ImporterError(Format("importBufferInternal: mapper importBuffer failed: %d",
                                           android::NO_MEMORY)),
                      ImporterError(Format("importBufferInternal: mapper importBuffer failed: %d",
                                           android::BAD_VALUE)),
                      ImporterError(
                              Format("lock: mapper lock failed, status: %d", android::BAD_VALUE)),
                      ImporterError(Format("lockYCbCr: mapper lockYCbCr failed, status: %d",
                                           android::BAD_VALUE)),
                      ImporterError(Format("freeBuffer: mapper freeBuffer failed, status: %d",
                                           android::BAD_VALUE)),
              }))
            << LogCapture::Dump();
}

TEST_F(HandleImporterTest, LocksMapThePixels) {
    native_handle_t* sent = gralloc::allocate(4096, 1, HAL_PIXEL_FORMAT_BLOB, 0);
    buffer_handle_t handle = sent;
    ASSERT_TRUE(mImporter.importBuffer(handle));

    // Usage reaches the mapper as its low 32 bits.
    auto* bytes = static_cast<uint8_t*>(mImporter.lock(handle, 0x1'0000'0033ull, 4096));
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(gralloc::lastLockRect(), android::Rect(0, 0, 4096, 1));
    EXPECT_EQ(gralloc::lastLockUsage(), 0x33u);
    bytes[4095] = 0x5a;
    EXPECT_EQ(mImporter.unlock(handle), -1);

    // The sender sees what was written through the imported copy.
    buffer_handle_t again = sent;
    ASSERT_TRUE(mImporter.importBuffer(again));
    auto* view = static_cast<uint8_t*>(mImporter.lock(again, 0x3, 4096));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view[4095], 0x5a);
    mImporter.unlock(again);
    mImporter.freeBuffer(again);

    mImporter.freeBuffer(handle);
    gralloc::release(sent);

    // A YCbCr lock describes the planes.
    sent = gralloc::allocate(8, 4, HAL_PIXEL_FORMAT_YCBCR_420_888, 0);
    handle = sent;
    ASSERT_TRUE(mImporter.importBuffer(handle));
    const android_ycbcr layout = mImporter.lockYCbCr(handle, 0x3, android::Rect(8, 4));
    ASSERT_NE(layout.y, nullptr);
    EXPECT_EQ(layout.ystride, 8u);
    EXPECT_EQ(static_cast<uint8_t*>(layout.cb) - static_cast<uint8_t*>(layout.y), 32);
    EXPECT_EQ(layout.chroma_step, 1u);
    mImporter.unlock(handle);
    mImporter.freeBuffer(handle);
    gralloc::release(sent);
}

TEST_F(HandleImporterTest, UnlockHandsOverTheReleaseFenceAlsoOnFailure) {
    native_handle_t* sent = gralloc::allocate(32, 1, HAL_PIXEL_FORMAT_BLOB, 0);
    buffer_handle_t handle = sent;
    ASSERT_TRUE(mImporter.importBuffer(handle));
    gralloc::setUnlockFence(true);

    ASSERT_NE(mImporter.lock(handle, 0x3, 32), nullptr);
    const int fence = mImporter.unlock(handle);
    EXPECT_GE(fence, 0);
    mImporter.closeFence(fence);

    ASSERT_NE(mImporter.lock(handle, 0x3, 32), nullptr);
    gralloc::failNext(Op::Unlock, android::BAD_VALUE);
    const int failedFence = mImporter.unlock(handle);
    EXPECT_GE(failedFence, 0);
    EXPECT_NE(fcntl(failedFence, F_GETFD), -1) << "the caller owns an open descriptor";
    mImporter.closeFence(failedFence);
    mImporter.closeFence(-1);

    EXPECT_EQ(LogCapture::Lines(kTag),
              (std::vector<LogLine>{ImporterError(Format(
                      "unlock: mapper unlockAsync failed, status: %d", android::BAD_VALUE))}));
    mImporter.freeBuffer(handle);
    gralloc::release(sent);
}

TEST_F(HandleImporterTest, FencesOfNoneOneAndTwoDescriptors) {
    int fd = 123;
    EXPECT_TRUE(mImporter.importFence(nullptr, fd));
    EXPECT_EQ(fd, -1);

    native_handle_t* none = native_handle_create(0, 0);
    fd = 123;
    EXPECT_TRUE(mImporter.importFence(none, fd));
    EXPECT_EQ(fd, -1);
    native_handle_delete(none);

    int pipeFds[2];
    ASSERT_EQ(pipe(pipeFds), 0);
    native_handle_t* one = native_handle_create(1, 0);
    one->data[0] = pipeFds[0];
    ASSERT_TRUE(mImporter.importFence(one, fd));
    EXPECT_NE(fd, pipeFds[0]);
    EXPECT_TRUE(SameFile(fd, pipeFds[0]));
    mImporter.closeFence(fd);

    native_handle_t* two = native_handle_create(2, 0);
    two->data[0] = pipeFds[0];
    two->data[1] = pipeFds[1];
    fd = 123;
    EXPECT_FALSE(mImporter.importFence(two, fd));
    EXPECT_EQ(fd, 123) << "an invalid fence handle leaves fd unwritten";

    // A fence may be descriptor 0.
    const int savedStdin = dup(0);
    close(0);
    ASSERT_TRUE(mImporter.importFence(one, fd));
    EXPECT_EQ(0, fd);
    mImporter.closeFence(fd);
    EXPECT_EQ(-1, fcntl(0, F_GETFD));
    dup2(savedStdin, 0);
    close(savedStdin);

    one->data[0] = -1;  // a descriptor that cannot be duplicated
    EXPECT_FALSE(mImporter.importFence(one, fd));
    EXPECT_LT(fd, 0);

    close(pipeFds[0]);
    close(pipeFds[1]);
    native_handle_delete(one);
    native_handle_delete(two);
    EXPECT_EQ(LogCapture::Lines(kTag),
              (std::vector<LogLine>{
                      ImporterError("invalid fence handle with 2 file descriptors"),
                      ImporterError("failed to dup fence fd -1"),
              }));
}

}  // namespace
}  // namespace offlinecamera::test

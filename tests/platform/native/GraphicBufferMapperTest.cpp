/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

// The host graphics buffer mapper: import and free, CPU mappings and failure injection.
#include <gtest/gtest.h>
#include <hostplatform/GrallocTesting.h>
#include <string.h>
#include <ui/GraphicBufferMapper.h>
#include <unistd.h>

#include <vector>

#include "PlatformTestSupport.h"

namespace android {
namespace {

using hostgralloc::Op;

constexpr uint64_t kUsage = 0x0000000300000033ull;

class GraphicBufferMapperTest : public platformtest::FdBalancedTest {
  protected:
    void SetUp() override {
        FdBalancedTest::SetUp();
        hostgralloc::clearFailures();
        hostgralloc::setUnlockFence(false);
        hostgralloc::resetCounters();
        mLiveAtStart = hostgralloc::liveImportCount();
    }
    void TearDown() override {
        for (native_handle_t* handle : mRawHandles) {
            hostgralloc::release(handle);
        }
        hostgralloc::clearFailures();
        hostgralloc::setUnlockFence(false);
        EXPECT_EQ(mLiveAtStart, hostgralloc::liveImportCount());
        FdBalancedTest::TearDown();
    }

    native_handle_t* allocate(uint32_t width, uint32_t height, int32_t format) {
        native_handle_t* handle = hostgralloc::allocate(width, height, format, kUsage);
        EXPECT_NE(nullptr, handle);
        mRawHandles.push_back(handle);
        return handle;
    }

    buffer_handle_t import(const native_handle_t* raw) {
        buffer_handle_t imported = nullptr;
        EXPECT_EQ(OK, mMapper.importBufferNoValidate(raw, &imported));
        return imported;
    }

    GraphicBufferMapper& mMapper = GraphicBufferMapper::get();
    std::vector<native_handle_t*> mRawHandles;
    size_t mLiveAtStart = 0;
};

TEST_F(GraphicBufferMapperTest, ImportDuplicatesDescriptorsAndRefusesForeignHandles) {
    native_handle_t* raw = allocate(64, 32, HAL_PIXEL_FORMAT_RGBA_8888);
    const size_t fdsBefore = platformtest::openFdCount();

    buffer_handle_t imported = import(raw);
    ASSERT_NE(nullptr, imported);
    EXPECT_NE(raw->data[0], imported->data[0]);
    EXPECT_EQ(0, memcmp(&raw->data[1], &imported->data[1], sizeof(int) * raw->numInts));
    EXPECT_EQ(mLiveAtStart + 1, hostgralloc::liveImportCount());
    EXPECT_EQ(fdsBefore + 1, platformtest::openFdCount());
    EXPECT_EQ(OK, mMapper.freeBuffer(imported));
    EXPECT_EQ(mLiveAtStart, hostgralloc::liveImportCount());
    EXPECT_EQ(fdsBefore, platformtest::openFdCount());
    EXPECT_EQ(BAD_VALUE, mMapper.freeBuffer(raw)) << "never imported";

    buffer_handle_t out = nullptr;
    EXPECT_EQ(BAD_VALUE, mMapper.importBufferNoValidate(nullptr, &out));
    native_handle_t* noFds = native_handle_create(0, hostgralloc::kHandleInts);
    EXPECT_EQ(BAD_VALUE, mMapper.importBufferNoValidate(noFds, &out));
    native_handle_delete(noFds);
    raw->data[1] ^= 1;  // magic
    EXPECT_EQ(BAD_VALUE, mMapper.importBufferNoValidate(raw, &out));
    raw->data[1] ^= 1;
    const int fd = raw->data[0];
    raw->data[0] = dup(fd);
    close(raw->data[0]);  // now a closed descriptor
    EXPECT_EQ(BAD_VALUE, mMapper.importBufferNoValidate(raw, &out));
    raw->data[0] = fd;
    EXPECT_EQ(nullptr, out);
    EXPECT_EQ(mLiveAtStart, hostgralloc::liveImportCount());
    EXPECT_EQ(nullptr, hostgralloc::allocate(16, 16, 0x7777, 0)) << "unknown format";
}

TEST_F(GraphicBufferMapperTest, LocksAreBoundedAndCountedPerImport) {
    native_handle_t* raw = allocate(32, 8, HAL_PIXEL_FORMAT_RGBA_8888);
    buffer_handle_t first = import(raw);
    buffer_handle_t second = import(raw);
    void* address = nullptr;
    ASSERT_EQ(OK, mMapper.lock(first, 0x30, Rect(32, 8), &address));
    ASSERT_EQ(OK, mMapper.lock(second, 0x3, Rect(4, 2, 8, 6), &address));
    EXPECT_EQ(Rect(4, 2, 8, 6), hostgralloc::lastLockRect());
    EXPECT_EQ(OK, mMapper.unlock(first));
    EXPECT_EQ(OK, mMapper.unlock(second));
    EXPECT_EQ(BAD_VALUE, mMapper.unlock(second)) << "not locked any more";

    buffer_handle_t blob = import(allocate(1000, 1, HAL_PIXEL_FORMAT_BLOB));
    EXPECT_EQ(BAD_VALUE, mMapper.lock(blob, 0x3, Rect(0, 0, 1001, 1), &address));
    EXPECT_EQ(BAD_VALUE, mMapper.lock(blob, 0x3, Rect(0, 0, 10, 2), &address));
    EXPECT_EQ(BAD_VALUE, mMapper.unlock(blob)) << "refused locks do not count";

    // Sub-rectangles start at their top-left samples; semi-planar chroma interleaves.
    buffer_handle_t i420 = import(allocate(64, 48, HAL_PIXEL_FORMAT_YCBCR_420_888));
    android_ycbcr ycbcr{};
    ASSERT_EQ(OK, mMapper.lockYCbCr(i420, 0x3, Rect(64, 48), &ycbcr));
    auto* bytes = static_cast<uint8_t*>(ycbcr.y);
    EXPECT_EQ(bytes + 64 * 48 + 32 * 24, ycbcr.cr);
    EXPECT_EQ(32u, ycbcr.cstride);
    ASSERT_EQ(OK, mMapper.lockYCbCr(i420, 0x3, Rect(8, 4, 16, 12), &ycbcr));
    EXPECT_EQ(bytes + 4 * 64 + 8, ycbcr.y);
    EXPECT_EQ(bytes + 64 * 48 + 2 * 32 + 4, ycbcr.cb);
    EXPECT_EQ(OK, mMapper.unlock(i420));
    EXPECT_EQ(OK, mMapper.unlock(i420));

    buffer_handle_t nv21 = import(allocate(64, 48, HAL_PIXEL_FORMAT_YCRCB_420_SP));
    ASSERT_EQ(OK, mMapper.lockYCbCr(nv21, 0x3, Rect(64, 48), &ycbcr));
    bytes = static_cast<uint8_t*>(ycbcr.y);
    EXPECT_EQ(bytes + 64 * 48, ycbcr.cr);
    EXPECT_EQ(bytes + 64 * 48 + 1, ycbcr.cb);
    EXPECT_EQ(64u, ycbcr.cstride);
    EXPECT_EQ(2u, ycbcr.chroma_step);
    bytes[64 * 48 + 64 * 24 - 1] = 1;  // the last chroma byte is mapped
    EXPECT_EQ(OK, mMapper.unlock(nv21));
    EXPECT_EQ(BAD_VALUE, mMapper.lockYCbCr(first, 0x3, Rect(32, 8), &ycbcr)) << "not YCbCr";
    EXPECT_EQ(BAD_VALUE, mMapper.unlock(first));

    for (buffer_handle_t handle : {first, second, blob, i420, nv21}) {
        EXPECT_EQ(OK, mMapper.freeBuffer(handle));
    }
}

TEST_F(GraphicBufferMapperTest, InjectedFailuresHaveNoEffect) {
    native_handle_t* raw = allocate(16, 16, HAL_PIXEL_FORMAT_RGBA_8888);
    buffer_handle_t out = nullptr;
    hostgralloc::failNext(Op::Import, NO_MEMORY);
    EXPECT_EQ(NO_MEMORY, mMapper.importBufferNoValidate(raw, &out));
    EXPECT_EQ(nullptr, out);
    EXPECT_EQ(mLiveAtStart, hostgralloc::liveImportCount());
    buffer_handle_t imported = import(raw);

    hostgralloc::failNext(Op::Lock, BAD_TYPE, 2);
    void* address = nullptr;
    EXPECT_EQ(BAD_TYPE, mMapper.lock(imported, 0x3, Rect(16, 16), &address));
    EXPECT_EQ(BAD_TYPE, mMapper.lock(imported, 0x3, Rect(16, 16), &address));
    EXPECT_EQ(BAD_VALUE, mMapper.unlock(imported)) << "failed locks do not count";
    EXPECT_EQ(OK, mMapper.lock(imported, 0x3, Rect(16, 16), &address));
    // Without a fence pointer the mapper closes the release fence itself (checked by TearDown).
    hostgralloc::setUnlockFence(true);
    EXPECT_EQ(OK, mMapper.unlock(imported));

    hostgralloc::failNext(Op::LockYCbCr, UNKNOWN_ERROR);
    android_ycbcr ycbcr{};
    EXPECT_EQ(UNKNOWN_ERROR, mMapper.lockYCbCr(imported, 0x3, Rect(16, 16), &ycbcr));

    hostgralloc::failNext(Op::Free, INVALID_OPERATION);
    EXPECT_EQ(INVALID_OPERATION, mMapper.freeBuffer(imported));
    EXPECT_EQ(mLiveAtStart + 1, hostgralloc::liveImportCount());
    EXPECT_EQ(OK, mMapper.freeBuffer(imported));

    EXPECT_EQ(2u, hostgralloc::callCount(Op::Import));
    EXPECT_EQ(3u, hostgralloc::callCount(Op::Lock));
    EXPECT_EQ(2u, hostgralloc::callCount(Op::Unlock));
    EXPECT_EQ(2u, hostgralloc::callCount(Op::Free));
}

}  // namespace
}  // namespace android

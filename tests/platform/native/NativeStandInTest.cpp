/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * What the library's suites count on in the native stand-ins and never meet: the converter's check
 * of camera metadata from a client, the mapper's refusal of misuse with the error line by which
 * the suites' fixtures catch a library fault, and the Vorn allocator's count of live blocks.
 */
#include <convert.h>
#include <gtest/gtest.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/VornTesting.h>
#include <string.h>
#include <system/camera_metadata.h>
#include <ui/GraphicBufferMapper.h>
#include <unistd.h>
#include <vorn/VornMemory.h>

#include <string>
#include <vector>

#include "LogCapture.h"

namespace android {
namespace {

using ::aidl::android::hardware::camera::device::CameraMetadata;
using ::android::hardware::camera::device::implementation::convertFromAidl;
using ::android::hardware::camera::device::implementation::convertToAidl;
using ::offlinecamera::test::LogCapture;
using ::offlinecamera::test::LogLine;

TEST(MetadataCheckTest, EachCorruptionOfAClientBufferIsRefused) {
    // Entry 0: AE mode (inline byte); 1: exposure (int64) and 2: stream configurations
    // (int32 x 8) in the payload area.
    camera_metadata_t* sample = allocate_camera_metadata(3, 40);
    const uint8_t aeMode = ANDROID_CONTROL_AE_MODE_ON;
    const int64_t exposure = 33'000'000;
    const int32_t configs[8] = {};
    ASSERT_EQ(0, add_camera_metadata_entry(sample, ANDROID_CONTROL_AE_MODE, &aeMode, 1));
    ASSERT_EQ(0, add_camera_metadata_entry(sample, ANDROID_SENSOR_EXPOSURE_TIME, &exposure, 1));
    ASSERT_EQ(0, add_camera_metadata_entry(sample, ANDROID_SCALER_AVAILABLE_STREAM_CONFIGURATIONS,
                                           configs, 8));
    CameraMetadata good;
    convertToAidl(sample, &good);
    free_camera_metadata(sample);
    const size_t size = good.metadata.size();
    const camera_metadata_t* view = nullptr;
    ASSERT_TRUE(convertFromAidl(good, &view));

    // Header fields, then 16-byte entry records from byte 48 with count, payload offset and type
    // at 4, 8 and 12.
    struct Corruption {
        const char* what;
        size_t offset;
        uint32_t value;
    };
    const Corruption corruptions[] = {
            {"size beyond buffer", 0, static_cast<uint32_t>(size + 8)},
            {"size below header", 0, 40},
            {"entry count above capacity", 12, 4},
            {"entry capacity beyond size", 16, 0x10000000},
            {"entry records behind the end", 20, static_cast<uint32_t>(size)},
            {"entry records inside the header", 20, 32},
            {"data count above capacity", 24, 41},
            {"data area beyond size", 32, static_cast<uint32_t>(size)},
            {"misaligned data area", 32, 100},
            {"invalid type", 48 + 12, NUM_TYPES},
            {"type differs from the tag's", 48 + 12, TYPE_INT32},
            {"misaligned int64 payload", 64 + 8, 4},
            {"payload past data count", 80 + 8, 16},
            {"count overflows the payload", 80 + 4, 0x40000001},
            {"offset wraps around", 64 + 8, 0xFFFFFFF8},
    };
    const LogLine refused = {ANDROID_LOG_ERROR, "android.hardware.camera.device-convert-impl",
                             "convertFromAidl: input CameraMetadata is corrupt!"};
    LogCapture::Start();
    for (const Corruption& corruption : corruptions) {
        CameraMetadata bad = good;
        memcpy(bad.metadata.data() + corruption.offset, &corruption.value, sizeof(uint32_t));
        EXPECT_FALSE(convertFromAidl(bad, &view)) << corruption.what;
        EXPECT_EQ(1u, LogCapture::Count(refused)) << corruption.what;
        LogCapture::Clear();
    }
    good.metadata.resize(8);  // less than a header
    EXPECT_FALSE(convertFromAidl(good, &view));
    EXPECT_EQ(1u, LogCapture::Count(refused));
}

// A misuse answers BAD_VALUE and logs one error line of the mapper.
#define EXPECT_REFUSED(call)    \
    EXPECT_EQ(BAD_VALUE, call); \
    EXPECT_EQ(std::vector<std::string>{"GraphicBufferMapper"}, LogCapture::TakePlatformErrorTags())

TEST(MapperTest, EachMisuseIsRefusedWithAnErrorLineAndNoEffect) {
    GraphicBufferMapper& mapper = GraphicBufferMapper::get();
    LogCapture::Start();
    const size_t live = hostgralloc::liveImportCount();
    native_handle_t* raw = hostgralloc::allocate(16, 8, HAL_PIXEL_FORMAT_RGBA_8888, 0x33);
    buffer_handle_t imported = nullptr;
    ASSERT_EQ(OK, mapper.importBufferNoValidate(raw, &imported));
    EXPECT_EQ(live + 1, hostgralloc::liveImportCount());

    buffer_handle_t out = nullptr;
    EXPECT_REFUSED(mapper.importBufferNoValidate(nullptr, &out));
    native_handle_t* noFds = native_handle_create(0, hostgralloc::kHandleInts);
    EXPECT_REFUSED(mapper.importBufferNoValidate(noFds, &out));
    native_handle_delete(noFds);
    native_handle_t* closedFd = native_handle_clone(raw);
    close(closedFd->data[0]);
    EXPECT_REFUSED(mapper.importBufferNoValidate(closedFd, &out));
    native_handle_delete(closedFd);
    EXPECT_EQ(nullptr, out);
    EXPECT_REFUSED(mapper.freeBuffer(raw));

    void* address = nullptr;
    android_ycbcr ycbcr{};
    EXPECT_REFUSED(mapper.lock(imported, 0x3, Rect(0, 0, 17, 8), &address));
    EXPECT_REFUSED(mapper.lock(imported, 0x3, Rect(0, 1, 16, 9), &address));
    EXPECT_REFUSED(mapper.lockYCbCr(imported, 0x3, Rect(16, 8), &ycbcr));
    EXPECT_REFUSED(mapper.unlock(imported));  // refused locks do not count
    hostgralloc::failNext(hostgralloc::Op::Lock, NO_MEMORY);
    EXPECT_EQ(NO_MEMORY, mapper.lock(imported, 0x3, Rect(16, 8), &address));
    EXPECT_REFUSED(mapper.unlock(imported));  // nor do failed ones
    EXPECT_EQ(OK, mapper.lock(imported, 0x3, Rect(16, 8), &address));
    EXPECT_EQ(OK, mapper.unlock(imported));
    EXPECT_REFUSED(mapper.unlock(imported));
    EXPECT_EQ(OK, mapper.freeBuffer(imported));
    EXPECT_REFUSED(mapper.freeBuffer(imported));
    EXPECT_EQ(live, hostgralloc::liveImportCount());
    hostgralloc::release(raw);
}

TEST(VornMemoryTest, CallocZeroesAndCountsEveryBlockUntilFreed) {
    const size_t live = Vorn::Host::LiveAllocations();
    auto* block = static_cast<uint8_t*>(VornCalloc(16, 4));
    ASSERT_NE(nullptr, block);
    EXPECT_EQ(std::vector<uint8_t>(64, 0), std::vector<uint8_t>(block, block + 64));
    Vorn::Host::FailAllocations(0);
    EXPECT_EQ(nullptr, VornCalloc(1, 8));
    EXPECT_EQ(live + 1, Vorn::Host::LiveAllocations());
    VornFree(block);
    EXPECT_EQ(live, Vorn::Host::LiveAllocations());
}

}  // namespace
}  // namespace android

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

// Packed camera metadata: sizes, entries, copies and validation of untrusted buffers.
#include <android/log.h>
#include <gtest/gtest.h>
#include <string.h>
#include <system/camera_metadata.h>
#include <system/graphics.h>

#include <memory>
#include <string>
#include <vector>

#include "PlatformTestSupport.h"

namespace {

struct MetadataDeleter {
    void operator()(camera_metadata_t* metadata) const { free_camera_metadata(metadata); }
};
using MetadataPtr = std::unique_ptr<camera_metadata_t, MetadataDeleter>;

// Byte offsets of the binary layout that other processes rely on.
constexpr size_t kSizeOffset = 0;
constexpr size_t kEntryCountOffset = 12;
constexpr size_t kEntryCapacityOffset = 16;
constexpr size_t kEntriesStartOffset = 20;
constexpr size_t kDataCountOffset = 24;
constexpr size_t kDataStartOffset = 32;
constexpr size_t kHeaderBytes = 48;
constexpr size_t kEntryBytes = 16;
constexpr size_t kEntryCountField = 4;
constexpr size_t kEntryDataField = 8;
constexpr size_t kEntryTypeField = 12;

void poke32(void* buffer, size_t offset, uint32_t value) {
    memcpy(static_cast<uint8_t*>(buffer) + offset, &value, sizeof(value));
}

size_t entryOffset(size_t index, size_t field) {
    return kHeaderBytes + index * kEntryBytes + field;
}

const int64_t kExposure = 33'000'000;
const int32_t kStreamConfigs[] = {HAL_PIXEL_FORMAT_BLOB,          4000, 3000, 0,
                                  HAL_PIXEL_FORMAT_YCBCR_420_888, 1920, 1080, 0};

// Entry 0: AE mode (inline byte); 1: exposure (int64, payload area); 2: stream configurations
// (int32 x 8, payload area); 3: JPEG orientation (inline int32).
MetadataPtr makeSample(size_t extraEntries = 0, size_t extraData = 0) {
    MetadataPtr metadata(allocate_camera_metadata(4 + extraEntries, 40 + extraData));
    const uint8_t aeMode = ANDROID_CONTROL_AE_MODE_ON;
    const int32_t orientation = 90;
    EXPECT_EQ(0, add_camera_metadata_entry(metadata.get(), ANDROID_CONTROL_AE_MODE, &aeMode, 1));
    EXPECT_EQ(0, add_camera_metadata_entry(metadata.get(), ANDROID_SENSOR_EXPOSURE_TIME, &kExposure,
                                           1));
    EXPECT_EQ(0, add_camera_metadata_entry(metadata.get(),
                                           ANDROID_SCALER_AVAILABLE_STREAM_CONFIGURATIONS,
                                           kStreamConfigs, 8));
    EXPECT_EQ(0,
              add_camera_metadata_entry(metadata.get(), ANDROID_JPEG_ORIENTATION, &orientation, 1));
    return metadata;
}

void expectSampleContents(const camera_metadata_t* metadata) {
    camera_metadata_ro_entry_t entry;
    ASSERT_EQ(0, find_camera_metadata_ro_entry(metadata, ANDROID_CONTROL_AE_MODE, &entry));
    EXPECT_EQ(TYPE_BYTE, entry.type);
    ASSERT_EQ(1u, entry.count);
    EXPECT_EQ(ANDROID_CONTROL_AE_MODE_ON, entry.data.u8[0]);
    ASSERT_EQ(0, find_camera_metadata_ro_entry(metadata, ANDROID_SENSOR_EXPOSURE_TIME, &entry));
    EXPECT_EQ(kExposure, entry.data.i64[0]);
    ASSERT_EQ(0, find_camera_metadata_ro_entry(
                         metadata, ANDROID_SCALER_AVAILABLE_STREAM_CONFIGURATIONS, &entry));
    ASSERT_EQ(8u, entry.count);
    EXPECT_EQ(0, memcmp(kStreamConfigs, entry.data.i32, sizeof(kStreamConfigs)));
    ASSERT_EQ(0, find_camera_metadata_ro_entry(metadata, ANDROID_JPEG_ORIENTATION, &entry));
    EXPECT_EQ(90, entry.data.i32[0]);
}

TEST(CameraMetadataEntries, SizesAndInlineAndOutOfLinePayloads) {
    EXPECT_EQ(48u, calculate_camera_metadata_size(0, 0));
    EXPECT_EQ(88u, calculate_camera_metadata_size(2, 5));
    EXPECT_EQ(0u, calculate_camera_metadata_entry_data_size(TYPE_BYTE, 4));
    EXPECT_EQ(8u, calculate_camera_metadata_entry_data_size(TYPE_BYTE, 5));
    EXPECT_EQ(24u, calculate_camera_metadata_entry_data_size(TYPE_RATIONAL, 3));

    MetadataPtr metadata = makeSample();
    EXPECT_EQ(calculate_camera_metadata_size(4, 40), get_camera_metadata_size(metadata.get()));
    expectSampleContents(metadata.get());
    // Only the int64 (8 bytes) and the 8 int32 (32 bytes) use the payload area.
    EXPECT_EQ(40u, get_camera_metadata_data_count(metadata.get()));
    EXPECT_EQ(0, validate_camera_metadata_structure(metadata.get(), nullptr));

    camera_metadata_entry_t entry;
    EXPECT_NE(0, find_camera_metadata_entry(metadata.get(), ANDROID_SENSOR_SENSITIVITY, &entry));
    const float focal = 4.5f;
    EXPECT_NE(0, add_camera_metadata_entry(metadata.get(), ANDROID_LENS_FOCAL_LENGTH, &focal, 1))
            << "entry capacity is exhausted";
    MetadataPtr roomy(allocate_camera_metadata(2, 0));
    EXPECT_NE(0, add_camera_metadata_entry(roomy.get(), ANDROID_SENSOR_EXPOSURE_TIME, &kExposure, 1))
            << "payload area is exhausted";
    EXPECT_NE(0, add_camera_metadata_entry(roomy.get(), VENDOR_SECTION_START, &focal, 1));
    EXPECT_EQ(0u, get_camera_metadata_entry_count(roomy.get()));
}

TEST(CameraMetadataEntries, UpdateDeleteAndSortKeepPayloadsIntact) {
    MetadataPtr metadata = makeSample(2, 64);
    // Inline byte grows into the payload area.
    const uint8_t modes[] = {1, 2, 3, 4, 5, 6};
    camera_metadata_entry_t updated;
    ASSERT_EQ(0, update_camera_metadata_entry(metadata.get(), 0, modes, 6, &updated));
    EXPECT_EQ(0, memcmp(modes, updated.data.u8, 6));
    EXPECT_EQ(48u, get_camera_metadata_data_count(metadata.get()));
    // The stream configurations shrink to one inline int32; later payloads move down.
    ASSERT_EQ(0, update_camera_metadata_entry(metadata.get(), 2, kStreamConfigs, 1, nullptr));
    EXPECT_EQ(16u, get_camera_metadata_data_count(metadata.get()));
    camera_metadata_ro_entry_t entry;
    ASSERT_EQ(0,
              find_camera_metadata_ro_entry(metadata.get(), ANDROID_SENSOR_EXPOSURE_TIME, &entry));
    EXPECT_EQ(kExposure, entry.data.i64[0]);
    ASSERT_EQ(0, find_camera_metadata_ro_entry(metadata.get(), ANDROID_CONTROL_AE_MODE, &entry));
    EXPECT_EQ(0, memcmp(modes, entry.data.u8, 6));

    // Deleting the exposure leaves the AE modes readable at their moved offset.
    ASSERT_EQ(0, delete_camera_metadata_entry(metadata.get(), 1));
    EXPECT_EQ(8u, get_camera_metadata_data_count(metadata.get()));
    ASSERT_EQ(0, find_camera_metadata_ro_entry(metadata.get(), ANDROID_CONTROL_AE_MODE, &entry));
    EXPECT_EQ(0, memcmp(modes, entry.data.u8, 6));
    EXPECT_NE(0,
              find_camera_metadata_ro_entry(metadata.get(), ANDROID_SENSOR_EXPOSURE_TIME, &entry));
    EXPECT_NE(0, delete_camera_metadata_entry(metadata.get(), 3));

    // Sorted lookups find entries whatever their insertion order.
    const int32_t requestId = 7;
    ASSERT_EQ(0, add_camera_metadata_entry(metadata.get(), ANDROID_REQUEST_ID, &requestId, 1));
    ASSERT_EQ(0, sort_camera_metadata(metadata.get()));
    uint32_t previous = 0;
    for (size_t i = 0; i < get_camera_metadata_entry_count(metadata.get()); ++i) {
        ASSERT_EQ(0, get_camera_metadata_ro_entry(metadata.get(), i, &entry));
        EXPECT_LE(previous, entry.tag);
        previous = entry.tag;
    }
    ASSERT_EQ(0, find_camera_metadata_ro_entry(metadata.get(), ANDROID_REQUEST_ID, &entry));
    EXPECT_EQ(requestId, entry.data.i32[0]);
    ASSERT_EQ(0, find_camera_metadata_ro_entry(metadata.get(), ANDROID_JPEG_ORIENTATION, &entry));
    EXPECT_EQ(90, entry.data.i32[0]);
    EXPECT_EQ(0, validate_camera_metadata_structure(metadata.get(), nullptr));
}

TEST(CameraMetadataCopy, CompactAppendAndCheckedCopies) {
    MetadataPtr source = makeSample(6, 100);
    const size_t compact = get_camera_metadata_compact_size(source.get());
    ASSERT_EQ(calculate_camera_metadata_size(4, 40), compact);

    std::vector<uint64_t> exact(compact / sizeof(uint64_t));
    camera_metadata_t* copy = copy_camera_metadata(exact.data(), compact, source.get());
    ASSERT_EQ(static_cast<void*>(exact.data()), copy);
    EXPECT_EQ(compact, get_camera_metadata_size(copy));
    EXPECT_EQ(4u, get_camera_metadata_entry_capacity(copy));
    EXPECT_EQ(40u, get_camera_metadata_data_capacity(copy));
    expectSampleContents(copy);
    EXPECT_EQ(0, validate_camera_metadata_structure(copy, &compact));

    std::vector<uint64_t> larger(compact / sizeof(uint64_t) + 16);
    copy = copy_camera_metadata(larger.data(), larger.size() * sizeof(uint64_t), source.get());
    ASSERT_NE(nullptr, copy);
    EXPECT_EQ(compact, get_camera_metadata_size(copy));
    expectSampleContents(copy);
    EXPECT_EQ(nullptr, copy_camera_metadata(exact.data(), compact - 8, source.get()));

    // Appending rebases the payload offsets of the appended entries.
    MetadataPtr combined(allocate_camera_metadata(5, 48));
    const int64_t timestamp = 123456789;
    ASSERT_EQ(0, add_camera_metadata_entry(combined.get(), ANDROID_SENSOR_TIMESTAMP, &timestamp, 1));
    ASSERT_EQ(0, append_camera_metadata(combined.get(), source.get()));
    EXPECT_EQ(5u, get_camera_metadata_entry_count(combined.get()));
    expectSampleContents(combined.get());
    camera_metadata_ro_entry_t entry;
    ASSERT_EQ(0, find_camera_metadata_ro_entry(combined.get(), ANDROID_SENSOR_TIMESTAMP, &entry));
    EXPECT_EQ(timestamp, entry.data.i64[0]);
    EXPECT_NE(0, append_camera_metadata(combined.get(), source.get())) << "no room left";
    EXPECT_EQ(5u, get_camera_metadata_entry_count(combined.get()));

    const size_t size = get_camera_metadata_size(source.get());
    MetadataPtr checked(allocate_copy_camera_metadata_checked(source.get(), size));
    ASSERT_NE(nullptr, checked);
    expectSampleContents(checked.get());
    EXPECT_EQ(nullptr, allocate_copy_camera_metadata_checked(source.get(), size - 8));
}

// Validation of buffers from other processes.
TEST(CameraMetadataValidation, RejectsEveryCorruptedFieldAndShiftsMisalignedCopies) {
    MetadataPtr sample = makeSample();
    const size_t size = get_camera_metadata_compact_size(sample.get());
    std::vector<uint64_t> buffer(size / sizeof(uint64_t) + 1);
    const auto* metadata = reinterpret_cast<const camera_metadata_t*>(buffer.data());
    ASSERT_NE(nullptr, copy_camera_metadata(buffer.data(), size, sample.get()));
    EXPECT_EQ(0, validate_camera_metadata_structure(metadata, &size));
    const size_t tooSmall = kHeaderBytes - 1;
    EXPECT_EQ(CAMERA_METADATA_VALIDATION_ERROR,
              validate_camera_metadata_structure(metadata, &tooSmall));
    offlinecamera::test::LogCapture::Start();
    EXPECT_EQ(CAMERA_METADATA_VALIDATION_ERROR,
              validate_camera_metadata_structure(nullptr, nullptr));
    EXPECT_TRUE(offlinecamera::test::LogCapture::Contains(
            {ANDROID_LOG_ERROR, "CameraMetadata",
             "validate_camera_metadata_structure: metadata is null!"}));

    struct Corruption {
        const char* what;
        size_t offset;
        uint32_t value;
    };
    const Corruption corruptions[] = {
            {"size beyond buffer", kSizeOffset, static_cast<uint32_t>(size + 8)},
            {"size below header", kSizeOffset, 40},
            {"entry count above capacity", kEntryCountOffset, 5},
            {"data count above capacity", kDataCountOffset, 41},
            {"entry capacity beyond size", kEntryCapacityOffset, 0x10000000},
            {"entry records behind the end", kEntriesStartOffset, static_cast<uint32_t>(size)},
            {"entry records inside the header", kEntriesStartOffset, 32},
            {"data area beyond size", kDataStartOffset, static_cast<uint32_t>(size)},
            {"misaligned data area", kDataStartOffset, 116},
            {"invalid type", entryOffset(0, kEntryTypeField), NUM_TYPES},
            {"type differs from the tag's", entryOffset(0, kEntryTypeField), TYPE_INT32},
            {"payload past data count", entryOffset(2, kEntryDataField), 16},
            {"misaligned int64 payload", entryOffset(1, kEntryDataField), 4},
            {"count overflows the payload", entryOffset(2, kEntryCountField), 0x40000001},
            {"offset wraps around", entryOffset(1, kEntryDataField), 0xFFFFFFF8},
    };
    for (const Corruption& corruption : corruptions) {
        ASSERT_NE(nullptr, copy_camera_metadata(buffer.data(), size, sample.get()));
        poke32(buffer.data(), corruption.offset, corruption.value);
        EXPECT_EQ(CAMERA_METADATA_VALIDATION_ERROR,
                  validate_camera_metadata_structure(metadata, &size))
                << corruption.what;
    }

    // A copy four bytes off its alignment is reported as shifted; its clone is whole.
    ASSERT_NE(nullptr, copy_camera_metadata(buffer.data(), size, sample.get()));
    uint8_t* shifted = reinterpret_cast<uint8_t*>(buffer.data()) + 4;
    memmove(shifted, buffer.data(), size);
    metadata = reinterpret_cast<const camera_metadata_t*>(shifted);
    EXPECT_EQ(CAMERA_METADATA_VALIDATION_SHIFTED,
              validate_camera_metadata_structure(metadata, &size));
    MetadataPtr clone(clone_camera_metadata(metadata));
    ASSERT_NE(nullptr, clone);
    EXPECT_EQ(0, validate_camera_metadata_structure(clone.get(), nullptr));
    expectSampleContents(clone.get());
}

}  // namespace

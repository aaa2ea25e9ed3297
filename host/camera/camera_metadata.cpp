/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Packed camera metadata buffers.
 *
 * A buffer is one contiguous block:
 *
 *   [header, 48 bytes][entry records, 16 bytes each][payload area]
 *
 * The header records the block's total size, the used and available entry records and payload
 * bytes, and where the entry records and the payload area start (offsets from the header). An
 * entry stores payloads of up to 4 bytes inline in its record; larger payloads are placed in the
 * payload area at a multiple of 8 and take up their size rounded up to 8. Offsets and counts are
 * 32-bit, so one buffer is at most 4 GiB.
 *
 * Functions that return int answer 0 on success and non-zero on failure (1, or -ENOENT when a
 * looked-up tag is absent). The size and count getters answer 1 for a null buffer.
 */
#define LOG_TAG "CameraMetadata"

#include <errno.h>
#include <hostplatform/CameraMetadataTesting.h>
#include <inttypes.h>
#include <log/log.h>
#include <stdlib.h>
#include <string.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <mutex>

struct camera_metadata {
    uint32_t size;
    uint32_t version;
    uint32_t flags;
    uint32_t entry_count;
    uint32_t entry_capacity;
    uint32_t entries_start;
    uint32_t data_count;
    uint32_t data_capacity;
    uint32_t data_start;
    uint32_t padding;
    metadata_vendor_id_t vendor_id;
};

namespace {

struct BufferEntry {
    uint32_t tag;
    uint32_t count;
    union {
        uint32_t offset;
        uint8_t value[4];
    } data;
    uint8_t type;
    uint8_t reserved[3];
};

static_assert(sizeof(camera_metadata) == 48, "metadata header layout");
static_assert(offsetof(camera_metadata, data_start) == 32, "metadata header layout");
static_assert(offsetof(camera_metadata, vendor_id) == 40, "metadata header layout");
static_assert(sizeof(BufferEntry) == 16, "metadata entry layout");
static_assert(offsetof(BufferEntry, type) == 12, "metadata entry layout");

constexpr int kOk = 0;
constexpr int kError = 1;
constexpr int kNotFound = -ENOENT;

constexpr uint32_t kCurrentVersion = 1;
constexpr uint32_t kFlagSorted = 0x1;

constexpr size_t kEntryAlignment = 4;
constexpr size_t kDataAlignment = 8;
constexpr size_t kPacketAlignment = 8;
constexpr size_t kInlinePayloadBytes = 4;

// Natural alignment of each payload type inside the payload area.
constexpr size_t kTypeAlignment[NUM_TYPES] = {1, 4, 4, 8, 8, 4};

constexpr size_t alignTo(size_t value, size_t alignment) {
    return (value + alignment - 1) & ~(alignment - 1);
}

constexpr size_t kHeaderSize = sizeof(camera_metadata);
constexpr size_t kEntriesStart = alignTo(kHeaderSize, kEntryAlignment);

size_t dataStartFor(size_t entryCapacity) {
    return alignTo(kEntriesStart + sizeof(BufferEntry) * entryCapacity, kDataAlignment);
}

// Capacities that the 32-bit header fields can describe.
bool capacitiesFit(size_t entryCapacity, size_t dataCapacity) {
    if (entryCapacity > UINT32_MAX / sizeof(BufferEntry) || dataCapacity > UINT32_MAX) {
        return false;
    }
    return calculate_camera_metadata_size(entryCapacity, dataCapacity) <= UINT32_MAX;
}

BufferEntry* entriesOf(camera_metadata_t* metadata) {
    return reinterpret_cast<BufferEntry*>(reinterpret_cast<uint8_t*>(metadata) +
                                          metadata->entries_start);
}

const BufferEntry* entriesOf(const camera_metadata_t* metadata) {
    return entriesOf(const_cast<camera_metadata_t*>(metadata));
}

uint8_t* dataOf(camera_metadata_t* metadata) {
    return reinterpret_cast<uint8_t*>(metadata) + metadata->data_start;
}

const uint8_t* dataOf(const camera_metadata_t* metadata) {
    return dataOf(const_cast<camera_metadata_t*>(metadata));
}

uint8_t* payloadOf(camera_metadata_t* metadata, BufferEntry* entry) {
    if (calculate_camera_metadata_entry_data_size(entry->type, entry->count) == 0) {
        return entry->data.value;
    }
    return dataOf(metadata) + entry->data.offset;
}

// Removes bytes [offset, offset + length) from the payload area and moves the payloads behind
// them down, updating the offsets of the entries that refer to those payloads.
int removePayload(camera_metadata_t* metadata, uint32_t offset, size_t length) {
    if (static_cast<uint64_t>(offset) + length > metadata->data_count) {
        ALOGE("%s: Payload [%" PRIu32 ", +%zu) lies outside the used payload area (%" PRIu32 ")",
              __FUNCTION__, offset, length, metadata->data_count);
        return kError;
    }
    uint8_t* start = dataOf(metadata) + offset;
    memmove(start, start + length, metadata->data_count - offset - length);
    BufferEntry* entries = entriesOf(metadata);
    for (uint32_t i = 0; i < metadata->entry_count; ++i) {
        BufferEntry& entry = entries[i];
        if (calculate_camera_metadata_entry_data_size(entry.type, entry.count) != 0 &&
            entry.data.offset > offset) {
            entry.data.offset -= length;
        }
    }
    metadata->data_count -= length;
    return kOk;
}

// Writes a compacted copy of src into dst. src is read through memcpy so that a buffer that
// sits at a misaligned address can be copied too. dst must be able to hold the compact size.
camera_metadata_t* compactCopy(void* dst, size_t dstSize, const camera_metadata_t* src) {
    camera_metadata header;
    memcpy(&header, src, sizeof(header));
    camera_metadata_t* copy =
            place_camera_metadata(dst, dstSize, header.entry_count, header.data_count);
    if (copy == nullptr) {
        return nullptr;
    }
    const uint8_t* srcBytes = reinterpret_cast<const uint8_t*>(src);
    memcpy(entriesOf(copy), srcBytes + header.entries_start,
           sizeof(BufferEntry) * header.entry_count);
    memcpy(dataOf(copy), srcBytes + header.data_start, header.data_count);
    copy->entry_count = header.entry_count;
    copy->data_count = header.data_count;
    copy->flags = header.flags;
    copy->vendor_id = header.vendor_id;
    return copy;
}

int addEntry(camera_metadata_t* dst, uint32_t tag, uint8_t type, const void* data,
             size_t dataCount) {
    if (dst == nullptr || type >= NUM_TYPES || dataCount > UINT32_MAX ||
        (data == nullptr && dataCount != 0)) {
        return kError;
    }
    if (dst->entry_count == dst->entry_capacity) {
        return kError;
    }
    const size_t dataBytes = calculate_camera_metadata_entry_data_size(type, dataCount);
    if (dataBytes + dst->data_count > dst->data_capacity) {
        return kError;
    }
    const size_t payloadBytes = camera_metadata_type_size[type] * dataCount;
    BufferEntry* entry = entriesOf(dst) + dst->entry_count;
    memset(entry, 0, sizeof(*entry));
    entry->tag = tag;
    entry->type = type;
    entry->count = static_cast<uint32_t>(dataCount);
    uint8_t* payload = entry->data.value;
    if (dataBytes != 0) {
        entry->data.offset = dst->data_count;
        payload = dataOf(dst) + dst->data_count;
        memset(payload + payloadBytes, 0, dataBytes - payloadBytes);
        dst->data_count += dataBytes;
    }
    if (payloadBytes != 0) {
        memcpy(payload, data, payloadBytes);
    }
    dst->entry_count++;
    dst->flags &= ~kFlagSorted;
    return kOk;
}

template <typename Entry>
int fillEntry(const camera_metadata_t* src, size_t index, Entry* entry) {
    if (src == nullptr || entry == nullptr || index >= src->entry_count) {
        return kError;
    }
    auto* metadata = const_cast<camera_metadata_t*>(src);
    BufferEntry* record = entriesOf(metadata) + index;
    entry->index = index;
    entry->tag = record->tag;
    entry->type = record->type;
    entry->count = record->count;
    entry->data.u8 = payloadOf(metadata, record);
    return kOk;
}

int findEntryIndex(const camera_metadata_t* src, uint32_t tag, size_t* index) {
    if (src == nullptr) {
        return kError;
    }
    const BufferEntry* begin = entriesOf(src);
    const BufferEntry* end = begin + src->entry_count;
    const BufferEntry* found;
    if (src->flags & kFlagSorted) {
        found = std::lower_bound(begin, end, tag, [](const BufferEntry& entry, uint32_t value) {
            return entry.tag < value;
        });
    } else {
        found = std::find_if(begin, end,
                             [tag](const BufferEntry& entry) { return entry.tag == tag; });
    }
    if (found == end || found->tag != tag) {
        return kNotFound;
    }
    *index = static_cast<size_t>(found - begin);
    return kOk;
}

const char* typeName(int type) {
    return type >= 0 && type < NUM_TYPES ? camera_metadata_type_names[type] : "unknown";
}

const char* nameOrUnknown(const char* name) {
    return name != nullptr ? name : "<unknown>";
}

}  // namespace

extern "C" {

const size_t camera_metadata_type_size[NUM_TYPES] = {
        sizeof(uint8_t), sizeof(int32_t), sizeof(float),
        sizeof(int64_t), sizeof(double),  sizeof(camera_metadata_rational_t),
};

const char* camera_metadata_type_names[NUM_TYPES] = {
        "byte", "int32", "float", "int64", "double", "rational",
};

size_t calculate_camera_metadata_size(size_t entry_count, size_t data_count) {
    const size_t dataStart = dataStartFor(entry_count);
    return alignTo(dataStart + data_count, kPacketAlignment);
}

namespace {
// Guards the allocation failures that tests set up.
std::mutex gFailLock;
int gFailAllocations = 0;
size_t gFailEntryCapacity = SIZE_MAX;
size_t gFailDataCapacity = SIZE_MAX;

bool shouldFailAllocation(size_t entryCapacity, size_t dataCapacity) {
    std::lock_guard<std::mutex> lock(gFailLock);
    if (gFailAllocations == 0) return false;
    if (gFailEntryCapacity != SIZE_MAX && gFailEntryCapacity != entryCapacity) return false;
    if (gFailDataCapacity != SIZE_MAX && gFailDataCapacity != dataCapacity) return false;
    gFailAllocations--;
    return true;
}
}  // namespace

namespace {
// Buffers allocated here and not yet freed, for the tests' balance checks.
std::atomic<size_t> gLiveBuffers{0};

camera_metadata_t* counted(camera_metadata_t* metadata) {
    if (metadata != nullptr) gLiveBuffers++;
    return metadata;
}
}  // namespace

extern "C++" size_t android::hostmetadata::liveCount() {
    return gLiveBuffers.load();
}

extern "C++" void android::hostmetadata::failNextAllocations(int count, size_t entryCapacity,
                                                             size_t dataCapacity) {
    std::lock_guard<std::mutex> lock(gFailLock);
    gFailAllocations = count;
    gFailEntryCapacity = entryCapacity;
    gFailDataCapacity = dataCapacity;
}

camera_metadata_t* allocate_camera_metadata(size_t entry_capacity, size_t data_capacity) {
    if (shouldFailAllocation(entry_capacity, data_capacity)) {
        return nullptr;
    }
    if (!capacitiesFit(entry_capacity, data_capacity)) {
        ALOGE("%s: Capacity of %zu entries and %zu data bytes is too large", __FUNCTION__,
              entry_capacity, data_capacity);
        return nullptr;
    }
    const size_t size = calculate_camera_metadata_size(entry_capacity, data_capacity);
    void* buffer = calloc(1, size);
    if (buffer == nullptr) {
        ALOGE("%s: Failed to allocate %zu bytes", __FUNCTION__, size);
        return nullptr;
    }
    return counted(place_camera_metadata(buffer, size, entry_capacity, data_capacity));
}

camera_metadata_t* place_camera_metadata(void* dst, size_t dst_size, size_t entry_capacity,
                                         size_t data_capacity) {
    if (dst == nullptr) {
        return nullptr;
    }
    if (!capacitiesFit(entry_capacity, data_capacity)) {
        ALOGE("%s: Capacity of %zu entries and %zu data bytes is too large", __FUNCTION__,
              entry_capacity, data_capacity);
        return nullptr;
    }
    const size_t needed = calculate_camera_metadata_size(entry_capacity, data_capacity);
    if (needed > dst_size) {
        ALOGE("%s: Memory needed to place camera metadata (%zu) > dst size (%zu)", __FUNCTION__,
              needed, dst_size);
        return nullptr;
    }
    auto* metadata = static_cast<camera_metadata_t*>(dst);
    metadata->size = static_cast<uint32_t>(needed);
    metadata->version = kCurrentVersion;
    metadata->flags = 0;
    metadata->entry_count = 0;
    metadata->entry_capacity = static_cast<uint32_t>(entry_capacity);
    metadata->entries_start = static_cast<uint32_t>(kEntriesStart);
    metadata->data_count = 0;
    metadata->data_capacity = static_cast<uint32_t>(data_capacity);
    metadata->data_start = static_cast<uint32_t>(dataStartFor(entry_capacity));
    metadata->padding = 0;
    metadata->vendor_id = CAMERA_METADATA_INVALID_VENDOR_ID;
    return metadata;
}

void free_camera_metadata(camera_metadata_t* metadata) {
    if (metadata != nullptr) gLiveBuffers--;
    free(metadata);
}

size_t get_camera_metadata_size(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->size : kError;
}

size_t get_camera_metadata_compact_size(const camera_metadata_t* metadata) {
    if (metadata == nullptr) {
        return kError;
    }
    return calculate_camera_metadata_size(metadata->entry_count, metadata->data_count);
}

size_t get_camera_metadata_entry_count(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->entry_count : kError;
}

size_t get_camera_metadata_entry_capacity(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->entry_capacity : kError;
}

size_t get_camera_metadata_data_count(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->data_count : kError;
}

size_t get_camera_metadata_data_capacity(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->data_capacity : kError;
}

size_t get_camera_metadata_alignment(void) {
    return kPacketAlignment;
}

camera_metadata_t* copy_camera_metadata(void* dst, size_t dst_size, const camera_metadata_t* src) {
    if (dst == nullptr || src == nullptr) {
        return nullptr;
    }
    const size_t needed = get_camera_metadata_compact_size(src);
    if (dst_size < needed) {
        ALOGE("%s: Memory needed to place camera metadata (%zu) > dst size (%zu)", __FUNCTION__,
              needed, dst_size);
        return nullptr;
    }
    return compactCopy(dst, dst_size, src);
}

/*
 * Checks a buffer that may come from anywhere (another process, a file). Every byte is read
 * through memcpy, and nothing outside [metadata, metadata + size) is read, where size is
 * *expected_size when given and the header's own size otherwise.
 */
int validate_camera_metadata_structure(const camera_metadata_t* metadata,
                                       const size_t* expected_size) {
    if (metadata == nullptr) {
        ALOGE("%s: metadata is null!", __FUNCTION__);
        return CAMERA_METADATA_VALIDATION_ERROR;
    }
    const bool shifted = reinterpret_cast<uintptr_t>(metadata) % kPacketAlignment != 0;

    if (expected_size != nullptr && *expected_size < kHeaderSize) {
        ALOGE("%s: Buffer of %zu bytes is smaller than the metadata header (%zu)", __FUNCTION__,
              *expected_size, kHeaderSize);
        return CAMERA_METADATA_VALIDATION_ERROR;
    }
    camera_metadata header;
    memcpy(&header, metadata, sizeof(header));

    if (expected_size != nullptr && header.size > *expected_size) {
        ALOGE("%s: Metadata size (%" PRIu32 ") is larger than the buffer (%zu)", __FUNCTION__,
              header.size, *expected_size);
        return CAMERA_METADATA_VALIDATION_ERROR;
    }
    if (header.size < kHeaderSize) {
        ALOGE("%s: Metadata size (%" PRIu32 ") is smaller than its header (%zu)", __FUNCTION__,
              header.size, kHeaderSize);
        return CAMERA_METADATA_VALIDATION_ERROR;
    }
    if (header.entry_count > header.entry_capacity) {
        ALOGE("%s: Entry count (%" PRIu32 ") exceeds entry capacity (%" PRIu32 ")", __FUNCTION__,
              header.entry_count, header.entry_capacity);
        return CAMERA_METADATA_VALIDATION_ERROR;
    }
    if (header.data_count > header.data_capacity) {
        ALOGE("%s: Data count (%" PRIu32 ") exceeds data capacity (%" PRIu32 ")", __FUNCTION__,
              header.data_count, header.data_capacity);
        return CAMERA_METADATA_VALIDATION_ERROR;
    }

    const uint64_t entriesEnd =
            header.entries_start + uint64_t{header.entry_capacity} * sizeof(BufferEntry);
    const uint64_t dataEnd = uint64_t{header.data_start} + header.data_capacity;
    if (header.entries_start < kHeaderSize || header.entries_start % kEntryAlignment != 0 ||
        entriesEnd > header.size) {
        ALOGE("%s: Entry records [%" PRIu32 ", %" PRIu64 ") do not fit the metadata (%" PRIu32
              " bytes) or are misaligned",
              __FUNCTION__, header.entries_start, entriesEnd, header.size);
        return CAMERA_METADATA_VALIDATION_ERROR;
    }
    if (header.data_start < kHeaderSize || header.data_start % kDataAlignment != 0 ||
        dataEnd > header.size) {
        ALOGE("%s: Payload area [%" PRIu32 ", %" PRIu64 ") does not fit the metadata (%" PRIu32
              " bytes) or is misaligned",
              __FUNCTION__, header.data_start, dataEnd, header.size);
        return CAMERA_METADATA_VALIDATION_ERROR;
    }
    if (entriesEnd > header.data_start && dataEnd > header.entries_start) {
        ALOGE("%s: Entry records [%" PRIu32 ", %" PRIu64 ") overlap the payload area [%" PRIu32
              ", %" PRIu64 ")",
              __FUNCTION__, header.entries_start, entriesEnd, header.data_start, dataEnd);
        return CAMERA_METADATA_VALIDATION_ERROR;
    }

    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(metadata);
    for (uint32_t i = 0; i < header.entry_count; ++i) {
        BufferEntry entry;
        memcpy(&entry, bytes + header.entries_start + size_t{i} * sizeof(BufferEntry),
               sizeof(entry));
        if (entry.type >= NUM_TYPES) {
            ALOGE("%s: Entry %" PRIu32 " (tag 0x%" PRIx32 ") has an invalid type %u", __FUNCTION__,
                  i, entry.tag, entry.type);
            return CAMERA_METADATA_VALIDATION_ERROR;
        }
        if (entry.tag < VENDOR_SECTION_START) {
            const int expectedType = get_camera_metadata_tag_type(entry.tag);
            if (expectedType != -1 && expectedType != entry.type) {
                ALOGE("%s: Entry %" PRIu32 " (%s.%s) has type %s, the tag's type is %s",
                      __FUNCTION__, i, nameOrUnknown(get_camera_metadata_section_name(entry.tag)),
                      nameOrUnknown(get_camera_metadata_tag_name(entry.tag)), typeName(entry.type),
                      typeName(expectedType));
                return CAMERA_METADATA_VALIDATION_ERROR;
            }
        }
        const uint64_t payloadBytes = uint64_t{entry.count} * camera_metadata_type_size[entry.type];
        if (payloadBytes <= kInlinePayloadBytes) {
            continue;
        }
        if (entry.data.offset % kTypeAlignment[entry.type] != 0) {
            ALOGE("%s: Entry %" PRIu32 " (tag 0x%" PRIx32 ") payload offset %" PRIu32
                  " is not aligned for type %s",
                  __FUNCTION__, i, entry.tag, entry.data.offset, typeName(entry.type));
            return CAMERA_METADATA_VALIDATION_ERROR;
        }
        if (entry.data.offset + payloadBytes > header.data_count) {
            ALOGE("%s: Entry %" PRIu32 " (tag 0x%" PRIx32 ") payload [%" PRIu32 ", +%" PRIu64
                  ") lies outside the used payload area (%" PRIu32 ")",
                  __FUNCTION__, i, entry.tag, entry.data.offset, payloadBytes, header.data_count);
            return CAMERA_METADATA_VALIDATION_ERROR;
        }
    }

    if (shifted) {
        ALOGW("%s: Metadata at %p is not aligned to %zu bytes; clone it before use", __FUNCTION__,
              static_cast<const void*>(metadata), kPacketAlignment);
        return CAMERA_METADATA_VALIDATION_SHIFTED;
    }
    return kOk;
}

int append_camera_metadata(camera_metadata_t* dst, const camera_metadata_t* src) {
    if (dst == nullptr || src == nullptr) {
        return kError;
    }
    if (uint64_t{dst->entry_count} + src->entry_count > dst->entry_capacity) {
        ALOGE("%s: Entry capacity exceeded (%" PRIu32 " + %" PRIu32 " > %" PRIu32 ")", __FUNCTION__,
              dst->entry_count, src->entry_count, dst->entry_capacity);
        return kError;
    }
    if (uint64_t{dst->data_count} + src->data_count > dst->data_capacity) {
        ALOGE("%s: Data capacity exceeded (%" PRIu32 " + %" PRIu32 " > %" PRIu32 ")", __FUNCTION__,
              dst->data_count, src->data_count, dst->data_capacity);
        return kError;
    }
    BufferEntry* appended = entriesOf(dst) + dst->entry_count;
    memcpy(appended, entriesOf(src), sizeof(BufferEntry) * src->entry_count);
    memcpy(dataOf(dst) + dst->data_count, dataOf(src), src->data_count);
    if (dst->data_count != 0) {
        for (uint32_t i = 0; i < src->entry_count; ++i) {
            if (calculate_camera_metadata_entry_data_size(appended[i].type, appended[i].count)) {
                appended[i].data.offset += dst->data_count;
            }
        }
    }
    // The result is sorted only if it consists of src alone and src was sorted.
    const uint32_t sorted = dst->entry_count == 0 ? (src->flags & kFlagSorted) : 0;
    dst->flags = (dst->flags & ~kFlagSorted) | sorted;
    if (dst->vendor_id == CAMERA_METADATA_INVALID_VENDOR_ID) {
        dst->vendor_id = src->vendor_id;
    }
    dst->entry_count += src->entry_count;
    dst->data_count += src->data_count;
    return kOk;
}

camera_metadata_t* clone_camera_metadata(const camera_metadata_t* src) {
    if (src == nullptr) {
        return nullptr;
    }
    camera_metadata header;
    memcpy(&header, src, sizeof(header));
    if (!capacitiesFit(header.entry_count, header.data_count)) {
        return nullptr;
    }
    const size_t size = calculate_camera_metadata_size(header.entry_count, header.data_count);
    void* buffer = calloc(1, size);
    if (buffer == nullptr) {
        ALOGE("%s: Failed to allocate %zu bytes", __FUNCTION__, size);
        return nullptr;
    }
    return counted(compactCopy(buffer, size, src));
}

camera_metadata_t* allocate_copy_camera_metadata_checked(const camera_metadata_t* src,
                                                         size_t src_size) {
    if (src == nullptr) {
        return nullptr;
    }
    if (validate_camera_metadata_structure(src, &src_size) == CAMERA_METADATA_VALIDATION_ERROR) {
        return nullptr;
    }
    void* buffer = malloc(src_size);
    if (buffer == nullptr) {
        ALOGE("%s: Failed to allocate %zu bytes", __FUNCTION__, src_size);
        return nullptr;
    }
    memcpy(buffer, src, src_size);
    auto* copy = static_cast<camera_metadata_t*>(buffer);
    // The source may change under us (shared memory): only the copy's check counts.
    if (validate_camera_metadata_structure(copy, &src_size) != kOk) {
        ALOGE("%s: Copied metadata failed validation", __FUNCTION__);
        free(buffer);
        return nullptr;
    }
    return counted(copy);
}

size_t calculate_camera_metadata_entry_data_size(uint8_t type, size_t data_count) {
    if (type >= NUM_TYPES) {
        return 0;
    }
    const size_t bytes = camera_metadata_type_size[type] * data_count;
    return bytes <= kInlinePayloadBytes ? 0 : alignTo(bytes, kDataAlignment);
}

int add_camera_metadata_entry(camera_metadata_t* dst, uint32_t tag, const void* data,
                              size_t data_count) {
    const int type = get_camera_metadata_tag_type(tag);
    if (type == -1) {
        ALOGE("%s: Unknown tag 0x%" PRIx32, __FUNCTION__, tag);
        return kError;
    }
    return addEntry(dst, tag, static_cast<uint8_t>(type), data, data_count);
}

int sort_camera_metadata(camera_metadata_t* dst) {
    if (dst == nullptr) {
        return kError;
    }
    if (dst->flags & kFlagSorted) {
        return kOk;
    }
    BufferEntry* entries = entriesOf(dst);
    std::stable_sort(entries, entries + dst->entry_count,
                     [](const BufferEntry& a, const BufferEntry& b) { return a.tag < b.tag; });
    dst->flags |= kFlagSorted;
    return kOk;
}

int get_camera_metadata_entry(camera_metadata_t* src, size_t index, camera_metadata_entry_t* entry) {
    return fillEntry(src, index, entry);
}

int get_camera_metadata_ro_entry(const camera_metadata_t* src, size_t index,
                                 camera_metadata_ro_entry_t* entry) {
    return fillEntry(src, index, entry);
}

int find_camera_metadata_entry(camera_metadata_t* src, uint32_t tag,
                               camera_metadata_entry_t* entry) {
    size_t index = 0;
    const int result = findEntryIndex(src, tag, &index);
    if (result != kOk || entry == nullptr) {
        return result;
    }
    return fillEntry(src, index, entry);
}

int find_camera_metadata_ro_entry(const camera_metadata_t* src, uint32_t tag,
                                  camera_metadata_ro_entry_t* entry) {
    size_t index = 0;
    const int result = findEntryIndex(src, tag, &index);
    if (result != kOk || entry == nullptr) {
        return result;
    }
    return fillEntry(src, index, entry);
}

int delete_camera_metadata_entry(camera_metadata_t* dst, size_t index) {
    if (dst == nullptr || index >= dst->entry_count) {
        return kError;
    }
    BufferEntry* entry = entriesOf(dst) + index;
    const size_t dataBytes = calculate_camera_metadata_entry_data_size(entry->type, entry->count);
    if (dataBytes != 0 && removePayload(dst, entry->data.offset, dataBytes) != kOk) {
        return kError;
    }
    memmove(entry, entry + 1, sizeof(BufferEntry) * (dst->entry_count - index - 1));
    dst->entry_count--;
    return kOk;
}

int update_camera_metadata_entry(camera_metadata_t* dst, size_t index, const void* data,
                                 size_t data_count, camera_metadata_entry_t* updated_entry) {
    if (dst == nullptr || index >= dst->entry_count || data_count > UINT32_MAX ||
        (data == nullptr && data_count != 0)) {
        return kError;
    }
    BufferEntry* entry = entriesOf(dst) + index;
    if (entry->type >= NUM_TYPES) {
        return kError;
    }
    const size_t oldBytes = calculate_camera_metadata_entry_data_size(entry->type, entry->count);
    const size_t newBytes = calculate_camera_metadata_entry_data_size(entry->type, data_count);
    const size_t payloadBytes = camera_metadata_type_size[entry->type] * data_count;
    if (newBytes != oldBytes) {
        if (dst->data_count - oldBytes + newBytes > dst->data_capacity) {
            ALOGE("%s: Data capacity exceeded (%" PRIu32 " - %zu + %zu > %" PRIu32 ")",
                  __FUNCTION__, dst->data_count, oldBytes, newBytes, dst->data_capacity);
            return kError;
        }
        if (oldBytes != 0 && removePayload(dst, entry->data.offset, oldBytes) != kOk) {
            return kError;
        }
        if (newBytes != 0) {
            entry->data.offset = dst->data_count;
            dst->data_count += newBytes;
        }
    }
    uint8_t* payload = entry->data.value;
    size_t slotBytes = kInlinePayloadBytes;
    if (newBytes != 0) {
        payload = dataOf(dst) + entry->data.offset;
        slotBytes = newBytes;
    }
    if (payloadBytes != 0) {
        memmove(payload, data, payloadBytes);
    }
    memset(payload + payloadBytes, 0, slotBytes - payloadBytes);
    entry->count = static_cast<uint32_t>(data_count);
    if (updated_entry != nullptr) {
        fillEntry(dst, index, updated_entry);
    }
    return kOk;
}

}  // extern "C"

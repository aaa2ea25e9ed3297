/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Backend metadata handles, the per-camera metadata operations table and the static
 * characteristics.
 */
#define LOG_TAG "KivReferenceBackend"

#include "BackendMetadata.h"

#include <log/log.h>

#include <algorithm>
#include <vector>

#include "ReferenceBackend.h"

namespace kivref {

BackendMetadata::BackendMetadata(uint32_t cameraId, camera_metadata_t* metadata, bool byContext)
    : mCameraId(cameraId), mOwnedByContext(byContext), mMetadata(metadata) {}

BackendMetadata::~BackendMetadata() {
    free_camera_metadata(mMetadata);
}

bool BackendMetadata::Hold() {
    std::lock_guard<std::mutex> lock(mLock);
    if (mHeld) return false;
    mHeld = true;
    return true;
}

void BackendMetadata::Unhold() {
    std::lock_guard<std::mutex> lock(mLock);
    mHeld = false;
}

bool BackendMetadata::Held() {
    std::lock_guard<std::mutex> lock(mLock);
    return mHeld;
}

camera_metadata_t* BackendMetadata::Clone() {
    std::lock_guard<std::mutex> lock(mLock);
    return clone_camera_metadata(mMetadata);
}

size_t BackendMetadata::EntryCount() {
    std::lock_guard<std::mutex> lock(mLock);
    return get_camera_metadata_entry_count(mMetadata);
}

int BackendMetadata::Set(uint32_t tag, const void* data, size_t count) {
    std::lock_guard<std::mutex> lock(mLock);
    return SetLocked(tag, data, count);
}

int BackendMetadata::Merge(const camera_metadata_t* source) {
    std::lock_guard<std::mutex> lock(mLock);
    size_t count = get_camera_metadata_entry_count(source);
    for (size_t i = 0; i < count; i++) {
        camera_metadata_ro_entry_t entry;
        if (get_camera_metadata_ro_entry(source, i, &entry) != 0) return -1;
        if (SetLocked(entry.tag, entry.data.u8, entry.count) != 0) return -1;
    }
    return 0;
}

int BackendMetadata::SetLocked(uint32_t tag, const void* data, size_t count) {
    int type = get_camera_metadata_tag_type(tag);
    if (type < 0) return -1;
    camera_metadata_entry_t existing;
    if (find_camera_metadata_entry(mMetadata, tag, &existing) == 0 &&
        delete_camera_metadata_entry(mMetadata, existing.index) != 0) {
        return -1;
    }
    size_t dataNeeded = calculate_camera_metadata_entry_data_size(type, count);
    size_t entries = get_camera_metadata_entry_count(mMetadata);
    size_t dataUsed = get_camera_metadata_data_count(mMetadata);
    size_t entryCapacity = get_camera_metadata_entry_capacity(mMetadata);
    size_t dataCapacity = get_camera_metadata_data_capacity(mMetadata);
    if (entries + 1 > entryCapacity || dataUsed + dataNeeded > dataCapacity) {
        camera_metadata_t* bigger =
                allocate_camera_metadata(std::max(entryCapacity * 2, entries + 1),
                                         std::max(dataCapacity * 2, dataUsed + dataNeeded));
        if (bigger == nullptr) return -1;
        if (append_camera_metadata(bigger, mMetadata) != 0) {
            free_camera_metadata(bigger);
            return -1;
        }
        free_camera_metadata(mMetadata);
        mMetadata = bigger;
    }
    return add_camera_metadata_entry(mMetadata, tag, data, count);
}

namespace {

constexpr size_t kMinEntryCapacity = 8;
constexpr size_t kMinDataCapacity = 64;

Registry& Reg() {
    return Registry::Get();
}

// Looks up a metadata table for a slot; records the call's table and camera either way.
bool OpenTable(const char* caller, const KivMetadataOps* ops, CallRecord* record) {
    record->table = ops;
    uint32_t cameraId = KIV_CAMERA_ID_ANY;
    if (!Reg().FindMetadataOps(ops, &cameraId)) {
        ALOGE("%s: metadata table %p is not open", caller, ops);
        return false;
    }
    record->cameraId = cameraId;
    return true;
}

int32_t MetaClose(const KivMetadataOps* ops) {
    CallRecord record;
    record.slot = Slot::MetaClose;
    record.table = ops;
    uint32_t cameraId = KIV_CAMERA_ID_ANY;
    int32_t status = 0;
    if (!Reg().RemoveMetadataOps(ops, &cameraId)) {
        ALOGE("%s: metadata table %p is not open", __func__, ops);
        status = -1;
    } else if (Reg().IsFailing(Slot::MetaClose)) {
        status = -1;
    }
    ALOGI("%s: camera %u table %p status %d", __func__, cameraId, ops, status);
    record.cameraId = cameraId;
    record.status = status;
    Reg().Record(std::move(record));
    return status;
}

KivMetadataHandle CreateKivMetadata(const KivMetadataOps* ops, const uint32_t* tags,
                                    uint32_t count) {
    CallRecord record;
    record.slot = Slot::CreateKivMetadata;
    record.ints[0] = count;
    record.pointer = tags;
    void* handle = nullptr;
    if (OpenTable(__func__, ops, &record) && !Reg().IsFailing(Slot::CreateKivMetadata)) {
        camera_metadata_t* metadata =
                allocate_camera_metadata(std::max<size_t>(count, kMinEntryCapacity),
                                         std::max<size_t>(count * 8u, kMinDataCapacity));
        if (metadata != nullptr) {
            auto created = std::make_shared<BackendMetadata>(record.cameraId, metadata);
            handle = Reg().AddMetadata(std::move(created));
        }
    }
    record.handle = handle;
    record.result = handle;
    Reg().Record(std::move(record));
    return handle;
}

int32_t DestroyKivMetadata(KivMetadataHandle handle) {
    CallRecord record;
    record.slot = Slot::DestroyKivMetadata;
    record.handle = handle;
    int32_t status = 0;
    std::shared_ptr<BackendMetadata> metadata = Reg().FindMetadata(handle);
    if (metadata == nullptr) {
        ALOGE("%s: %p is not a live metadata handle", __func__, handle);
        status = -1;
    } else if (metadata->OwnedByContext()) {
        ALOGE("%s: %p holds static characteristics and belongs to its context", __func__, handle);
        status = -1;
    } else if (metadata->Held()) {
        ALOGE("%s: %p is held by a request that has not returned it yet", __func__, handle);
        status = -1;
    } else {
        Reg().RemoveMetadata(handle);
        if (Reg().IsFailing(Slot::DestroyKivMetadata)) status = -1;
    }
    if (metadata != nullptr) record.cameraId = metadata->CameraId();
    record.status = status;
    Reg().Record(std::move(record));
    return status;
}

KivMetadataHandle CreateByAndroidMetadata(const KivMetadataOps* ops, const camera_metadata_t* src,
                                          int32_t arg0, int32_t arg1, uint32_t arg2) {
    CallRecord record;
    record.slot = Slot::CreateByAndroidMetadata;
    record.ints[0] = arg0;
    record.ints[1] = arg1;
    record.ints[2] = arg2;
    record.pointer = src;
    void* handle = nullptr;
    if (OpenTable(__func__, ops, &record) && !Reg().IsFailing(Slot::CreateByAndroidMetadata) &&
        src != nullptr) {
        camera_metadata_t* copy = clone_camera_metadata(src);
        if (copy != nullptr) {
            auto created = std::make_shared<BackendMetadata>(record.cameraId, copy);
            handle = Reg().AddMetadata(std::move(created));
        }
    }
    record.handle = handle;
    record.result = handle;
    Reg().Record(std::move(record));
    return handle;
}

camera_metadata_t* CreateAndroidMetadata(const KivMetadataOps* ops, KivMetadataHandle handle,
                                         int32_t arg0, int32_t arg1, uint32_t arg2, uint32_t* out) {
    CallRecord record;
    record.slot = Slot::CreateAndroidMetadata;
    record.ints[0] = arg0;
    record.ints[1] = arg1;
    record.ints[2] = arg2;
    record.pointer = out;
    record.handle = handle;
    camera_metadata_t* result = nullptr;
    if (OpenTable(__func__, ops, &record) && !Reg().IsFailing(Slot::CreateAndroidMetadata)) {
        std::shared_ptr<BackendMetadata> metadata = Reg().FindMetadata(handle);
        if (metadata == nullptr) {
            ALOGE("%s: %p is not a live metadata handle", __func__, handle);
        } else {
            if (metadata->CameraId() != record.cameraId &&
                metadata->CameraId() != KIV_CAMERA_ID_ANY) {
                ALOGW("%s: handle of camera %u read through the table of camera %u", __func__,
                      metadata->CameraId(), record.cameraId);
            }
            result = metadata->Clone();
            if (result != nullptr) {
                Reg().AddAndroidMetadata(result);
                if (out != nullptr) *out = get_camera_metadata_size(result);
            }
        }
    }
    record.result = result;
    Reg().Record(std::move(record));
    return result;
}

int32_t ReleaseAndroidMetadata(const KivMetadataOps* ops, camera_metadata_t* metadata) {
    CallRecord record;
    record.slot = Slot::ReleaseAndroidMetadata;
    record.pointer = metadata;
    int32_t status = 0;
    if (!OpenTable(__func__, ops, &record)) {
        status = -1;
    } else if (metadata != nullptr) {
        if (Reg().RemoveAndroidMetadata(metadata)) {
            free_camera_metadata(metadata);
        } else {
            ALOGE("%s: %p was not made by this backend or is released already", __func__, metadata);
            status = -1;
        }
    }
    if (status == 0 && Reg().IsFailing(Slot::ReleaseAndroidMetadata)) status = -1;
    record.status = status;
    Reg().Record(std::move(record));
    return status;
}

constexpr uint8_t kLevelFull = ANDROID_INFO_SUPPORTED_HARDWARE_LEVEL_FULL;

struct StaticValue {
    uint32_t tag;
    std::vector<int32_t> i32;
    std::vector<uint8_t> u8;
};

// The default static characteristics: eight entries, 24 bytes of data.
const std::vector<StaticValue>& DefaultStatic() {
    static const std::vector<StaticValue> values = {
            {ANDROID_INFO_SUPPORTED_HARDWARE_LEVEL, {}, {kLevelFull}},
            {ANDROID_SENSOR_INFO_ACTIVE_ARRAY_SIZE, {0, 0, 4000, 3000}, {}},
            {ANDROID_SENSOR_INFO_PIXEL_ARRAY_SIZE, {4000, 3000}, {}},
            {ANDROID_REQUEST_PARTIAL_RESULT_COUNT, {1}, {}},
            {ANDROID_REQUEST_PIPELINE_MAX_DEPTH, {}, {4}},
            {ANDROID_REQUEST_AVAILABLE_CAPABILITIES,
             {},
             {ANDROID_REQUEST_AVAILABLE_CAPABILITIES_BACKWARD_COMPATIBLE,
              ANDROID_REQUEST_AVAILABLE_CAPABILITIES_YUV_REPROCESSING}},
            {ANDROID_LENS_FACING, {}, {ANDROID_LENS_FACING_BACK}},
            {ANDROID_SENSOR_ORIENTATION, {90}, {}},
    };
    return values;
}

// Tags with a single inline value, used to make scripted characteristics of any size.
const std::vector<StaticValue>& InlinePool() {
    static const std::vector<StaticValue> values = {
            {ANDROID_INFO_SUPPORTED_HARDWARE_LEVEL, {}, {kLevelFull}},
            {ANDROID_REQUEST_PARTIAL_RESULT_COUNT, {1}, {}},
            {ANDROID_REQUEST_PIPELINE_MAX_DEPTH, {}, {4}},
            {ANDROID_LENS_FACING, {}, {ANDROID_LENS_FACING_BACK}},
            {ANDROID_SENSOR_ORIENTATION, {90}, {}},
            {ANDROID_SENSOR_INFO_TIMESTAMP_SOURCE, {}, {1}},
            {ANDROID_FLASH_INFO_AVAILABLE, {}, {0}},
            {ANDROID_SYNC_MAX_LATENCY, {0}, {}},
            {ANDROID_REQUEST_MAX_NUM_INPUT_STREAMS, {1}, {}},
            {ANDROID_REPROCESS_MAX_CAPTURE_STALL, {2}, {}},
            {ANDROID_SENSOR_INFO_WHITE_LEVEL, {1023}, {}},
            {ANDROID_SENSOR_MAX_ANALOG_SENSITIVITY, {800}, {}},
            {ANDROID_JPEG_MAX_SIZE, {1 << 20}, {}},
            {ANDROID_STATISTICS_INFO_MAX_FACE_COUNT, {0}, {}},
            {ANDROID_TONEMAP_MAX_CURVE_POINTS, {64}, {}},
            {ANDROID_SCALER_CROPPING_TYPE, {}, {0}},
    };
    return values;
}

int AddValue(camera_metadata_t* metadata, const StaticValue& value) {
    if (!value.i32.empty()) {
        return add_camera_metadata_entry(metadata, value.tag, value.i32.data(), value.i32.size());
    }
    return add_camera_metadata_entry(metadata, value.tag, value.u8.data(), value.u8.size());
}

camera_metadata_t* BuildStatic(const Script& script) {
    if (!script.customStatic) {
        const std::vector<StaticValue>& values = DefaultStatic();
        camera_metadata_t* metadata = allocate_camera_metadata(values.size(), 24);
        if (metadata == nullptr) return nullptr;
        for (const StaticValue& value : values) {
            if (AddValue(metadata, value) != 0) {
                free_camera_metadata(metadata);
                return nullptr;
            }
        }
        return metadata;
    }
    // One byte array carries the data bytes (kept out of line by being longer than 4 bytes);
    // the other entries are inline, taken from the pool and repeated when it runs out.
    size_t dataBytes = (script.staticDataBytes + 7) / 8 * 8;
    camera_metadata_t* metadata = allocate_camera_metadata(script.staticEntries, dataBytes);
    if (metadata == nullptr) return nullptr;
    const std::vector<StaticValue>& pool = InlinePool();
    size_t poolIndex = 0;
    for (size_t i = 0; i < script.staticEntries; i++) {
        int result;
        if (i == 0 && dataBytes > 0) {
            std::vector<uint8_t> capabilities(
                    dataBytes, ANDROID_REQUEST_AVAILABLE_CAPABILITIES_BACKWARD_COMPATIBLE);
            result = add_camera_metadata_entry(metadata, ANDROID_REQUEST_AVAILABLE_CAPABILITIES,
                                               capabilities.data(), capabilities.size());
        } else {
            result = AddValue(metadata, pool[poolIndex++ % pool.size()]);
        }
        if (result != 0) {
            free_camera_metadata(metadata);
            return nullptr;
        }
    }
    return metadata;
}

}  // namespace

KivMetadataOps MakeMetadataOps(const Script& script) {
    auto present = [&script](Slot slot) {
        return script.absent.count(static_cast<uint32_t>(slot)) == 0;
    };
    KivMetadataOps ops = {};
    if (present(Slot::MetaClose)) ops.pfnClose = MetaClose;
    if (present(Slot::CreateKivMetadata)) ops.pfnCreateKivMetadata = CreateKivMetadata;
    if (present(Slot::DestroyKivMetadata)) ops.pfnDestroyKivMetadata = DestroyKivMetadata;
    if (present(Slot::CreateByAndroidMetadata)) {
        ops.pfnCreateByAndroidMetadata = CreateByAndroidMetadata;
    }
    if (present(Slot::CreateAndroidMetadata)) ops.pfnCreateAndroidMetadata = CreateAndroidMetadata;
    if (present(Slot::ReleaseAndroidMetadata)) {
        ops.pfnReleaseAndroidMetadata = ReleaseAndroidMetadata;
    }
    return ops;
}

void* MakeStaticMetadata(const Script& script) {
    camera_metadata_t* metadata = BuildStatic(script);
    if (metadata == nullptr) {
        ALOGE("%s: cannot build static characteristics of %zu entries, %zu data bytes", __func__,
              script.staticEntries, script.staticDataBytes);
        return nullptr;
    }
    return Reg().AddMetadata(std::make_shared<BackendMetadata>(KIV_CAMERA_ID_ANY, metadata,
                                                               /*ownedByContext=*/true));
}

void FreeStaticMetadata(void* handle) {
    if (handle != nullptr) Reg().RemoveMetadata(handle);
}

size_t DefaultStaticEntries() {
    return DefaultStatic().size();
}

}  // namespace kivref

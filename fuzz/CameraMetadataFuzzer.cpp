/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Camera metadata bytes as they arrive in a CameraMetadata parcelable: the structure check must
 * reject every malformed buffer without reading outside it, and every buffer it accepts must be
 * safe to walk, look up, copy and convert.
 */
#include <aidl/android/hardware/camera/device/CameraMetadata.h>
#include <convert.h>
#include <stdint.h>
#include <string.h>
#include <system/camera_metadata.h>

#include <memory>
#include <vector>

#include "FuzzSupport.h"

using ::aidl::android::hardware::camera::device::CameraMetadata;
namespace convert = ::android::hardware::camera::device::implementation;

namespace {

using ::offlinecamera::fuzz::Check;

void WalkAcceptedMetadata(const camera_metadata_t* metadata, size_t size) {
    const size_t count = get_camera_metadata_entry_count(metadata);
    Check(count <= get_camera_metadata_entry_capacity(metadata));
    Check(get_camera_metadata_size(metadata) <= size);
    for (size_t i = 0; i < count; ++i) {
        camera_metadata_ro_entry_t entry{};
        if (get_camera_metadata_ro_entry(metadata, i, &entry) != 0) continue;
        // Touch every payload byte so a payload pointing outside the buffer is caught.
        const size_t bytes = entry.count * camera_metadata_type_size[entry.type];
        volatile uint8_t sink = 0;
        for (size_t b = 0; b < bytes; ++b) sink ^= entry.data.u8[b];
        (void)sink;
        // A lookup may miss (the sorted flag of received metadata is not verified), but what it
        // finds must be the tag asked for.
        camera_metadata_ro_entry_t found{};
        if (find_camera_metadata_ro_entry(metadata, entry.tag, &found) == 0) {
            Check(found.tag == entry.tag);
        }
    }

    camera_metadata_t* clone = clone_camera_metadata(metadata);
    if (clone != nullptr) {
        Check(get_camera_metadata_entry_count(clone) == count);
        size_t cloneSize = get_camera_metadata_size(clone);
        Check(validate_camera_metadata_structure(clone, &cloneSize) == 0);
        free_camera_metadata(clone);
    }

    // Round trip through the parcelable, as the service hands metadata to clients.
    CameraMetadata parcel;
    convert::convertToAidl(metadata, &parcel);
    const camera_metadata_t* back = nullptr;
    Check(convert::convertFromAidl(parcel, &back));
    Check(back == nullptr || get_camera_metadata_entry_count(back) == count);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    offlinecamera::fuzz::SilenceLog();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // Exactly size bytes, so that any read past the end is caught.
    std::unique_ptr<uint8_t[]> bytes(new uint8_t[size == 0 ? 1 : size]);
    memcpy(bytes.get(), data, size);
    const auto* metadata = reinterpret_cast<const camera_metadata_t*>(bytes.get());

    size_t expected = size;
    const bool accepted = validate_camera_metadata_structure(metadata, &expected) == 0;

    CameraMetadata parcel;
    parcel.metadata.assign(data, data + size);
    const camera_metadata_t* converted = nullptr;
    const bool convertAccepted = convert::convertFromAidl(parcel, &converted);
    if (size != 0 && convertAccepted) {
        // The converter accepts only what the structure check accepts.
        Check(accepted);
    }
    if (accepted) {
        WalkAcceptedMetadata(metadata, size);
    }
    return 0;
}

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host-only control of the camera metadata stand-in.
 */
#pragma once

#include <stddef.h>
#include <stdint.h>

namespace android::hostmetadata {

// Metadata buffers that allocate_camera_metadata, clone_camera_metadata and
// allocate_copy_camera_metadata_checked made and free_camera_metadata has not freed yet.
__attribute__((visibility("default"))) size_t liveCount();

/*
 * The next `count` calls of allocate_camera_metadata() with these capacities fail and return
 * null; SIZE_MAX matches any capacity.
 */
__attribute__((visibility("default"))) void failNextAllocations(int count,
                                                                size_t entryCapacity = SIZE_MAX,
                                                                size_t dataCapacity = SIZE_MAX);

}  // namespace android::hostmetadata

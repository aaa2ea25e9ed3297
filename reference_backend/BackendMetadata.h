/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * A backend metadata handle: a camera_metadata buffer that grows as entries are set, tagged with
 * the camera of the table that made it.
 */
#pragma once

#include <stddef.h>
#include <stdint.h>
#include <system/camera_metadata.h>

#include <mutex>

namespace kivref {

class BackendMetadata {
  public:
    // Takes ownership of `metadata`.
    BackendMetadata(uint32_t cameraId, camera_metadata_t* metadata, bool ownedByContext = false);
    ~BackendMetadata();
    BackendMetadata(const BackendMetadata&) = delete;
    BackendMetadata& operator=(const BackendMetadata&) = delete;

    uint32_t CameraId() const { return mCameraId; }
    bool OwnedByContext() const { return mOwnedByContext; }

    // A request holds the handle from pfnExecuteRequest until its result hands it back; the
    // caller cannot destroy it in between. False when it is held already.
    bool Hold();
    void Unhold();
    bool Held();

    // A copy of the contents that the caller frees with free_camera_metadata.
    camera_metadata_t* Clone();
    size_t EntryCount();

    // Adds or replaces the entry of `tag`, growing the buffer when it is full.
    int Set(uint32_t tag, const void* data, size_t count);
    // Sets every entry of `source` in this handle.
    int Merge(const camera_metadata_t* source);

  private:
    int SetLocked(uint32_t tag, const void* data, size_t count);

    const uint32_t mCameraId;
    const bool mOwnedByContext;
    // Guards mMetadata and mHeld.
    std::mutex mLock;
    camera_metadata_t* mMetadata;
    bool mHeld = false;
};

}  // namespace kivref

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * HandleImporter: imports, maps and frees graphics buffer handles and fence handles received
 * over binder, through the platform's GraphicBufferMapper.
 */
#pragma once

#include <cutils/native_handle.h>
#include <stdint.h>
#include <system/graphics.h>
#include <ui/Rect.h>

#include "Locks.h"

namespace android::hardware::camera::common::V1_0::helper {

class HandleImporter {
  public:
    HandleImporter();

    /*
     * Replaces handle with a process-local imported copy; true on success. A handle without
     * descriptors and integers is an empty buffer and becomes null.
     */
    bool importBuffer(buffer_handle_t& handle);

    /* importBuffer without taking the importer's lock; the caller serialises. */
    bool importBufferInternal(buffer_handle_t& handle);

    /* Releases a handle made by importBuffer; null is ignored. */
    void freeBuffer(buffer_handle_t handle);

    /* Gives a duplicate of a fence handle's descriptor in fd, or -1 for no fence. */
    bool importFence(const native_handle_t* handle, int& fd) const;
    void closeFence(int fd) const;

    /* Maps a one-dimensional (blob) buffer of size bytes; null on failure. */
    void* lock(buffer_handle_t& handle, uint64_t usage, size_t size);
    /* Maps the given region of a buffer; null on failure. */
    void* lock(buffer_handle_t& handle, uint64_t usage, const android::Rect& accessRegion);
    /* Maps a YCbCr buffer; the planes are all null on failure. */
    android_ycbcr lockYCbCr(buffer_handle_t& handle, uint64_t usage,
                            const android::Rect& accessRegion);
    /* Ends a lock; gives the release fence, owned by the caller, or -1. */
    int unlock(buffer_handle_t& handle);

    void cleanup();

  private:
    void initializeLocked() REQUIRES(mLock);

    // Serialises the mapper calls of import, free, lock and lockYCbCr.
    offlinecamera::Mutex mLock;
    bool mInitialized GUARDED_BY(mLock);
};

}  // namespace android::hardware::camera::common::V1_0::helper

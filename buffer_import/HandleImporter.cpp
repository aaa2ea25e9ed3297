/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "HandleImporter.h"

#include <android-base/unique_fd.h>
#include <ui/GraphicBufferMapper.h>
#include <unistd.h>

#include "OfflineLog.h"

// Every failure is logged at ERROR; each format's first "%s" names the operation.
#define LOG_TAG "HandleImporter"

namespace android::hardware::camera::common::V1_0::helper {

HandleImporter::HandleImporter() : mInitialized(false) {}

void HandleImporter::initializeLocked() {
    if (!mInitialized) {
        mInitialized = true;
    }
}

void HandleImporter::cleanup() {
    offlinecamera::MutexLock lock(mLock);
    mInitialized = false;
}

bool HandleImporter::importBufferInternal(buffer_handle_t& handle) {
    buffer_handle_t imported = nullptr;
    const status_t status = GraphicBufferMapper::get().importBufferNoValidate(handle, &imported);
    if (status != OK) {
        OFFLINE_LOGE(LOG_TAG, "%s: mapper importBuffer failed: %d", "importBufferInternal", status);
        return false;
    }
    handle = imported;
    return true;
}

bool HandleImporter::importBuffer(buffer_handle_t& handle) {
    if (handle->numFds == 0 && handle->numInts == 0) {
        handle = nullptr;
        return true;
    }
    offlinecamera::MutexLock lock(mLock);
    initializeLocked();
    return importBufferInternal(handle);
}

void HandleImporter::freeBuffer(buffer_handle_t handle) {
    if (handle == nullptr) {
        return;
    }
    offlinecamera::MutexLock lock(mLock);
    initializeLocked();
    const status_t status = GraphicBufferMapper::get().freeBuffer(handle);
    if (status != OK) {
        OFFLINE_LOGE(LOG_TAG, "%s: mapper freeBuffer failed, status: %d", "freeBuffer", status);
    }
}

bool HandleImporter::importFence(const native_handle_t* handle, int& fd) const {
    if (handle == nullptr || handle->numFds == 0) {
        fd = -1;
        return true;
    }
    if (handle->numFds == 1) {
        fd = dup(handle->data[0]);
        if (fd < 0) {
            OFFLINE_LOGE(LOG_TAG, "failed to dup fence fd %d", handle->data[0]);
            return false;
        }
        return true;
    }
    OFFLINE_LOGE(LOG_TAG, "invalid fence handle with %d file descriptors", handle->numFds);
    return false;
}

void HandleImporter::closeFence(int fd) const {
    if (fd >= 0) {
        close(fd);
    }
}

void* HandleImporter::lock(buffer_handle_t& handle, uint64_t usage, size_t size) {
    const android::Rect accessRegion(0, 0, static_cast<int32_t>(size), 1);
    return lock(handle, usage, accessRegion);
}

void* HandleImporter::lock(buffer_handle_t& handle, uint64_t usage,
                           const android::Rect& accessRegion) {
    offlinecamera::MutexLock lock(mLock);
    initializeLocked();
    void* address = nullptr;
    const status_t status = GraphicBufferMapper::get().lock(handle, static_cast<uint32_t>(usage),
                                                            accessRegion, &address);
    if (status != OK) {
        OFFLINE_LOGE(LOG_TAG, "%s: mapper lock failed, status: %d", "lock", status);
    }
    return address;
}

android_ycbcr HandleImporter::lockYCbCr(buffer_handle_t& handle, uint64_t usage,
                                        const android::Rect& accessRegion) {
    offlinecamera::MutexLock lock(mLock);
    initializeLocked();
    android_ycbcr layout = {};
    const status_t status = GraphicBufferMapper::get().lockYCbCr(
            handle, static_cast<uint32_t>(usage), accessRegion, &layout);
    if (status != OK) {
        OFFLINE_LOGE(LOG_TAG, "%s: mapper lockYCbCr failed, status: %d", "lockYCbCr", status);
    }
    return layout;
}

int HandleImporter::unlock(buffer_handle_t& handle) {
    // Deliberately outside mLock: an unlock may wait for the consumer's work to finish and must
    // not hold up imports and frees of other buffers.
    base::unique_fd releaseFence;
    const status_t status = GraphicBufferMapper::get().unlock(handle, &releaseFence);
    const int fd = releaseFence.release();
    if (status != OK) {
        OFFLINE_LOGE(LOG_TAG, "%s: mapper unlockAsync failed, status: %d", "unlock", status);
    }
    return fd;
}

}  // namespace android::hardware::camera::common::V1_0::helper

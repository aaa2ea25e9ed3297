/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for libui's <ui/GraphicBufferMapper.h> (Android 15 lock/unlock API).
 *
 * Buffers are memfd-backed; see <hostplatform/GrallocTesting.h> for the handle format and the
 * plane layouts.
 */
#pragma once

#include <android-base/unique_fd.h>
#include <cutils/native_handle.h>
#include <stdint.h>
#include <system/graphics.h>
#include <ui/PixelFormat.h>
#include <ui/Rect.h>
#include <utils/Errors.h>

namespace android {

class GraphicBufferMapper {
  public:
    enum Version { GRALLOC_2 = 2, GRALLOC_3, GRALLOC_4, GRALLOC_5 };

    // The process-wide mapper, created on first use.
    static GraphicBufferMapper& get();
    static void preloadHal() {}

    Version getMapperVersion() const { return GRALLOC_5; }

    // Imports a buffer after checking that it matches the given description.
    status_t importBuffer(const native_handle_t* rawHandle, uint32_t width, uint32_t height,
                          uint32_t layerCount, PixelFormat format, uint64_t usage, uint32_t stride,
                          buffer_handle_t* outHandle);

    // Makes a process-local handle (with duplicated descriptors) of a received buffer handle.
    status_t importBufferNoValidate(const native_handle_t* rawHandle, buffer_handle_t* outHandle);

    // Releases a handle made by an import: closes its descriptors and deletes it.
    status_t freeBuffer(buffer_handle_t handle);

    // Maps the buffer for CPU access and gives its start address; bounds is the region the
    // caller will access (for a BLOB buffer, width = bytes and height = 1).
    status_t lock(buffer_handle_t handle, uint32_t usage, const Rect& bounds, void** vaddr);

    // Maps a YCbCr buffer and describes its planes, starting at the bounds' top-left sample.
    status_t lockYCbCr(buffer_handle_t handle, uint32_t usage, const Rect& bounds,
                       android_ycbcr* ycbcr);

    // Ends a lock. outFence, when given, receives the release fence (-1 for none); otherwise
    // the fence is waited for and closed.
    status_t unlock(buffer_handle_t handle, base::unique_fd* outFence = nullptr);

    status_t unlockAsync(buffer_handle_t handle, int* fenceFd) {
        base::unique_fd fence;
        const status_t status = unlock(handle, &fence);
        if (fenceFd != nullptr) {
            *fenceFd = fence.release();
        }
        return status;
    }

  private:
    GraphicBufferMapper() = default;
    GraphicBufferMapper(const GraphicBufferMapper&) = delete;
    GraphicBufferMapper& operator=(const GraphicBufferMapper&) = delete;
};

}  // namespace android

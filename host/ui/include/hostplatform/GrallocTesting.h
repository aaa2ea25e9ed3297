/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host-only control of the memfd-backed graphics buffers behind android::GraphicBufferMapper.
 *
 * Buffer handle format: a native_handle with 1 fd, a memfd holding the pixels, and 8 ints:
 *   [0] kHandleMagic  [1] width  [2] height  [3] format  [4] stride (in pixels)
 *   [5] usage, low 32 bits  [6] usage, high 32 bits  [7] size of the pixel data in bytes
 *
 * Layouts (stride = width; all planes are packed one after another):
 *   BLOB, Y8: 1 byte per pixel (a BLOB of N bytes is N x 1).
 *   RGB_565, RAW16, YCBCR_422_I: 2 bytes per pixel. RGB_888: 3. RGBA/RGBX/BGRA_8888: 4.
 *   With cw = (width + 1) / 2 and ch = (height + 1) / 2:
 *   YCBCR_420_888, IMPLEMENTATION_DEFINED: Y plane, then Cb plane (cw x ch), then Cr plane.
 *   YV12: Y plane, then Cr plane (cw x ch), then Cb plane.
 *   YCRCB_420_SP (NV21): Y plane, then ch rows of interleaved Cr,Cb pairs (2 * cw bytes a row).
 *   YCBCR_422_SP (NV16): Y plane, then height rows of interleaved Cb,Cr pairs.
 */
#pragma once

#include <cutils/native_handle.h>
#include <stddef.h>
#include <stdint.h>
#include <ui/Rect.h>
#include <utils/Errors.h>

namespace android {
namespace hostgralloc {

constexpr int32_t kHandleMagic = 0x48474246;  // "HGBF"
constexpr int kHandleInts = 8;

// A client-side buffer as another process would send it: a new memfd of the format's size.
// Null for an unknown format or an empty size. Free with release().
native_handle_t* allocate(uint32_t width, uint32_t height, int32_t format, uint64_t usage);

// Closes the handle's descriptors and deletes it.
void release(native_handle_t* handle);

// Handles imported through the mapper and not freed yet.
size_t liveImportCount();

enum class Op { Import, Free, Lock, LockYCbCr, Unlock };

// The next count calls of op fail with status and have no effect (an Unlock still hands out
// the fence that setUnlockFence asks for).
void failNext(Op op, status_t status, int count = 1);
void clearFailures();

// When set, every successful or injected-failing unlock produces a release fence (an eventfd)
// instead of -1.
void setUnlockFence(bool produceFence);

// The bounds and usage of the last lock or lockYCbCr request.
Rect lastLockRect();
uint32_t lastLockUsage();

// Calls of op since start-up or the last resetCounters(), failed ones included.
size_t callCount(Op op);
void resetCounters();

}  // namespace hostgralloc
}  // namespace android

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Buffer descriptions and plane layouts of the host's memfd-backed graphics buffers (handle
 * format and layouts: see <hostplatform/GrallocTesting.h>).
 */
#pragma once

#include <cutils/native_handle.h>
#include <stddef.h>
#include <stdint.h>
#include <system/graphics.h>
#include <ui/Rect.h>

namespace android {
namespace hostgralloc {

enum HandleInt {
    kIntMagic,
    kIntWidth,
    kIntHeight,
    kIntFormat,
    kIntStride,
    kIntUsageLow,
    kIntUsageHigh,
    kIntSize,
};

struct BufferDescription {
    uint32_t width = 0;
    uint32_t height = 0;
    int32_t format = 0;
    uint32_t stride = 0;
    uint64_t usage = 0;
    size_t size = 0;
};

// Fills stride and size for width x height of format; false for unknown formats and for
// empty or oversized buffers.
bool describeBuffer(uint32_t width, uint32_t height, int32_t format, uint64_t usage,
                    BufferDescription* description);

// Reads the description carried by a handle; false unless it is a well-formed host buffer
// handle whose ints agree with its format.
bool readDescription(const native_handle_t* handle, BufferDescription* description);

// Whether bounds lies inside the buffer; an all-zero rectangle means the whole buffer.
bool boundsInside(const BufferDescription& description, const Rect& bounds);

// Plane layout of a YCbCr buffer mapped at base, from the bounds' top-left sample; false for
// formats without YCbCr planes.
bool ycbcrLayout(const BufferDescription& description, uint8_t* base, const Rect& bounds,
                 android_ycbcr* ycbcr);

}  // namespace hostgralloc
}  // namespace android

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Sizes and plane layouts of the host's graphics buffers, and allocation of client buffers.
 */
#define LOG_TAG "HostGralloc"

#include "HostGralloc.h"

#include <hostplatform/GrallocTesting.h>
#include <log/log.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

namespace android {
namespace hostgralloc {
namespace {

// Bytes per pixel of the single-plane formats; 0 for others.
uint32_t bytesPerPixel(int32_t format) {
    switch (format) {
        case HAL_PIXEL_FORMAT_BLOB:
        case HAL_PIXEL_FORMAT_Y8:
            return 1;
        case HAL_PIXEL_FORMAT_RGB_565:
        case HAL_PIXEL_FORMAT_RAW16:
        case HAL_PIXEL_FORMAT_YCBCR_422_I:
            return 2;
        case HAL_PIXEL_FORMAT_RGB_888:
            return 3;
        case HAL_PIXEL_FORMAT_RGBA_8888:
        case HAL_PIXEL_FORMAT_RGBX_8888:
        case HAL_PIXEL_FORMAT_BGRA_8888:
            return 4;
        default:
            return 0;
    }
}

bool isYuv420(int32_t format) {
    return format == HAL_PIXEL_FORMAT_YCBCR_420_888 ||
           format == HAL_PIXEL_FORMAT_IMPLEMENTATION_DEFINED || format == HAL_PIXEL_FORMAT_YV12 ||
           format == HAL_PIXEL_FORMAT_YCRCB_420_SP;
}

// Byte size for the layout, or 0 when the format has none.
uint64_t layoutSize(uint32_t stride, uint32_t height, int32_t format) {
    const uint64_t lumaBytes = uint64_t{stride} * height;
    const uint64_t chromaWidth = (uint64_t{stride} + 1) / 2;
    if (isYuv420(format)) {
        return lumaBytes + 2 * chromaWidth * ((uint64_t{height} + 1) / 2);
    }
    if (format == HAL_PIXEL_FORMAT_YCBCR_422_SP) {
        return lumaBytes + 2 * chromaWidth * height;
    }
    return lumaBytes * bytesPerPixel(format);
}

}  // namespace

bool describeBuffer(uint32_t width, uint32_t height, int32_t format, uint64_t usage,
                    BufferDescription* description) {
    if (width == 0 || height == 0 || width > INT32_MAX || height > INT32_MAX) {
        return false;
    }
    const uint64_t size = layoutSize(width, height, format);
    // The size travels as one int of the handle.
    if (size == 0 || size > INT32_MAX) {
        return false;
    }
    description->width = width;
    description->height = height;
    description->format = format;
    description->stride = width;
    description->usage = usage;
    description->size = static_cast<size_t>(size);
    return true;
}

bool readDescription(const native_handle_t* handle, BufferDescription* description) {
    if (handle == nullptr || handle->version != sizeof(native_handle_t) || handle->numFds < 1 ||
        handle->numInts < kHandleInts) {
        return false;
    }
    const int* ints = &handle->data[handle->numFds];
    if (ints[kIntMagic] != kHandleMagic) {
        return false;
    }
    const uint64_t usage = static_cast<uint32_t>(ints[kIntUsageLow]) |
                           (uint64_t{static_cast<uint32_t>(ints[kIntUsageHigh])} << 32);
    BufferDescription expected;
    if (!describeBuffer(static_cast<uint32_t>(ints[kIntWidth]),
                        static_cast<uint32_t>(ints[kIntHeight]), ints[kIntFormat], usage,
                        &expected) ||
        expected.stride != static_cast<uint32_t>(ints[kIntStride]) ||
        expected.size != static_cast<size_t>(ints[kIntSize])) {
        return false;
    }
    *description = expected;
    return true;
}

bool boundsInside(const BufferDescription& description, const Rect& bounds) {
    if (bounds == Rect(0, 0, 0, 0)) {
        return true;
    }
    return bounds.left >= 0 && bounds.top >= 0 && bounds.left < bounds.right &&
           bounds.top < bounds.bottom && static_cast<uint32_t>(bounds.right) <= description.width &&
           static_cast<uint32_t>(bounds.bottom) <= description.height;
}

bool ycbcrLayout(const BufferDescription& description, uint8_t* base, const Rect& bounds,
                 android_ycbcr* ycbcr) {
    const size_t left = static_cast<size_t>(bounds.left);
    const size_t top = static_cast<size_t>(bounds.top);
    const size_t stride = description.stride;
    const size_t chromaWidth = (stride + 1) / 2;
    const size_t chromaHeight = (description.height + 1) / 2;
    uint8_t* chroma = base + stride * description.height;

    memset(ycbcr, 0, sizeof(*ycbcr));
    ycbcr->y = base + top * stride + left;
    ycbcr->ystride = stride;
    switch (description.format) {
        case HAL_PIXEL_FORMAT_YCBCR_420_888:
        case HAL_PIXEL_FORMAT_IMPLEMENTATION_DEFINED:
        case HAL_PIXEL_FORMAT_YV12: {
            const size_t offset = (top / 2) * chromaWidth + left / 2;
            uint8_t* first = chroma + offset;
            uint8_t* second = chroma + chromaWidth * chromaHeight + offset;
            const bool crFirst = description.format == HAL_PIXEL_FORMAT_YV12;
            ycbcr->cb = crFirst ? second : first;
            ycbcr->cr = crFirst ? first : second;
            ycbcr->cstride = chromaWidth;
            ycbcr->chroma_step = 1;
            return true;
        }
        case HAL_PIXEL_FORMAT_YCRCB_420_SP: {
            uint8_t* pair = chroma + (top / 2) * 2 * chromaWidth + (left / 2) * 2;
            ycbcr->cr = pair;
            ycbcr->cb = pair + 1;
            ycbcr->cstride = 2 * chromaWidth;
            ycbcr->chroma_step = 2;
            return true;
        }
        case HAL_PIXEL_FORMAT_YCBCR_422_SP: {
            uint8_t* pair = chroma + top * 2 * chromaWidth + (left / 2) * 2;
            ycbcr->cb = pair;
            ycbcr->cr = pair + 1;
            ycbcr->cstride = 2 * chromaWidth;
            ycbcr->chroma_step = 2;
            return true;
        }
        default:
            memset(ycbcr, 0, sizeof(*ycbcr));
            return false;
    }
}

native_handle_t* allocate(uint32_t width, uint32_t height, int32_t format, uint64_t usage) {
    BufferDescription description;
    if (!describeBuffer(width, height, format, usage, &description)) {
        ALOGE("%s: cannot describe a %ux%u buffer of format 0x%x", __FUNCTION__, width, height,
              format);
        return nullptr;
    }
    const int fd = memfd_create("hostgralloc-buffer", MFD_CLOEXEC);
    if (fd < 0) {
        ALOGE("%s: memfd_create failed: %s", __FUNCTION__, strerror(errno));
        return nullptr;
    }
    if (ftruncate(fd, static_cast<off_t>(description.size)) != 0) {
        ALOGE("%s: ftruncate to %zu bytes failed: %s", __FUNCTION__, description.size,
              strerror(errno));
        close(fd);
        return nullptr;
    }
    native_handle_t* handle = native_handle_create(1, kHandleInts);
    if (handle == nullptr) {
        close(fd);
        return nullptr;
    }
    handle->data[0] = fd;
    int* ints = &handle->data[1];
    ints[kIntMagic] = kHandleMagic;
    ints[kIntWidth] = static_cast<int>(description.width);
    ints[kIntHeight] = static_cast<int>(description.height);
    ints[kIntFormat] = description.format;
    ints[kIntStride] = static_cast<int>(description.stride);
    ints[kIntUsageLow] = static_cast<int>(static_cast<uint32_t>(usage));
    ints[kIntUsageHigh] = static_cast<int>(static_cast<uint32_t>(usage >> 32));
    ints[kIntSize] = static_cast<int>(description.size);
    return handle;
}

void release(native_handle_t* handle) {
    if (handle == nullptr) {
        return;
    }
    native_handle_close(handle);
    native_handle_delete(handle);
}

}  // namespace hostgralloc
}  // namespace android

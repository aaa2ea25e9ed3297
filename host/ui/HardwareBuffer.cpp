/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * AHardwareBuffer of the host libnativewindow: a reference-counted memfd-backed buffer of the
 * host allocator.
 */
#include <android/hardware_buffer.h>
#include <errno.h>
#include <hostplatform/GrallocTesting.h>
#include <vndk/hardware_buffer.h>

#include <atomic>

#include "HostGralloc.h"

struct AHardwareBuffer {
    native_handle_t* handle;
    AHardwareBuffer_Desc desc;
    std::atomic<int32_t> references;
};

int AHardwareBuffer_allocate(const AHardwareBuffer_Desc* desc, AHardwareBuffer** outBuffer) {
    if (desc == nullptr || outBuffer == nullptr || desc->layers != 1) return -EINVAL;
    android::hostgralloc::BufferDescription description;
    if (!android::hostgralloc::describeBuffer(desc->width, desc->height,
                                              static_cast<int32_t>(desc->format), desc->usage,
                                              &description)) {
        return -EINVAL;
    }
    native_handle_t* handle = android::hostgralloc::allocate(
            desc->width, desc->height, static_cast<int32_t>(desc->format), desc->usage);
    if (handle == nullptr) return -EINVAL;
    AHardwareBuffer* buffer = new AHardwareBuffer{handle, *desc, {1}};
    buffer->desc.stride = description.stride;
    *outBuffer = buffer;
    return 0;
}

void AHardwareBuffer_acquire(AHardwareBuffer* buffer) {
    if (buffer != nullptr) buffer->references.fetch_add(1, std::memory_order_relaxed);
}

void AHardwareBuffer_release(AHardwareBuffer* buffer) {
    if (buffer == nullptr || buffer->references.fetch_sub(1, std::memory_order_acq_rel) != 1) {
        return;
    }
    android::hostgralloc::release(buffer->handle);
    delete buffer;
}

void AHardwareBuffer_describe(const AHardwareBuffer* buffer, AHardwareBuffer_Desc* outDesc) {
    if (buffer != nullptr && outDesc != nullptr) *outDesc = buffer->desc;
}

const native_handle_t* AHardwareBuffer_getNativeHandle(const AHardwareBuffer* buffer) {
    return buffer == nullptr ? nullptr : buffer->handle;
}

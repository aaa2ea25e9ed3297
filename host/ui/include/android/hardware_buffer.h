/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for the NDK <android/hardware_buffer.h> (libnativewindow): graphics buffers
 * allocated as the host's memfd-backed buffers (see <hostplatform/GrallocTesting.h>), with the
 * formats and usage bits that the host allocator knows.
 */
#pragma once

#include <stdint.h>
#include <sys/cdefs.h>

__BEGIN_DECLS

/* Formats, with the values of the graphics HAL's pixel formats. */
enum AHardwareBuffer_Format {
    AHARDWAREBUFFER_FORMAT_R8G8B8A8_UNORM = 1,
    AHARDWAREBUFFER_FORMAT_BLOB = 0x21,
    AHARDWAREBUFFER_FORMAT_Y8Cb8Cr8_420 = 0x23,
};

enum AHardwareBuffer_UsageFlags {
    AHARDWAREBUFFER_USAGE_CPU_READ_RARELY = 2UL,
    AHARDWAREBUFFER_USAGE_CPU_READ_OFTEN = 3UL,
    AHARDWAREBUFFER_USAGE_CPU_WRITE_RARELY = 2UL << 4,
    AHARDWAREBUFFER_USAGE_CPU_WRITE_OFTEN = 3UL << 4,
};

typedef struct AHardwareBuffer_Desc {
    uint32_t width;
    uint32_t height;
    uint32_t layers;
    uint32_t format;
    uint64_t usage;
    uint32_t stride;
    uint32_t rfu0;
    uint64_t rfu1;
} AHardwareBuffer_Desc;

typedef struct AHardwareBuffer AHardwareBuffer;

/*
 * Allocates a buffer of one layer and holds one reference to it for the caller. Returns 0, or
 * -EINVAL (nothing allocated) for a null argument, more than one layer, or a format or size
 * that the allocator refuses.
 */
int AHardwareBuffer_allocate(const AHardwareBuffer_Desc* desc, AHardwareBuffer** outBuffer);

/* Takes one more reference. */
void AHardwareBuffer_acquire(AHardwareBuffer* buffer);

/* Drops one reference; the last one frees the buffer and closes its descriptor. */
void AHardwareBuffer_release(AHardwareBuffer* buffer);

/* The buffer's description, with its stride in pixels. */
void AHardwareBuffer_describe(const AHardwareBuffer* buffer, AHardwareBuffer_Desc* outDesc);

__END_DECLS

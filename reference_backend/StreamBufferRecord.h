/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The backend's own layout of KivStreamBuffer: what it needs to give a camera3 stream buffer back
 * unchanged, plus the image description taken from the stream so that processing does not have
 * to reach into the stream.
 */
#pragma once

#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "KivOfflineInterface.h"

namespace kivref {

struct StreamBufferRecord {
    uint32_t magic;
    uint32_t version;
    camera3_stream_t* stream;
    buffer_handle_t handle;   // the handle value, so that a translated-back buffer points here
    buffer_handle_t* source;  // where the handle was read from
    int32_t status;
    int32_t acquireFence;
    int32_t releaseFence;
    uint32_t width;
    uint32_t height;
    int32_t format;
    uint32_t usage;
    int32_t streamType;
    uint32_t dataSpace;
    uint32_t vendorReserved;
    void* vendorPriv;
    uint64_t reserved[14];
};

constexpr uint32_t kStreamBufferMagic = 0x4B495642;  // "KIVB"
constexpr uint32_t kStreamBufferVersion = 1;

static_assert(sizeof(StreamBufferRecord) == sizeof(KivStreamBuffer), "KivStreamBuffer size");
static_assert(offsetof(StreamBufferRecord, magic) == 0, "magic");
static_assert(offsetof(StreamBufferRecord, version) == 4, "version");
static_assert(offsetof(StreamBufferRecord, stream) == 8, "stream");
static_assert(offsetof(StreamBufferRecord, handle) == 16, "handle");
static_assert(offsetof(StreamBufferRecord, source) == 24, "source");
static_assert(offsetof(StreamBufferRecord, status) == 32, "status");
static_assert(offsetof(StreamBufferRecord, acquireFence) == 36, "acquireFence");
static_assert(offsetof(StreamBufferRecord, releaseFence) == 40, "releaseFence");
static_assert(offsetof(StreamBufferRecord, width) == 44, "width");
static_assert(offsetof(StreamBufferRecord, height) == 48, "height");
static_assert(offsetof(StreamBufferRecord, format) == 52, "format");
static_assert(offsetof(StreamBufferRecord, usage) == 56, "usage");
static_assert(offsetof(StreamBufferRecord, streamType) == 60, "streamType");
static_assert(offsetof(StreamBufferRecord, dataSpace) == 64, "dataSpace");
static_assert(offsetof(StreamBufferRecord, vendorReserved) == 68, "vendorReserved");
static_assert(offsetof(StreamBufferRecord, vendorPriv) == 72, "vendorPriv");
static_assert(offsetof(StreamBufferRecord, reserved) == 80, "reserved");

// Reads a KivStreamBuffer; false when it was not filled by this backend.
inline bool ReadStreamBuffer(const KivStreamBuffer& buffer, StreamBufferRecord* record) {
    memcpy(record, &buffer, sizeof(*record));
    return record->magic == kStreamBufferMagic && record->version == kStreamBufferVersion;
}

inline void WriteStreamBuffer(const StreamBufferRecord& record, KivStreamBuffer* buffer) {
    memcpy(buffer, &record, sizeof(record));
}

}  // namespace kivref

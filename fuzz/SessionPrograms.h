/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The encodings of the session fuzzers' inputs, shared with the seed writer. Inputs are read
 * front to back; bytes past the end read as zero, and values are little-endian.
 *
 * Requests (fuzz_session_requests): a header byte, then up to kMaxSteps steps.
 *   header  bits 0-1 configuration (ConfigurationChoice), bit 2 automatic delivery off at the
 *           start, bits 3-4 the end (SessionEnd), bit 5 the client dies after the end
 *   step    op byte (RequestOp), then for kRequests a count byte (% 4) and that many requests,
 *           for kFailAllocation a byte
 *   request frame number (4 bytes), frames byte (% 4), per frame a buffers byte (% 5), the
 *           buffers and a settings choice; outputs byte (% 4) and the output buffers
 *   buffer  stream byte (% 8: kStreamChoices, 7 reads 4 more bytes), id byte (below 0xf0: the
 *           id is byte % 8, else 8 more bytes), handle byte (% 8: 0-4 valid, 5 empty, 6 ints
 *           only, 7 foreign), status byte (bit 0: error)
 *   settings byte % 4 (SettingsChoice); kGarbage reads a length byte (% 33) and the bytes,
 *           kTruncated a byte giving how many bytes of valid settings are cut off
 *
 * Configurations (fuzz_session_configuration): up to kMaxConfigurations configurations, each
 *   a camera id text (length byte % 13, then the characters), streams byte (% 6) and the
 *   streams, operation mode (4 bytes), backend operation mode byte (below 0xc0: 0, else 4 more
 *   bytes), session parameters (a SettingsChoice byte as above), and an after byte (AfterOp).
 *   stream  id byte (% 8: 0-5 that id, 6 -1, 7 reads 4 more bytes), type byte, width and
 *           height (2 bytes each), format (4 bytes), usage (8 bytes), data space (4 bytes),
 *           rotation byte, physical camera id text (length byte % 9), buffer size (4 bytes),
 *           group id byte, dynamic range profile (8 bytes), use case byte, color space byte
 *
 * Backend records (fuzz_backend_records): up to kMaxSteps steps over a session configured with
 *   the standard streams whose backend holds two requests (automatic delivery off).
 *   step    op byte (RecordOp)
 *   kResults   count byte (% 5; bit 7 set: an empty call without an array), records
 *   record     part byte (% 3: PartChoice), frame number (4 bytes), then per part: buffers byte
 *              (% 5; bit 7 set: no buffer array), the buffers, partial result (4 bytes) and a
 *              metadata byte (% 3: MetadataChoice)
 *   buffer     kind byte (% 4: BufferChoice); kCached and kUnknownHandle read an index byte and
 *              a status byte, kArbitrary reads 192 bytes
 *   kMessages  count byte (% 5), messages: type byte (% 4: ERROR, SHUTTER, 0, the next byte),
 *              frame number (4 bytes), then for ERROR an error code byte (% 6) and a stream
 *              byte (% 4: null or the configured stream of that index), for SHUTTER a
 *              timestamp (8 bytes)
 */
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <limits>

namespace offlinecamera::fuzz {

constexpr size_t kMaxSteps = 8;
constexpr size_t kMaxConfigurations = 4;
/* Valid buffers an input may allocate; later ones travel with empty handles. */
constexpr size_t kMaxValidBuffers = 64;

enum class ConfigurationChoice : uint8_t {
    kNone,
    kStandard,
    kStandardTwice,
    kStandardThenCameraOne,
};

enum class SessionEnd : uint8_t {
    kClose,
    kDrop,
    kDieThenClose,
    kDieThenDrop,
};

enum class RequestOp : uint8_t {
    kRequests,
    kFlush,
    kToggleDelivery,
    kWaitIdle,
    kFailAllocation,  // a byte (% 16): that many vendor allocations succeed, the next fails
    kCount
};

/* The stream ids that request buffers name by index (the last index reads an id). */
constexpr int32_t kStreamChoices[] = {1, 2, 3, -1, 9, 0, std::numeric_limits<int32_t>::min()};
constexpr size_t kNumStreamChoices = sizeof(kStreamChoices) / sizeof(kStreamChoices[0]) + 1;
/* Id bytes from here on read an 8-byte buffer id. */
constexpr uint8_t kArbitraryId = 0xf0;

enum class SettingsChoice : uint8_t { kEmpty, kValid, kGarbage, kTruncated, kCount };

enum class AfterOp : uint8_t { kNothing, kFlush, kDump, kCount };

enum class RecordOp : uint8_t {
    kResults,
    kMessages,
    kDeliverHeld,  // the backend delivers the requests it holds
    kFlush,        // the backend returns the requests it holds as failed
    kRequest,      // one more request of the standard shape
    kCount
};

enum class PartChoice : uint8_t { kOutput, kInput, kBoth, kCount };

enum class BufferChoice : uint8_t {
    kCached,         // the backend's translation of a buffer the session imported
    kUnknownHandle,  // the translation of a configured stream's buffer the session never saw
    kNoStream,       // the translation of a buffer without a stream
    kArbitrary,      // bytes that the backend did not write
    kCount
};

enum class MetadataChoice : uint8_t {
    kNone,
    kLive,     // made by the camera's operations for this record
    kGarbage,  // an address that is not backend metadata
    kCount
};

/* Size of a backend stream buffer record. */
constexpr size_t kKivStreamBufferBytes = 192;

}  // namespace offlinecamera::fuzz

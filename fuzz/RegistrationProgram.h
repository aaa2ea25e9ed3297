/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The encoding of the registration fuzzer's programs, shared with the seed writer.
 *
 * A program is a sequence of operations, each an operation byte (modulo kNumOps) followed by its
 * argument bytes; bytes past the end read as zero.
 *   kRegister    id, choice: choice % 16 == 15 registers no callback; otherwise the client object
 *                choice % kNumClients, made anew when bit 0x10 is set or when there is none yet
 *   kUnregister  id
 *   kKill        client object: its process dies
 *   kFailLink    failure: the next death link fails
 *   kProducer    id, bit 0: register (1) or unregister (0) the producer
 *   kRequest     id, streams (% 3), count 0, stream 0, count 1, stream 1 (counts % 4), reply
 *                (% Reply::kCount), fault (where the reply's fault lands, and the failed status)
 *   kResult      id, shape: 0xff is a null result; else bits 0-1 the number of held buffers
 *                given back (then one byte per buffer: which of those still to choose from),
 *                0x04 metadata, 0x08 a buffer that was never lent (then one more byte: its
 *                place), 0x10 the buffers' status is ERROR
 */
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <limits>

namespace offlinecamera::fuzz {

enum RegistrationOp : uint8_t {
    kRegister,
    kUnregister,
    kKill,
    kFailLink,
    kProducer,
    kRequest,
    kResult,
    kNumOps
};

/* How the client answers a buffer request. */
enum class Reply : uint8_t {
    kLend,
    kLendFewer,         // one buffer less on one stream
    kOneBufferTooMany,  // one buffer more on one stream
    kEntryMissing,
    kEntryExtra,
    kStatusFails,
    kTransactionFails,
    kEmptyHandle,   // one buffer without a handle
    kUnimportable,  // one handle that the mapper does not know
    kImportFails,   // the mapper refuses the first import
    kCount
};

/* The client ids that programs name by index. */
constexpr int32_t kClientIds[] = {0,
                                  -1,
                                  1,
                                  2,
                                  3,
                                  4,
                                  5,
                                  6,
                                  7,
                                  42,
                                  std::numeric_limits<int32_t>::min(),
                                  std::numeric_limits<int32_t>::max()};
constexpr size_t kNumIds = sizeof(kClientIds) / sizeof(kClientIds[0]);
constexpr size_t kNumClients = 12;

}  // namespace offlinecamera::fuzz

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Shared pieces of the fuzz targets.
 */
#pragma once

#include <android/log.h>
#include <stddef.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "ProcessCounts.h"

namespace offlinecamera::fuzz {

/* Drops liblog output: the targets log on every rejected input. */
inline void SilenceLog() {
    __android_log_set_logger([](const struct __android_logger_data*, const char*) {});
}

using ::offlinecamera::test::CountOpenFds;

/* Stops the process so that libFuzzer keeps the input: a broken invariant is a finding. */
inline void Check(bool condition) {
    if (!condition) __builtin_trap();
}

/* Reads a fuzz input front to back; past its end every byte reads as zero. */
class ByteReader {
  public:
    ByteReader(const uint8_t* data, size_t size) : mData(data), mSize(size) {}

    bool Done() const { return mPos >= mSize; }
    uint8_t Next() { return mPos < mSize ? mData[mPos++] : 0; }
    /* A value below n (n > 0). */
    size_t Below(size_t n) { return Next() % n; }
    bool Bit() { return (Next() & 1) != 0; }

    /* Little-endian values. */
    uint64_t Bits(int bytes) {
        uint64_t value = 0;
        for (int i = 0; i < bytes; i++) value |= static_cast<uint64_t>(Next()) << (8 * i);
        return value;
    }
    uint32_t U32() { return static_cast<uint32_t>(Bits(4)); }
    int32_t I32() { return static_cast<int32_t>(U32()); }
    int64_t I64() { return static_cast<int64_t>(Bits(8)); }

    /* A length byte (below maxLength + 1), then that many bytes. */
    std::vector<uint8_t> Bytes(size_t maxLength) {
        std::vector<uint8_t> bytes(Below(maxLength + 1));
        for (uint8_t& byte : bytes) byte = Next();
        return bytes;
    }
    std::string Text(size_t maxLength) {
        const std::vector<uint8_t> bytes = Bytes(maxLength);
        return std::string(bytes.begin(), bytes.end());
    }

  private:
    const uint8_t* mData;
    size_t mSize;
    size_t mPos = 0;
};

}  // namespace offlinecamera::fuzz

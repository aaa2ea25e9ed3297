/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Multi-frame fusion of the reference backend: the output image is the rounded per-sample mean of
 * the input images of the same size and format. Buffers are reached through the platform's
 * graphics buffer mapper.
 */
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <vector>

#include "StreamBufferRecord.h"

namespace kivref {

// Formats whose samples the fusion averages: 8-bit Y8, YCbCr_420_888, RGBA/RGBX/BGRA_8888,
// RGB_888, and 16-bit RAW16 and Y16. Other formats pass through as the caller filled them.
bool IsFusableFormat(int32_t format);

enum class FuseStatus {
    Fused,       // the output holds the mean of the inputs that matched it
    NoInputs,    // no input matched the output; the output is left as it was
    LockFailed,  // a buffer could not be mapped; the output is left as it was
};

// Writes the mean of `inputs` into `output`. Inputs whose size or format differ from the output's
// are skipped with a log line; `fused` receives how many were averaged. The output's format must
// be one that IsFusableFormat accepts.
FuseStatus FuseFrames(const std::vector<StreamBufferRecord>& inputs,
                      const StreamBufferRecord& output, size_t* fused);

}  // namespace kivref

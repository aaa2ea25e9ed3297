/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for the NDK binder <android/binder_parcelable_utils.h>. Nothing is parcelled on
 * the host; this provides the stability marker that generated parcelables declare.
 */
#pragma once

#include <android/binder_parcel.h>

namespace ndk {

/* Stability of a parcelable: usable within one partition, or across the vendor interface. */
enum {
    STABILITY_LOCAL,
    STABILITY_VINTF,
};
typedef int32_t parcelable_stability_t;

}  // namespace ndk

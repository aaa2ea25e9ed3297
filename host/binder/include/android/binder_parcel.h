/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for the NDK binder <android/binder_parcel.h>. Binder calls on the host stay in
 * the process and nothing is parcelled, so AParcel is an empty container here.
 */
#pragma once

#include <android/binder_status.h>
#include <sys/cdefs.h>

__BEGIN_DECLS

struct AParcel;
typedef struct AParcel AParcel;

/* New, empty parcel owned by the caller. */
__attribute__((warn_unused_result)) AParcel* AParcel_create(void);

/* Deletes a parcel made by AParcel_create; null is ignored. */
void AParcel_delete(AParcel* parcel);

__END_DECLS

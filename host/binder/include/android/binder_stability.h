/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for <android/binder_stability.h>. Stability levels only matter to the binder
 * driver's partition checks, which the in-process host binder does not have: marking a binder
 * has no effect.
 */
#pragma once

#include <android/binder_ibinder.h>
#include <sys/cdefs.h>

__BEGIN_DECLS

/* Marks a binder as part of the VINTF (vendor interface) stability contract. */
void AIBinder_markVintfStability(AIBinder* binder);

/* Marks a binder as usable by vendor code only. */
void AIBinder_markVendorStability(AIBinder* binder);

/* Marks a binder as usable by system code only. */
void AIBinder_markSystemStability(AIBinder* binder);

/* Marks a binder as usable by any code in the same partition as its creator. */
void AIBinder_forceDowngradeToLocalStability(AIBinder* binder);

__END_DECLS

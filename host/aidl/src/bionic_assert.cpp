/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * bionic's assertion failure handler, for the host C library (see aidl/internal/BionicAssert.h).
 */
#include <aidl/internal/BionicAssert.h>
#include <stdio.h>
#include <stdlib.h>

#ifndef __BIONIC__
extern "C" __attribute__((weak)) void __assert2(const char* file, int line, const char* function,
                                                const char* failed_expression) {
    fprintf(stderr, "%s:%d: %s: assertion \"%s\" failed\n", file, line, function, failed_expression);
    fflush(stderr);
    abort();
}
#endif  // __BIONIC__

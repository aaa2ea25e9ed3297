/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The generated unions stop the process through bionic's assertion handler when get<>() names
 * the alternative that the union does not hold. On bionic it comes with <assert.h>; for other C
 * libraries the host build provides it (android_hardware_aidl_ndk): it prints
 * "<file>:<line>: <function>: assertion "<expression>" failed" to stderr and aborts.
 */
#pragma once

#include <assert.h>

#ifndef __BIONIC__
extern "C" void __assert2(const char* file, int line, const char* function,
                          const char* failed_expression) __attribute__((__noreturn__));
#endif  // __BIONIC__

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for the NDK binder <android/binder_shell.h>: the shell-command hook of a binder
 * class.
 */
#pragma once

#include <android/binder_ibinder.h>
#include <stdint.h>
#include <sys/cdefs.h>

__BEGIN_DECLS

/* Runs a shell command on a local binder, with the given descriptors as stdin/stdout/stderr. */
typedef binder_status_t (*AIBinder_handleShellCommand)(AIBinder* binder, int in, int out, int err,
                                                       const char** argv, uint32_t argc);

/* Sets the shell-command hook of a class; call it before binders of the class are made. */
void AIBinder_Class_setHandleShellCommand(AIBinder_Class* clazz,
                                          AIBinder_handleShellCommand handleShellCommand);

__END_DECLS

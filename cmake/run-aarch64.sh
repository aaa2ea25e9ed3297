#!/bin/sh
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Runs an aarch64 program under qemu-user: run-aarch64.sh <program> [arguments...]
#
# Without a binfmt_misc registration the build machine's kernel cannot execute an aarch64 file,
# yet GoogleTest's death tests re-execute the test program through its argv[0]. So the program
# gets this script as its argv[0] and its own path in RUN_AARCH64_PROGRAM, which it passes on to
# its children: when it re-executes argv[0], this script starts the same program under qemu again,
# with the arguments it was given.
set -e
if [ -z "${RUN_AARCH64_PROGRAM:-}" ]; then
    RUN_AARCH64_PROGRAM=$1
    shift
    export RUN_AARCH64_PROGRAM
fi
exec qemu-aarch64 -0 "$0" "$RUN_AARCH64_PROGRAM" "$@"

# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Cross build for 64-bit Arm Linux with Debian's aarch64 toolchain (g++-aarch64-linux-gnu).
#
# No sysroot: with the arm64 architecture enabled in dpkg, the arm64 builds of Android's liblog,
# libcutils and libbase (/usr/lib/aarch64-linux-gnu/android) and of GoogleTest
# (/usr/lib/aarch64-linux-gnu/cmake/GTest) sit in the build machine's own multiarch directories,
# which the library architecture below selects. Build-time tools (python3, bash, nm) run on the
# build machine; test programs run under qemu-user through run-aarch64.sh.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)

set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/run-aarch64.sh)

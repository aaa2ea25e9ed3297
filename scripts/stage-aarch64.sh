#!/usr/bin/env bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Cross-builds the library, the reference backend and the tests for 64-bit Arm with Debian's
# aarch64 toolchain and the arm64 builds of the packages the tree uses, then runs every test under
# qemu-user. Usage: scripts/stage-aarch64.sh <build-dir>
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
dir=$1

bash "$root/scripts/setup.sh" g++-aarch64-linux-gnu qemu-user \
    libc6:arm64 libstdc++6:arm64 libgtest-dev:arm64 \
    android-liblog-dev:arm64 android-libcutils-dev:arm64 android-libbase-dev:arm64
bash "$root/scripts/build.sh" "$dir" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/aarch64-linux-gnu.cmake" \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo
ctest --test-dir "$dir" --output-on-failure --no-tests=error -j"$(nproc)"

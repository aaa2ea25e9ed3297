#!/usr/bin/env bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Installs what the host build needs (Debian 12 packages). Safe to run again.
# Usage: scripts/setup.sh [package...]: the arguments are further packages that a test stage needs;
# a package of another architecture (name:arm64) has that architecture enabled first.
set -euo pipefail

packages=(
    cmake ninja-build g++ clang
    googletest libgtest-dev libgmock-dev libbenchmark-dev
    android-liblog-dev android-libcutils-dev android-libbase-dev
    android-platform-system-core-headers libpng-dev
    blueprint-tools binutils python3
    checkpolicy m4 setools
)
packages+=("$@")

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi
echo "installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then sudo_cmd=(sudo); fi
export DEBIAN_FRONTEND=noninteractive
for p in "${missing[@]}"; do
    arch=${p#*:}
    if [ "$arch" != "$p" ] && [ "$arch" != "$(dpkg --print-architecture)" ] &&
            ! dpkg --print-foreign-architectures | grep -qx "$arch"; then
        "${sudo_cmd[@]}" dpkg --add-architecture "$arch"
    fi
done
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null

#!/usr/bin/env bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Sets up, builds and runs the host demo. Usage: scripts/demo.sh [output-dir]
# The demo writes its PNG files to output-dir (default: build/demo-output).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/setup.sh"
bash "$root/scripts/build.sh" "$root/build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
# /vendor/... paths of the device resolve below the build's vendor root on host.
export VORN_VENDOR_ROOT="$root/build/vendor_root"
exec "$root/build/demo/offline_camera_demo" \
    "$root/build/vendor.oru.hardware.camera.offlinecamera-impl.so" "${1:-$root/build/demo-output}"

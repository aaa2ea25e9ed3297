#!/usr/bin/env bash
# Configures and builds the host tree. Usage: scripts/build.sh <build-dir> [cmake args...]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
dir=$1
shift
cmake -S "$root" -B "$dir" -G Ninja "$@" >/dev/null
cmake --build "$dir" -j"$(nproc)"

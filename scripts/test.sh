#!/usr/bin/env bash
# Sets up, builds with GCC and with Clang (warnings are errors in both) and runs every test.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/setup.sh"

echo "== Android.bp format, source lists and frozen AIDL versions"
bash "$root/scripts/check_bp_format.sh"
python3 "$root/scripts/check_source_lists.py"; python3 "$root/scripts/check_aidl_api.py"

echo "== build (clang)"
bash "$root/scripts/build.sh" "$root/build-clang" -DCMAKE_C_COMPILER=clang \
    -DCMAKE_CXX_COMPILER=clang++
echo "== build (gcc)"
bash "$root/scripts/build.sh" "$root/build" -DCMAKE_C_COMPILER=gcc -DCMAKE_CXX_COMPILER=g++

echo "== tests (gcc build)"
ctest --test-dir "$root/build" --output-on-failure -j"$(nproc)"
echo "== tests (clang build)"
ctest --test-dir "$root/build-clang" --output-on-failure -j"$(nproc)"

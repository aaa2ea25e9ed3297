#!/usr/bin/env bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Sets up, then runs the test stages and prints how long each took.
# Usage: scripts/test.sh [stage...] (or TEST_STAGES="stage..."); by default every stage, in order:
#   host     builds with GCC and with Clang (warnings are errors in both), runs every test of both
#   asan     every test under AddressSanitizer, UndefinedBehaviorSanitizer and LeakSanitizer
#   tsan     the tests labelled "threads" under ThreadSanitizer
#   aarch64  cross-builds for 64-bit Arm and runs every test under qemu-user
#   fuzz     builds the libFuzzer targets and runs each for FUZZ_SECONDS (default 45) seconds
# Build directories go below TEST_BUILD_ROOT (default: the source tree).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
out=${TEST_BUILD_ROOT:-$root}
if [ $# -gt 0 ]; then
    stages=("$@")
else
    read -ra stages <<<"${TEST_STAGES:-host asan tsan aarch64 fuzz}"
fi
for stage in "${stages[@]}"; do
    case $stage in
        host | asan | tsan | aarch64 | fuzz) ;;
        *) echo "unknown stage: $stage (host, asan, tsan, aarch64, fuzz)" >&2 && exit 2 ;;
    esac
done
bash "$root/scripts/setup.sh"

stage_host() {
    echo "== Android.bp format, source lists, AIDL API dumps, vendor SELinux policy, licenses"
    bash "$root/scripts/check_bp_format.sh"
    python3 "$root/scripts/check_source_lists.py"
    python3 "$root/scripts/check_aidl_api.py"
    python3 "$root/scripts/check_sepolicy.py"
    python3 "$root/scripts/check_license_headers.py"

    echo "== build (clang)"
    bash "$root/scripts/build.sh" "$out/build-clang" -DCMAKE_C_COMPILER=clang \
        -DCMAKE_CXX_COMPILER=clang++
    echo "== build (gcc)"
    bash "$root/scripts/build.sh" "$out/build" -DCMAKE_C_COMPILER=gcc -DCMAKE_CXX_COMPILER=g++

    echo "== tests (gcc build)"
    ctest --test-dir "$out/build" --output-on-failure -j"$(nproc)"
    echo "== tests (clang build)"
    ctest --test-dir "$out/build-clang" --output-on-failure -j"$(nproc)"
}

timings=()
for stage in "${stages[@]}"; do
    echo "=== stage $stage"
    start=$SECONDS
    case $stage in
        host) stage_host ;;
        asan | tsan) bash "$root/scripts/stage-sanitizers.sh" "$stage" "$out/build-$stage" ;;
        aarch64) bash "$root/scripts/stage-aarch64.sh" "$out/build-aarch64" ;;
        fuzz) FUZZ_BUILD_DIR="$out/build-fuzz" bash "$root/scripts/stage-fuzz.sh" "${FUZZ_SECONDS:-45}" ;;
    esac
    timings+=("$(printf '%-8s %4d s' "$stage" $((SECONDS - start)))")
    echo "=== stage $stage: $((SECONDS - start)) s"
done
echo "stage timings:"
printf '  %s\n' "${timings[@]}"

#!/usr/bin/env bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Builds the libFuzzer targets with AddressSanitizer and UndefinedBehaviorSanitizer and runs each
# one for a bounded time from its seed corpus, as many at once as there are cores (FUZZ_JOBS
# overrides). Usage: scripts/stage-fuzz.sh [seconds-per-target]
# Findings (crash-*, leak-*, timeout-*) are kept under build-fuzz/findings/<target>.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-${FUZZ_SECONDS:-60}}
dir=${FUZZ_BUILD_DIR:-$root/build-fuzz}
jobs=${FUZZ_JOBS:-$(nproc)}
sanitize="-fsanitize=address,undefined -fno-sanitize-recover=all -fsanitize=fuzzer-no-link"

# libFuzzer and the sanitizer runtimes come with clang's runtime package.
bash "$root/scripts/setup.sh" libclang-rt-14-dev

bash "$root/scripts/build.sh" "$dir" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo -DOFFLINECAMERA_BUILD_TESTS=OFF \
    -DOFFLINECAMERA_BUILD_FUZZERS=ON \
    "-DCMAKE_C_FLAGS=$sanitize" "-DCMAKE_CXX_FLAGS=$sanitize"

# Runs one target; its exit status goes to findings/<target>/status.
run_target() {
    local target=$1
    local corpus="$dir/corpus/$target"
    local findings="$dir/findings/$target"
    mkdir -p "$corpus" "$findings"
    cp -n "$dir/fuzz/seeds/$target"/* "$corpus"/ 2>/dev/null || true
    local status=0
    ASAN_OPTIONS=detect_leaks=1 "$dir/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=10 \
        -print_final_stats=1 -artifact_prefix="$findings/" "$corpus" \
        >"$findings/log.txt" 2>&1 || status=$?
    echo "$status" >"$findings/status"
}

targets=()
for fuzzer in "$dir"/fuzz/fuzz_*; do
    name=$(basename "$fuzzer")
    [ "$name" = fuzz_make_seeds ] && continue
    targets+=("${name#fuzz_}")
done

echo "== fuzz ${#targets[@]} targets, ${seconds}s each, $jobs at a time"
running=0
for target in "${targets[@]}"; do
    rm -f "$dir/findings/$target/status"
    run_target "$target" &
    running=$((running + 1))
    if [ "$running" -ge "$jobs" ]; then
        wait -n || true
        running=$((running - 1))
    fi
done
wait || true

status=0
for target in "${targets[@]}"; do
    findings="$dir/findings/$target"
    echo "== fuzz $target"
    if [ "$(cat "$findings/status" 2>/dev/null || echo 1)" != 0 ]; then
        echo "fuzz target $target failed; see $findings"
        tail -n 40 "$findings/log.txt"
        status=1
    else
        grep -E '^stat::(number_of_executed_units|new_units_added)' "$findings/log.txt" || true
    fi
done
exit $status

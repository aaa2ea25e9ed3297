#!/usr/bin/env bash
# Builds the libFuzzer targets with AddressSanitizer and UndefinedBehaviorSanitizer and runs each
# one for a bounded time from its seed corpus. Usage: scripts/stage-fuzz.sh [seconds-per-target]
# Findings (crash-*, leak-*, timeout-*) are kept under build-fuzz/findings/<target>.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-${FUZZ_SECONDS:-60}}
dir=${FUZZ_BUILD_DIR:-$root/build-fuzz}
sanitize="-fsanitize=address,undefined -fno-sanitize-recover=all -fsanitize=fuzzer-no-link"

# libFuzzer and the sanitizer runtimes come with clang's runtime package.
bash "$root/scripts/setup.sh" libclang-rt-14-dev

bash "$root/scripts/build.sh" "$dir" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo -DOFFLINECAMERA_BUILD_TESTS=OFF \
    -DOFFLINECAMERA_BUILD_FUZZERS=ON \
    "-DCMAKE_C_FLAGS=$sanitize" "-DCMAKE_CXX_FLAGS=$sanitize"

status=0
for fuzzer in "$dir"/fuzz/fuzz_*; do
    name=$(basename "$fuzzer")
    [ "$name" = fuzz_make_seeds ] && continue
    target=${name#fuzz_}
    corpus="$dir/corpus/$target"
    findings="$dir/findings/$target"
    mkdir -p "$corpus" "$findings"
    cp -n "$dir/fuzz/seeds/$target"/* "$corpus"/ 2>/dev/null || true
    echo "== fuzz $target (${seconds}s)"
    if ! ASAN_OPTIONS=detect_leaks=1 "$fuzzer" -max_total_time="$seconds" -timeout=10 \
            -print_final_stats=1 -artifact_prefix="$findings/" "$corpus" \
            >"$findings/log.txt" 2>&1; then
        echo "fuzz target $target failed; see $findings"
        tail -n 40 "$findings/log.txt"
        status=1
    else
        grep -E '^stat::(number_of_executed_units|new_units_added)' "$findings/log.txt" || true
    fi
done
exit $status

#!/usr/bin/env bash
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

# Builds the benchmarks in Release (-O2) in their own build dir, checks that each baseline does
# the library's client-visible work, runs them and prints benchmark, library time, baseline time
# and their ratio. Usage: scripts/bench.sh [build-dir] [extra benchmark args...]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
dir=${1:-$root/build-bench}
shift || true
bash "$root/scripts/setup.sh" >/dev/null

cmake -S "$root" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_C_FLAGS_RELEASE="-O2 -DNDEBUG" -DCMAKE_CXX_FLAGS_RELEASE="-O2 -DNDEBUG" \
    -DOFFLINECAMERA_BUILD_BENCHMARKS=ON >/dev/null
if ! cmake --build "$dir" -j"$(nproc)" --target offlinecamera_bench offlinecamera_bench_check \
    >"$dir/bench-build.log" 2>&1; then
    cat "$dir/bench-build.log"
    exit 1
fi

echo "== baselines match the library's work"
"$dir/bench/offlinecamera_bench_check" --gtest_brief=1

echo "== benchmarks (median of 3 runs; nproc $(nproc), $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2 | xargs))"
out="$dir/bench-results.json"
# The log goes to stderr only in the *_logging benchmark; it is dropped here.
"$dir/bench/offlinecamera_bench" --benchmark_repetitions=3 --benchmark_report_aggregates_only=true \
    --benchmark_min_time=0.2 --benchmark_out="$out" --benchmark_out_format=json \
    "$@" >/dev/null 2>&1
python3 "$root/bench/bench_table.py" "$out"

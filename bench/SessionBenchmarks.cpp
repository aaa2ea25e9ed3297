/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Offline sessions opened by clients on several threads at once: open, flush, dump and close
 * through the published service, against the backend's own entries.
 */
#include <benchmark/benchmark.h>

#include "BenchSupport.h"
#include "Benchmarks.h"

namespace offlinecamera::bench {
namespace {

void SessionsLibrary(benchmark::State& state) {
    // One callback per client thread, for all its sessions.
    auto callback = MakeSessionCallback();
    for (auto _ : state) {
        if (!LibrarySessionCycle(callback)) {
            state.SkipWithError("the service opened no session");
            break;
        }
    }
}

void SessionsBaseline(benchmark::State& state) {
    for (auto _ : state) {
        if (!BaselineSessionCycle()) {
            state.SkipWithError("the backend opened no session");
            break;
        }
    }
}

}  // namespace
void RegisterSessionBenchmarks() {
    benchmark::RegisterBenchmark("BM_ParallelSessions/library", SessionsLibrary)
            ->ThreadRange(1, 8)
            ->UseRealTime();
    benchmark::RegisterBenchmark("BM_ParallelSessions/baseline", SessionsBaseline)
            ->ThreadRange(1, 8)
            ->UseRealTime();
}

}  // namespace offlinecamera::bench

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The offline request and result path: one request of an input frame of 4 buffers and one
 * output buffer, from the client's call until the result reaches its callback, through a session
 * of the published service and through the backend's own entries.
 */
#include <benchmark/benchmark.h>
#include <hostplatform/KivReferenceBackend.h>

#include "Benchmarks.h"
#include "OfflineRequestSupport.h"

namespace offlinecamera::bench {
namespace {

constexpr int32_t kClearCallsEvery = 256;
constexpr double kMinSeconds = 1.0;
constexpr int kRepetitions = 5;

template <typename Session>
void OfflineRequest(benchmark::State& state) {
    OfflineClient client;
    Session session;
    if (!session.Opened()) {
        state.SkipWithError("no session was opened");
        return;
    }
    int32_t frameNumber = 0;
    for (auto _ : state) {
        if (!session.Process(client.Request(frameNumber++))) {
            state.SkipWithError("the result did not reach the client");
            break;
        }
        // The reference backend records every call it receives; the record is let go now and
        // then so that it does not grow with the run.
        if (frameNumber % kClearCallsEvery == 0) {
            state.PauseTiming();
            kivref::ClearCalls();
            state.ResumeTiming();
        }
    }
}

}  // namespace

// Half of the path runs on the backend's thread: the latency is wall-clock time, the work is the
// CPU time of the whole process. Thread wake-ups make single runs noisy, hence longer runs and
// more of them.
void RegisterOfflineRequestBenchmarks() {
    struct Pair {
        const char* library;
        const char* baseline;
        bool latency;
    };
    for (const Pair& pair :
         {Pair{"BM_OfflineRequest/library", "BM_OfflineRequest/baseline", false},
          Pair{"BM_OfflineRequestLatency/library", "BM_OfflineRequestLatency/baseline", true}}) {
        for (benchmark::internal::Benchmark* registered :
             {benchmark::RegisterBenchmark(pair.library, OfflineRequest<LibraryOfflineSession>),
              benchmark::RegisterBenchmark(pair.baseline, OfflineRequest<BaselineOfflineSession>)}) {
            registered->MinTime(kMinSeconds)->Repetitions(kRepetitions);
            if (pair.latency) {
                registered->UseRealTime();
            } else {
                registered->MeasureProcessCPUTime();
            }
        }
    }
}

}  // namespace offlinecamera::bench

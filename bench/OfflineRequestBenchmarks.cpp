/*
 * The offline request and result path: one request of an input frame of 4 buffers and one
 * output buffer, from the client's call until the result reaches its callback, through a session
 * of the published service and through the backend's own entries.
 */
#include <benchmark/benchmark.h>

#include "Benchmarks.h"
#include "OfflineRequestSupport.h"

namespace offlinecamera::bench {
namespace {

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
    }
}

}  // namespace

// Wall clock: half of the path runs on the backend's thread.
void RegisterOfflineRequestBenchmarks() {
    benchmark::RegisterBenchmark("BM_OfflineRequest/library", OfflineRequest<LibraryOfflineSession>)
            ->UseRealTime();
    benchmark::RegisterBenchmark("BM_OfflineRequest/baseline",
                                 OfflineRequest<BaselineOfflineSession>)
            ->UseRealTime();
}

}  // namespace offlinecamera::bench

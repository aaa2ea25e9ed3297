/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The benchmarks of the offline camera library, in one process: the service is published once
 * per process, as in the camera HAL.
 */
#include <benchmark/benchmark.h>

#include "BenchSupport.h"
#include "Benchmarks.h"

int main(int argc, char** argv) {
    using namespace offlinecamera::bench;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;

    SilenceLog();
    SetUpProcess();

    RegisterBrokeringBenchmarks();
    RegisterSessionBenchmarks();
    RegisterOfflineRequestBenchmarks();

    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

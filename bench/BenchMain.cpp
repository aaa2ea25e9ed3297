/*
 * The benchmarks of the offline camera library, in one process: the service is published once
 * per process, as in the camera HAL.
 */
#include <android/log.h>
#include <benchmark/benchmark.h>

#include "Benchmarks.h"
#include "BrokeringBench.h"

namespace offlinecamera::bench {
namespace {

std::shared_ptr<IOfflineCameraService> gService;

void DropLine(const struct __android_logger_data* /*data*/, const char* /*message*/) {}

}  // namespace

IOfflineCameraService& Service() {
    return *gService;
}

void SilenceLog() {
    __android_log_set_logger(DropLine);
}

void LogToStderr() {
    __android_log_set_logger(__android_log_stderr_logger);
}

}  // namespace offlinecamera::bench

int main(int argc, char** argv) {
    using namespace offlinecamera::bench;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;

    SilenceLog();
    gService = ConnectToService();

    RegisterBrokeringBenchmarks();
    RegisterSessionBenchmarks();
    // The offline request and result path (one input frame of 4 buffers plus one output) gets
    // its group here, RegisterOfflineRequestBenchmarks(), once sessions process requests.

    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    gService.reset();
    return 0;
}

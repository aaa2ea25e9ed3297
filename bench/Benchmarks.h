/*
 * Registration of the benchmark groups. Every group registers pairs named
 * "<name>/library..." and "<name>/baseline...": the library's own path and the same work done
 * with only the calls that cannot be avoided (backend, mapper, client). scripts/bench.sh pairs
 * them and prints the ratio.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>

#include <memory>

namespace offlinecamera::bench {

/* The published service as a client in another process reaches it; set up by main(). */
::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService& Service();

/* Silences liblog while measuring; the default logger otherwise formats every line. */
void SilenceLog();
void LogToStderr();

void RegisterBrokeringBenchmarks();
void RegisterSessionBenchmarks();

}  // namespace offlinecamera::bench

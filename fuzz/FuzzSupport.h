/*
 * Shared pieces of the fuzz targets.
 */
#pragma once

#include <android/log.h>

namespace offlinecamera::fuzz {

/* Drops liblog output: the targets log on every rejected input. */
inline void SilenceLog() {
    __android_log_set_logger([](const struct __android_logger_data*, const char*) {});
}

}  // namespace offlinecamera::fuzz

/*
 * Shared pieces of the fuzz targets.
 */
#pragma once

#include <android/log.h>
#include <dirent.h>
#include <stddef.h>

namespace offlinecamera::fuzz {

/* Drops liblog output: the targets log on every rejected input. */
inline void SilenceLog() {
    __android_log_set_logger([](const struct __android_logger_data*, const char*) {});
}

/* Descriptors open in this process, not counting the one used to list them. */
inline size_t CountOpenFds() {
    DIR* dir = opendir("/proc/self/fd");
    if (dir == nullptr) return 0;
    size_t count = 0;
    while (const struct dirent* entry = readdir(dir)) {
        if (entry->d_name[0] != '.') count++;
    }
    closedir(dir);
    return count - 1;
}

}  // namespace offlinecamera::fuzz

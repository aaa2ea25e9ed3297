/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Counts of what a scenario must give back: descriptors, imported buffers, vendor allocations,
 * the backend's metadata objects and sessions, binders and death recipients. Free of the test
 * framework, so that the fuzz targets use the same counts as the tests.
 */
#pragma once

#include <dirent.h>
#include <stddef.h>

#include <chrono>
#include <string>
#include <thread>

namespace offlinecamera::test {

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

/*
 * Waits until done() holds, for work that ends on another thread without telling anyone (a
 * session that its last delivery destroys on the backend's thread). False when it does not
 * within the time given.
 */
template <typename Done>
bool WaitUntil(Done done, int milliseconds = 10000) {
    for (int i = 0; i < milliseconds; i++) {
        if (done()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return done();
}

struct ResourceCounts {
    size_t openFds = 0;
    size_t liveImports = 0;
    size_t vornAllocations = 0;
    size_t kivMetadata = 0;
    size_t androidMetadata = 0;
    size_t metadataOps = 0;
    size_t cameraMetadata = 0;  // camera_metadata_t buffers of the metadata library

    static ResourceCounts Take();
    bool operator==(const ResourceCounts& other) const;
    std::string ToString() const;
};

/* Everything a process-wide scenario must give back. */
struct ProcessCounts {
    ResourceCounts resources;
    size_t sessions = 0;    // backend sessions
    size_t binders = 0;     // binder objects alive
    size_t recipients = 0;  // death recipients alive

    static ProcessCounts Take();
    bool operator==(const ProcessCounts& other) const;
    std::string ToString() const;

    /*
     * Takes the counts until they equal expected, or the time given has passed: what a scenario
     * made may still be going on another thread (a session ending on the backend's thread).
     */
    static ProcessCounts Settled(const ProcessCounts& expected, int milliseconds = 10000) {
        ProcessCounts now;
        WaitUntil([&] { return (now = Take()) == expected; }, milliseconds);
        return now;
    }
};

}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera
 *
 * Lookup in a standard map that must succeed. A key that is not there ends the process with the
 * text that Android's libc++ aborts with when unordered_map::at misses in code built without
 * exceptions, whichever standard library the code is built with.
 */
#pragma once

#include <stdio.h>
#include <stdlib.h>

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

template <typename Map>
typename Map::mapped_type& checkedAt(Map& map, const typename Map::key_type& key) {
#ifdef _LIBCPP_VERSION
    return map.at(key);
#else
    auto entry = map.find(key);
    if (entry == map.end()) {
        fprintf(stderr, "%s\n", "unordered_map::at: key not found");
        abort();
    }
    return entry->second;
#endif
}

}  // namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation

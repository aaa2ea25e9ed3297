/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Lookup in a standard map that must succeed. A key that is not there ends the process with the
 * text that libc++'s unordered_map::at stops with in code built without exceptions; the lookup
 * is spelt out so that every standard library stops the same way.
 */
#pragma once

#include <stdio.h>
#include <stdlib.h>

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

template <typename Map>
typename Map::mapped_type& checkedAt(Map& map, const typename Map::key_type& key) {
    auto entry = map.find(key);
    if (entry == map.end()) {
        fprintf(stderr, "%s\n", "unordered_map::at: key not found");
        abort();
    }
    return entry->second;
}

}  // namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation

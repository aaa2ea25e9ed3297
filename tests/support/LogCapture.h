/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Captures every line written through liblog in this process, VERBOSE included.
 */
#pragma once

#include <android/log.h>

#include <string>
#include <vector>

namespace offlinecamera::test {

struct LogLine {
    int priority;
    std::string tag;
    std::string message;

    bool operator==(const LogLine& other) const {
        return priority == other.priority && tag == other.tag && message == other.message;
    }
};

std::string ToString(const LogLine& line);

class LogCapture {
  public:
    /* Installs the capturing logger (once per process) and clears what was captured. */
    static void Start();
    static void Clear();
    static std::vector<LogLine> Lines();
    /* Lines with this tag, in order. */
    static std::vector<LogLine> Lines(const std::string& tag);
    /* How many captured lines equal this one. */
    static size_t Count(const LogLine& line);
    static bool Contains(const LogLine& line) { return Count(line) != 0; }
    /*
     * ERROR lines written by anything but the library (the host platform, the reference
     * backend) since the capture started or they were last taken; Clear() keeps them. The test
     * fixtures fail on any that the test did not take.
     */
    static std::vector<LogLine> TakePlatformErrors();
    /* The tags of TakePlatformErrors(), in order. */
    static std::vector<std::string> TakePlatformErrorTags();
    /* Captured lines, one per row, for failure messages. */
    static std::string Dump();
    static std::string Dump(const std::vector<LogLine>& lines);
};

/* printf-style formatting, for building expected log texts (e.g. "%p" of a pointer). */
std::string Format(const char* format, ...) __attribute__((format(printf, 1, 2)));

}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

// Helpers shared by the platform stand-in tests: descriptor counting and log searches.
#pragma once

#include <dirent.h>
#include <gtest/gtest.h>

#include <string>

#include "LogCapture.h"

namespace platformtest {

// Open descriptors of this process (the directory stream's own one included, consistently).
inline size_t openFdCount() {
    size_t count = 0;
    DIR* dir = opendir("/proc/self/fd");
    if (dir == nullptr) {
        return 0;
    }
    while (readdir(dir) != nullptr) {
        ++count;
    }
    closedir(dir);
    return count;
}

// Whether a captured line of tag contains text.
inline bool logContains(const std::string& tag, const std::string& text) {
    for (const offlinecamera::test::LogLine& line : offlinecamera::test::LogCapture::Lines(tag)) {
        if (line.message.find(text) != std::string::npos) {
            return true;
        }
    }
    return false;
}

// Checks that a test leaves as many descriptors open as it found.
class FdBalancedTest : public ::testing::Test {
  protected:
    void SetUp() override { mFdsAtStart = openFdCount(); }
    void TearDown() override { EXPECT_EQ(openFdCount(), mFdsAtStart) << "descriptor leak"; }

  private:
    size_t mFdsAtStart = 0;
};

}  // namespace platformtest

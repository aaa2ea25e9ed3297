/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The capture sees every priority: Debian's host liblog drops lines below INFO unless the
 * minimum priority is lowered, which would hide the library's VERBOSE lines from the tests.
 */
#include <gtest/gtest.h>

#include "LogCapture.h"

namespace offlinecamera::test {
namespace {

TEST(LogCaptureTest, CapturesEveryPriorityWithTagAndText) {
    LogCapture::Start();
    __android_log_print(ANDROID_LOG_VERBOSE, "LogCaptureTest", "%s: i: %zu", "verbose", size_t{3});
    __android_log_print(ANDROID_LOG_ERROR, "LogCaptureTest", "%d %s", 7, "error");
    EXPECT_EQ((std::vector<LogLine>{{ANDROID_LOG_VERBOSE, "LogCaptureTest", "verbose: i: 3"},
                                    {ANDROID_LOG_ERROR, "LogCaptureTest", "7 error"}}),
              LogCapture::Lines("LogCaptureTest"));
}

}  // namespace
}  // namespace offlinecamera::test

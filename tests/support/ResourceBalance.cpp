/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "ResourceBalance.h"

#include <stdio.h>

#include "LogCapture.h"

namespace offlinecamera::test {

void BalancedTest::SetUp() {
    LogCapture::Start();
    mStart = ResourceCounts::Take();
}

void BalancedTest::TearDown() {
    const std::vector<LogLine> platformErrors = LogCapture::TakePlatformErrors();
    EXPECT_TRUE(platformErrors.empty()) << "unexpected errors:\n"
                                        << LogCapture::Dump(platformErrors);
    if (!mKeepResources) {
        ResourceCounts end = ResourceCounts::Take();
        EXPECT_TRUE(end == mStart)
                << "before: " << mStart.ToString() << "\nafter:  " << end.ToString();
    }
    if (HasFailure()) {
        fprintf(stderr, "captured log:\n%s", LogCapture::Dump().c_str());
    }
}

}  // namespace offlinecamera::test

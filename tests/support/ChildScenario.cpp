/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "ChildScenario.h"

#include <hostplatform/VornTesting.h>
#include <stdio.h>
#include <unistd.h>

#include <thread>

#include "LogCapture.h"

namespace offlinecamera::test {

ChildScenario::ChildScenario() {
    LogCapture::Start();
    Vorn::Host::SetVendorRoot(TEST_VENDOR_ROOT);
    mStart = ProcessCounts::Take();
}

void ChildScenario::Settle() {
    mStart = ProcessCounts::Take();
}

void ChildScenario::FailIfStuck(unsigned seconds) {
    std::thread([seconds] {
        sleep(seconds);
        fprintf(stderr, "the scenario is stuck after %u s\nlog:\n%s", seconds,
                LogCapture::Dump().c_str());
        fflush(stderr);
        _exit(2);
    }).detach();
}

void ChildScenario::ExpectBalanced() const {
    ProcessCounts expected = mStart;
    // A kept buffer holds its imported handle and that handle's descriptor.
    expected.resources.liveImports += mKeptImports;
    expected.resources.openFds += mKeptImports;
    const ProcessCounts now = ProcessCounts::Settled(expected);
    EXPECT_TRUE(now == expected) << "expected: " << expected.ToString()
                                 << "\nnow:      " << now.ToString();
    const std::vector<LogLine> platformErrors = LogCapture::TakePlatformErrors();
    EXPECT_TRUE(platformErrors.empty()) << "unexpected errors:\n"
                                        << LogCapture::Dump(platformErrors);
}

namespace {

// The parent reports only the child's exit code and output: print the failures with the log.
[[noreturn]] void ExitChild() {
    if (!::testing::Test::HasFailure()) _exit(0);
    const ::testing::TestResult* result =
            ::testing::UnitTest::GetInstance()->current_test_info()->result();
    for (int i = 0; i < result->total_part_count(); i++) {
        const ::testing::TestPartResult& part = result->GetTestPartResult(i);
        if (part.failed()) {
            fprintf(stderr, "%s:%d: %s\n", part.file_name() != nullptr ? part.file_name() : "?",
                    part.line_number(), part.message());
        }
    }
    fprintf(stderr, "log:\n%s", LogCapture::Dump().c_str());
    fflush(stdout);
    fflush(stderr);
    _exit(1);
}

}  // namespace

void RunInChild(const std::function<void(ChildScenario&)>& scenario) {
    ChildScenario child;
    scenario(child);
    child.ExpectBalanced();
    ExitChild();
}

}  // namespace offlinecamera::test

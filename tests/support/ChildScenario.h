/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Scenarios that need a process of their own. The service is published once per process and the
 * core is bound once, so such a scenario runs in a child (gtest's EXPECT_EXIT) and reports
 * through the child's exit code. The child checks that what the scenario made is given back:
 * descriptors, imported buffers, Vorn allocations, backend metadata and sessions, binders and
 * death recipients.
 */
#pragma once

#include <gtest/gtest.h>
#include <stddef.h>

#include <functional>
#include <string>

#include "ResourceBalance.h"

namespace offlinecamera::test {

class ChildScenario;

/*
 * Runs the scenario in this (child) process with the reference backend's vendor root and the log
 * captured, checks the balance, and exits: 0 when no expectation failed, else 1 after printing
 * the failures and the captured log.
 */
[[noreturn]] void RunInChild(const std::function<void(ChildScenario&)>& scenario);

/* The running scenario's bookkeeping, handed to the scenario. */
class ChildScenario {
  public:
    /*
     * The process-wide state that the scenario needs (published service, bound core) is made:
     * counts are taken again from here, and the scenario gives back what it makes after this.
     */
    void Settle();

    /* Imported buffers that the scenario leaves on purpose, each holding its descriptor. */
    void KeepImports(size_t count) { mKeptImports = count; }

    /*
     * Ends the child with a failure if the scenario has not finished within this many seconds:
     * a deadlock fails the test instead of hanging it.
     */
    void FailIfStuck(unsigned seconds);

    /* Adds a failure unless the counts are the start's plus what is kept on purpose. */
    void ExpectBalanced() const;

  private:
    friend void RunInChild(const std::function<void(ChildScenario&)>& scenario);

    ChildScenario();

    ProcessCounts mStart;
    size_t mKeptImports = 0;
};

/* Runs a scenario in a child process; the test fails unless the child exits with 0. */
#define EXPECT_IN_CHILD(...) \
    EXPECT_EXIT(::offlinecamera::test::RunInChild(__VA_ARGS__), ::testing::ExitedWithCode(0), "")

/*
 * A test whose body is a scenario in a child process of its own, with `s` its bookkeeping:
 *     CHILD_TEST(Suite, Name) { ... }
 */
#define CHILD_TEST(suite, name)                                 \
    void suite##_##name(::offlinecamera::test::ChildScenario&); \
    TEST(suite, name) {                                         \
        EXPECT_IN_CHILD(suite##_##name);                        \
    }                                                           \
    void suite##_##name([[maybe_unused]] ::offlinecamera::test::ChildScenario& s)

}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * A fixture that checks what a test must give back: descriptors, imported buffers, vendor
 * allocations and the backend's metadata objects.
 */
#pragma once

#include <gtest/gtest.h>

#include "ProcessCounts.h"

namespace offlinecamera::test {

/*
 * Base fixture: captures the log and checks on tear-down that the counts are back where they
 * were. A test that keeps resources on purpose calls KeepResources().
 */
class BalancedTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;
    void KeepResources() { mKeepResources = true; }

  private:
    ResourceCounts mStart;
    bool mKeepResources = false;
};

}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Shared pieces of the host binder tests: a recorder of death notifications, a
 * plain binder class, and a fixture that checks binders and recipients are all released.
 */
#pragma once

#include <android/binder_ibinder.h>
#include <gtest/gtest.h>
#include <stdint.h>

#include <atomic>
#include <string>
#include <vector>

#include "LogCapture.h"

namespace binder_test {

using ::offlinecamera::test::LogLine;

/* Lines logged under "libbinder_ndk" since the test started. */
inline std::vector<LogLine> binderLog() {
    return ::offlinecamera::test::LogCapture::Lines("libbinder_ndk");
}

/* Death recipient callbacks that record "died:<n>" and "unlinked:<n>" for cookie n. */
void* cookie(intptr_t n);
void recordDied(void* cookie);
void recordUnlinked(void* cookie);
std::vector<std::string> events();

/* User data of binders of objectClass(): counts onCreate and onDestroy calls. */
struct Lifetime {
    std::atomic<int> created{0};
    std::atomic<int> destroyed{0};
};

/* A plain class whose onCreate returns its args, a Lifetime*. */
AIBinder_Class* objectClass();

class BinderTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /* New remote binder of objectClass() counting into mLifetime. */
    AIBinder* newRemote();

    Lifetime mLifetime;

  private:
    size_t mBinders = 0;
    size_t mRecipients = 0;
};

}  // namespace binder_test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The in-process service manager: registration, lookup, waiting and injected refusals.
 */
#include <android/binder_manager.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>

#include <thread>

#include "BinderTestUtil.h"

namespace binder_test {
namespace {

constexpr const char* kName = "host.test.IObject/default";

class ServiceManagerTest : public BinderTest {
  protected:
    void SetUp() override {
        BinderTest::SetUp();
        ndk::host::resetServiceManager();
        mBinder = AIBinder_new(objectClass(), &mLifetime);
    }
    void TearDown() override {
        ndk::host::resetServiceManager();
        AIBinder_decStrong(mBinder);
        BinderTest::TearDown();
    }

    AIBinder* mBinder = nullptr;
};

TEST_F(ServiceManagerTest, RegistrationHoldsAReferenceAndLookupsGiveNewOnes) {
    EXPECT_FALSE(AServiceManager_isDeclared(kName));
    EXPECT_EQ(EX_ILLEGAL_ARGUMENT, AServiceManager_addService(nullptr, kName));
    EXPECT_EQ(EX_ILLEGAL_ARGUMENT, AServiceManager_addService(mBinder, nullptr));
    ndk::host::failNextAddService(EX_ILLEGAL_STATE);
    EXPECT_EQ(EX_ILLEGAL_STATE, AServiceManager_addService(mBinder, kName));
    EXPECT_EQ(nullptr, AServiceManager_checkService(kName));
    EXPECT_EQ(1, AIBinder_debugGetRefCount(mBinder));

    ASSERT_EQ(EX_NONE, AServiceManager_addService(mBinder, kName));
    EXPECT_EQ(2, AIBinder_debugGetRefCount(mBinder));
    EXPECT_TRUE(AServiceManager_isDeclared(kName));
    AIBinder* found = AServiceManager_checkService(kName);
    EXPECT_EQ(mBinder, found);
    EXPECT_EQ(3, AIBinder_debugGetRefCount(mBinder));
    AIBinder_decStrong(found);
    EXPECT_EQ(nullptr, AServiceManager_checkService("host.test.IObject/other"));

    // A second registration under the name replaces the first.
    Lifetime lifetime;
    AIBinder* replacement = AIBinder_new(objectClass(), &lifetime);
    ASSERT_EQ(EX_NONE,
              AServiceManager_addServiceWithFlags(replacement, kName, ADD_SERVICE_ALLOW_ISOLATED));
    EXPECT_EQ(1, AIBinder_debugGetRefCount(mBinder));
    found = AServiceManager_checkService(kName);
    EXPECT_EQ(replacement, found);
    AIBinder_decStrong(found);
    AIBinder_decStrong(replacement);
    ndk::host::resetServiceManager();
    EXPECT_EQ(1, lifetime.destroyed) << "the registration held the last reference";
    EXPECT_FALSE(AServiceManager_isDeclared(kName));
}

TEST_F(ServiceManagerTest, WaitForServiceReturnsOnceAdded) {
    AIBinder* found = nullptr;
    std::thread waiter([&] { found = AServiceManager_waitForService(kName); });
    ASSERT_EQ(EX_NONE, AServiceManager_addService(mBinder, kName));
    waiter.join();
    EXPECT_EQ(mBinder, found);
    AIBinder_decStrong(found);
}

}  // namespace
}  // namespace binder_test

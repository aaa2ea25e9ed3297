/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "BinderTestUtil.h"

#include <hostplatform/BinderTesting.h>

#include <mutex>

namespace binder_test {
namespace {

// Guards gEvents.
std::mutex gLock;
std::vector<std::string> gEvents;

void* onCreate(void* args) {
    static_cast<Lifetime*>(args)->created++;
    return args;
}

void onDestroy(void* userData) {
    static_cast<Lifetime*>(userData)->destroyed++;
}

binder_status_t onTransact(AIBinder*, transaction_code_t, const AParcel*, AParcel*) {
    return STATUS_UNKNOWN_TRANSACTION;
}

void recordEvent(const std::string& event) {
    std::lock_guard<std::mutex> lock(gLock);
    gEvents.push_back(event);
}

}  // namespace

void* cookie(intptr_t n) {
    return reinterpret_cast<void*>(n);
}

void recordDied(void* cookie) {
    recordEvent("died:" + std::to_string(reinterpret_cast<intptr_t>(cookie)));
}

void recordUnlinked(void* cookie) {
    recordEvent("unlinked:" + std::to_string(reinterpret_cast<intptr_t>(cookie)));
}

std::vector<std::string> events() {
    std::lock_guard<std::mutex> lock(gLock);
    return gEvents;
}

AIBinder_Class* objectClass() {
    static AIBinder_Class* sClass =
            AIBinder_Class_define("host.test.IObject", onCreate, onDestroy, onTransact);
    return sClass;
}

void BinderTest::SetUp() {
    ::offlinecamera::test::LogCapture::Start();
    {
        std::lock_guard<std::mutex> lock(gLock);
        gEvents.clear();
    }
    mBinders = ndk::host::liveBinderCount();
    mRecipients = ndk::host::deathRecipientCount();
}

void BinderTest::TearDown() {
    EXPECT_EQ(mBinders, ndk::host::liveBinderCount());
    EXPECT_EQ(mRecipients, ndk::host::deathRecipientCount());
    EXPECT_EQ(mLifetime.created, mLifetime.destroyed);
}

AIBinder* BinderTest::newRemote() {
    AIBinder* binder = AIBinder_new(objectClass(), &mLifetime);
    ndk::host::setRemote(binder, true);
    return binder;
}

}  // namespace binder_test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Binder objects: reference counting, weak references, death links and their notifications.
 */
#include <android/binder_ibinder.h>
#include <android/log.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>

#include <thread>
#include <vector>

#include "BinderTestUtil.h"

namespace binder_test {
namespace {

using Strings = std::vector<std::string>;

class BinderObjectTest : public BinderTest {
  protected:
    void SetUp() override {
        BinderTest::SetUp();
        mRecipient = AIBinder_DeathRecipient_new(recordDied);
        AIBinder_DeathRecipient_setOnUnlinked(mRecipient, recordUnlinked);
    }
    void TearDown() override {
        AIBinder_DeathRecipient_delete(mRecipient);
        BinderTest::TearDown();
    }

    AIBinder_DeathRecipient* mRecipient = nullptr;
};

TEST_F(BinderObjectTest, LastStrongReferenceDestroysTheUserDataAndWeakOnesStopPromoting) {
    AIBinder_incStrong(nullptr);
    AIBinder_decStrong(nullptr);
    EXPECT_EQ(-1, AIBinder_debugGetRefCount(nullptr));
    EXPECT_EQ(nullptr, AIBinder_DeathRecipient_new(nullptr));
    EXPECT_EQ((std::vector<LogLine>{
                      {ANDROID_LOG_ERROR, "libbinder_ndk", "AIBinder_decStrong: on null binder"},
                      {ANDROID_LOG_ERROR, "libbinder_ndk",
                       "AIBinder_debugGetRefCount: on null binder"},
                      {ANDROID_LOG_ERROR, "libbinder_ndk",
                       "AIBinder_DeathRecipient_new: requires non-null onBinderDied parameter."},
              }),
              binderLog());

    size_t live = ndk::host::liveBinderCount();
    AIBinder* binder = AIBinder_new(objectClass(), &mLifetime);
    ASSERT_NE(nullptr, binder);
    EXPECT_EQ(1, mLifetime.created);
    EXPECT_EQ(live + 1, ndk::host::liveBinderCount());
    EXPECT_EQ(&mLifetime, AIBinder_getUserData(binder));
    // Classes match by identity, not by descriptor.
    static AIBinder_Class* sTwin =
            AIBinder_Class_define("host.test.IObject", nullptr, nullptr, nullptr);
    EXPECT_TRUE(AIBinder_associateClass(binder, objectClass()));
    EXPECT_FALSE(AIBinder_associateClass(binder, sTwin));

    // Promoting a weak reference counts as a strong one until the binder is gone.
    AIBinder_Weak* weak = AIBinder_Weak_new(binder);
    AIBinder_Weak* clone = AIBinder_Weak_clone(weak);
    EXPECT_FALSE(AIBinder_Weak_lt(weak, clone) || AIBinder_Weak_lt(clone, weak));
    AIBinder* promoted = AIBinder_Weak_promote(clone);
    EXPECT_EQ(binder, promoted);
    EXPECT_EQ(2, AIBinder_debugGetRefCount(binder));
    AIBinder_decStrong(promoted);
    EXPECT_EQ(0, mLifetime.destroyed);
    AIBinder_decStrong(binder);
    EXPECT_EQ(1, mLifetime.destroyed);
    EXPECT_EQ(live, ndk::host::liveBinderCount());
    EXPECT_EQ(nullptr, AIBinder_Weak_promote(weak));
    AIBinder_Weak_delete(weak);
    AIBinder_Weak_delete(clone);
}

TEST_F(BinderObjectTest, LinkToDeathResultsAndKillNotifiesEveryLinkInLinkOrder) {
    AIBinder* binder = AIBinder_new(objectClass(), &mLifetime);

    EXPECT_EQ(STATUS_UNEXPECTED_NULL, AIBinder_linkToDeath(nullptr, mRecipient, cookie(1)));
    EXPECT_EQ(STATUS_UNEXPECTED_NULL, AIBinder_linkToDeath(binder, nullptr, cookie(1)));
    EXPECT_EQ((std::vector<LogLine>{
                      {ANDROID_LOG_ERROR, "libbinder_ndk",
                       ::offlinecamera::test::Format(
                               "AIBinder_linkToDeath: Must provide binder (%p) and recipient (%p)",
                               nullptr, mRecipient)},
                      {ANDROID_LOG_ERROR, "libbinder_ndk",
                       ::offlinecamera::test::Format(
                               "AIBinder_linkToDeath: Must provide binder (%p) and recipient (%p)",
                               binder, nullptr)},
              }),
              binderLog());
    EXPECT_TRUE(events().empty());

    // Local binders never die; the failed link still ends with onUnlinked.
    EXPECT_EQ(STATUS_INVALID_OPERATION, AIBinder_linkToDeath(binder, mRecipient, cookie(2)));
    EXPECT_EQ((Strings{"unlinked:2"}), events());

    ndk::host::setRemote(binder, true);
    EXPECT_TRUE(AIBinder_isRemote(binder));
    EXPECT_EQ(nullptr, AIBinder_getUserData(binder));
    AIBinder_DeathRecipient* plain = AIBinder_DeathRecipient_new(recordDied);
    EXPECT_EQ(STATUS_OK, AIBinder_linkToDeath(binder, mRecipient, cookie(3)));
    ndk::host::failNextLinkToDeath(STATUS_NO_MEMORY);
    EXPECT_EQ(STATUS_NO_MEMORY, AIBinder_linkToDeath(binder, mRecipient, cookie(4)));
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(binder, plain, cookie(5)));
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(binder, mRecipient, cookie(6)));
    EXPECT_EQ(3u, ndk::host::linkCount(binder));

    // Every link is told, in link order.
    ndk::host::kill(binder);
    EXPECT_EQ((Strings{"unlinked:2", "unlinked:4", "died:3", "unlinked:3", "died:5", "died:6",
                       "unlinked:6"}),
              events());
    EXPECT_FALSE(AIBinder_isAlive(binder));
    EXPECT_EQ(STATUS_DEAD_OBJECT, AIBinder_ping(binder));
    EXPECT_EQ(0u, ndk::host::linkCount(binder));
    // The death took the links away; a dead binder takes no new ones and dies only once.
    EXPECT_EQ(STATUS_NAME_NOT_FOUND, AIBinder_unlinkToDeath(binder, mRecipient, cookie(3)));
    EXPECT_EQ(STATUS_DEAD_OBJECT, AIBinder_linkToDeath(binder, mRecipient, cookie(7)));
    ndk::host::kill(binder);
    EXPECT_EQ(8u, events().size());
    AIBinder_DeathRecipient_delete(plain);
    AIBinder_decStrong(binder);
}

// Context of a death callback that re-enters the binder library.
struct Reentry {
    AIBinder* dying;
    AIBinder* other;
    AIBinder_DeathRecipient* recipient;
    binder_status_t unlinkResult = STATUS_UNKNOWN_ERROR;
    binder_status_t linkResult = STATUS_UNKNOWN_ERROR;
};
Reentry* gReentry = nullptr;

TEST_F(BinderObjectTest, DeathCallbackMayReenterTheLibrary) {
    AIBinder* dying = newRemote();
    AIBinder* other = newRemote();
    Reentry reentry{dying, other, mRecipient};
    gReentry = &reentry;
    AIBinder_DeathRecipient* reentrant = AIBinder_DeathRecipient_new([](void*) {
        gReentry->unlinkResult =
                AIBinder_unlinkToDeath(gReentry->other, gReentry->recipient, cookie(2));
        gReentry->linkResult = AIBinder_linkToDeath(gReentry->other, gReentry->recipient, cookie(3));
        // The last reference of the dying binder goes from its own notification.
        AIBinder_decStrong(gReentry->dying);
    });
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(dying, reentrant, nullptr));
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(other, mRecipient, cookie(2)));

    ndk::host::kill(dying);
    EXPECT_EQ(STATUS_OK, reentry.unlinkResult);
    EXPECT_EQ(STATUS_OK, reentry.linkResult);
    EXPECT_EQ(1, mLifetime.destroyed);
    EXPECT_EQ((Strings{"unlinked:2"}), events());

    // Destroying a binder ends the links still on it.
    AIBinder_decStrong(other);
    EXPECT_EQ((Strings{"unlinked:2", "unlinked:3"}), events());
    AIBinder_DeathRecipient_delete(reentrant);
    gReentry = nullptr;
}

TEST_F(BinderObjectTest, UnlinkAndRecipientDeletionEndOnlyTheirLinks) {
    AIBinder* first = newRemote();
    AIBinder* second = newRemote();
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(first, mRecipient, cookie(1)));
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(first, mRecipient, cookie(1)));
    EXPECT_EQ(STATUS_UNEXPECTED_NULL, AIBinder_unlinkToDeath(first, nullptr, cookie(1)));
    EXPECT_EQ(STATUS_NAME_NOT_FOUND, AIBinder_unlinkToDeath(first, mRecipient, cookie(2)));
    EXPECT_EQ(STATUS_OK, AIBinder_unlinkToDeath(first, mRecipient, cookie(1)));
    EXPECT_EQ(1u, ndk::host::linkCount(first));
    EXPECT_EQ((Strings{"unlinked:1"}), events());

    AIBinder_DeathRecipient* recipient = AIBinder_DeathRecipient_new(recordDied);
    AIBinder_DeathRecipient_setOnUnlinked(recipient, recordUnlinked);
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(first, recipient, cookie(2)));
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(second, recipient, cookie(3)));
    AIBinder_DeathRecipient_delete(recipient);
    EXPECT_EQ((Strings{"unlinked:1", "unlinked:2", "unlinked:3"}), events());
    EXPECT_EQ(1u, ndk::host::linkCount(first));
    EXPECT_EQ(0u, ndk::host::linkCount(second));

    ndk::host::kill(first);
    ndk::host::kill(second);
    EXPECT_EQ((Strings{"unlinked:1", "unlinked:2", "unlinked:3", "died:1", "unlinked:1"}), events());
    AIBinder_decStrong(first);
    AIBinder_decStrong(second);
}

TEST_F(BinderObjectTest, ConcurrentUseKeepsCountsBalanced) {
    AIBinder* binder = newRemote();
    AIBinder_Weak* weak = AIBinder_Weak_new(binder);
    std::vector<std::thread> threads;
    for (intptr_t t = 1; t <= 4; t++) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < 200; i++) {
                AIBinder* strong = AIBinder_Weak_promote(weak);
                if (AIBinder_linkToDeath(strong, mRecipient, cookie(t)) == STATUS_OK) {
                    // The killer may have taken the link already.
                    AIBinder_unlinkToDeath(strong, mRecipient, cookie(t));
                }
                AIBinder_decStrong(strong);
            }
        });
    }
    threads.emplace_back([&] { ndk::host::kill(binder); });
    for (std::thread& thread : threads) thread.join();

    EXPECT_EQ(1, AIBinder_debugGetRefCount(binder));
    EXPECT_EQ(0u, ndk::host::linkCount(binder));
    AIBinder_Weak_delete(weak);
    AIBinder_decStrong(binder);
}

}  // namespace
}  // namespace binder_test

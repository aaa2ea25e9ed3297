/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Death links of the host binder where no library test looks: a kill tells every link of the
 * binder in link order, a notice may call back into the binder library (down to dropping the
 * dying binder's last reference), and deleting a recipient ends its own links only.
 */
#include <android/binder_ibinder.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>

#include <string>
#include <vector>

namespace {

using Events = std::vector<std::string>;

Events gEvents;
AIBinder* gDying = nullptr;
AIBinder* gOther = nullptr;
AIBinder_DeathRecipient* gRecorder = nullptr;

void* Cookie(intptr_t n) {
    return reinterpret_cast<void*>(n);
}
void Record(const char* what, void* cookie) {
    gEvents.push_back(what + std::to_string(reinterpret_cast<intptr_t>(cookie)));
}

AIBinder_DeathRecipient* NewRecipient(AIBinder_DeathRecipient_onBinderDied onDied) {
    AIBinder_DeathRecipient* recipient = AIBinder_DeathRecipient_new(onDied);
    AIBinder_DeathRecipient_setOnUnlinked(recipient, [](void* c) { Record("unlinked:", c); });
    return recipient;
}

AIBinder* NewRemote() {
    static AIBinder_Class* sClass = AIBinder_Class_define(
            "host.test.IObject", [](void* args) { return args; }, [](void*) {},
            [](AIBinder*, transaction_code_t, const AParcel*, AParcel*) -> binder_status_t {
                return STATUS_UNKNOWN_TRANSACTION;
            });
    AIBinder* binder = AIBinder_new(sClass, nullptr);
    ndk::host::setRemote(binder, true);
    return binder;
}

TEST(BinderDeathTest, KillTellsEveryLinkInOrderAndNoticesMayReenter) {
    const size_t binders = ndk::host::liveBinderCount();
    const size_t recipients = ndk::host::deathRecipientCount();
    gDying = NewRemote();
    gOther = NewRemote();
    gRecorder = NewRecipient([](void* c) { Record("died:", c); });
    // Moves the other binder's link from cookie 4 to cookie 5 and drops the dying binder's last
    // reference, from inside its death notice.
    AIBinder_DeathRecipient* reentrant = NewRecipient([](void* c) {
        Record("died:", c);
        EXPECT_EQ(STATUS_OK, AIBinder_unlinkToDeath(gOther, gRecorder, Cookie(4)));
        EXPECT_EQ(STATUS_OK, AIBinder_linkToDeath(gOther, gRecorder, Cookie(5)));
        AIBinder_decStrong(gDying);
    });
    AIBinder_DeathRecipient* deleted = NewRecipient([](void* c) { Record("died:", c); });
    EXPECT_EQ(binders + 2, ndk::host::liveBinderCount());
    EXPECT_EQ(recipients + 3, ndk::host::deathRecipientCount());

    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(gDying, gRecorder, Cookie(1)));
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(gDying, reentrant, Cookie(2)));
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(gDying, deleted, Cookie(3)));
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(gDying, gRecorder, Cookie(6)));
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(gOther, gRecorder, Cookie(4)));
    ASSERT_EQ(STATUS_OK, AIBinder_linkToDeath(gOther, deleted, Cookie(7)));
    AIBinder_DeathRecipient_delete(deleted);
    EXPECT_EQ((Events{"unlinked:3", "unlinked:7"}), gEvents);
    EXPECT_EQ(3u, ndk::host::linkCount(gDying));
    EXPECT_EQ(1u, ndk::host::linkCount(gOther));

    gEvents.clear();
    ndk::host::kill(gDying);
    EXPECT_EQ((Events{"died:1", "unlinked:1", "died:2", "unlinked:4", "unlinked:2", "died:6",
                      "unlinked:6"}),
              gEvents);
    EXPECT_EQ(binders + 1, ndk::host::liveBinderCount());

    // The link made from the notice holds; a dead binder takes no new link, which ends at once.
    gEvents.clear();
    ndk::host::kill(gOther);
    EXPECT_EQ(STATUS_DEAD_OBJECT, AIBinder_linkToDeath(gOther, gRecorder, Cookie(8)));
    EXPECT_EQ((Events{"died:5", "unlinked:5", "unlinked:8"}), gEvents);

    AIBinder_decStrong(gOther);
    AIBinder_DeathRecipient_delete(reentrant);
    AIBinder_DeathRecipient_delete(gRecorder);
    EXPECT_EQ(binders, ndk::host::liveBinderCount());
    EXPECT_EQ(recipients, ndk::host::deathRecipientCount());
}

}  // namespace

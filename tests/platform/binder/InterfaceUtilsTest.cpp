/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * C++ helpers: SharedRefBase, ICInterface, BnCInterface and BpCInterface.
 */
#include <android/binder_auto_utils.h>
#include <android/binder_interface_utils.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>

#include <memory>

#include "BinderTestUtil.h"

namespace binder_test {
namespace {

binder_status_t noTransact(AIBinder*, transaction_code_t, const AParcel*, AParcel*) {
    return STATUS_UNKNOWN_TRANSACTION;
}

class IThing : public ndk::ICInterface {
  public:
    static const char* descriptor;
    static AIBinder_Class* clazz() {
        static AIBinder_Class* sClass = defineClass(descriptor, noTransact);
        return sClass;
    }
    virtual int32_t value() = 0;
};
const char* IThing::descriptor = "host.test.IThing";

std::atomic<int> gBindersMade{0};
std::atomic<int> gThingsDestroyed{0};

class Thing : public ndk::BnCInterface<IThing> {
  public:
    explicit Thing(int32_t value) : mValue(value) {}
    ~Thing() override { gThingsDestroyed++; }
    int32_t value() override { return mValue; }
    binder_status_t dump(int fd, const char**, uint32_t) override { return fd; }

  protected:
    ndk::SpAIBinder createBinder() override {
        gBindersMade++;
        return ndk::SpAIBinder(AIBinder_new(clazz(), static_cast<void*>(this)));
    }

  private:
    const int32_t mValue;
};

class BpThing : public ndk::BpCInterface<IThing> {
  public:
    explicit BpThing(const ndk::SpAIBinder& binder) : BpCInterface(binder) {}
    int32_t value() override { return -1; }
};

class InterfaceUtilsTest : public BinderTest {
  protected:
    void SetUp() override {
        BinderTest::SetUp();
        gBindersMade = 0;
        gThingsDestroyed = 0;
    }
};

TEST_F(InterfaceUtilsTest, BinderIsSharedWhileReferencedAndHoldsItsObject) {
    std::shared_ptr<Thing> thing = ndk::SharedRefBase::make<Thing>(3);
    std::shared_ptr<IThing> typed = thing->ref<IThing>();
    EXPECT_EQ(2, thing.use_count());
    ndk::SpAIBinder binder = thing->asBinder();
    EXPECT_EQ(binder, thing->asBinder());
    EXPECT_EQ(1, gBindersMade);
    binder.set(nullptr);
    binder = thing->asBinder();
    EXPECT_EQ(2, gBindersMade) << "a binder whose last reference went is made anew";

    // The binder keeps the object alive, also once it is seen as remote.
    Thing* raw = thing.get();
    thing.reset();
    typed.reset();
    EXPECT_EQ(0, gThingsDestroyed);
    ndk::host::setRemote(binder.get(), true);
    EXPECT_EQ(nullptr, AIBinder_getUserData(binder.get()));
    EXPECT_EQ(raw, ndk::ICInterface::asInterface(binder.get()).get());

    std::shared_ptr<BpThing> proxy = ndk::SharedRefBase::make<BpThing>(binder);
    EXPECT_TRUE(proxy->isRemote());
    EXPECT_EQ(binder, proxy->asBinder());
    EXPECT_EQ(42, proxy->dump(42, nullptr, 0));  // the object's own dump answers
    proxy.reset();
    binder.set(nullptr);
    EXPECT_EQ(1, gThingsDestroyed);

    // Only binders of interface classes belong to an object.
    ndk::SpAIBinder plain(AIBinder_new(objectClass(), &mLifetime));
    EXPECT_EQ(nullptr, ndk::ICInterface::asInterface(plain.get()));
    EXPECT_EQ(nullptr, ndk::ICInterface::asInterface(nullptr));
}

}  // namespace
}  // namespace binder_test

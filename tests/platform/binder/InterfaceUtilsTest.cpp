/*
 * C++ helpers: SharedRefBase, ICInterface, BnCInterface, BpCInterface and the scoped wrappers.
 */
#include <android/binder_auto_utils.h>
#include <android/binder_interface_utils.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>
#include <unistd.h>

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

TEST_F(InterfaceUtilsTest, MakeCreatesTheOwningReference) {
    std::shared_ptr<Thing> thing = ndk::SharedRefBase::make<Thing>(7);
    EXPECT_EQ(1, thing.use_count());
    std::shared_ptr<ndk::SharedRefBase> base = thing->ref();
    EXPECT_EQ(thing.get(), base.get());
    EXPECT_EQ(2, thing.use_count());
    std::shared_ptr<IThing> typed = base->ref<IThing>();
    EXPECT_EQ(7, typed->value());

    thing.reset();
    base.reset();
    EXPECT_EQ(0, gThingsDestroyed);
    typed.reset();
    EXPECT_EQ(1, gThingsDestroyed);
}

TEST_F(InterfaceUtilsTest, ObjectNeverReferencedAbortsOnDestruction) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH({ Thing thing(1); }, "SharedRefBase: no ref created during lifetime");
}

TEST_F(InterfaceUtilsTest, AsBinderIsSharedWhileReferenced) {
    std::shared_ptr<Thing> thing = ndk::SharedRefBase::make<Thing>(1);
    EXPECT_FALSE(thing->isRemote());
    ndk::SpAIBinder first = thing->asBinder();
    ndk::SpAIBinder second = thing->asBinder();
    EXPECT_EQ(first, second);
    EXPECT_EQ(1, gBindersMade);

    first.set(nullptr);
    second.set(nullptr);
    ndk::SpAIBinder third = thing->asBinder();
    EXPECT_NE(nullptr, third.get());
    EXPECT_EQ(2, gBindersMade);
    EXPECT_EQ("host.test.IThing/default", Thing::makeServiceName("default"));
}

TEST_F(InterfaceUtilsTest, BinderHoldsItsObjectAlsoWhenRemote) {
    std::shared_ptr<Thing> thing = ndk::SharedRefBase::make<Thing>(3);
    ndk::SpAIBinder binder = thing->asBinder();
    Thing* raw = thing.get();
    thing.reset();
    ndk::host::setRemote(binder.get(), true);
    EXPECT_EQ(nullptr, AIBinder_getUserData(binder.get()));
    EXPECT_EQ(raw, ndk::ICInterface::asInterface(binder.get()).get());

    std::shared_ptr<BpThing> proxy = ndk::SharedRefBase::make<BpThing>(binder);
    EXPECT_TRUE(proxy->isRemote());
    EXPECT_EQ(binder, proxy->asBinder());
    EXPECT_EQ(42, proxy->dump(42, nullptr, 0));  // the object's own dump answers
    ndk::host::setRemote(binder.get(), false);
    EXPECT_FALSE(proxy->isRemote());
    proxy.reset();
    binder.set(nullptr);
    EXPECT_EQ(1, gThingsDestroyed);

    // Only binders of interface classes belong to an object.
    ndk::SpAIBinder plain(AIBinder_new(objectClass(), &mLifetime));
    EXPECT_EQ(nullptr, ndk::ICInterface::asInterface(plain.get()));
    EXPECT_EQ(nullptr, ndk::ICInterface::asInterface(nullptr));
}

TEST_F(InterfaceUtilsTest, ScopedFileDescriptorOwnsItsDescriptor) {
    int fd = dup(STDERR_FILENO);
    int duplicate;
    {
        ndk::ScopedFileDescriptor owner(fd);
        duplicate = owner.dup().release();
    }
    EXPECT_EQ(-1, fcntl(fd, F_GETFD));
    EXPECT_EQ(0, close(duplicate));
}

}  // namespace
}  // namespace binder_test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for the NDK binder <android/binder_interface_utils.h>: the C++ bases of binder
 * interfaces (SharedRefBase, ICInterface, BnCInterface, BpCInterface) with the semantics of
 * Android 15.
 */
#pragma once

#include <android/binder_auto_utils.h>
#include <android/binder_ibinder.h>
#include <android/binder_shell.h>
#include <stdint.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

namespace ndk {

namespace internal {

/* Stops the process with "<file>:<line>: <message>", as a failed bionic __assert does. */
[[noreturn]] inline void assertFailed(const char* file, int line, const char* message) {
    fprintf(stderr, "%s:%d: %s\n", file, line, message);
    fflush(stderr);
    abort();
}

/*
 * Hooks of the host binder for ICInterface. The host lets a test make a local binder look remote
 * while calls still reach the implementation in this process, so the interface object must be
 * found whatever AIBinder_getUserData answers.
 */
/* Marks clazz as made by ICInterface::defineClass. */
void markInterfaceClass(AIBinder_Class* clazz);
/* User data of a binder whose class was marked, local or remote; null for any other binder. */
void* interfaceUserData(AIBinder* binder);

}  // namespace internal

/*
 * Base of reference-counted objects owned through std::shared_ptr. Create them only with make();
 * the first ref() makes the owning shared_ptr, later ones share it.
 */
class SharedRefBase {
  public:
    SharedRefBase() {}
    virtual ~SharedRefBase() {
        std::call_once(mFlagThis, [&]() {
            internal::assertFailed(__FILE__, __LINE__,
                                   "SharedRefBase: no ref created during lifetime");
        });
        if (mThis.lock() != nullptr) {
            internal::assertFailed(__FILE__, __LINE__,
                                   "SharedRefBase: destructed but still able to lock weak_ptr. Is "
                                   "this object double-owned?");
        }
    }

    /* A shared reference to this object; the first call creates the owning one. */
    std::shared_ptr<SharedRefBase> ref() {
        std::shared_ptr<SharedRefBase> thiz;
        std::call_once(mFlagThis, [&]() {
            thiz = std::shared_ptr<SharedRefBase>(this, [](SharedRefBase* p) { delete p; });
            mThis = thiz;
        });
        if (thiz == nullptr) thiz = mThis.lock();
        return thiz;
    }

    std::shared_ptr<const SharedRefBase> ref() const {
        return const_cast<SharedRefBase*>(this)->ref();
    }

    template <class CHILD>
    std::shared_ptr<CHILD> ref() {
        return std::static_pointer_cast<CHILD>(ref());
    }

    template <class CHILD>
    std::shared_ptr<const CHILD> ref() const {
        return std::static_pointer_cast<const CHILD>(ref());
    }

    /* Creates a T and its owning shared_ptr. */
    template <class T, class... Args>
    static std::shared_ptr<T> make(Args&&... args) {
        T* t = new T(std::forward<Args>(args)...);
        return t->template ref<T>();
    }

    static void operator delete(void* p) { std::free(p); }

  private:
    /* Only make() may allocate: the object must be owned by the shared_ptr of ref(). */
    static void* operator new(size_t s) { return std::malloc(s); }

    std::once_flag mFlagThis;
    std::weak_ptr<SharedRefBase> mThis;
};

/* Base of every binder interface, local (BnCInterface) or proxy (BpCInterface). */
class ICInterface : public SharedRefBase {
  public:
    ICInterface() {}
    virtual ~ICInterface() {}

    /* The binder of this object: for a local one, made on first use and cached weakly. */
    virtual SpAIBinder asBinder() = 0;

    /* Whether this object is a proxy of a binder in another process. */
    virtual bool isRemote() = 0;

    /* Dumps debug information to fd. */
    virtual binder_status_t dump(int /*fd*/, const char** /*args*/, uint32_t /*numArgs*/) {
        return STATUS_OK;
    }

    /* Handles a shell command. */
    virtual binder_status_t handleShellCommand(int /*in*/, int /*out*/, int /*err*/,
                                               const char** /*argv*/, uint32_t /*argc*/) {
        return STATUS_OK;
    }

    /* The interface object a binder made from an ICInterface belongs to; null otherwise. */
    static std::shared_ptr<ICInterface> asInterface(AIBinder* binder);

    /*
     * Defines the class of an interface's binders. AIBinder_new(clazz, object) then makes a
     * binder that holds the object (an ICInterface*) strongly until the binder is destroyed.
     */
    static AIBinder_Class* defineClass(const char* interfaceDescriptor,
                                       AIBinder_Class_onTransact onTransact);

  private:
    /* The user data of binders of an interface class. */
    class ICInterfaceData {
      public:
        std::shared_ptr<ICInterface> interface;

        static std::shared_ptr<ICInterface> getInterface(AIBinder* binder);

        static void* onCreate(void* args);
        static void onDestroy(void* userData);
        static binder_status_t onDump(AIBinder* binder, int fd, const char** args, uint32_t numArgs);
        static binder_status_t handleShellCommand(AIBinder* binder, int in, int out, int err,
                                                  const char** argv, uint32_t argc);
    };
};

/* Base of the local implementation of INTERFACE (generated Bn classes derive from it). */
template <typename INTERFACE>
class BnCInterface : public INTERFACE {
  public:
    BnCInterface() {}
    virtual ~BnCInterface() {}

    SpAIBinder asBinder() override final;

    bool isRemote() override final { return false; }

    /* "<descriptor>/<instance>", the usual service name of an instance. */
    static std::string makeServiceName(std::string_view instance) {
        const std::string descriptor = INTERFACE::descriptor;
        return descriptor + "/" + std::string(instance);
    }

  protected:
    /* Makes a new binder for this object (generated code calls AIBinder_new). */
    virtual SpAIBinder createBinder() = 0;

  private:
    // Guards mWeakBinder, so that concurrent asBinder() calls share one binder.
    std::mutex mMutex;
    ScopedAIBinder_Weak mWeakBinder;
};

/* Base of the proxy of a remote INTERFACE (generated Bp classes derive from it). */
template <typename INTERFACE>
class BpCInterface : public INTERFACE {
  public:
    explicit BpCInterface(const SpAIBinder& binder) : mBinder(binder) {}
    virtual ~BpCInterface() {}

    SpAIBinder asBinder() override final { return mBinder; }

    bool isRemote() override final { return AIBinder_isRemote(mBinder.get()); }

    binder_status_t dump(int fd, const char** args, uint32_t numArgs) override {
        return AIBinder_dump(asBinder().get(), fd, args, numArgs);
    }

  private:
    SpAIBinder mBinder;
};

template <typename INTERFACE>
SpAIBinder BnCInterface<INTERFACE>::asBinder() {
    std::lock_guard<std::mutex> lock(mMutex);

    SpAIBinder binder;
    if (mWeakBinder.get() != nullptr) {
        binder.set(AIBinder_Weak_promote(mWeakBinder.get()));
    }
    if (binder.get() == nullptr) {
        binder = createBinder();
        mWeakBinder.set(AIBinder_Weak_new(binder.get()));
    }
    return binder;
}

inline std::shared_ptr<ICInterface> ICInterface::asInterface(AIBinder* binder) {
    return ICInterfaceData::getInterface(binder);
}

inline AIBinder_Class* ICInterface::defineClass(const char* interfaceDescriptor,
                                                AIBinder_Class_onTransact onTransact) {
    AIBinder_Class* clazz = AIBinder_Class_define(interfaceDescriptor, ICInterfaceData::onCreate,
                                                  ICInterfaceData::onDestroy, onTransact);
    if (clazz == nullptr) return nullptr;
    AIBinder_Class_setOnDump(clazz, ICInterfaceData::onDump);
    AIBinder_Class_setHandleShellCommand(clazz, ICInterfaceData::handleShellCommand);
    internal::markInterfaceClass(clazz);
    return clazz;
}

inline std::shared_ptr<ICInterface> ICInterface::ICInterfaceData::getInterface(AIBinder* binder) {
    if (binder == nullptr) return nullptr;
    void* userData = internal::interfaceUserData(binder);
    if (userData == nullptr) return nullptr;
    return static_cast<ICInterfaceData*>(userData)->interface;
}

inline void* ICInterface::ICInterfaceData::onCreate(void* args) {
    std::shared_ptr<ICInterface> interface = static_cast<ICInterface*>(args)->ref<ICInterface>();
    ICInterfaceData* data = new ICInterfaceData{std::move(interface)};
    return static_cast<void*>(data);
}

inline void ICInterface::ICInterfaceData::onDestroy(void* userData) {
    delete static_cast<ICInterfaceData*>(userData);
}

inline binder_status_t ICInterface::ICInterfaceData::onDump(AIBinder* binder, int fd,
                                                            const char** args, uint32_t numArgs) {
    std::shared_ptr<ICInterface> interface = getInterface(binder);
    if (interface == nullptr) return STATUS_DEAD_OBJECT;
    return interface->dump(fd, args, numArgs);
}

inline binder_status_t ICInterface::ICInterfaceData::handleShellCommand(AIBinder* binder, int in,
                                                                        int out, int err,
                                                                        const char** argv,
                                                                        uint32_t argc) {
    std::shared_ptr<ICInterface> interface = getInterface(binder);
    if (interface == nullptr) return STATUS_DEAD_OBJECT;
    return interface->handleShellCommand(in, out, err, argv, argc);
}

}  // namespace ndk

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Binder objects of the host libbinder_ndk: classes, reference counting, weak references and
 * death recipients. Every binder lives in this process; a test may mark one remote and kill it.
 */
#define LOG_TAG "libbinder_ndk"

#include <android/binder_ibinder.h>
#include <android/binder_interface_utils.h>
#include <android/binder_shell.h>
#include <android/binder_stability.h>
#include <hostplatform/BinderTesting.h>
#include <log/log.h>
#include <unistd.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <iterator>
#include <list>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

struct AIBinder_Class {
    AIBinder_Class(const char* descriptor, AIBinder_Class_onCreate create,
                   AIBinder_Class_onDestroy destroy, AIBinder_Class_onTransact transact)
        : interfaceDescriptor(descriptor),
          onCreate(create),
          onDestroy(destroy),
          onTransact(transact) {}

    // Set at definition time, before any binder of the class exists; read-only afterwards.
    const std::string interfaceDescriptor;
    const AIBinder_Class_onCreate onCreate;
    const AIBinder_Class_onDestroy onDestroy;
    const AIBinder_Class_onTransact onTransact;
    AIBinder_onDump onDump = nullptr;
    AIBinder_handleShellCommand handleShellCommand = nullptr;
    bool interfaceClass = false;  // made by ndk::ICInterface::defineClass
};

struct AIBinder {
    AIBinder(const AIBinder_Class* clazz, void* userData) : clazz(clazz), userData(userData) {}

    const AIBinder_Class* const clazz;
    void* const userData;

    // The fields below are guarded by BinderState::lock.
    int32_t strong = 1;
    // AIBinder_Weak handles, plus one while strong references remain or destruction runs. The
    // memory goes when this drops to zero.
    int32_t weak = 1;
    bool remote = false;
    bool dead = false;
};

struct AIBinder_Weak {
    AIBinder* binder;
};

struct AIBinder_DeathRecipient {
    explicit AIBinder_DeathRecipient(AIBinder_DeathRecipient_onBinderDied died)
        : onBinderDied(died) {}

    const AIBinder_DeathRecipient_onBinderDied onBinderDied;
    AIBinder_DeathRecipient_onBinderUnlinked onUnlinked = nullptr;  // guarded by BinderState::lock
};

namespace {

/* One linkToDeath registration. The callbacks are copied so that delivery needs no recipient. */
struct DeathLink {
    AIBinder* binder;
    AIBinder_DeathRecipient* recipient;
    void* cookie;
    AIBinder_DeathRecipient_onBinderDied onBinderDied;
    AIBinder_DeathRecipient_onBinderUnlinked onUnlinked;
};

struct BinderState {
    // Guards the mutable fields of every AIBinder and AIBinder_DeathRecipient and all members
    // below. Never held while calling out to user code or to the logger.
    std::mutex lock;
    std::list<DeathLink> links;  // in link order
    size_t liveBinders = 0;
    size_t liveRecipients = 0;
    binder_status_t nextLinkFailure = STATUS_OK;
};

BinderState& state() {
    // Never destroyed: binders may be released from static destructors of other libraries.
    static BinderState* sState = new BinderState;
    return *sState;
}

/* Removes and returns the links matching pred, in link order. Call with the lock held. */
template <typename Pred>
std::vector<DeathLink> takeLinksLocked(Pred pred) {
    std::vector<DeathLink> taken;
    std::list<DeathLink>& links = state().links;
    for (auto it = links.begin(); it != links.end();) {
        if (pred(*it)) {
            taken.push_back(*it);
            it = links.erase(it);
        } else {
            ++it;
        }
    }
    return taken;
}

void reportUnlinked(const std::vector<DeathLink>& links) {
    for (const DeathLink& link : links) {
        if (link.onUnlinked != nullptr) link.onUnlinked(link.cookie);
    }
}

/* Reports the death of each link: onBinderDied(cookie), then onUnlinked(cookie). */
void reportDied(const std::vector<DeathLink>& links) {
    for (const DeathLink& link : links) {
        link.onBinderDied(link.cookie);
        if (link.onUnlinked != nullptr) link.onUnlinked(link.cookie);
    }
}

/*
 * The thread on which binder delivers death notices in a process of its own, started on first
 * use. Notices are run in the order they were queued; while held, queued notices wait.
 */
class DeathNoticeThread {
  public:
    static DeathNoticeThread& get() {
        // Never destroyed: the thread waits for work for the life of the process.
        static DeathNoticeThread* sThread = new DeathNoticeThread;
        return *sThread;
    }

    void queue(std::vector<DeathLink> links) {
        std::lock_guard<std::mutex> lock(mLock);
        for (DeathLink& link : links) mQueue.push_back(link);
        if (!mStarted) {
            mStarted = true;
            std::thread([this] { run(); }).detach();
        }
        mChanged.notify_all();
    }

    void hold(bool held) {
        std::lock_guard<std::mutex> lock(mLock);
        mHeld = held;
        mChanged.notify_all();
    }

    void waitIdle() {
        std::unique_lock<std::mutex> lock(mLock);
        mChanged.wait(lock, [this] { return (mQueue.empty() || mHeld) && !mRunning; });
    }

  private:
    void run() {
        std::unique_lock<std::mutex> lock(mLock);
        for (;;) {
            mChanged.wait(lock, [this] { return !mHeld && !mQueue.empty(); });
            DeathLink link = mQueue.front();
            mQueue.pop_front();
            mRunning = true;
            lock.unlock();
            reportDied({link});
            lock.lock();
            mRunning = false;
            mChanged.notify_all();
        }
    }

    std::mutex mLock;
    std::condition_variable mChanged;
    std::deque<DeathLink> mQueue;
    bool mStarted = false;
    bool mHeld = false;
    bool mRunning = false;
};

/* Drops one count of binder->weak and frees the binder's memory with the last one. */
void releaseWeakCount(AIBinder* binder) {
    bool last;
    {
        std::lock_guard<std::mutex> lock(state().lock);
        last = --binder->weak == 0;
    }
    if (last) delete binder;
}

}  // namespace

// ---- Classes --------------------------------------------------------------------------------

AIBinder_Class* AIBinder_Class_define(const char* interfaceDescriptor,
                                      AIBinder_Class_onCreate onCreate,
                                      AIBinder_Class_onDestroy onDestroy,
                                      AIBinder_Class_onTransact onTransact) {
    if (interfaceDescriptor == nullptr) {
        ALOGE("%s: a class needs an interface descriptor", __func__);
        return nullptr;
    }
    return new AIBinder_Class(interfaceDescriptor, onCreate, onDestroy, onTransact);
}

void AIBinder_Class_setOnDump(AIBinder_Class* clazz, AIBinder_onDump onDump) {
    if (clazz == nullptr) return;
    clazz->onDump = onDump;
}

void AIBinder_Class_setHandleShellCommand(AIBinder_Class* clazz,
                                          AIBinder_handleShellCommand handleShellCommand) {
    if (clazz == nullptr) return;
    clazz->handleShellCommand = handleShellCommand;
}

void AIBinder_Class_disableInterfaceTokenHeader(AIBinder_Class* /*clazz*/) {}

const char* AIBinder_Class_getDescriptor(const AIBinder_Class* clazz) {
    if (clazz == nullptr) return nullptr;
    return clazz->interfaceDescriptor.c_str();
}

// ---- Binders --------------------------------------------------------------------------------

AIBinder* AIBinder_new(const AIBinder_Class* clazz, void* args) {
    if (clazz == nullptr) {
        ALOGE("%s: a binder needs a class", __func__);
        return nullptr;
    }
    void* userData = clazz->onCreate != nullptr ? clazz->onCreate(args) : nullptr;
    AIBinder* binder = new AIBinder(clazz, userData);
    std::lock_guard<std::mutex> lock(state().lock);
    state().liveBinders++;
    return binder;
}

bool AIBinder_isRemote(const AIBinder* binder) {
    if (binder == nullptr) return false;
    std::lock_guard<std::mutex> lock(state().lock);
    return binder->remote;
}

bool AIBinder_isAlive(const AIBinder* binder) {
    if (binder == nullptr) return false;
    std::lock_guard<std::mutex> lock(state().lock);
    return !binder->dead;
}

binder_status_t AIBinder_ping(AIBinder* binder) {
    if (binder == nullptr) return STATUS_UNEXPECTED_NULL;
    return AIBinder_isAlive(binder) ? STATUS_OK : STATUS_DEAD_OBJECT;
}

binder_status_t AIBinder_dump(AIBinder* binder, int fd, const char** args, uint32_t numArgs) {
    if (binder == nullptr) return STATUS_UNEXPECTED_NULL;
    if (!AIBinder_isAlive(binder)) return STATUS_DEAD_OBJECT;
    if (binder->clazz->onDump == nullptr) return STATUS_OK;
    return binder->clazz->onDump(binder, fd, args, numArgs);
}

uid_t AIBinder_getCallingUid() {
    return getuid();
}

pid_t AIBinder_getCallingPid() {
    return getpid();
}

bool AIBinder_isHandlingTransaction() {
    return false;
}

void AIBinder_incStrong(AIBinder* binder) {
    if (binder == nullptr) return;
    bool destroyed;
    {
        std::lock_guard<std::mutex> lock(state().lock);
        destroyed = binder->strong <= 0;
        if (!destroyed) binder->strong++;
    }
    if (destroyed) ALOGE("%s: binder %p was already destroyed", __func__, binder);
}

void AIBinder_decStrong(AIBinder* binder) {
    if (binder == nullptr) {
        ALOGE("%s: on null binder", __func__);
        return;
    }
    std::vector<DeathLink> unlinked;
    bool overReleased = false;
    {
        std::lock_guard<std::mutex> lock(state().lock);
        if (binder->strong <= 0) {
            overReleased = true;
        } else if (--binder->strong > 0) {
            return;
        } else {
            state().liveBinders--;
            unlinked = takeLinksLocked([binder](const DeathLink& l) { return l.binder == binder; });
        }
    }
    if (overReleased) {
        ALOGE("%s: binder %p has no strong reference left", __func__, binder);
        return;
    }
    // The last strong reference is gone: end its links, then destroy the user data.
    reportUnlinked(unlinked);
    if (binder->clazz->onDestroy != nullptr) binder->clazz->onDestroy(binder->userData);
    releaseWeakCount(binder);
}

int32_t AIBinder_debugGetRefCount(AIBinder* binder) {
    if (binder == nullptr) {
        ALOGE("%s: on null binder", __func__);
        return -1;
    }
    std::lock_guard<std::mutex> lock(state().lock);
    return binder->strong;
}

bool AIBinder_associateClass(AIBinder* binder, const AIBinder_Class* clazz) {
    if (binder == nullptr || clazz == nullptr) return false;
    if (binder->clazz == clazz) return true;
    // Classes are compared by identity: two definitions of one descriptor are different classes.
    ALOGE("%s: binder %p is of class %p ('%s'), not of class %p ('%s')", __func__, binder,
          binder->clazz, binder->clazz->interfaceDescriptor.c_str(), clazz,
          clazz->interfaceDescriptor.c_str());
    return false;
}

const AIBinder_Class* AIBinder_getClass(AIBinder* binder) {
    if (binder == nullptr) return nullptr;
    return binder->clazz;
}

void* AIBinder_getUserData(AIBinder* binder) {
    if (binder == nullptr || AIBinder_isRemote(binder)) return nullptr;
    return binder->userData;
}

bool AIBinder_lt(const AIBinder* lhs, const AIBinder* rhs) {
    return std::less<const AIBinder*>()(lhs, rhs);
}

void AIBinder_markVintfStability(AIBinder* /*binder*/) {}
void AIBinder_markVendorStability(AIBinder* /*binder*/) {}
void AIBinder_markSystemStability(AIBinder* /*binder*/) {}
void AIBinder_forceDowngradeToLocalStability(AIBinder* /*binder*/) {}

// ---- Weak references ------------------------------------------------------------------------

AIBinder_Weak* AIBinder_Weak_new(AIBinder* binder) {
    if (binder == nullptr) return nullptr;
    {
        std::lock_guard<std::mutex> lock(state().lock);
        binder->weak++;
    }
    return new AIBinder_Weak{binder};
}

void AIBinder_Weak_delete(AIBinder_Weak* weakBinder) {
    if (weakBinder == nullptr) return;
    releaseWeakCount(weakBinder->binder);
    delete weakBinder;
}

AIBinder* AIBinder_Weak_promote(AIBinder_Weak* weakBinder) {
    if (weakBinder == nullptr) return nullptr;
    AIBinder* binder = weakBinder->binder;
    std::lock_guard<std::mutex> lock(state().lock);
    if (binder->strong <= 0) return nullptr;
    binder->strong++;
    return binder;
}

AIBinder_Weak* AIBinder_Weak_clone(const AIBinder_Weak* weak) {
    if (weak == nullptr) return nullptr;
    return AIBinder_Weak_new(weak->binder);
}

bool AIBinder_Weak_lt(const AIBinder_Weak* lhs, const AIBinder_Weak* rhs) {
    if (lhs == nullptr || rhs == nullptr) return std::less<const AIBinder_Weak*>()(lhs, rhs);
    return std::less<const AIBinder*>()(lhs->binder, rhs->binder);
}

// ---- Death recipients -----------------------------------------------------------------------

AIBinder_DeathRecipient* AIBinder_DeathRecipient_new(
        AIBinder_DeathRecipient_onBinderDied onBinderDied) {
    if (onBinderDied == nullptr) {
        ALOGE("%s: requires non-null onBinderDied parameter.", __func__);
        return nullptr;
    }
    AIBinder_DeathRecipient* recipient = new AIBinder_DeathRecipient(onBinderDied);
    std::lock_guard<std::mutex> lock(state().lock);
    state().liveRecipients++;
    return recipient;
}

void AIBinder_DeathRecipient_setOnUnlinked(AIBinder_DeathRecipient* recipient,
                                           AIBinder_DeathRecipient_onBinderUnlinked onUnlinked) {
    if (recipient == nullptr) return;
    std::lock_guard<std::mutex> lock(state().lock);
    recipient->onUnlinked = onUnlinked;
}

void AIBinder_DeathRecipient_delete(AIBinder_DeathRecipient* recipient) {
    if (recipient == nullptr) return;
    std::vector<DeathLink> unlinked;
    {
        std::lock_guard<std::mutex> lock(state().lock);
        unlinked = takeLinksLocked(
                [recipient](const DeathLink& l) { return l.recipient == recipient; });
        state().liveRecipients--;
    }
    reportUnlinked(unlinked);
    delete recipient;
}

binder_status_t AIBinder_linkToDeath(AIBinder* binder, AIBinder_DeathRecipient* recipient,
                                     void* cookie) {
    if (binder == nullptr || recipient == nullptr) {
        ALOGE("%s: Must provide binder (%p) and recipient (%p)", __func__, binder, recipient);
        return STATUS_UNEXPECTED_NULL;
    }
    BinderState& s = state();
    AIBinder_DeathRecipient_onBinderUnlinked onUnlinked;
    bool cookieLinkedAgain = false;
    binder_status_t status;
    {
        std::lock_guard<std::mutex> lock(s.lock);
        onUnlinked = recipient->onUnlinked;
        if (cookie != nullptr && onUnlinked != nullptr) {
            for (const DeathLink& link : s.links) {
                if (link.recipient == recipient && link.cookie == cookie) cookieLinkedAgain = true;
            }
        }
        if (s.nextLinkFailure != STATUS_OK) {
            status = s.nextLinkFailure;
            s.nextLinkFailure = STATUS_OK;
        } else if (!binder->remote) {
            status = STATUS_INVALID_OPERATION;  // local binders never die
        } else if (binder->dead) {
            status = STATUS_DEAD_OBJECT;
        } else {
            status = STATUS_OK;
            s.links.push_back({binder, recipient, cookie, recipient->onBinderDied, onUnlinked});
        }
    }
    if (cookieLinkedAgain) {
        ALOGE("%s: cookie %p is already linked with this recipient, which has an onUnlinked "
              "callback: onUnlinked will run once for each link.",
              __func__, cookie);
    } else if (cookie != nullptr && onUnlinked == nullptr) {
        ALOGW("AIBinder_linkToDeath is being called with a non-null cookie and no onUnlink "
              "callback set. Without one, the cookie cannot safely be freed: set it with "
              "AIBinder_DeathRecipient_setOnUnlinked before linking.");
    }
    if (status != STATUS_OK && onUnlinked != nullptr) onUnlinked(cookie);
    return status;
}

binder_status_t AIBinder_unlinkToDeath(AIBinder* binder, AIBinder_DeathRecipient* recipient,
                                       void* cookie) {
    if (binder == nullptr || recipient == nullptr) {
        ALOGE("%s: Must provide binder (%p) and recipient (%p)", __func__, binder, recipient);
        return STATUS_UNEXPECTED_NULL;
    }
    DeathLink unlinked;
    {
        BinderState& s = state();
        std::lock_guard<std::mutex> lock(s.lock);
        // The most recent matching link goes first.
        auto it = s.links.rbegin();
        while (it != s.links.rend() &&
               !(it->binder == binder && it->recipient == recipient && it->cookie == cookie)) {
            ++it;
        }
        if (it == s.links.rend()) return STATUS_NAME_NOT_FOUND;
        unlinked = *it;
        s.links.erase(std::next(it).base());
    }
    if (unlinked.onUnlinked != nullptr) unlinked.onUnlinked(cookie);
    return STATUS_OK;
}

// ---- ICInterface support ----------------------------------------------------------------------

namespace ndk::internal {

void markInterfaceClass(AIBinder_Class* clazz) {
    clazz->interfaceClass = true;
}

void* interfaceUserData(AIBinder* binder) {
    if (binder == nullptr || !binder->clazz->interfaceClass) return nullptr;
    return binder->userData;
}

}  // namespace ndk::internal

// ---- Test controls ----------------------------------------------------------------------------

namespace ndk::host {

void setRemote(AIBinder* binder, bool remote) {
    if (binder == nullptr) return;
    std::lock_guard<std::mutex> lock(state().lock);
    binder->remote = remote;
}

namespace {

/* Marks the binder dead and takes its links, which will not be reported anywhere else. */
std::vector<DeathLink> takeDeath(AIBinder* binder) {
    std::lock_guard<std::mutex> lock(state().lock);
    binder->dead = true;
    return takeLinksLocked([binder](const DeathLink& l) { return l.binder == binder; });
}

}  // namespace

void kill(AIBinder* binder) {
    if (binder == nullptr) return;
    // The binder itself is not touched below: a callback may drop its last reference.
    reportDied(takeDeath(binder));
}

void killOnDeathThread(AIBinder* binder) {
    if (binder == nullptr) return;
    DeathNoticeThread::get().queue(takeDeath(binder));
}

void holdDeathNotices(bool held) {
    DeathNoticeThread::get().hold(held);
}

void waitForDeathNotices() {
    DeathNoticeThread::get().waitIdle();
}

void failNextLinkToDeath(binder_status_t status) {
    std::lock_guard<std::mutex> lock(state().lock);
    state().nextLinkFailure = status;
}

size_t liveBinderCount() {
    std::lock_guard<std::mutex> lock(state().lock);
    return state().liveBinders;
}

size_t linkCount(AIBinder* binder) {
    std::lock_guard<std::mutex> lock(state().lock);
    size_t count = 0;
    for (const DeathLink& link : state().links) {
        if (link.binder == binder) count++;
    }
    return count;
}

size_t deathRecipientCount() {
    std::lock_guard<std::mutex> lock(state().lock);
    return state().liveRecipients;
}

}  // namespace ndk::host

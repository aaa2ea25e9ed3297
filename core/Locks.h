/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The locks of the library: POSIX mutexes (default attributes unless a recursive one is asked for)
 * and condition variables, known to Clang's thread-safety analysis (-Wthread-safety), so that
 * every member a lock guards is declared GUARDED_BY it and every function that needs a lock held
 * says so. The standard library's own mutex carries no such annotations in every C++ library the
 * code is built with, hence these thin wrappers.
 */
#pragma once

#include <android-base/thread_annotations.h>
#include <pthread.h>

// Only Clang knows the analysis' attributes; other compilers see none.
#if !defined(__clang__)
#undef THREAD_ANNOTATION_ATTRIBUTE__
#define THREAD_ANNOTATION_ATTRIBUTE__(x)
#endif

namespace offlinecamera {

class Condition;

class CAPABILITY("mutex") Mutex {
  public:
    enum class Kind {
        kNormal,
        // The thread holding it may take it again, for work that can be entered again on the
        // same thread: a binder call made from inside a callback runs on the thread that made
        // the callback.
        kRecursive,
    };

    explicit Mutex(Kind kind = Kind::kNormal) {
        pthread_mutexattr_t attributes;
        pthread_mutexattr_init(&attributes);
        if (kind == Kind::kRecursive) {
            pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
        }
        pthread_mutex_init(&mMutex, &attributes);
        pthread_mutexattr_destroy(&attributes);
    }
    ~Mutex() { pthread_mutex_destroy(&mMutex); }
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    void lock() ACQUIRE() { pthread_mutex_lock(&mMutex); }
    void unlock() RELEASE() { pthread_mutex_unlock(&mMutex); }

  private:
    friend class Condition;
    pthread_mutex_t mMutex;
};

/* Holds a Mutex for the life of the object. */
class SCOPED_CAPABILITY MutexLock {
  public:
    explicit MutexLock(Mutex& mutex) ACQUIRE(mutex) : mMutex(mutex) { mMutex.lock(); }
    ~MutexLock() RELEASE() { mMutex.unlock(); }
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

  private:
    Mutex& mMutex;
};

class Condition {
  public:
    Condition() { pthread_cond_init(&mCondition, nullptr); }
    ~Condition() { pthread_cond_destroy(&mCondition); }
    Condition(const Condition&) = delete;
    Condition& operator=(const Condition&) = delete;

    /* Releases mutex while waiting; it is held again when this returns. */
    void wait(Mutex& mutex) REQUIRES(mutex) { pthread_cond_wait(&mCondition, &mutex.mMutex); }
    void broadcast() { pthread_cond_broadcast(&mCondition); }

  private:
    pthread_cond_t mCondition;
};

}  // namespace offlinecamera

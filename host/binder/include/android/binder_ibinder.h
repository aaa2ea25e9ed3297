/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for the NDK binder <android/binder_ibinder.h>, with the signatures of Android 15.
 *
 * On the host every binder lives in this process. A binder is local to the code that made it;
 * host tests can make it look remote (hostplatform/BinderTesting.h), and then kill it, which
 * delivers death notifications as the binder driver does when a remote process dies. Nothing is
 * parcelled: calls reach the implementation object directly.
 */
#pragma once

#include <android/binder_parcel.h>
#include <android/binder_status.h>
#include <stdbool.h>
#include <stdint.h>
#include <sys/cdefs.h>
#include <sys/types.h>

__BEGIN_DECLS

typedef uint32_t transaction_code_t;

/* Flags of a transaction. */
typedef uint32_t binder_flags_t;
enum {
    /* The caller does not wait for the transaction to complete. */
    FLAG_ONEWAY = 0x01,
};

/* Range of codes that user-defined transactions may use. */
enum {
    FIRST_CALL_TRANSACTION = 0x00000001,
    LAST_CALL_TRANSACTION = 0x00ffffff,
};

/* The behaviour of a kind of binder object: descriptor and callbacks. Defined once, never freed. */
struct AIBinder_Class;
typedef struct AIBinder_Class AIBinder_Class;

/* A reference-counted binder object, local or remote. */
struct AIBinder;
typedef struct AIBinder AIBinder;

/* A weak reference to an AIBinder; it can be promoted while the object still exists. */
struct AIBinder_Weak;
typedef struct AIBinder_Weak AIBinder_Weak;

/* Receives death notifications of the binders it is linked to. */
struct AIBinder_DeathRecipient;
typedef struct AIBinder_DeathRecipient AIBinder_DeathRecipient;

/* Makes the user data of a new local binder from the args given to AIBinder_new. */
typedef void* (*AIBinder_Class_onCreate)(void* args);

/* Releases the user data when the binder made with it is destroyed. */
typedef void (*AIBinder_Class_onDestroy)(void* userData);

/* Handles an incoming transaction on a local binder. */
typedef binder_status_t (*AIBinder_Class_onTransact)(AIBinder* binder, transaction_code_t code,
                                                     const AParcel* in, AParcel* out);

/*
 * Defines a class. interfaceDescriptor is copied. The class is never freed, so define each class
 * once (usually in a static initialiser).
 */
__attribute__((warn_unused_result)) AIBinder_Class* AIBinder_Class_define(
        const char* interfaceDescriptor, AIBinder_Class_onCreate onCreate,
        AIBinder_Class_onDestroy onDestroy, AIBinder_Class_onTransact onTransact);

/* Writes debug information of a local binder to fd. */
typedef binder_status_t (*AIBinder_onDump)(AIBinder* binder, int fd, const char** args,
                                           uint32_t numArgs);

/* Sets the dump hook of a class; call it before binders of the class are made. */
void AIBinder_Class_setOnDump(AIBinder_Class* clazz, AIBinder_onDump onDump);

/* Interface tokens are not sent for this class. Nothing is parcelled on the host: no effect. */
void AIBinder_Class_disableInterfaceTokenHeader(AIBinder_Class* clazz);

/* The descriptor the class was defined with. */
const char* AIBinder_Class_getDescriptor(const AIBinder_Class* clazz);

/*
 * Creates a local binder of the class holding one strong reference for the caller. The user data
 * is clazz's onCreate(args); onDestroy(userData) runs when the last strong reference goes.
 */
__attribute__((warn_unused_result)) AIBinder* AIBinder_new(const AIBinder_Class* clazz, void* args);

/* Whether the binder lives in another process (on the host: was marked remote by a test). */
bool AIBinder_isRemote(const AIBinder* binder);

/* False once the process hosting a remote binder has died. Local binders are always alive. */
bool AIBinder_isAlive(const AIBinder* binder);

/* STATUS_OK if the binder answers, STATUS_DEAD_OBJECT if it is dead. */
binder_status_t AIBinder_ping(AIBinder* binder);

/* Asks the binder's class to dump itself to fd. */
binder_status_t AIBinder_dump(AIBinder* binder, int fd, const char** args, uint32_t numArgs);

/*
 * Registers for a death notification of a remote binder: when it dies, the recipient's
 * onBinderDied(cookie) is called, then its onUnlinked(cookie) if one was set at link time.
 *
 * Returns STATUS_OK, STATUS_UNEXPECTED_NULL if binder or recipient is null,
 * STATUS_INVALID_OPERATION for a local binder, STATUS_DEAD_OBJECT if the binder is already dead.
 * When the link fails, onUnlinked(cookie) has run by the time this returns.
 */
binder_status_t AIBinder_linkToDeath(AIBinder* binder, AIBinder_DeathRecipient* recipient,
                                     void* cookie);

/*
 * Removes the most recent link of (recipient, cookie) from binder and calls onUnlinked(cookie).
 * Returns STATUS_NAME_NOT_FOUND if there is no such link (also after the binder died, since the
 * death removed its links), STATUS_UNEXPECTED_NULL for null arguments. The recipient is not
 * deleted. Free the cookie in onUnlinked, not right after this returns.
 */
binder_status_t AIBinder_unlinkToDeath(AIBinder* binder, AIBinder_DeathRecipient* recipient,
                                       void* cookie);

/* Uid of the caller of the current transaction; on the host, this process's uid. */
uid_t AIBinder_getCallingUid(void);

/* Pid of the caller of the current transaction; on the host, this process's pid. */
pid_t AIBinder_getCallingPid(void);

/* Whether the calling thread is handling a transaction; never on the host. */
bool AIBinder_isHandlingTransaction(void);

/* Adds a strong reference. Null is ignored. */
void AIBinder_incStrong(AIBinder* binder);

/* Drops a strong reference; the last one destroys the object. Null is logged and ignored. */
void AIBinder_decStrong(AIBinder* binder);

/* Number of strong references, for debugging; -1 for null. */
int32_t AIBinder_debugGetRefCount(AIBinder* binder);

/*
 * Checks that the binder is of the class: true if it was made with exactly this class object.
 * A class object with the same descriptor but defined separately does not match.
 */
bool AIBinder_associateClass(AIBinder* binder, const AIBinder_Class* clazz);

/* The class of the binder, or null. */
const AIBinder_Class* AIBinder_getClass(AIBinder* binder);

/* The user data made by onCreate for a local binder; null for a remote one. */
void* AIBinder_getUserData(AIBinder* binder);

/* Strict order of binders, consistent with equality. */
bool AIBinder_lt(const AIBinder* lhs, const AIBinder* rhs);

/* New weak reference to the binder; null for null. */
__attribute__((warn_unused_result)) AIBinder_Weak* AIBinder_Weak_new(AIBinder* binder);

/* Deletes a weak reference; null is ignored. */
void AIBinder_Weak_delete(AIBinder_Weak* weakBinder);

/* New strong reference to the object, or null if it is gone (or weakBinder is null). */
__attribute__((warn_unused_result)) AIBinder* AIBinder_Weak_promote(AIBinder_Weak* weakBinder);

/* New weak reference to the same object; null for null. */
__attribute__((warn_unused_result)) AIBinder_Weak* AIBinder_Weak_clone(const AIBinder_Weak* weak);

/* Strict order of weak references, by the object they refer to. */
bool AIBinder_Weak_lt(const AIBinder_Weak* lhs, const AIBinder_Weak* rhs);

/* Called with the cookie of a link when its binder dies. */
typedef void (*AIBinder_DeathRecipient_onBinderDied)(void* cookie);

/* Called once per link with its cookie when the link ends: death, unlink, delete or failure. */
typedef void (*AIBinder_DeathRecipient_onBinderUnlinked)(void* cookie);

/* New death recipient; null (and a log line) if onBinderDied is null. */
__attribute__((warn_unused_result)) AIBinder_DeathRecipient* AIBinder_DeathRecipient_new(
        AIBinder_DeathRecipient_onBinderDied onBinderDied);

/* Sets the unlink hook; each link keeps the hook that was set when it was made. */
void AIBinder_DeathRecipient_setOnUnlinked(AIBinder_DeathRecipient* recipient,
                                           AIBinder_DeathRecipient_onBinderUnlinked onUnlinked);

/* Unlinks the recipient from every binder (calling onUnlinked per link) and deletes it. */
void AIBinder_DeathRecipient_delete(AIBinder_DeathRecipient* recipient);

__END_DECLS

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Test controls of the host binder (libbinder_ndk stand-in). Host tests only; the library never
 * includes this header.
 */
#pragma once

#include <android/binder_ibinder.h>
#include <android/binder_status.h>
#include <stddef.h>

namespace ndk::host {

/*
 * Makes a binder look as if it lived in another process: AIBinder_isRemote returns true,
 * AIBinder_getUserData null, and death links can be made on it. Calls made through
 * ndk::ICInterface::asInterface still reach the implementation object in this process.
 */
void setRemote(AIBinder* binder, bool remote);

/*
 * Kills the binder as if its process had died: it is dead from now on (AIBinder_isAlive false,
 * AIBinder_ping and links fail with STATUS_DEAD_OBJECT), and every death link on it is removed and
 * reported, in link order, with onBinderDied(cookie) followed by onUnlinked(cookie) if set.
 * The callbacks run on the calling thread with no lock of the binder held. The caller must hold a
 * reference to the binder; a callback may drop it.
 */
void kill(AIBinder* binder);

/*
 * Kills the binder as binder does when its process dies: the binder is dead and its links are
 * gone when this returns, and their notices (onBinderDied(cookie), then onUnlinked(cookie)) run
 * on the host binder's death-notice thread, in link order, concurrently with whatever the caller
 * does next, including dropping references.
 */
void killOnDeathThread(AIBinder* binder);

/*
 * While held, the death-notice thread runs no notice: those of killOnDeathThread wait, their
 * links already gone. Releasing lets them run.
 */
void holdDeathNotices(bool held);

/* Waits until the death-notice thread has run every notice it may run now. */
void waitForDeathNotices();

/* The next AServiceManager_add* call registers nothing and returns exception (EX_NONE clears). */
void failNextAddService(binder_exception_t exception);

/*
 * The next AIBinder_linkToDeath call with non-null arguments links nothing and returns status
 * (STATUS_OK clears); its onUnlinked(cookie) runs before it returns, as for any failed link.
 */
void failNextLinkToDeath(binder_status_t status);

/*
 * Reads a VINTF manifest (or manifest fragment) as the device's service manager reads the
 * device manifest, and declares the instances of its AIDL HALs: "<name>.<fqname>" for each
 * <fqname>, "<name>.<interface name>/<instance>" for each <interface>. From the first manifest
 * read on, only manifests declare instances, and AServiceManager_add* refuses a name that none
 * declares with EX_ILLEGAL_ARGUMENT, as the device refuses an undeclared VINTF service. Returns
 * the number of instances the file declares, or -1 when it cannot be read, is not a <manifest>,
 * declares none, or has an AIDL HAL without a name or an instance (the file is then ignored).
 */
int addVintfManifest(const char* path);

/*
 * Drops every service registration (releasing its reference), the manifests read and a pending
 * failNextAddService.
 */
void resetServiceManager();

/* Binders created and not yet destroyed (strong references remain), for leak checks. */
size_t liveBinderCount();

/* Live death links on the binder. */
size_t linkCount(AIBinder* binder);

/* Death recipients created and not yet deleted. */
size_t deathRecipientCount();

}  // namespace ndk::host

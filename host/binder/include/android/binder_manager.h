/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for the NDK binder <android/binder_manager.h>: the service manager of this
 * process. Services are kept by name with a strong reference each.
 */
#pragma once

#include <android/binder_ibinder.h>
#include <android/binder_status.h>
#include <stdbool.h>
#include <stdint.h>
#include <sys/cdefs.h>

__BEGIN_DECLS

typedef enum AServiceManager_AddServiceFlag {
    /* Isolated processes may reach the service. */
    ADD_SERVICE_ALLOW_ISOLATED = 1 << 0,
    /* Dump priorities of the service. */
    ADD_SERVICE_DUMP_FLAG_PRIORITY_CRITICAL = 1 << 1,
    ADD_SERVICE_DUMP_FLAG_PRIORITY_HIGH = 1 << 2,
    ADD_SERVICE_DUMP_FLAG_PRIORITY_NORMAL = 1 << 3,
    ADD_SERVICE_DUMP_FLAG_PRIORITY_DEFAULT = 1 << 4,
} AServiceManager_AddServiceFlag;

/*
 * Registers binder under instance, replacing a service already registered under that name.
 * Returns EX_NONE on success, EX_ILLEGAL_ARGUMENT for null arguments, or the exception with which
 * the service manager refused.
 */
__attribute__((warn_unused_result)) binder_exception_t AServiceManager_addService(
        AIBinder* binder, const char* instance);

/* As AServiceManager_addService; the flags are accepted and have no effect on the host. */
__attribute__((warn_unused_result)) binder_exception_t AServiceManager_addServiceWithFlags(
        AIBinder* binder, const char* instance, const AServiceManager_AddServiceFlag flags);

/* New strong reference to the service registered under instance, or null. Does not wait. */
__attribute__((warn_unused_result)) AIBinder* AServiceManager_checkService(const char* instance);

/* Waits up to five seconds for the service; null if it does not appear. */
__attribute__((warn_unused_result, deprecated("instead, use AServiceManager_waitForService or "
                                              "AServiceManager_checkService"))) AIBinder*
AServiceManager_getService(const char* instance);

/* New strong reference to the service, waiting for as long as it takes to be registered. */
__attribute__((warn_unused_result)) AIBinder* AServiceManager_waitForService(const char* instance);

/*
 * Whether the instance is declared. On the host: declared by a VINTF manifest that the process
 * read (ndk::host::addVintfManifest), or, while it read none, registered since the last reset.
 */
bool AServiceManager_isDeclared(const char* instance);

/*
 * Calls callback(instance, context) for every declared instance of interface: "foo" for a
 * declared "<interface>/foo". Declared as for AServiceManager_isDeclared.
 */
void AServiceManager_forEachDeclaredInstance(const char* interface, void* context,
                                             void (*callback)(const char*, void*));

__END_DECLS

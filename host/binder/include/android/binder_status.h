/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for the NDK binder <android/binder_status.h>: transaction status codes,
 * exception codes and AStatus, with the signatures of Android 15.
 */
#pragma once

#include <errno.h>
#include <stdbool.h>
#include <stdint.h>
#include <sys/cdefs.h>

__BEGIN_DECLS

/* Low-level status of a transaction; the values are those of android::status_t. */
enum {
    STATUS_OK = 0,

    STATUS_UNKNOWN_ERROR = (-2147483647 - 1),
    STATUS_NO_MEMORY = -ENOMEM,
    STATUS_INVALID_OPERATION = -ENOSYS,
    STATUS_BAD_VALUE = -EINVAL,
    STATUS_BAD_TYPE = (STATUS_UNKNOWN_ERROR + 1),
    STATUS_NAME_NOT_FOUND = -ENOENT,
    STATUS_PERMISSION_DENIED = -EPERM,
    STATUS_NO_INIT = -ENODEV,
    STATUS_ALREADY_EXISTS = -EEXIST,
    STATUS_DEAD_OBJECT = -EPIPE,
    STATUS_FAILED_TRANSACTION = (STATUS_UNKNOWN_ERROR + 2),
    STATUS_BAD_INDEX = -EOVERFLOW,
    STATUS_NOT_ENOUGH_DATA = -ENODATA,
    STATUS_WOULD_BLOCK = -EWOULDBLOCK,
    STATUS_TIMED_OUT = -ETIMEDOUT,
    STATUS_UNKNOWN_TRANSACTION = -EBADMSG,
    STATUS_FDS_NOT_ALLOWED = (STATUS_UNKNOWN_ERROR + 7),
    STATUS_UNEXPECTED_NULL = (STATUS_UNKNOWN_ERROR + 8),
};

/* One of the STATUS_* values above. */
typedef int32_t binder_status_t;

/* Exception carried by an AStatus; the values match those of the Java binder. */
enum {
    EX_NONE = 0,
    EX_SECURITY = -1,
    EX_BAD_PARCELABLE = -2,
    EX_ILLEGAL_ARGUMENT = -3,
    EX_NULL_POINTER = -4,
    EX_ILLEGAL_STATE = -5,
    EX_NETWORK_MAIN_THREAD = -6,
    EX_UNSUPPORTED_OPERATION = -7,
    EX_SERVICE_SPECIFIC = -8,
    EX_PARCELABLE = -9,

    /* The transaction itself failed; AStatus_getStatus() tells why. */
    EX_TRANSACTION_FAILED = -129,
};

/* One of the EX_* values above. */
typedef int32_t binder_exception_t;

/* Result of a binder call: an exception, a service-specific error or a transaction status. */
struct AStatus;
typedef struct AStatus AStatus;

/* The ok status. This is a process-wide object; AStatus_delete ignores it. */
__attribute__((warn_unused_result)) AStatus* AStatus_newOk(void);

/* New status carrying the exception (EX_NONE makes an ok status). */
__attribute__((warn_unused_result)) AStatus* AStatus_fromExceptionCode(binder_exception_t exception);

__attribute__((warn_unused_result)) AStatus* AStatus_fromExceptionCodeWithMessage(
        binder_exception_t exception, const char* message);

/* New EX_SERVICE_SPECIFIC status; the code may be anything, 0 included. */
__attribute__((warn_unused_result)) AStatus* AStatus_fromServiceSpecificError(
        int32_t serviceSpecific);

__attribute__((warn_unused_result)) AStatus* AStatus_fromServiceSpecificErrorWithMessage(
        int32_t serviceSpecific, const char* message);

/* STATUS_OK makes an ok status; anything else an EX_TRANSACTION_FAILED one carrying it. */
__attribute__((warn_unused_result)) AStatus* AStatus_fromStatus(binder_status_t status);

/* True only when the exception is EX_NONE. */
bool AStatus_isOk(const AStatus* status);

binder_exception_t AStatus_getExceptionCode(const AStatus* status);

/* The service-specific code, or 0 unless the exception is EX_SERVICE_SPECIFIC. */
int32_t AStatus_getServiceSpecificError(const AStatus* status);

/* The transaction status, or STATUS_OK unless the exception is EX_TRANSACTION_FAILED. */
binder_status_t AStatus_getStatus(const AStatus* status);

/* The message; never null, empty when there is none. Valid as long as the status. */
const char* AStatus_getMessage(const AStatus* status);

/* Human-readable text of the status; free it with AStatus_deleteDescription. */
__attribute__((warn_unused_result)) const char* AStatus_getDescription(const AStatus* status);

void AStatus_deleteDescription(const char* description);

void AStatus_delete(AStatus* status);

__END_DECLS

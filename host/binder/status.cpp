/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * AStatus of the host libbinder_ndk: exception, service-specific or transaction error, message,
 * and the description text of the platform's binder::Status.
 */
#include <android/binder_status.h>
#include <stdlib.h>
#include <string.h>

#include <string>

struct AStatus {
    AStatus() = default;
    AStatus(binder_exception_t exception, int32_t errorCode, const char* message)
        : exception(exception), errorCode(errorCode), message(message != nullptr ? message : "") {}

    binder_exception_t exception = EX_NONE;
    // The service-specific code for EX_SERVICE_SPECIFIC, the transaction status for
    // EX_TRANSACTION_FAILED, otherwise unused.
    int32_t errorCode = 0;
    std::string message;
};

namespace {

AStatus* okStatus() {
    // Shared by every AStatus_newOk() caller and never deleted.
    static AStatus* sOk = new AStatus();
    return sOk;
}

AStatus* fromException(binder_exception_t exception, const char* message) {
    // A transaction failure without a status of its own is a generic failed transaction.
    int32_t errorCode = exception == EX_TRANSACTION_FAILED ? STATUS_FAILED_TRANSACTION : 0;
    return new AStatus(exception, errorCode, message);
}

std::string exceptionToString(binder_exception_t exception) {
#define EXCEPTION_CASE(EXCEPTION) \
    case EXCEPTION:               \
        return #EXCEPTION
    switch (exception) {
        EXCEPTION_CASE(EX_NONE);
        EXCEPTION_CASE(EX_SECURITY);
        EXCEPTION_CASE(EX_BAD_PARCELABLE);
        EXCEPTION_CASE(EX_ILLEGAL_ARGUMENT);
        EXCEPTION_CASE(EX_NULL_POINTER);
        EXCEPTION_CASE(EX_ILLEGAL_STATE);
        EXCEPTION_CASE(EX_NETWORK_MAIN_THREAD);
        EXCEPTION_CASE(EX_UNSUPPORTED_OPERATION);
        EXCEPTION_CASE(EX_SERVICE_SPECIFIC);
        EXCEPTION_CASE(EX_PARCELABLE);
        EXCEPTION_CASE(EX_TRANSACTION_FAILED);
        case -128:
            // Not an exception of its own: the marker of a reply header in a parcel.
            return "EX_HAS_REPLY_HEADER";
    }
#undef EXCEPTION_CASE
    return std::to_string(exception);
}

/* Names of status_t values, as android::statusToString prints them. */
std::string statusToString(binder_status_t status) {
#define STATUS_CASE(NAME) \
    case STATUS_##NAME:   \
        return #NAME
    switch (status) {
        STATUS_CASE(OK);
        STATUS_CASE(UNKNOWN_ERROR);
        STATUS_CASE(NO_MEMORY);
        STATUS_CASE(INVALID_OPERATION);
        STATUS_CASE(BAD_VALUE);
        STATUS_CASE(BAD_TYPE);
        STATUS_CASE(NAME_NOT_FOUND);
        STATUS_CASE(PERMISSION_DENIED);
        STATUS_CASE(NO_INIT);
        STATUS_CASE(ALREADY_EXISTS);
        STATUS_CASE(DEAD_OBJECT);
        STATUS_CASE(FAILED_TRANSACTION);
        STATUS_CASE(BAD_INDEX);
        STATUS_CASE(NOT_ENOUGH_DATA);
        STATUS_CASE(WOULD_BLOCK);
        STATUS_CASE(TIMED_OUT);
        STATUS_CASE(UNKNOWN_TRANSACTION);
        STATUS_CASE(FDS_NOT_ALLOWED);
        STATUS_CASE(UNEXPECTED_NULL);
    }
#undef STATUS_CASE
    return std::to_string(status) + " (" + strerror(-status) + ")";
}

std::string describe(const AStatus* status) {
    if (status == nullptr) return "(null status)";
    if (status->exception == EX_NONE) return "No error";
    std::string text = "Status(" + std::to_string(status->exception) + ", " +
                       exceptionToString(status->exception) + "): '";
    if (status->exception == EX_SERVICE_SPECIFIC) {
        text += std::to_string(status->errorCode) + ": ";
    } else if (status->exception == EX_TRANSACTION_FAILED) {
        text += statusToString(status->errorCode) + ": ";
    }
    return text + status->message + "'";
}

}  // namespace

AStatus* AStatus_newOk() {
    return okStatus();
}

AStatus* AStatus_fromExceptionCode(binder_exception_t exception) {
    return fromException(exception, nullptr);
}

AStatus* AStatus_fromExceptionCodeWithMessage(binder_exception_t exception, const char* message) {
    return fromException(exception, message);
}

AStatus* AStatus_fromServiceSpecificError(int32_t serviceSpecific) {
    return new AStatus(EX_SERVICE_SPECIFIC, serviceSpecific, nullptr);
}

AStatus* AStatus_fromServiceSpecificErrorWithMessage(int32_t serviceSpecific, const char* message) {
    return new AStatus(EX_SERVICE_SPECIFIC, serviceSpecific, message);
}

AStatus* AStatus_fromStatus(binder_status_t status) {
    if (status == STATUS_OK) return new AStatus();
    return new AStatus(EX_TRANSACTION_FAILED, status, nullptr);
}

bool AStatus_isOk(const AStatus* status) {
    return status != nullptr && status->exception == EX_NONE;
}

binder_exception_t AStatus_getExceptionCode(const AStatus* status) {
    return status != nullptr ? status->exception : EX_NONE;
}

int32_t AStatus_getServiceSpecificError(const AStatus* status) {
    if (status == nullptr || status->exception != EX_SERVICE_SPECIFIC) return 0;
    return status->errorCode;
}

binder_status_t AStatus_getStatus(const AStatus* status) {
    if (status == nullptr || status->exception != EX_TRANSACTION_FAILED) return STATUS_OK;
    return status->errorCode;
}

const char* AStatus_getMessage(const AStatus* status) {
    return status != nullptr ? status->message.c_str() : "";
}

const char* AStatus_getDescription(const AStatus* status) {
    return strdup(describe(status).c_str());
}

void AStatus_deleteDescription(const char* description) {
    free(const_cast<char*>(description));
}

void AStatus_delete(AStatus* status) {
    if (status == nullptr || status == okStatus()) return;
    delete status;
}

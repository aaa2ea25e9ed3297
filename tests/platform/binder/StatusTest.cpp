/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * AStatus and ScopedAStatus: accessors and the description texts.
 */
#include <android/binder_auto_utils.h>
#include <android/binder_status.h>
#include <gtest/gtest.h>

#include <string>

namespace {

std::string describe(AStatus* status) {
    return ndk::ScopedAStatus(status).getDescription();
}

TEST(StatusTest, DescriptionsReadAsThePlatformPrintsThem) {
    EXPECT_EQ("No error", describe(AStatus_newOk()));
    EXPECT_EQ("No error", describe(AStatus_fromExceptionCode(EX_NONE)));
    EXPECT_EQ("Status(-8, EX_SERVICE_SPECIFIC): '3: '",
              describe(AStatus_fromServiceSpecificError(3)));
    EXPECT_EQ("Status(-8, EX_SERVICE_SPECIFIC): '-5: camera busy'",
              describe(AStatus_fromServiceSpecificErrorWithMessage(-5, "camera busy")));
    EXPECT_EQ("Status(-3, EX_ILLEGAL_ARGUMENT): 'bad id'",
              describe(AStatus_fromExceptionCodeWithMessage(EX_ILLEGAL_ARGUMENT, "bad id")));
    EXPECT_EQ("Status(-7, EX_UNSUPPORTED_OPERATION): ''",
              describe(AStatus_fromExceptionCode(EX_UNSUPPORTED_OPERATION)));
    EXPECT_EQ("Status(-129, EX_TRANSACTION_FAILED): 'DEAD_OBJECT: '",
              describe(AStatus_fromStatus(STATUS_DEAD_OBJECT)));
    EXPECT_EQ("Status(-129, EX_TRANSACTION_FAILED): 'UNKNOWN_TRANSACTION: '",
              describe(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION)));
    EXPECT_EQ("Status(-129, EX_TRANSACTION_FAILED): 'FAILED_TRANSACTION: '",
              describe(AStatus_fromExceptionCode(EX_TRANSACTION_FAILED)));
    EXPECT_EQ("Status(-129, EX_TRANSACTION_FAILED): '-1000 (Unknown error 1000): '",
              describe(AStatus_fromStatus(-1000)));
    EXPECT_EQ("Status(-42, -42): 'odd'",
              describe(AStatus_fromExceptionCodeWithMessage(-42, "odd")));
}

TEST(StatusTest, AccessorsAnswerOnlyForTheirExceptionAndOkIsShared) {
    ndk::ScopedAStatus specific = ndk::ScopedAStatus::fromServiceSpecificErrorWithMessage(0, "m");
    EXPECT_FALSE(specific.isOk());
    EXPECT_EQ(STATUS_OK, specific.getStatus());
    ndk::ScopedAStatus failed = ndk::ScopedAStatus::fromStatus(STATUS_BAD_VALUE);
    EXPECT_EQ(STATUS_BAD_VALUE, failed.getStatus());
    EXPECT_EQ(0, failed.getServiceSpecificError());
    EXPECT_STREQ("", failed.getMessage());
    EXPECT_FALSE(ndk::ScopedAStatus().isOk());

    // The ok status is one shared object that deleting leaves alone.
    AStatus* ok = AStatus_newOk();
    EXPECT_EQ(ok, AStatus_newOk());
    AStatus_delete(ok);
    EXPECT_TRUE(ndk::ScopedAStatus(ok).isOk());
}

}  // namespace

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The core's registry of consumer and producer clients.
 */
#include <gtest/gtest.h>
#include <hostplatform/VornTesting.h>

#include <memory>

#include "LogCapture.h"
#include "OfflineCameraService.h"
#include "ResourceBalance.h"

namespace offlinecamera::test {
namespace {

constexpr const char* kTag = "KivOfflineCameraSevice";

int32_t ResultFn(const ClientCallbacks*, int32_t, const camera3_capture_result_t*) {
    return 0;
}
uint32_t RequestFn(const ClientCallbacks*, int32_t, std::vector<StreamBufferRequest>) {
    return 0;
}
void ReturnFn(const ClientCallbacks*, int32_t, std::vector<buffer_handle_t*>) {}

LogLine Saved(int32_t id) {
    return {ANDROID_LOG_INFO, kTag, Format("303 RegisterConsumerClient: save clientID :%d", id)};
}

LogLine ProducerSaved(int32_t id, size_t size) {
    return {ANDROID_LOG_INFO, kTag,
            Format("338 RegisterProducerClient: Save producer clientID :%d, client size:%zu", id,
                   size)};
}

LogLine ProducerRefused(int32_t id) {
    return {ANDROID_LOG_ERROR, kTag,
            Format("342 RegisterProducerClient: Can not register this producer clientID:%d", id)};
}

class ClientRegistryTest : public BalancedTest {
  protected:
    void SetUp() override {
        // The registry works without a backend; keep the backend out of these tests.
        Vorn::Host::SetVendorRoot(TEST_VENDOR_ROOT_EMPTY);
        mService = std::make_unique<OfflineCameraService>();
        Vorn::Host::SetVendorRoot(TEST_VENDOR_ROOT);
        BalancedTest::SetUp();
        mCallbacks = {ResultFn, RequestFn, ReturnFn, this};
    }

    std::unique_ptr<OfflineCameraService> mService;
    ClientCallbacks mCallbacks;
};

TEST_F(ClientRegistryTest, FirstRecordMustBeCompleteThenAnyRegistrationCounts) {
    ClientCallbacks incomplete = mCallbacks;
    incomplete.pReturnBuffers = nullptr;
    mService->RegisterConsumerClient(1, &incomplete);
    EXPECT_EQ((std::vector<LogLine>{
                      {ANDROID_LOG_ERROR, kTag,
                       Format("287 RegisterConsumerClient: invalid input "
                              "pRequestBuffers %p, pResult:%p "
                              "pReturnBuffers:%p,pPrivateData:%p",
                              reinterpret_cast<void*>(RequestFn), reinterpret_cast<void*>(ResultFn),
                              nullptr, static_cast<void*>(this))}}),
              LogCapture::Lines(kTag));

    LogCapture::Clear();
    mService->RegisterConsumerClient(1, nullptr);
    EXPECT_EQ((std::vector<LogLine>{
                      {ANDROID_LOG_ERROR, kTag,
                       Format("298 RegisterConsumerClient: invalid input pCallbacks%p", nullptr)}}),
              LogCapture::Lines(kTag));
    EXPECT_FALSE(mService->RegisterProducerClient(1));

    LogCapture::Clear();
    mService->RegisterConsumerClient(1, &mCallbacks);
    EXPECT_EQ(std::vector<LogLine>{Saved(1)}, LogCapture::Lines(kTag));

    // Once a record is kept, later registrations are not checked: a null record registers too.
    LogCapture::Clear();
    mService->RegisterConsumerClient(-7, nullptr);
    mService->RegisterConsumerClient(0, &incomplete);
    EXPECT_EQ((std::vector<LogLine>{Saved(-7), Saved(0)}), LogCapture::Lines(kTag));
    EXPECT_TRUE(mService->RegisterProducerClient(-7));
    EXPECT_TRUE(mService->RegisterProducerClient(0));
    EXPECT_TRUE(mService->RegisterProducerClient(1));
}

TEST_F(ClientRegistryTest, ProducerFollowsTheConsumerWithTheSameId) {
    EXPECT_FALSE(mService->RegisterProducerClient(5));
    EXPECT_TRUE(LogCapture::Contains(ProducerRefused(5)));

    mService->RegisterConsumerClient(5, &mCallbacks);
    mService->RegisterConsumerClient(5, &mCallbacks);
    mService->RegisterConsumerClient(9, &mCallbacks);
    EXPECT_EQ(2u, LogCapture::Count(Saved(5)));

    LogCapture::Clear();
    // A duplicate id is kept once: the set holds 5 and 9.
    EXPECT_TRUE(mService->RegisterProducerClient(5));
    EXPECT_EQ(std::vector<LogLine>{ProducerSaved(5, 2)}, LogCapture::Lines(kTag));

    // Unregistering the producer is silent and leaves the consumer registered.
    LogCapture::Clear();
    mService->UnRegisterProducerClient(5);
    EXPECT_TRUE(LogCapture::Lines(kTag).empty());
    EXPECT_TRUE(mService->RegisterProducerClient(5));

    // Unregistering the consumer ends the producer's registration as well.
    mService->unRegisterConsumerClient(5);
    LogCapture::Clear();
    EXPECT_FALSE(mService->RegisterProducerClient(5));
    mService->UnRegisterProducerClient(5);
    EXPECT_EQ(
            (std::vector<LogLine>{ProducerRefused(5),
                                  {ANDROID_LOG_ERROR, kTag,
                                   "359 UnRegisterProducerClient: Do not have this clientID: :5"}}),
            LogCapture::Lines(kTag));
    EXPECT_TRUE(mService->RegisterProducerClient(9));
}

TEST_F(ClientRegistryTest, UnknownConsumerUnregistrationIsSilent) {
    mService->RegisterConsumerClient(2, &mCallbacks);
    LogCapture::Clear();
    mService->unRegisterConsumerClient(42);
    mService->unRegisterConsumerClient(2);
    mService->unRegisterConsumerClient(2);
    EXPECT_TRUE(LogCapture::Lines().empty()) << LogCapture::Dump();

    // The kept record still serves a client that registers after the last one left.
    mService->RegisterConsumerClient(3, nullptr);
    EXPECT_TRUE(mService->RegisterProducerClient(3));
}

}  // namespace
}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The example vendor client against the published service. The service is published once per
 * process, so each scenario runs in a child process of its own; the client sees the service as
 * another process does once its binder is marked remote.
 */
#include <android/binder_manager.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>

#include <memory>
#include <string>
#include <vector>

#include "ChildScenario.h"
#include "LogCapture.h"
#include "OfflineCameraAIDLService.h"
#include "OfflineCameraClient.h"
#include "OfflineCameraService.h"

namespace offlinecamera::test {
namespace {

using ::oru::offlinecamera::client::IOfflineCameraService;
using ::oru::offlinecamera::client::IOfflineCameraSession;
using ::oru::offlinecamera::client::OfflineCameraClient;

// Publishes the service as the camera HAL process does and makes its binder look as it does
// from a client process. The core binds the backend on first use and what it holds stays for the
// process, so it is bound here; the scenario gives back what it makes from here.
void PublishAsRemote(ChildScenario& s) {
    RegisterOfflineCameraAIDLService();
    OfflineCameraService::GetInstance();
    s.Settle();
    ::ndk::SpAIBinder binder(
            AServiceManager_checkService(OfflineCameraClient::InstanceName().c_str()));
    ASSERT_NE(nullptr, binder.get());
    ::ndk::host::setRemote(binder.get(), true);
}

// A method that the service serves or declines: it answers with a status of its own, either OK
// or a camera status, and never with a transaction failure.
void ExpectServedOrDeclined(const ::ndk::ScopedAStatus& status) {
    EXPECT_TRUE(status.isOk() || status.getExceptionCode() == EX_SERVICE_SPECIFIC)
            << status.getDescription();
}

TEST(NdkClientTest, ConnectsOnlyToThePublishedService) {
    EXPECT_IN_CHILD([](ChildScenario& s) {
        EXPECT_EQ(nullptr, OfflineCameraClient::Connect(false));
        EXPECT_EQ(std::vector<std::string>{"OruOfflineCameraClient"},
                  LogCapture::TakePlatformErrorTags());
        RegisterOfflineCameraAIDLService();
        s.Settle();
        std::unique_ptr<OfflineCameraClient> client = OfflineCameraClient::Connect(true);
        ASSERT_NE(nullptr, client);
        EXPECT_FALSE(client->isRemote());
        EXPECT_EQ(2, client->servedVersion());
        EXPECT_TRUE(client->sameInterface()) << client->servedHash();
    });
}

TEST(NdkClientTest, RemoteClientAgreesOnTheInterfaceAndGetsAnswers) {
    EXPECT_IN_CHILD([](ChildScenario& s) {
        PublishAsRemote(s);
        const size_t fds = CountOpenFds();
        {
            std::unique_ptr<OfflineCameraClient> client = OfflineCameraClient::Connect(false);
            ASSERT_NE(nullptr, client);
            EXPECT_TRUE(client->isRemote());
            // Version and hash crossed as transactions, and they are the ones compiled in.
            EXPECT_EQ(IOfflineCameraService::version, client->servedVersion());
            EXPECT_EQ(IOfflineCameraService::hash, client->servedHash());
            EXPECT_TRUE(client->sameInterface());
            EXPECT_FALSE(client->serviceDied());

            std::vector<int32_t> modes;
            ExpectServedOrDeclined(client->supportedOpModes(&modes));
            ::ndk::ScopedAStatus registered = client->registerConsumer(7);
            ExpectServedOrDeclined(registered);
            if (registered.isOk()) ExpectServedOrDeclined(client->unregisterConsumer(7));
            std::shared_ptr<IOfflineCameraSession> session;
            ::ndk::ScopedAStatus opened = client->openSession("client-example", &session);
            ExpectServedOrDeclined(opened);
            if (opened.isOk()) {
                ASSERT_NE(nullptr, session);
                EXPECT_TRUE(session->closeOfflineSession().isOk());
            }
        }
        EXPECT_EQ(fds, CountOpenFds());
    });
}

TEST(NdkClientTest, NoticesThatTheServiceDied) {
    EXPECT_IN_CHILD([](ChildScenario& s) {
        PublishAsRemote(s);
        const size_t recipients = ::ndk::host::deathRecipientCount();
        {
            std::unique_ptr<OfflineCameraClient> client = OfflineCameraClient::Connect(false);
            ASSERT_NE(nullptr, client);
            ::ndk::SpAIBinder binder(
                    AServiceManager_checkService(OfflineCameraClient::InstanceName().c_str()));
            ASSERT_EQ(1u, ::ndk::host::linkCount(binder.get()));

            ::ndk::host::kill(binder.get());
            EXPECT_TRUE(client->serviceDied());
            std::vector<int32_t> modes;
            ::ndk::ScopedAStatus status = client->supportedOpModes(&modes);
            EXPECT_EQ(EX_TRANSACTION_FAILED, status.getExceptionCode());
            EXPECT_EQ(STATUS_DEAD_OBJECT, status.getStatus());
        }
        // The client's death recipient is gone with it.
        EXPECT_EQ(recipients, ::ndk::host::deathRecipientCount());
    });
}

TEST(NdkClientTest, ClientThatGoesAwayUnlinksFromTheService) {
    EXPECT_IN_CHILD([](ChildScenario& s) {
        PublishAsRemote(s);
        ::ndk::SpAIBinder binder(
                AServiceManager_checkService(OfflineCameraClient::InstanceName().c_str()));
        OfflineCameraClient::Connect(false).reset();
        EXPECT_EQ(0u, ::ndk::host::linkCount(binder.get()));
        // A dead service later reaches no client that has gone.
        ::ndk::host::kill(binder.get());
    });
}

}  // namespace
}  // namespace offlinecamera::test

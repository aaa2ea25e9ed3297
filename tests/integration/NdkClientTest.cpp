/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The example vendor client against the service published as the camera HAL process does, seen
 * from another process. In a child process, which also checks that what was made is given back.
 */
#include <android/binder_manager.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>

#include <memory>
#include <string>

#include "ChildScenario.h"
#include "OfflineCameraAIDLService.h"
#include "OfflineCameraClient.h"
#include "OfflineCameraService.h"

namespace offlinecamera::test {
namespace {

using ::oru::offlinecamera::client::IOfflineCameraService;
using ::oru::offlinecamera::client::IOfflineCameraSession;
using ::oru::offlinecamera::client::OfflineCameraClient;

TEST(NdkClientTest, UsesTheRemoteServiceAndNoticesItsDeath) {
    EXPECT_IN_CHILD([](ChildScenario& s) {
        RegisterOfflineCameraAIDLService();
        OfflineCameraService::GetInstance();  // binds the backend, which stays for the process
        s.Settle();
        ::ndk::SpAIBinder binder(AServiceManager_checkService(
                (std::string(IOfflineCameraService::descriptor) + "/default").c_str()));
        ASSERT_NE(nullptr, binder.get());
        ::ndk::host::setRemote(binder.get(), true);

        std::unique_ptr<OfflineCameraClient> client = OfflineCameraClient::Connect();
        ASSERT_NE(nullptr, client);
        EXPECT_EQ(1u, ::ndk::host::linkCount(binder.get()));
        OfflineCameraClient::Connect().reset();  // a client that goes away unlinks
        EXPECT_EQ(1u, ::ndk::host::linkCount(binder.get()));
        // The service takes the client's callbacks.
        EXPECT_TRUE(client->registerConsumer(7).isOk());
        EXPECT_TRUE(client->service()->unRegisterClient(7).isOk());
        std::shared_ptr<IOfflineCameraSession> session;
        ASSERT_TRUE(client->openSession("client-example", &session).isOk());
        ASSERT_NE(nullptr, session);
        EXPECT_TRUE(session->closeOfflineSession().isOk());

        EXPECT_FALSE(client->serviceDied());
        ::ndk::host::kill(binder.get());
        EXPECT_TRUE(client->serviceDied());
    });
}

}  // namespace
}  // namespace offlinecamera::test

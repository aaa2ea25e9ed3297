/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Consumer clients register with the published service over binder, and leave by unregistering
 * or by dying; the service's clients, death links and the core's registry stay in step.
 */
#include <hostplatform/BinderTesting.h>
#include <hostplatform/GrallocTesting.h>

#include "BrokeringTestSupport.h"
#include "OfflineCameraService.h"

namespace offlinecamera::test {
namespace {

LogLine Registered(int32_t id) {
    return ServiceLine(ANDROID_LOG_INFO,
                       Format("registerClient: clientID:%d register successfully!", id));
}

LogLine Unregistered(int32_t id) {
    return ServiceLine(ANDROID_LOG_INFO, Format("178 unRegisterClient: client %d unregister", id));
}

bool InCore(int32_t id) {
    return OfflineCameraService::GetInstance()->RegisterProducerClient(id);
}

size_t Links(const std::shared_ptr<TestClient>& client) {
    return ::ndk::host::linkCount(client->asBinder().get());
}

SCENARIO_TEST(ClientRegistrationTest, RegistersAndUnregisters) {
    // Any id is the client's own choice, negative ones and 0 included.
    for (int32_t id : {5, 0, -3}) {
        auto client = ::ndk::SharedRefBase::make<TestClient>();
        LogCapture::Clear();
        ASSERT_TRUE(s.Service().registerClient(id, client->Remote()).isOk());
        EXPECT_EQ(std::vector<LogLine>{Registered(id)}, LogCapture::Lines(kServiceTag));
        EXPECT_TRUE(LogCapture::Contains(CoreLine(
                ANDROID_LOG_INFO, Format("303 RegisterConsumerClient: save clientID :%d", id))));
        EXPECT_TRUE(InCore(id));
        EXPECT_EQ(1u, Links(client));

        LogCapture::Clear();
        ASSERT_TRUE(s.Service().unRegisterClient(id).isOk());
        EXPECT_EQ(std::vector<LogLine>{Unregistered(id)}, LogCapture::Lines(kServiceTag));
        EXPECT_FALSE(InCore(id));
        EXPECT_EQ(0u, Links(client));
    }
}

SCENARIO_TEST(ClientRegistrationTest, RefusesNullCallbackAndSecondRegistration) {
    EXPECT_TRUE(IsIllegalArgument(s.Service().registerClient(4, nullptr)));
    EXPECT_EQ(std::vector<LogLine>{ServiceLine(ANDROID_LOG_ERROR,
                                               "149 registerClient: callback is NULL!")},
              LogCapture::Lines());
    EXPECT_FALSE(InCore(4));

    auto first = ::ndk::SharedRefBase::make<TestClient>();
    auto second = ::ndk::SharedRefBase::make<TestClient>();
    ASSERT_TRUE(s.Service().registerClient(4, first->Remote()).isOk());
    LogCapture::Clear();
    EXPECT_TRUE(IsIllegalArgument(s.Service().registerClient(4, second->Remote())));
    EXPECT_EQ(std::vector<LogLine>{ServiceLine(
                      ANDROID_LOG_ERROR,
                      "143 registerClient: this clientID: 4 was already registered.")},
              LogCapture::Lines());
    EXPECT_EQ(0u, Links(second));

    // The first registration goes on serving the producer.
    camera3_stream_t stream = MakeStream(16, 8, HAL_PIXEL_FORMAT_RGBA_8888, 0,
                                         HAL_DATASPACE_UNKNOWN, CAMERA3_STREAM_ROTATION_0);
    Producer producer(4);
    EXPECT_EQ(CAMERA3_BUF_REQ_OK, producer.Request({&stream}, {1}));
    EXPECT_EQ(1u, first->Requests().size());
    EXPECT_TRUE(second->Requests().empty());
    EXPECT_EQ(0, producer.Result(1, nullptr, {producer.Buffer(0, 0)}));
    EXPECT_EQ(1u, first->Results().size());
    EXPECT_TRUE(s.Service().unRegisterClient(4).isOk());
}

SCENARIO_TEST(ClientRegistrationTest, TenClientsAtOnce) {
    std::vector<std::shared_ptr<TestClient>> clients;
    for (int32_t id = 1; id <= 11; id++) {
        clients.push_back(::ndk::SharedRefBase::make<TestClient>());
    }
    for (int32_t id = 1; id <= 10; id++) {
        ASSERT_TRUE(s.Service().registerClient(id, clients[id - 1]->Remote()).isOk());
    }
    LogCapture::Clear();
    EXPECT_TRUE(IsIllegalArgument(s.Service().registerClient(11, clients[10]->Remote())));
    EXPECT_EQ(std::vector<LogLine>{ServiceLine(
                      ANDROID_LOG_ERROR,
                      "119 registerClient: Client num is more than max:10! clientID: 11 Failed "
                      "to register")},
              LogCapture::Lines());
    EXPECT_FALSE(InCore(11));
    EXPECT_EQ(0u, Links(clients[10]));

    // A slot that a client leaves is taken by the next one.
    EXPECT_TRUE(s.Service().unRegisterClient(6).isOk());
    EXPECT_TRUE(s.Service().registerClient(11, clients[10]->Remote()).isOk());
    EXPECT_EQ(1u, Links(clients[10]));
    EXPECT_TRUE(InCore(11));

    // So is the slot of a client that died.
    clients[2]->Die();
    EXPECT_TRUE(s.Service().registerClient(6, clients[5]->Remote()).isOk());
    EXPECT_EQ(1u, Links(clients[5]));

    for (int32_t id = 1; id <= 11; id++) {
        if (id != 3) {
            EXPECT_TRUE(s.Service().unRegisterClient(id).isOk()) << id;
        }
    }

    // Every slot is free again: ten clients (the living ones, under new ids) fit.
    clients.erase(clients.begin() + 2);
    for (int32_t id = 21; id <= 30; id++) {
        ASSERT_TRUE(s.Service().registerClient(id, clients[id - 21]->Remote()).isOk()) << id;
    }
    for (int32_t id = 21; id <= 30; id++) EXPECT_TRUE(s.Service().unRegisterClient(id).isOk());
}

SCENARIO_TEST(ClientRegistrationTest, FailedDeathLinkRegistersWithoutWatch) {
    auto unwatched = ::ndk::SharedRefBase::make<TestClient>();
    ::ndk::host::failNextLinkToDeath(STATUS_DEAD_OBJECT);
    ASSERT_TRUE(s.Service().registerClient(20, unwatched->Remote()).isOk());
    EXPECT_EQ((std::vector<LogLine>{ServiceLine(ANDROID_LOG_ERROR,
                                                "129 registerClient: Failed to linkToDeath: "
                                                "in_clientID: 20"),
                                    Registered(20)}),
              LogCapture::Lines(kServiceTag));
    EXPECT_TRUE(InCore(20));

    // It holds no slot: ten watched clients still fit beside it.
    std::vector<std::shared_ptr<TestClient>> watched;
    for (int32_t id = 1; id <= 10; id++) {
        watched.push_back(::ndk::SharedRefBase::make<TestClient>());
        ASSERT_TRUE(s.Service().registerClient(id, watched.back()->Remote()).isOk());
    }

    // Its death goes unnoticed; the producer's next call reaches a dead binder.
    unwatched->Die();
    EXPECT_TRUE(InCore(20));
    camera3_stream_t stream = MakeStream(16, 8, HAL_PIXEL_FORMAT_RGBA_8888, 0,
                                         HAL_DATASPACE_UNKNOWN, CAMERA3_STREAM_ROTATION_0);
    Producer producer(20);
    LogCapture::Clear();
    EXPECT_EQ(CAMERA3_BUF_REQ_FAILED_UNKNOWN, producer.Request({&stream}, {1}));
    EXPECT_TRUE(LogCapture::Contains(ServiceLine(
            ANDROID_LOG_ERROR,
            Format("337 requestStreamBuffers: Request buffer Failed!Transaction error: %s or "
                   "status error:0",
                   ::ndk::ScopedAStatus::fromStatus(STATUS_DEAD_OBJECT).getDescription().c_str()))))
            << LogCapture::Dump();
    EXPECT_EQ(Producer::kUntouchedCount, producer.ReturnedCount());

    for (int32_t id : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 20}) {
        EXPECT_TRUE(s.Service().unRegisterClient(id).isOk()) << id;
    }
}

SCENARIO_TEST(ClientRegistrationTest, UnregisterOfUnknownIdFails) {
    EXPECT_TRUE(IsIllegalArgument(s.Service().unRegisterClient(8)));
    const LogLine unknown = ServiceLine(
            ANDROID_LOG_ERROR, "166 unRegisterClient: This clientID: 8 did not register before!");
    EXPECT_EQ(std::vector<LogLine>{unknown}, LogCapture::Lines());

    auto client = ::ndk::SharedRefBase::make<TestClient>();
    ASSERT_TRUE(s.Service().registerClient(8, client->Remote()).isOk());
    EXPECT_TRUE(s.Service().unRegisterClient(8).isOk());
    LogCapture::Clear();
    EXPECT_TRUE(IsIllegalArgument(s.Service().unRegisterClient(8)));
    EXPECT_EQ(std::vector<LogLine>{unknown}, LogCapture::Lines());
}

SCENARIO_TEST(ClientRegistrationTest, DeathCleansUpAndKeepsLentBuffers) {
    camera3_stream_t stream = MakeStream(32, 16, HAL_PIXEL_FORMAT_RGBA_8888, 0,
                                         HAL_DATASPACE_UNKNOWN, CAMERA3_STREAM_ROTATION_0);
    Producer producer(9);
    const size_t imports = ::android::hostgralloc::liveImportCount();
    std::vector<camera3_stream_buffer_t> lent;
    {
        auto client = ::ndk::SharedRefBase::make<TestClient>();
        ASSERT_TRUE(s.Service().registerClient(9, client->Remote()).isOk());
        ASSERT_EQ(CAMERA3_BUF_REQ_OK, producer.Request({&stream}, {2}));
        lent = {producer.Buffer(0, 0), producer.Buffer(0, 1)};

        LogCapture::Clear();
        client->Die();
        EXPECT_EQ(std::vector<LogLine>{ServiceLine(
                          ANDROID_LOG_INFO, "422 binderDied:client callback died clientID:9")},
                  LogCapture::Lines(kServiceTag));
        EXPECT_EQ(0u, Links(client));
    }
    // The dead client is gone from the service and the core; its buffers stay lent.
    EXPECT_FALSE(InCore(9));
    EXPECT_EQ(imports + 2, ::android::hostgralloc::liveImportCount());
    LogCapture::Clear();
    EXPECT_EQ(CAMERA3_BUF_REQ_FAILED_UNKNOWN, producer.Request({&stream}, {1}));
    EXPECT_TRUE(LogCapture::Contains(CoreLine(
            ANDROID_LOG_ERROR, "381 RequestStreamBuffers: Do not have  this clientID: :9")));

    // A client that registers again under the id gets the buffers back with the next result.
    auto again = ::ndk::SharedRefBase::make<TestClient>();
    ASSERT_TRUE(s.Service().registerClient(9, again->Remote()).isOk());
    EXPECT_EQ(0, producer.Result(3, nullptr, lent));
    ASSERT_EQ(1u, again->Results().size());
    EXPECT_EQ((std::vector<SeenBuffer>{{ClientStreamId(0), 1, {}, false, false},
                                       {ClientStreamId(0), 2, {}, false, false}}),
              again->Results()[0].buffers);
    EXPECT_EQ(imports, ::android::hostgralloc::liveImportCount());
    EXPECT_TRUE(s.Service().unRegisterClient(9).isOk());
}

// A death notice reaches the service late, on the binder library's death thread: its client has
// unregistered meanwhile, and another client took the freed slot. The notice concerns its own
// registration only.
SCENARIO_TEST(ClientRegistrationTest, ALateDeathNoticeConcernsOnlyItsRegistration) {
    auto dying = ::ndk::SharedRefBase::make<TestClient>();
    auto next = ::ndk::SharedRefBase::make<TestClient>();
    ASSERT_TRUE(s.Service().registerClient(4, dying->Remote()).isOk());
    ::ndk::host::holdDeathNotices(true);
    ::ndk::host::killOnDeathThread(dying->asBinder().get());
    EXPECT_TRUE(s.Service().unRegisterClient(4).isOk());
    ASSERT_TRUE(s.Service().registerClient(5, next->Remote()).isOk());
    LogCapture::Clear();
    ::ndk::host::holdDeathNotices(false);
    ::ndk::host::waitForDeathNotices();
    EXPECT_EQ(std::vector<LogLine>{ServiceLine(ANDROID_LOG_INFO,
                                               "422 binderDied:client callback died clientID:4")},
              LogCapture::Lines(kServiceTag));
    EXPECT_TRUE(InCore(5));
    EXPECT_EQ(1u, Links(next));
    EXPECT_TRUE(s.Service().unRegisterClient(5).isOk());
}

}  // namespace
}  // namespace offlinecamera::test

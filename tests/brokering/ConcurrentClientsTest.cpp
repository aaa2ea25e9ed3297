/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Clients register, unregister and die on several binder threads at once, while the producer
 * works with a client that stays.
 */
#include <hostplatform/BinderTesting.h>

#include <atomic>
#include <thread>

#include "BrokeringTestSupport.h"
#include "OfflineCameraService.h"

namespace offlinecamera::test {
namespace {

constexpr int32_t kThreads = 4;
constexpr int kRounds = 200;
constexpr int32_t kDoomedBase = 100;
constexpr int32_t kDoomed = 4;
constexpr int32_t kStaying = 50;

SCENARIO_TEST(ConcurrentClientsTest, RegistrationsAndDeathsOnManyThreads) {
    std::vector<std::shared_ptr<TestClient>> doomed;
    for (int32_t i = 0; i < kDoomed; i++) {
        doomed.push_back(::ndk::SharedRefBase::make<TestClient>());
        ASSERT_TRUE(s.Service().registerClient(kDoomedBase + i, doomed.back()->Remote()).isOk());
    }

    // The threads start together, so that their calls overlap.
    std::atomic<bool> go{false};
    auto waitForGo = [&go] {
        while (!go.load()) std::this_thread::yield();
    };
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int32_t id = 0; id < kThreads; id++) {
        threads.emplace_back([&s, &failures, &waitForGo, id] {
            auto client = ::ndk::SharedRefBase::make<TestClient>();
            std::shared_ptr<IOfflineClientCallback> remote = client->Remote();
            waitForGo();
            for (int round = 0; round < kRounds; round++) {
                if (!s.Service().registerClient(id, remote).isOk()) failures++;
                if (!s.Service().unRegisterClient(id).isOk()) failures++;
            }
        });
    }
    // Death notices arrive on the binder library's death thread.
    threads.emplace_back([&doomed, &waitForGo] {
        waitForGo();
        for (int32_t i = 0; i < kDoomed; i++) {
            ::ndk::host::killOnDeathThread(doomed[i]->asBinder().get());
        }
    });
    // The producer borrows and gives back buffers of a client that stays registered.
    auto staying = ::ndk::SharedRefBase::make<TestClient>();
    ASSERT_TRUE(s.Service().registerClient(kStaying, staying->Remote()).isOk());
    camera3_stream_t stream = MakeStream(8, 8, HAL_PIXEL_FORMAT_RGBA_8888);
    threads.emplace_back([&failures, &waitForGo, &stream] {
        Producer producer(kStaying);
        OfflineCameraService* core = OfflineCameraService::GetInstance();
        waitForGo();
        for (int round = 0; round < kRounds; round++) {
            if (!core->RegisterProducerClient(kStaying)) failures++;
            if (producer.Request({&stream}, {2}) != CAMERA3_BUF_REQ_OK) failures++;
            if (producer.Result(static_cast<uint32_t>(round), nullptr,
                                {producer.Buffer(0, 1), producer.Buffer(0, 0)}) != 0) {
                failures++;
            }
        }
    });
    go = true;
    for (std::thread& thread : threads) thread.join();
    ::ndk::host::waitForDeathNotices();
    EXPECT_EQ(0, failures.load());
    EXPECT_EQ(static_cast<size_t>(kRounds), staying->Results().size());
    EXPECT_TRUE(s.Service().unRegisterClient(kStaying).isOk());

    // Nobody is left registered, in the service or in the core.
    for (int32_t id = 0; id < kThreads; id++) {
        EXPECT_FALSE(OfflineCameraService::GetInstance()->RegisterProducerClient(id));
    }
    for (int32_t i = 0; i < kDoomed; i++) {
        EXPECT_FALSE(OfflineCameraService::GetInstance()->RegisterProducerClient(kDoomedBase + i));
        EXPECT_TRUE(IsIllegalArgument(s.Service().unRegisterClient(kDoomedBase + i)));
    }

    // Every slot is free again: ten clients fit, an eleventh does not.
    std::vector<std::shared_ptr<TestClient>> clients;
    for (int32_t id = 1; id <= 11; id++) {
        clients.push_back(::ndk::SharedRefBase::make<TestClient>());
        ::ndk::ScopedAStatus status = s.Service().registerClient(id, clients.back()->Remote());
        EXPECT_EQ(id <= 10, status.isOk()) << id;
    }
    for (int32_t id = 1; id <= 10; id++) {
        EXPECT_TRUE(s.Service().unRegisterClient(id).isOk());
    }
}

}  // namespace
}  // namespace offlinecamera::test

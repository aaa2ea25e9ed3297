/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Everything at once, bounded by counts: consumer clients register, unregister and die (their
 * death notices on the binder library's death thread) while two producer threads ask any of them
 * for buffers, with differing counts, and hand the buffers back in any order; session clients on
 * several threads open, configure, feed, flush, reconfigure, close, drop and die while the backend
 * delivers from its threads, and their callbacks call into another session or drop their own.
 * At the end every client gets back what the HAL still holds, and the child's counts balance.
 *
 * STRESS_SCALE multiplies the rounds (default 1), for longer runs by hand:
 *     STRESS_SCALE=50 build/tests/stress/stress_test
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <stdio.h>
#include <stdlib.h>

#include <array>
#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "BrokeringTestSupport.h"
#include "OfflineCameraService.h"
#include "OfflineClientSide.h"

namespace offlinecamera::test {
namespace {

using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo;

constexpr int32_t kClientIds = 6;
constexpr int kConsumerRounds = 60;
constexpr int kProducerRounds = 150;
constexpr int kSessionThreads = 3;
constexpr int kSessionRounds = 12;
constexpr uint32_t kWidth = 8;
constexpr uint32_t kHeight = 4;

// What the run did, printed at the end.
std::atomic<int> gLent{0}, gHandedBack{0}, gDeaths{0}, gResults{0}, gNested{0};

int Scaled(int rounds) {
    const char* scale = getenv("STRESS_SCALE");
    return rounds * (scale != nullptr && atoi(scale) > 0 ? atoi(scale) : 1);
}

// ---------------------------------------------------------------------------------------------
// Buffer brokering

// Buffers that the HAL holds, per client id, until it hands them back.
class HeldBuffers {
  public:
    void Add(int32_t id, const camera3_stream_buffer_t& buffer) {
        std::lock_guard<std::mutex> lock(mLock);
        mHeld[id].push_back(buffer);
    }
    // Takes up to count buffers of the client, from anywhere in its list.
    std::vector<camera3_stream_buffer_t> Take(int32_t id, size_t count, std::mt19937& random) {
        std::lock_guard<std::mutex> lock(mLock);
        std::vector<camera3_stream_buffer_t>& held = mHeld[id];
        std::vector<camera3_stream_buffer_t> taken;
        while (taken.size() < count && !held.empty()) {
            const size_t k = random() % held.size();
            taken.push_back(held[k]);
            held.erase(held.begin() + static_cast<long>(k));
        }
        return taken;
    }
    void PutBack(int32_t id, const std::vector<camera3_stream_buffer_t>& buffers) {
        std::lock_guard<std::mutex> lock(mLock);
        mHeld[id].insert(mHeld[id].end(), buffers.begin(), buffers.end());
    }

  private:
    std::mutex mLock;
    std::map<int32_t, std::vector<camera3_stream_buffer_t>> mHeld;
};

// One consumer id's life: a new client registers, lends what it is asked for, and leaves by
// unregistering or by dying.
void ConsumerThread(IOfflineCameraService& service, int32_t id, unsigned seed) {
    std::mt19937 random(seed);
    for (int round = 0; round < Scaled(kConsumerRounds); round++) {
        auto client = ::ndk::SharedRefBase::make<TestClient>();
        if (!service.registerClient(id, client->Remote()).isOk()) {
            ADD_FAILURE() << "client " << id << " not registered";
            continue;
        }
        for (unsigned spin = random() % 200; spin > 0; spin--) std::this_thread::yield();
        if (random() % 2 == 0) {
            EXPECT_TRUE(service.unRegisterClient(id).isOk());
        } else {
            ::ndk::host::killOnDeathThread(client->asBinder().get());
            gDeaths++;
            // The death notice may be on its way still; the next registration waits for it.
            ::ndk::host::waitForDeathNotices();
        }
    }
}

// The HAL's side: asks any client for buffers of one or two streams with their own counts, and
// hands back held buffers of any client in any order.
void ProducerThread(HeldBuffers& held, unsigned seed) {
    std::mt19937 random(seed);
    OfflineCameraService* core = OfflineCameraService::GetInstance();
    camera3_stream_t streams[] = {MakeStream(kWidth, kHeight, HAL_PIXEL_FORMAT_RGBA_8888),
                                  MakeStream(kWidth, kHeight, HAL_PIXEL_FORMAT_Y8)};
    for (int round = 0; round < Scaled(kProducerRounds); round++) {
        const int32_t id = 1 + static_cast<int32_t>(random() % kClientIds);
        Producer producer(id);
        const size_t numStreams = 1 + random() % 2;
        std::vector<camera3_stream_t*> asked;
        std::vector<uint32_t> counts;
        for (size_t i = 0; i < numStreams; i++) {
            asked.push_back(&streams[i]);
            counts.push_back(1 + random() % 4);
        }
        if (producer.Request(asked, counts) == CAMERA3_BUF_REQ_OK) {
            EXPECT_TRUE(producer.ArraysIntact());
            for (size_t i = 0; i < numStreams; i++) {
                for (size_t j = 0; j < counts[i]; j++) {
                    // A client that lends fewer than the first request's count leaves slots empty.
                    if (producer.Buffer(i, j).buffer == nullptr) continue;
                    held.Add(id, producer.Buffer(i, j));
                    gLent++;
                }
            }
        }
        const int32_t back = 1 + static_cast<int32_t>(random() % kClientIds);
        std::vector<camera3_stream_buffer_t> buffers = held.Take(back, 1 + random() % 5, random);
        if (buffers.empty()) continue;
        Producer returning(back);
        // An unknown client (unregistered or dead for now) takes nothing back.
        if (!core->RegisterProducerClient(back) ||
            returning.Result(static_cast<uint32_t>(round), nullptr, buffers) != 0) {
            held.PutBack(back, buffers);
        } else {
            gHandedBack += static_cast<int>(buffers.size());
        }
    }
}

// ---------------------------------------------------------------------------------------------
// Offline sessions

OfflineCaptureRequest Request(int64_t* nextBufferId, size_t frames) {
    const int64_t first = *nextBufferId;
    *nextBufferId += static_cast<int64_t>(frames) + 1;
    return clientside::FusionRequest(static_cast<int32_t>(first), first, frames,
                                     first + static_cast<int64_t>(frames), kWidth, kHeight);
}

OfflineSessionConfiguration Configuration(uint32_t camera) {
    return clientside::FusionConfiguration(kWidth, kHeight, std::to_string(camera));
}

// A session as its client holds it; the client's callback may drop it from the backend's thread.
struct HeldSession {
    std::mutex lock;
    std::shared_ptr<IOfflineCameraSession> session;

    std::shared_ptr<IOfflineCameraSession> Get() {
        std::lock_guard<std::mutex> guard(lock);
        return session;
    }
    void Drop() {
        std::shared_ptr<IOfflineCameraSession> dropped;
        std::lock_guard<std::mutex> guard(lock);
        dropped.swap(session);
    }
};

// A session client's callback; while it handles results it calls into another session or drops
// its own, as the client chose.
class StressCallback : public BnOfflineCameraSessionCallback {
  public:
    enum class Nested { kNone, kFlushTarget, kFeedTarget, kDropOwn };

    StressCallback(Nested nested, std::shared_ptr<HeldSession> own,
                   std::shared_ptr<IOfflineCameraSession> target,
                   std::atomic<int64_t>* targetBufferIds)
        : mNested(nested), mOwn(own), mTarget(std::move(target)), mTargetIds(targetBufferIds) {}

    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& /*msgs*/) override {
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus processCaptureResult(const std::vector<CaptureResult>& results) override {
        gResults += static_cast<int>(results.size());
        if (mNested != Nested::kNone) gNested++;
        switch (mNested) {
            case Nested::kFlushTarget:
                (void)mTarget->flushOfflineSession(OfflineFlushInfo{});
                break;
            case Nested::kFeedTarget: {
                int64_t ids = mTargetIds->fetch_add(10);
                std::vector<OfflineCaptureRequest> requests;
                requests.push_back(Request(&ids, 1));
                int32_t frame = 0;
                (void)mTarget->processOfflineRequest(requests, &frame);
                break;
            }
            case Nested::kDropOwn:
                mOwn->Drop();
                break;
            case Nested::kNone:
                break;
        }
        return ::ndk::ScopedAStatus::ok();
    }

  private:
    const Nested mNested;
    const std::shared_ptr<HeldSession> mOwn;
    const std::shared_ptr<IOfflineCameraSession> mTarget;
    std::atomic<int64_t>* const mTargetIds;
};

std::shared_ptr<IOfflineCameraSession> RemoteSession(IOfflineCameraService& service,
                                                     const std::string& name,
                                                     const std::shared_ptr<StressCallback>& cb) {
    std::shared_ptr<IOfflineCameraSession> local;
    EXPECT_TRUE(service.openOfflineSeesion(name, cb, &local).isOk());
    if (local == nullptr) return nullptr;
    ::ndk::SpAIBinder binder = local->asBinder();
    ::ndk::host::setRemote(binder.get(), true);
    return IOfflineCameraSession::fromBinder(binder);
}

void SessionThread(IOfflineCameraService& service, std::shared_ptr<IOfflineCameraSession> target,
                   std::atomic<int64_t>* targetIds, int thread) {
    std::mt19937 random(static_cast<unsigned>(1000 + thread));
    for (int round = 0; round < Scaled(kSessionRounds); round++) {
        const auto nested = static_cast<StressCallback::Nested>(random() % 4);
        auto held = std::make_shared<HeldSession>();
        auto callback = ::ndk::SharedRefBase::make<StressCallback>(nested, held, target, targetIds);
        ::ndk::SpAIBinder callbackBinder = callback->asBinder();
        ::ndk::host::setRemote(callbackBinder.get(), true);
        held->session = RemoteSession(service, "stress", callback);
        std::shared_ptr<IOfflineCameraSession> session = held->Get();
        if (session == nullptr) continue;
        const uint32_t camera = random() % 2;
        (void)session->configureOfflineSession(Configuration(camera));
        int64_t bufferIds = 1;
        const size_t requests = 1 + random() % 3;
        for (size_t r = 0; r < requests; r++) {
            std::vector<OfflineCaptureRequest> list;
            list.push_back(Request(&bufferIds, 1 + random() % 2));
            int32_t frame = 0;
            (void)session->processOfflineRequest(list, &frame);
            switch (random() % 4) {
                case 0:
                    (void)session->flushOfflineSession(OfflineFlushInfo{});
                    break;
                case 1:
                    (void)session->configureOfflineSession(Configuration(camera));
                    break;
                case 2:
                    (void)session->dumpOfflineSession();
                    break;
                default:
                    break;
            }
        }
        switch (random() % 3) {
            case 0:
                (void)session->closeOfflineSession();
                break;
            case 1:
                ::ndk::host::killOnDeathThread(callbackBinder.get());
                gDeaths++;
                break;
            default:
                break;  // dropped without a close
        }
        // A delivery under way may hold the session a little longer.
        session.reset();
        held->Drop();
    }
}

// The backend's own refusals when calls race with a close: a session the client closed on one
// thread while another still calls into it.
bool IsRefusalOfAClosedSession(const LogLine& line) {
    return line.tag == "KivReferenceBackend" &&
           (line.message.find("is not an open session") != std::string::npos ||
            line.message.find("bad arguments") != std::string::npos ||
            line.message.find("session closing") != std::string::npos);
}

SCENARIO_TEST(StressTest, EverythingAtOnce) {
    IOfflineCameraService& service = s.Service();
    HeldBuffers held;

    // The session that other sessions' callbacks call into.
    std::atomic<int64_t> targetIds{1};
    auto targetCallback = ::ndk::SharedRefBase::make<StressCallback>(StressCallback::Nested::kNone,
                                                                     nullptr, nullptr, &targetIds);
    ::ndk::SpAIBinder targetCallbackBinder = targetCallback->asBinder();
    ::ndk::host::setRemote(targetCallbackBinder.get(), true);
    std::shared_ptr<IOfflineCameraSession> target = RemoteSession(service, "target", targetCallback);
    ASSERT_NE(nullptr, target);
    ASSERT_TRUE(target->configureOfflineSession(Configuration(0)).isOk());

    // Client 1 stays registered throughout, so that the producer always finds someone; the
    // others come and go.
    auto steady = ::ndk::SharedRefBase::make<TestClient>();
    ASSERT_TRUE(service.registerClient(1, steady->Remote()).isOk());
    std::vector<std::thread> threads;
    for (int32_t id = 2; id <= kClientIds; id++) {
        threads.emplace_back(ConsumerThread, std::ref(service), id, static_cast<unsigned>(id));
    }
    for (unsigned seed = 1; seed <= 2; seed++) {
        threads.emplace_back(ProducerThread, std::ref(held), 100 + seed);
    }
    for (int thread = 0; thread < kSessionThreads; thread++) {
        threads.emplace_back(SessionThread, std::ref(service), target, &targetIds, thread);
    }
    for (std::thread& thread : threads) thread.join();
    ::ndk::host::waitForDeathNotices();

    // Every client gets back what the HAL still holds.
    EXPECT_TRUE(service.unRegisterClient(1).isOk());
    std::mt19937 random(7);
    for (int32_t id = 1; id <= kClientIds; id++) {
        auto client = ::ndk::SharedRefBase::make<TestClient>();
        ASSERT_TRUE(service.registerClient(id, client->Remote()).isOk());
        std::vector<camera3_stream_buffer_t> buffers = held.Take(id, SIZE_MAX, random);
        if (!buffers.empty()) {
            EXPECT_EQ(0, Producer(id).Result(0, nullptr, buffers));
        }
        EXPECT_TRUE(service.unRegisterClient(id).isOk());
    }
    EXPECT_TRUE(target->closeOfflineSession().isOk());
    target.reset();
    EXPECT_TRUE(WaitUntil([] { return kivref::LiveSessions() == 0; }));

    for (const LogLine& line : LogCapture::TakePlatformErrors()) {
        EXPECT_TRUE(IsRefusalOfAClosedSession(line)) << ToString(line);
    }
    printf("%d buffers lent, %d handed back; %d client deaths; %d session results, %d nested "
           "calls\n",
           gLent.load(), gHandedBack.load(), gDeaths.load(), gResults.load(), gNested.load());
    fflush(stdout);
    EXPECT_GT(gLent.load(), 0);
    EXPECT_GT(gHandedBack.load(), 0);
    EXPECT_GT(gResults.load(), 0);
}

}  // namespace
}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * A long run of buffer brokering and offline sessions through the published service, with
 * clients dying on the way. At the end, descriptors, imported buffers, Vorn allocations, backend
 * metadata and sessions, binders and death recipients are back where they started, and the heap
 * has not grown.
 *
 * One round plays three consumer clients, each with a producer asking it for 2 streams of 3
 * buffers that come back last lent first, and every fifth round a session client, which
 * configures an input and an output stream and sends requests of several input frames and one
 * output buffer, whose results come back from the backend's thread. Some clients die: a client
 * that dies while the HAL holds its buffers leaves them imported until the same client id
 * registers again and the HAL hands them back to it, as a HAL does after a consumer restart; a
 * session client that dies does so while its results may still be on their way.
 *
 * SOAK_ITERATIONS sets the number of rounds after the warm-up (default kDefaultRounds, a few
 * seconds here, also with the sanitizers):
 *     SOAK_ITERATIONS=100000 build/tests/leak_soak_test
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <malloc.h>
#include <stdio.h>
#include <stdlib.h>
#include <system/camera_metadata.h>
#include <system/camera_metadata_tags.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "BrokeringTestSupport.h"
#include "OfflineCameraService.h"
#include "OfflineClientSide.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SOAK_SANITIZER_HEAP 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SOAK_SANITIZER_HEAP 1
#endif
#endif
#ifdef SOAK_SANITIZER_HEAP
#include <sanitizer/allocator_interface.h>
#endif

namespace offlinecamera::test {
namespace {

using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo;

constexpr uint32_t kDefaultRounds = 1000;
// Enough rounds to pass through every client and session fate a few times before measuring.
constexpr uint32_t kWarmUpRounds = 120;
constexpr size_t kClientsPerRound = 3;
// Client ids are reused, so that dead clients' buffers find their way back and the service's
// per-id records stop growing during the warm-up.
constexpr int32_t kClientIds = 7;
constexpr uint32_t kBuffersPerStream = 3;
constexpr size_t kLentPerRequest = 2 * kBuffersPerStream;
// A session client's requests: several input frames of one buffer each (the settings in the
// first) and one output buffer, all small, so that the backend's pixel work stays short.
constexpr size_t kRequestsPerSession = 4;
constexpr size_t kFramesPerRequest = 3;
constexpr uint32_t kSessionWidth = 16;
constexpr uint32_t kSessionHeight = 8;
// The heap may move a little (allocator bins, a vector's capacity reached later), but a leak of
// even one small record per round trip over thousands of rounds exceeds this by far.
constexpr size_t kHeapTolerance = 64 * 1024;

// Bytes in use on the heap: the sanitizer allocator's figure when it replaces malloc, else
// glibc's, which counts exactly what is allocated and not freed.
size_t HeapInUse() {
#ifdef SOAK_SANITIZER_HEAP
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

uint32_t Rounds() {
    const char* text = getenv("SOAK_ITERATIONS");
    if (text == nullptr || *text == '\0') return kDefaultRounds;
    const unsigned long rounds = strtoul(text, nullptr, 10);
    return rounds == 0 ? kDefaultRounds : static_cast<uint32_t>(rounds);
}

// What becomes of a consumer client in its round.
enum class ClientFate {
    kReturnsAll,           // one result with metadata hands back all six buffers
    kErrorReturn,          // three come back unused with an error status, then the rest
    kRefusesFirst,         // the first request fails on the client's side, the second lends
    kDiesWithBuffersLent,  // the HAL keeps the buffers until the id registers again
    kDiesAfterReturn,      // dies with nothing lent; the producer finds it gone
};

ClientFate FateOf(uint32_t client) {
    switch (client % 10) {
        case 3:
            return ClientFate::kDiesWithBuffersLent;
        case 5:
            return ClientFate::kRefusesFirst;
        case 7:
            return ClientFate::kDiesAfterReturn;
        default:
            return client % 4 == 1 ? ClientFate::kErrorReturn : ClientFate::kReturnsAll;
    }
}

// What becomes of a session client.
enum class SessionFate { kCloses, kDropsWithoutClose, kDiesThenCloses, kDiesThenDrops };

SessionFate SessionFateOf(uint32_t session) {
    switch (session % 6) {
        case 3:
            return SessionFate::kDropsWithoutClose;
        case 4:
            return SessionFate::kDiesThenCloses;
        case 5:
            return SessionFate::kDiesThenDrops;
        default:
            return SessionFate::kCloses;
    }
}

class Soak {
  public:
    explicit Soak(IOfflineCameraService& service) : mService(service) {}

    void Run(uint32_t rounds) {
        for (uint32_t round = 0; round < rounds && !::testing::Test::HasFailure(); round++) {
            for (size_t k = 0; k < kClientsPerRound; k++) {
                const uint32_t client = mClients++;
                Consumer(static_cast<int32_t>(client % kClientIds) + 1, FateOf(client));
            }
            if (round % 5 == 0) {
                const ProcessCounts before = ProcessCounts::Take();
                Session(SessionFateOf(mSessions++));
                // A delivery under way when the client dropped the session holds it until the
                // delivery ends; the session's end, on the backend's thread then, frees what it
                // still holds.
                const ProcessCounts after = ProcessCounts::Settled(before);
                EXPECT_TRUE(after == before) << before.ToString() << "\n" << after.ToString();
            }
            // The captured log and the backend's call record would grow with the run.
            LogCapture::Clear();
            kivref::ClearCalls();
        }
    }

    // A consumer registers again under every id whose buffers a dead client left with the HAL.
    void BringBackKeptBuffers() {
        for (int32_t id = 1; id <= kClientIds; id++) {
            if (mKept[Index(id)].producer == nullptr) continue;
            auto client = ::ndk::SharedRefBase::make<TestClient>();
            ASSERT_TRUE(mService.registerClient(id, client->Remote()).isOk());
            GiveBackKept(id, *client);
            EXPECT_TRUE(mService.unRegisterClient(id).isOk());
        }
        LogCapture::Clear();
        kivref::ClearCalls();
    }

    // What the run did, printed at the end.
    uint32_t mClients = 0;
    uint32_t mSessions = 0;
    uint32_t mRoundTrips = 0;
    size_t mSessionResults = 0;

  private:
    // Buffers of a dead client, in the order the HAL hands them back, with the producer record
    // whose arrays they were lent in.
    struct Kept {
        std::unique_ptr<Producer> producer;
        std::vector<camera3_stream_buffer_t> buffers;
    };

    static size_t Index(int32_t id) { return static_cast<size_t>(id - 1); }

    static size_t Imports() { return ::android::hostgralloc::liveImportCount(); }

    void GiveBackKept(int32_t id, TestClient& client) {
        Kept& kept = mKept[Index(id)];
        const size_t imports = Imports();
        EXPECT_EQ(0, kept.producer->Result(mFrame++, nullptr, kept.buffers));
        const std::vector<SeenResult> results = client.Results();
        EXPECT_EQ(1u, results.size());
        if (!results.empty()) {
            EXPECT_EQ(kLentPerRequest, results.back().buffers.size());
        }
        EXPECT_EQ(imports - kLentPerRequest, Imports());
        kept.producer.reset();
        kept.buffers.clear();
    }

    // One request of kBuffersPerStream buffers on each stream; every buffer lent, in the order
    // they go back (last lent first).
    bool Lend(Producer& producer, std::vector<camera3_stream_buffer_t>* backwards) {
        const size_t imports = Imports();
        const int32_t status = producer.Request({&mStreams.preview, &mStreams.rgba},
                                                {kBuffersPerStream, kBuffersPerStream});
        EXPECT_EQ(CAMERA3_BUF_REQ_OK, status);
        EXPECT_EQ(2u, producer.ReturnedCount());
        EXPECT_EQ(imports + kLentPerRequest, Imports());
        if (status != CAMERA3_BUF_REQ_OK || producer.ReturnedCount() != 2) return false;
        backwards->clear();
        for (size_t i = 2; i-- > 0;) {
            for (size_t j = kBuffersPerStream; j-- > 0;) {
                backwards->push_back(producer.Buffer(i, j));
            }
        }
        return true;
    }

    void Return(Producer& producer, TestClient& client, std::vector<camera3_stream_buffer_t> all,
                bool errorFirst) {
        const size_t imports = Imports();
        const size_t resultsBefore = client.Results().size();
        camera_metadata_t* metadata = allocate_camera_metadata(2, 16);
        const int64_t timestamp = 1000 + mFrame;
        EXPECT_EQ(0, add_camera_metadata_entry(metadata, ANDROID_SENSOR_TIMESTAMP, &timestamp, 1));
        size_t results = 1;
        if (errorFirst) {
            // The stream lent last gets its buffers back unused.
            std::vector<camera3_stream_buffer_t> unused(all.begin(),
                                                        all.begin() + kBuffersPerStream);
            for (camera3_stream_buffer_t& buffer : unused) {
                buffer.status = CAMERA3_BUFFER_STATUS_ERROR;
            }
            EXPECT_EQ(0, producer.Result(mFrame, nullptr, unused));
            all.erase(all.begin(), all.begin() + kBuffersPerStream);
            results++;
        }
        EXPECT_EQ(0, producer.Result(mFrame++, metadata, all));
        free_camera_metadata(metadata);
        const std::vector<SeenResult> seen = client.Results();
        EXPECT_EQ(resultsBefore + results, seen.size());
        if (!seen.empty()) {
            EXPECT_FALSE(seen.back().metadata.empty());
        }
        EXPECT_EQ(imports - kLentPerRequest, Imports());
        mRoundTrips++;
    }

    void Consumer(int32_t id, ClientFate fate) {
        auto client = ::ndk::SharedRefBase::make<TestClient>();
        ASSERT_TRUE(mService.registerClient(id, client->Remote()).isOk());
        if (mKept[Index(id)].producer != nullptr) GiveBackKept(id, *client);

        auto producer = std::make_unique<Producer>(id);
        EXPECT_TRUE(OfflineCameraService::GetInstance()->RegisterProducerClient(id));
        if (fate == ClientFate::kRefusesFirst) {
            static const TestClient::Reply kRefusals[] = {TestClient::Reply::kStatusFails,
                                                          TestClient::Reply::kTransactionFails,
                                                          TestClient::Reply::kOneEntryTooFew};
            client->SetReply(kRefusals[mClients % 3]);
            const size_t imports = Imports();
            EXPECT_NE(CAMERA3_BUF_REQ_OK, producer->Request({&mStreams.preview, &mStreams.rgba},
                                                            {kBuffersPerStream, kBuffersPerStream}));
            EXPECT_EQ(imports, Imports());
            client->SetReply(TestClient::Reply::kLend);
        }

        std::vector<camera3_stream_buffer_t> lent;
        if (!Lend(*producer, &lent)) return;
        if (fate == ClientFate::kDiesWithBuffersLent) {
            client->Die();
            mKept[Index(id)] = {std::move(producer), std::move(lent)};
            return;
        }
        Return(*producer, *client, std::move(lent), fate == ClientFate::kErrorReturn);
        if (fate == ClientFate::kDiesAfterReturn) {
            client->Die();
            EXPECT_FALSE(OfflineCameraService::GetInstance()->RegisterProducerClient(id));
            EXPECT_EQ(CAMERA3_BUF_REQ_FAILED_UNKNOWN,
                      producer->Request({&mStreams.preview}, {kBuffersPerStream}));
            EXPECT_TRUE(IsIllegalArgument(mService.unRegisterClient(id)));
            return;
        }
        OfflineCameraService::GetInstance()->UnRegisterProducerClient(id);
        EXPECT_TRUE(mService.unRegisterClient(id).isOk());
    }

    // Configures the session and sends its requests. A client that is going to die does so
    // right after, with its results possibly still on their way; the others wait for them.
    void Process(IOfflineCameraSession& session, uint64_t handle,
                 const CountingSessionCallback& callback, bool clientDies) {
        EXPECT_TRUE(
                session.configureOfflineSession(FusionConfiguration(kSessionWidth, kSessionHeight))
                        .isOk());
        int64_t bufferId = 1;
        for (size_t i = 0; i < kRequestsPerSession; i++) {
            std::vector<OfflineCaptureRequest> requests;
            requests.push_back(FusionRequest(static_cast<int32_t>(i), bufferId, kFramesPerRequest,
                                             bufferId + kFramesPerRequest, kSessionWidth,
                                             kSessionHeight, 1000 + static_cast<int64_t>(i)));
            bufferId += kFramesPerRequest + 1;
            int32_t frameNumber = -1;
            EXPECT_TRUE(session.processOfflineRequest(requests, &frameNumber).isOk());
            EXPECT_NE(-1, frameNumber);
        }
        if (clientDies) return;
        EXPECT_TRUE(kivref::WaitIdle(handle));
        EXPECT_EQ(kRequestsPerSession, callback.mResults.load());
        EXPECT_EQ(kRequestsPerSession, callback.mMessages.load());
        mSessionResults += callback.mResults;
    }

    void Session(SessionFate fate) {
        auto callbackObject = ::ndk::SharedRefBase::make<CountingSessionCallback>();
        ::ndk::SpAIBinder callbackBinder = callbackObject->asBinder();
        ::ndk::host::setRemote(callbackBinder.get(), true);
        std::shared_ptr<IOfflineCameraSession> opened;
        ASSERT_TRUE(mService.openOfflineSeesion("soak", callbackObject, &opened).isOk());
        ASSERT_NE(nullptr, opened);
        const uint64_t handle = LastBackendSession();
        // The client holds the session through a proxy, as from another process.
        ::ndk::SpAIBinder sessionBinder = opened->asBinder();
        ::ndk::host::setRemote(sessionBinder.get(), true);
        std::shared_ptr<IOfflineCameraSession> session =
                IOfflineCameraSession::fromBinder(sessionBinder);
        opened.reset();
        sessionBinder = ::ndk::SpAIBinder();
        EXPECT_EQ(1u, kivref::LiveSessions());

        OfflineFlushInfo flush;
        flush.flushFlags = static_cast<int32_t>(mSessions % 4);
        EXPECT_TRUE(session->flushOfflineSession(flush).isOk());
        EXPECT_TRUE(session->dumpOfflineSession().isOk());
        const bool dies =
                fate == SessionFate::kDiesThenCloses || fate == SessionFate::kDiesThenDrops;
        Process(*session, handle, *callbackObject, dies);
        if (dies) ::ndk::host::kill(callbackBinder.get());
        if (fate == SessionFate::kCloses || fate == SessionFate::kDiesThenCloses) {
            EXPECT_TRUE(session->closeOfflineSession().isOk());
        }
        session.reset();
    }

    IOfflineCameraService& mService;
    struct {
        camera3_stream_t preview = MakeStream(64, 48, HAL_PIXEL_FORMAT_YCBCR_420_888, 0x33,
                                              HAL_DATASPACE_V0_JFIF, CAMERA3_STREAM_ROTATION_90);
        camera3_stream_t rgba = MakeStream(32, 16, HAL_PIXEL_FORMAT_RGBA_8888, 0x3,
                                           HAL_DATASPACE_SRGB, CAMERA3_STREAM_ROTATION_0);
    } mStreams;
    std::array<Kept, kClientIds> mKept;
    uint32_t mFrame = 1;
};

SCENARIO_TEST(LeakSoakTest, LongRunGivesEverythingBack) {
    const ProcessCounts start = ProcessCounts::Take();
    Soak soak(s.Service());
    soak.Run(kWarmUpRounds);
    soak.BringBackKeptBuffers();
    const size_t warmHeap = HeapInUse();

    const uint32_t rounds = Rounds();
    soak.Run(rounds);
    soak.BringBackKeptBuffers();
    const size_t endHeap = HeapInUse();
    const ProcessCounts end = ProcessCounts::Settled(start);

    printf("rounds: %u after %u of warm-up; %u consumer clients, %u round trips, %u sessions of "
           "%zu requests (%zu results to clients that stayed)\n",
           rounds, kWarmUpRounds, soak.mClients, soak.mRoundTrips, soak.mSessions,
           kRequestsPerSession, soak.mSessionResults);
    printf("start: %s\nend:   %s\n", start.ToString().c_str(), end.ToString().c_str());
    printf("heap in use after warm-up %zu bytes, at the end %zu bytes (%+ld)\n", warmHeap, endHeap,
           static_cast<long>(endHeap) - static_cast<long>(warmHeap));
    fflush(stdout);

    EXPECT_TRUE(start == end) << "start: " << start.ToString() << "\nend:   " << end.ToString();
    EXPECT_LT(endHeap, warmHeap + kHeapTolerance) << "the heap grew over the run";
}

}  // namespace
}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Checks that each baseline does the work of the library path it is measured against, as the
 * client and the backend see it, and that both leave descriptors and imports where they were.
 * scripts/bench.sh runs it before measuring.
 */
#include <gtest/gtest.h>
#include <hostplatform/KivReferenceBackend.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "BenchSupport.h"
#include "OfflineCameraService.h"
#include "OfflineClientSide.h"
#include "OfflineRequestSupport.h"
#include "ResourceBalance.h"

namespace offlinecamera::bench {
namespace {

constexpr int32_t kClientId = 31;
constexpr int32_t kFormat = HAL_PIXEL_FORMAT_YCBCR_420_888;

class BaselineCheck : public ::offlinecamera::test::BalancedTest {
  protected:
    static void SetUpTestSuite() {
        SilenceLog();
        SetUpProcess();
    }

    // Lends `lent` buffers of one stream, then does `extra` times one more buffer and its result,
    // then returns everything in one result, through the library or the baseline. The client's
    // view: the ids that came back in order, the results and the metadata bytes it received.
    struct Seen {
        std::vector<int64_t> cameBack;
        size_t results = 0;
        size_t metadataBytes = 0;
        size_t stillLent = 0;
    };

    static Seen Library(const std::vector<uint32_t>& counts, int extra,
                        const camera_metadata_t* metadata) {
        size_t total = extra;
        for (uint32_t count : counts) total += count;
        auto client = ::ndk::SharedRefBase::make<PoolClient>(total, 32, 24, kFormat);
        EXPECT_TRUE(Service().registerClient(kClientId, client->Remote()).isOk());
        EXPECT_TRUE(OfflineCameraService::GetInstance()->RegisterProducerClient(kClientId));
        std::vector<camera3_stream_t> streams(counts.size(), MakeStream(32, 24, kFormat));
        std::vector<camera3_stream_t*> pointers;
        for (camera3_stream_t& stream : streams) pointers.push_back(&stream);
        HalProducer hal(kClientId);
        EXPECT_EQ(0, hal.Request(pointers, counts));
        for (int i = 0; i < extra; i++) {
            EXPECT_EQ(0, hal.Request({pointers[0]}, {1}));
            EXPECT_EQ(0, hal.Return(1, 1, metadata));
        }
        EXPECT_EQ(0, hal.Return(hal.Held(), 2, metadata));
        OfflineCameraService::GetInstance()->UnRegisterProducerClient(kClientId);
        EXPECT_TRUE(Service().unRegisterClient(kClientId).isOk());
        return {client->CameBack(), client->ResultCount(), client->MetadataBytes(),
                client->LentCount()};
    }

    static Seen Baseline(const std::vector<uint32_t>& counts, int extra,
                         const camera_metadata_t* metadata) {
        size_t total = extra;
        for (uint32_t count : counts) total += count;
        auto client = ::ndk::SharedRefBase::make<PoolClient>(total, 32, 24, kFormat);
        std::vector<camera3_stream_t> streams(counts.size(), MakeStream(32, 24, kFormat));
        std::vector<camera3_stream_t*> pointers;
        for (camera3_stream_t& stream : streams) pointers.push_back(&stream);
        {
            BaselineBroker broker(client->Remote());
            EXPECT_TRUE(broker.Request(pointers, counts));
            for (int i = 0; i < extra; i++) {
                EXPECT_TRUE(broker.Request({pointers[0]}, {1}));
                broker.Return(1, 1, metadata);
            }
            broker.Return(broker.Held(), 2, metadata);
        }
        return {client->CameBack(), client->ResultCount(), client->MetadataBytes(),
                client->LentCount()};
    }
};

TEST_F(BaselineCheck, RoundTripOfTwoStreamsReturnsTheSameBuffersAndMetadata) {
    camera_metadata_t* metadata = MakeResultMetadata(1000);
    const Seen library = Library({3, 3}, 0, metadata);
    const Seen baseline = Baseline({3, 3}, 0, metadata);
    free_camera_metadata(metadata);

    EXPECT_EQ((std::vector<int64_t>{6, 5, 4, 3, 2, 1}), library.cameBack);
    EXPECT_EQ(library.cameBack, baseline.cameBack);
    EXPECT_EQ(1u, library.results);
    EXPECT_EQ(1u, baseline.results);
    EXPECT_GT(library.metadataBytes, 0u);
    EXPECT_EQ(library.metadataBytes, baseline.metadataBytes);
    EXPECT_EQ(0u, library.stillLent);
    EXPECT_EQ(0u, baseline.stillLent);
}

// More buffers lent than the library's list keeps room for: the list moves while the HAL holds
// buffers, which come back by their handle values all the same.
TEST_F(BaselineCheck, OneMoreBufferWhileManyAreLentComesBackFirst) {
    const Seen library = Library({40}, 3, nullptr);
    const Seen baseline = Baseline({40}, 3, nullptr);

    std::vector<int64_t> expected = {41, 42, 43};
    for (int64_t id = 40; id >= 1; id--) expected.push_back(id);
    EXPECT_EQ(expected, library.cameBack);
    EXPECT_EQ(library.cameBack, baseline.cameBack);
    EXPECT_EQ(4u, library.results);
    EXPECT_EQ(0u, library.metadataBytes);
    EXPECT_EQ(0u, library.stillLent);
    EXPECT_EQ(0u, baseline.stillLent);
}

std::vector<kivref::Slot> SessionSlots() {
    std::vector<kivref::Slot> slots;
    for (const kivref::CallRecord& call : kivref::Calls()) slots.push_back(call.slot);
    return slots;
}

TEST_F(BaselineCheck, SessionCycleReachesTheSameBackendEntries) {
    const size_t sessions = kivref::LiveSessions();
    kivref::ClearCalls();
    EXPECT_TRUE(LibrarySessionCycle(MakeSessionCallback()));
    const std::vector<kivref::Slot> library = SessionSlots();
    kivref::ClearCalls();
    EXPECT_TRUE(BaselineSessionCycle());
    const std::vector<kivref::Slot> baseline = SessionSlots();

    EXPECT_EQ((std::vector<kivref::Slot>{kivref::Slot::OpenSession, kivref::Slot::Flush,
                                         kivref::Slot::Dump, kivref::Slot::CloseSession}),
              library);
    EXPECT_EQ(library, baseline);
    EXPECT_EQ(sessions, kivref::LiveSessions());
}

// What one offline request looks like to the client and to the backend (the entries it reached,
// in the order of the slot numbers).
struct OfflineSeen {
    SeenOfflineResult last;
    size_t results = 0;
    size_t messages = 0;
    std::vector<kivref::Slot> slots;
};

template <typename Session>
OfflineSeen OneOfflineRequest() {
    OfflineClient client;
    OfflineSeen seen;
    Session session;
    EXPECT_TRUE(session.Opened());
    const uint64_t handle = LastBackendSession();
    kivref::ClearCalls();
    EXPECT_TRUE(session.Process(client.Request(7)));
    // Everything the delivery does is done once the backend's worker is idle.
    EXPECT_TRUE(kivref::WaitIdle(handle));
    seen.slots = SessionSlots();
    std::sort(seen.slots.begin(), seen.slots.end());
    seen.last = session.Client().Last();
    seen.results = session.Client().Results();
    seen.messages = session.Client().Messages();
    return seen;
}

TEST_F(BaselineCheck, OfflineRequestReachesTheClientAndTheBackendAlike) {
    const OfflineSeen library = OneOfflineRequest<LibraryOfflineSession>();
    const OfflineSeen baseline = OneOfflineRequest<BaselineOfflineSession>();

    EXPECT_EQ(1u, library.results);
    EXPECT_EQ(1u, library.messages);
    EXPECT_EQ((std::vector<std::pair<int32_t, int64_t>>{
                      {kOfflineOutputStream, static_cast<int64_t>(kOfflineInputBuffers) + 1}}),
              library.last.buffers);
    EXPECT_GT(library.last.metadataBytes, 0u);
    EXPECT_EQ(library.results, baseline.results);
    EXPECT_EQ(library.messages, baseline.messages);
    EXPECT_EQ(library.last.frameNumber, baseline.last.frameNumber);
    EXPECT_EQ(library.last.buffers, baseline.last.buffers);
    EXPECT_EQ(library.last.metadataBytes, baseline.last.metadataBytes);
    // Both import, translate and give back five buffers, convert the settings, make and convert
    // the result's metadata and destroy both.
    EXPECT_EQ(10u, std::count(library.slots.begin(), library.slots.end(),
                              kivref::Slot::TranslateToKivBuffer) +
                           std::count(library.slots.begin(), library.slots.end(),
                                      kivref::Slot::TranslateFromKivBuffer));
    EXPECT_EQ(library.slots, baseline.slots);
}

}  // namespace
}  // namespace offlinecamera::bench

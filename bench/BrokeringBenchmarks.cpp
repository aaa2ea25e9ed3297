/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Buffer brokering: a round trip of 2 streams of 3 buffers returned in one result, and the cost
 * of one more buffer while N are lent.
 */
#include <benchmark/benchmark.h>

#include "BenchSupport.h"
#include "Benchmarks.h"
#include "OfflineCameraService.h"

namespace offlinecamera::bench {
namespace {

constexpr uint32_t kWidth = 64;
constexpr uint32_t kHeight = 48;
constexpr int32_t kFormat = HAL_PIXEL_FORMAT_YCBCR_420_888;
constexpr int32_t kClientId = 21;

// A client registered with the service, with the HAL registered as its producer, for one run of
// a benchmark.
class RegisteredClient {
  public:
    explicit RegisteredClient(size_t poolSize)
        : mClient(::ndk::SharedRefBase::make<PoolClient>(poolSize, kWidth, kHeight, kFormat)),
          mRemote(mClient->Remote()) {
        mRegistered = Service().registerClient(kClientId, mRemote).isOk() &&
                      OfflineCameraService::GetInstance()->RegisterProducerClient(kClientId);
    }
    ~RegisteredClient() {
        OfflineCameraService::GetInstance()->UnRegisterProducerClient(kClientId);
        (void)Service().unRegisterClient(kClientId);
    }
    bool Registered() const { return mRegistered; }
    const std::shared_ptr<IOfflineClientCallback>& Remote() const { return mRemote; }

  private:
    std::shared_ptr<PoolClient> mClient;
    std::shared_ptr<IOfflineClientCallback> mRemote;
    bool mRegistered = false;
};

// The two streams of the round trip and the metadata of its result.
struct RoundTrip {
    camera3_stream_t preview = MakeStream(kWidth, kHeight, kFormat);
    camera3_stream_t still = MakeStream(kWidth, kHeight, kFormat);
    std::vector<camera3_stream_t*> streams{&preview, &still};
    std::vector<uint32_t> counts{3, 3};
    camera_metadata_t* metadata = MakeResultMetadata(1000);
    ~RoundTrip() { free_camera_metadata(metadata); }
};

void RoundTripLibrary(benchmark::State& state) {
    RegisteredClient client(6);
    HalProducer hal(kClientId);
    RoundTrip trip;
    uint32_t frame = 0;
    for (auto _ : state) {
        if (!client.Registered() || hal.Request(trip.streams, trip.counts) != 0) {
            state.SkipWithError("the client did not lend its buffers");
            break;
        }
        hal.Return(6, ++frame, trip.metadata);
    }
}

void RoundTripLibraryLogging(benchmark::State& state) {
    LogToStderr();
    RoundTripLibrary(state);
    SilenceLog();
}

void RoundTripBaseline(benchmark::State& state) {
    auto client = ::ndk::SharedRefBase::make<PoolClient>(6, kWidth, kHeight, kFormat);
    BaselineBroker broker(client->Remote());
    RoundTrip trip;
    uint32_t frame = 0;
    for (auto _ : state) {
        if (!broker.Request(trip.streams, trip.counts)) {
            state.SkipWithError("the client did not lend its buffers");
            break;
        }
        broker.Return(6, ++frame, trip.metadata);
    }
}

// One more buffer while N are lent: it is the last lent, so it is the first to come back.
void InFlightLibrary(benchmark::State& state) {
    const uint32_t lent = static_cast<uint32_t>(state.range(0));
    RegisteredClient client(lent + 1);
    HalProducer hal(kClientId);
    camera3_stream_t stream = MakeStream(kWidth, kHeight, kFormat);
    if (!client.Registered() || hal.Request({&stream}, {lent}) != 0) {
        state.SkipWithError("the client did not lend its buffers");
        return;
    }
    uint32_t frame = 0;
    for (auto _ : state) {
        if (hal.Request({&stream}, {1}) != 0) {
            state.SkipWithError("the client did not lend one more buffer");
            break;
        }
        hal.Return(1, ++frame, nullptr);
    }
    hal.Return(hal.Held(), ++frame, nullptr);
}

void InFlightBaseline(benchmark::State& state) {
    const uint32_t lent = static_cast<uint32_t>(state.range(0));
    auto client = ::ndk::SharedRefBase::make<PoolClient>(lent + 1, kWidth, kHeight, kFormat);
    BaselineBroker broker(client->Remote());
    camera3_stream_t stream = MakeStream(kWidth, kHeight, kFormat);
    if (!broker.Request({&stream}, {lent})) {
        state.SkipWithError("the client did not lend its buffers");
        return;
    }
    uint32_t frame = 0;
    for (auto _ : state) {
        if (!broker.Request({&stream}, {1})) {
            state.SkipWithError("the client did not lend one more buffer");
            break;
        }
        broker.Return(1, ++frame, nullptr);
    }
    broker.Return(broker.Held(), ++frame, nullptr);
}

}  // namespace

void RegisterBrokeringBenchmarks() {
    benchmark::RegisterBenchmark("BM_BrokeringRoundTrip/library", RoundTripLibrary);
    benchmark::RegisterBenchmark("BM_BrokeringRoundTrip/baseline", RoundTripBaseline);
    benchmark::RegisterBenchmark("BM_BrokeringRoundTrip/library_logging", RoundTripLibraryLogging);
    benchmark::RegisterBenchmark("BM_BuffersInFlight/library", InFlightLibrary)
            ->RangeMultiplier(2)
            ->Range(1, 256);
    benchmark::RegisterBenchmark("BM_BuffersInFlight/baseline", InFlightBaseline)
            ->RangeMultiplier(2)
            ->Range(1, 256);
}

}  // namespace offlinecamera::bench

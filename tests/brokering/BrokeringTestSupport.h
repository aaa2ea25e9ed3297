/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The two sides of buffer brokering as tests play them: a consumer client in another process
 * (TestClient) and the camera HAL in the library's process (Producer), and the child processes
 * in which each scenario runs.
 */
#pragma once

#include <android/log.h>
#include <gtest/gtest.h>
#include <hardware/camera3.h>
#include <stdint.h>

#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <ostream>
#include <string>
#include <vector>

#include "ChildScenario.h"
#include "ClientSide.h"
#include "LogCapture.h"
#include "ResourceBalance.h"

namespace offlinecamera::test {

using namespace ::offlinecamera::clientside;

constexpr const char* kServiceTag = "KivOfflineAIDLSevice";
constexpr const char* kCoreTag = "KivOfflineCameraSevice";

inline LogLine ServiceLine(int priority, const std::string& text) {
    return {priority, kServiceTag, text};
}
inline LogLine CoreLine(int priority, const std::string& text) {
    return {priority, kCoreTag, text};
}

/* A buffer as a client receives it back. */
struct SeenBuffer {
    int32_t streamId = 0;
    int64_t bufferId = 0;
    ::aidl::android::hardware::camera::device::BufferStatus status{};
    bool hasHandle = false;
    bool hasFences = false;

    bool operator==(const SeenBuffer& o) const {
        return streamId == o.streamId && bufferId == o.bufferId && status == o.status &&
               hasHandle == o.hasHandle && hasFences == o.hasFences;
    }
};
std::ostream& operator<<(std::ostream& os, const SeenBuffer& buffer);

/* A capture result as a client receives it. */
struct SeenResult {
    int64_t frameNumber = 0;
    std::vector<uint8_t> metadata;
    std::vector<SeenBuffer> buffers;
};

/* The stream id that a TestClient gives to the buffers of the i-th request of a call. */
constexpr int32_t ClientStreamId(size_t i) {
    return 10 + static_cast<int32_t>(i);
}

/*
 * A consumer client, written as a vendor client writes its callback. It lends memfd-backed
 * buffers of the requested stream's size and format, numbered from 1, and keeps them until it is
 * destroyed; it records every call it receives.
 */
class TestClient : public BnOfflineClientCallback {
  public:
    /* How the client answers buffer requests. */
    enum class Reply {
        kLend,
        kTransactionFails,
        kStatusFails,
        kOneEntryTooFew,
        kErrorInsteadOfBuffers,
        kSecondBufferUnimportable,
        kSecondBufferEmpty,
        kOneBufferTooMany,
    };

    ~TestClient() override;

    void SetReply(Reply reply);

    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& msgs) override;
    ::ndk::ScopedAStatus processCaptureResult(
            const std::vector<OfflineCaptureResult>& results) override;
    ::ndk::ScopedAStatus requestStreamBuffers(const std::vector<OfflineBufferRequest>& bufReqs,
                                              std::vector<StreamBufferRet>* buffers,
                                              BufferRequestStatus* status) override;
    ::ndk::ScopedAStatus returnStreamBuffers(const std::vector<StreamBuffer>& buffers) override;

    std::vector<std::vector<OfflineBufferRequest>> Requests();
    std::vector<SeenResult> Results();
    std::vector<std::vector<SeenBuffer>> Returns();

    /* The bytes of a lent buffer, read through the client's own mapping. */
    std::vector<uint8_t> Contents(int64_t bufferId);

    /*
     * The callback as the service receives it from another process: a proxy of this object's
     * binder, which is marked remote so that it can be watched for death and killed.
     */
    std::shared_ptr<IOfflineClientCallback> Remote();

    /* The client's process dies: linked death recipients are told. */
    void Die();

  private:
    std::vector<StreamBuffer> LendLocked(const OfflineBufferRequest& request, size_t index);

    // Guards everything below.
    std::mutex mLock;
    Reply mReply = Reply::kLend;
    int64_t mNextBufferId = 1;
    std::map<int64_t, native_handle_t*> mBuffers;
    std::vector<std::vector<OfflineBufferRequest>> mRequests;
    std::vector<SeenResult> mResults;
    std::vector<std::vector<SeenBuffer>> mReturns;
};

/*
 * The camera HAL's side for one client id: buffer requests with the arrays that the HAL
 * allocates, and capture results.
 */
class Producer {
  public:
    explicit Producer(int32_t clientId) : mClientId(clientId) {}

    /*
     * Asks for counts[i] buffers of streams[i]. The returned records and their arrays are kept
     * for the life of the producer; the returned count starts at kUntouchedCount.
     */
    int32_t Request(const std::vector<camera3_stream_t*>& streams,
                    const std::vector<uint32_t>& counts);

    static constexpr uint32_t kUntouchedCount = 77;
    uint32_t ReturnedCount() const { return mReturnedCount; }
    const std::vector<camera3_stream_buffer_ret_t>& Returned() const { return mReturned.back(); }
    /* The j-th buffer of the i-th request of the last call, or of an earlier call (0 the first). */
    camera3_stream_buffer_t& Buffer(size_t i, size_t j) { return mOutputs.back()[i][j]; }
    camera3_stream_buffer_t& Buffer(size_t i, size_t j, size_t call) {
        return mOutputs[call][i][j];
    }

    /*
     * Whether every output array is untouched past the room that the HAL allocated for its
     * request (each array is followed by guard entries).
     */
    bool ArraysIntact() const;

    /* Hands over a capture result, built in the record at LastResult(). */
    int32_t Result(uint32_t frameNumber, const camera_metadata_t* metadata,
                   const std::vector<camera3_stream_buffer_t>& buffers);
    const camera3_capture_result_t* LastResult() const { return &mLastResult; }

  private:
    int32_t mClientId;
    camera3_capture_result_t mLastResult = {};
    uint32_t mReturnedCount = kUntouchedCount;
    std::deque<std::vector<camera3_stream_buffer_ret_t>> mReturned;
    std::deque<std::vector<std::vector<camera3_stream_buffer_t>>> mOutputs;
    std::deque<std::vector<uint32_t>> mCounts;
};

/* Whether a status is the service's ILLEGAL_ARGUMENT answer. */
bool IsIllegalArgument(const ::ndk::ScopedAStatus& status);

/*
 * A brokering scenario in a child process of its own (see ChildScenario.h): the core keeps the
 * first callback record it is given, so each scenario needs a fresh process. The library's process
 * state is made first (published service, bound core) and the balance is counted from there.
 */
class Scenario {
  public:
    explicit Scenario(ChildScenario& child);

    /* Lent buffers that the scenario leaves imported on purpose. */
    void KeepLentBuffers(size_t count) { mChild.KeepImports(count); }

    IOfflineCameraService& Service() { return *mService; }

  private:
    ChildScenario& mChild;
    std::shared_ptr<IOfflineCameraService> mService;
};

using ScenarioFn = void (*)(Scenario&);

[[noreturn]] void RunScenario(ScenarioFn scenario);

#define EXPECT_SCENARIO(fn) EXPECT_EXIT(RunScenario(fn), ::testing::ExitedWithCode(0), "")

/* A test whose body is a brokering scenario, with `s` the scenario: SCENARIO_TEST(Suite, Name) {} */
#define SCENARIO_TEST(suite, name)       \
    void suite##_##name(Scenario&);      \
    TEST(suite, name) {                  \
        EXPECT_SCENARIO(suite##_##name); \
    }                                    \
    void suite##_##name([[maybe_unused]] Scenario& s)

}  // namespace offlinecamera::test

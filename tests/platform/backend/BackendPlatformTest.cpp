/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The reference offline backend as the library meets it: the entry point, its tables, scripted
 * slots, metadata handles, sessions that report from their own thread, and the fusion of input
 * frames into the output.
 */
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <string.h>
#include <ui/GraphicBufferMapper.h>

#include <algorithm>
#include <mutex>
#include <thread>
#include <vector>

#include "KivOfflineInterface.h"

namespace {

using kivref::Slot;

const KivOfflineIntfCbs* OpenContext() {
    return KivOfflineOpenContext(KIV_OFFLINE_CONTEXT_NAME, KIV_OFFLINE_CONTEXT_VERSION);
}

class BackendTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(kivref::Reset());
        mCbs = OpenContext();
        ASSERT_NE(nullptr, mCbs);
    }

    void TearDown() override {
        if (mOps != nullptr) {
            EXPECT_EQ(0, mOps->pfnClose(mOps));
        }
        if (mCbs != nullptr) {
            EXPECT_EQ(0, mCbs->pfnCloseContext(mCbs));
        }
        EXPECT_EQ(0u, kivref::LiveContexts());
        EXPECT_EQ(0u, kivref::LiveSessions());
        EXPECT_EQ(0u, kivref::LiveKivMetadata());
        EXPECT_EQ(0u, kivref::LiveAndroidMetadata());
        EXPECT_EQ(0u, kivref::OpenMetadataOps());
        EXPECT_EQ(0u, kivref::LiveBufferOps());
        kivref::Reset();
    }

    const KivMetadataOps* OpenOps(uint32_t cameraId) {
        KivMetadataOpsOpenInfo info = {cameraId, 0, 0};
        return mCbs->pfnOpenMetadataOps(mCbs, &info);
    }

    const KivOfflineIntfCbs* mCbs = nullptr;
    const KivMetadataOps* mOps = nullptr;
};

TEST_F(BackendTest, EntryPointChecksNameAndVersionAndIsTheOnlyEntry) {
    kivref::ClearCalls();
    EXPECT_EQ(nullptr, KivOfflineOpenContext("HAL3", KIV_OFFLINE_CONTEXT_VERSION));
    EXPECT_EQ(nullptr, KivOfflineOpenContext(KIV_OFFLINE_CONTEXT_NAME, 256));
    EXPECT_EQ(nullptr, KivOfflineOpenContext(nullptr, KIV_OFFLINE_CONTEXT_VERSION));
    std::vector<kivref::CallRecord> calls = kivref::Calls();
    ASSERT_EQ(3u, calls.size());
    EXPECT_EQ("HAL3", calls[0].text);
    EXPECT_EQ(256, calls[1].ints[0]);
    EXPECT_EQ(nullptr, calls[1].result);

    // Each context has its own table; all slots the library calls are filled.
    const KivOfflineIntfCbs* second = OpenContext();
    ASSERT_NE(nullptr, second);
    EXPECT_NE(mCbs, second);
    EXPECT_EQ(2u, kivref::LiveContexts());
    EXPECT_EQ(nullptr, second->pfnReserved0);
    for (size_t slot = 3; slot < sizeof(KivOfflineIntfCbs) / sizeof(void*); slot++) {
        EXPECT_NE(nullptr, reinterpret_cast<void* const*>(second)[slot]) << slot;
    }
    auto closeContext = second->pfnCloseContext;
    EXPECT_EQ(0, closeContext(second));
    EXPECT_EQ(-1, closeContext(second));

    // Loading the file by path yields this very backend; the other file has no entry point.
    void* library = dlopen(BACKEND_PATH, RTLD_NOW);
    ASSERT_NE(nullptr, library);
    EXPECT_EQ(reinterpret_cast<void*>(&KivOfflineOpenContext),
              dlsym(library, KIV_OFFLINE_OPEN_CONTEXT_SYMBOL));
    EXPECT_EQ(nullptr, dlsym(library, "_ZN6kivref8RegistryC2Ev"));
    dlclose(library);
    void* noEntry = dlopen(NO_ENTRY_BACKEND_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(nullptr, noEntry) << dlerror();
    EXPECT_EQ(nullptr, dlsym(noEntry, KIV_OFFLINE_OPEN_CONTEXT_SYMBOL));
    dlclose(noEntry);
}

TEST_F(BackendTest, ScriptedSlotsFail) {
    kivref::SetSlotFailure(Slot::OpenSession, true);
    kivref::SetSlotFailure(Slot::OpenMetadataOps, true);
    kivref::SetSlotFailure(Slot::GetStaticInfo, true);
    kivref::SetSlotFailure(Slot::TranslateToKivBuffer, true);
    KivOfflineCallbacks callbacks = {};
    KivOfflineSessionInfo session = {"s", 0, &callbacks};
    EXPECT_EQ(0u, mCbs->pfnOpenSession(mCbs, &session));
    EXPECT_EQ(nullptr, OpenOps(2));
    EXPECT_EQ(nullptr, mCbs->pfnGetStaticInfo(mCbs).pStaticMetadata);
    camera3_stream_buffer_t hal = {};
    KivStreamBuffer kiv;
    EXPECT_EQ(-1, mCbs->pfnTranslateToKivBuffer(&hal, &kiv));
    // A record this backend did not fill is refused.
    KivStreamBuffer foreign = {};
    EXPECT_EQ(-1, mCbs->pfnTranslateFromKivBuffer(&foreign, &hal));

    // A failing close still closes.
    kivref::SetSlotFailure(Slot::BufferOpsClose, true);
    const KivOfflineBufferOps* bufferOps = mCbs->pfnGetBufferOps(mCbs);
    EXPECT_EQ(1u, kivref::LiveBufferOps());
    EXPECT_EQ(-1, bufferOps->pfnClose(bufferOps));
    EXPECT_EQ(0u, kivref::LiveBufferOps());
    std::vector<kivref::CallRecord> calls = kivref::Calls();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(Slot::BufferOpsClose, calls.back().slot);
    EXPECT_EQ(-1, calls.back().status);
}

TEST_F(BackendTest, MetadataHandlesAndTablesAreCountedAndCheckedOnRelease) {
    mOps = OpenOps(7);
    const KivMetadataOps* other = OpenOps(7);
    EXPECT_NE(mOps, other);
    EXPECT_EQ(2u, kivref::OpenMetadataOps());
    // A closed table is gone; its slots refuse it.
    KivMetadataOps closed = *other;
    EXPECT_EQ(0, other->pfnClose(other));
    EXPECT_EQ(-1, closed.pfnClose(other));
    EXPECT_EQ(nullptr, closed.pfnCreateKivMetadata(other, nullptr, 0));

    camera_metadata_t* settings = allocate_camera_metadata(2, 0);
    uint8_t intent = ANDROID_CONTROL_CAPTURE_INTENT_STILL_CAPTURE;
    ASSERT_EQ(0, add_camera_metadata_entry(settings, ANDROID_CONTROL_CAPTURE_INTENT, &intent, 1));
    KivMetadataHandle byAndroid = mOps->pfnCreateByAndroidMetadata(mOps, settings, 0, 0, ~0u);
    free_camera_metadata(settings);
    KivMetadataHandle empty = mOps->pfnCreateKivMetadata(mOps, nullptr, 0);
    ASSERT_NE(nullptr, byAndroid);
    ASSERT_NE(nullptr, empty);
    EXPECT_EQ(3u, kivref::LiveKivMetadata());

    uint32_t size = 0;
    camera_metadata_t* back = mOps->pfnCreateAndroidMetadata(mOps, byAndroid, 1, 1, 0, &size);
    ASSERT_NE(nullptr, back);
    EXPECT_EQ(get_camera_metadata_size(back), size);
    camera_metadata_ro_entry_t entry;
    ASSERT_EQ(0, find_camera_metadata_ro_entry(back, ANDROID_CONTROL_CAPTURE_INTENT, &entry));
    EXPECT_EQ(intent, entry.data.u8[0]);
    EXPECT_EQ(1u, kivref::LiveAndroidMetadata());
    EXPECT_EQ(0, mOps->pfnReleaseAndroidMetadata(mOps, back));
    EXPECT_EQ(-1, mOps->pfnReleaseAndroidMetadata(mOps, back));
    EXPECT_EQ(0, mOps->pfnReleaseAndroidMetadata(mOps, nullptr));

    EXPECT_EQ(0, mOps->pfnDestroyKivMetadata(byAndroid));
    EXPECT_EQ(0, mOps->pfnDestroyKivMetadata(empty));
    EXPECT_EQ(-1, mOps->pfnDestroyKivMetadata(empty));
    EXPECT_EQ(1u, kivref::LiveKivMetadata());

    std::vector<kivref::CallRecord> calls = kivref::Calls();
    const kivref::CallRecord& destroy = calls[calls.size() - 2];
    EXPECT_EQ(Slot::DestroyKivMetadata, destroy.slot);
    EXPECT_EQ(7u, destroy.cameraId);
    EXPECT_EQ(empty, destroy.handle);
    // The context owns its characteristics.
    EXPECT_EQ(-1, mOps->pfnDestroyKivMetadata(mCbs->pfnGetStaticInfo(mCbs).pStaticMetadata));
}

// ---------------------------------------------------------------------------------------------
// Sessions

// Stands in for the library's session callbacks: records what arrives and frees the returned
// metadata handles as the library does.
struct FakeClient {
    struct Event {
        enum Kind { Shutter, Error, Input, Output } kind;
        uint32_t frameNumber = 0;
        std::thread::id thread;
        uint64_t timestamp = 0;
        std::vector<int> statuses;
        std::vector<buffer_handle_t> handles;
        KivMetadataHandle metadata = nullptr;
        uint32_t partialResult = 0;
        int64_t sensorTimestamp = -1;
        int32_t frameCount = -1;
        bool echoedIntent = false;
    };

    static int32_t OnResult(const KivOfflineCallbacks* cbs, uint32_t count,
                            const KivOfflineCaptureResult* results) {
        FakeClient* self = static_cast<FakeClient*>(cbs->pPrivateData);
        for (uint32_t i = 0; i < count; i++) self->Take(results[i]);
        return self->resultStatus;
    }

    static int32_t OnMessage(const KivOfflineCallbacks* cbs, uint32_t count,
                             const camera3_notify_msg_t* messages) {
        FakeClient* self = static_cast<FakeClient*>(cbs->pPrivateData);
        std::lock_guard<std::mutex> lock(self->lock);
        for (uint32_t i = 0; i < count; i++) {
            Event event;
            event.thread = std::this_thread::get_id();
            if (messages[i].type == CAMERA3_MSG_SHUTTER) {
                event.kind = Event::Shutter;
                event.frameNumber = messages[i].message.shutter.frame_number;
                event.timestamp = messages[i].message.shutter.timestamp;
            } else {
                event.kind = Event::Error;
                event.frameNumber = messages[i].message.error.frame_number;
                event.statuses.push_back(messages[i].message.error.error_code);
            }
            self->events.push_back(event);
        }
        return 0;
    }

    void Take(const KivOfflineCaptureResult& result) {
        const KivOfflineResultInfo* part =
                result.pOutput != nullptr ? result.pOutput : result.pInput;
        Event event;
        event.kind = result.pOutput != nullptr ? Event::Output : Event::Input;
        event.frameNumber = result.frameNumber;
        event.thread = std::this_thread::get_id();
        event.metadata = part->pMetadata;
        event.partialResult = part->partialResult;
        for (uint32_t i = 0; i < part->numBuffers; i++) {
            camera3_stream_buffer_t buffer = {};
            EXPECT_EQ(0, cbs->pfnTranslateFromKivBuffer(&part->pBuffers[i], &buffer));
            event.statuses.push_back(buffer.status);
            event.handles.push_back(*buffer.buffer);
        }
        if (part->pMetadata != nullptr && result.pOutput != nullptr) {
            camera_metadata_t* metadata =
                    ops->pfnCreateAndroidMetadata(ops, part->pMetadata, 1, 1, 0, nullptr);
            camera_metadata_ro_entry_t entry;
            if (find_camera_metadata_ro_entry(metadata, ANDROID_SENSOR_TIMESTAMP, &entry) == 0) {
                event.sensorTimestamp = entry.data.i64[0];
            }
            if (find_camera_metadata_ro_entry(metadata, ANDROID_REQUEST_FRAME_COUNT, &entry) == 0) {
                event.frameCount = entry.data.i32[0];
            }
            event.echoedIntent = find_camera_metadata_ro_entry(
                                         metadata, ANDROID_CONTROL_CAPTURE_INTENT, &entry) == 0;
            EXPECT_EQ(0, ops->pfnReleaseAndroidMetadata(ops, metadata));
        }
        if (part->pMetadata != nullptr) {
            EXPECT_EQ(0, ops->pfnDestroyKivMetadata(part->pMetadata));
        }
        std::lock_guard<std::mutex> lock(this->lock);
        events.push_back(event);
    }

    std::vector<Event> Events() {
        std::lock_guard<std::mutex> lock(this->lock);
        return events;
    }

    KivOfflineCallbacks callbacks = {OnResult, OnMessage, 0, 0, this};
    const KivOfflineIntfCbs* cbs = nullptr;
    const KivMetadataOps* ops = nullptr;
    int32_t resultStatus = 0;
    std::mutex lock;
    std::vector<Event> events;
};

class BackendSessionTest : public BackendTest {
  protected:
    static constexpr uint32_t kCamera = 5;

    void SetUp() override {
        BackendTest::SetUp();
        mOps = OpenOps(kCamera);
        mClient.cbs = mCbs;
        mClient.ops = mOps;
        KivOfflineSessionInfo info = {"offline", 0, &mClient.callbacks};
        mSession = mCbs->pfnOpenSession(mCbs, &info);
        ASSERT_NE(0u, mSession);
        mStream.width = 64;
        mStream.height = 48;
        camera3_stream_t* streams[] = {&mStream};
        KivOfflineSessionConfigInfo config = {"5", 1, 0, streams, 0x8001, 0, nullptr, 0};
        ASSERT_EQ(0, mCbs->pfnConfigureSession(mSession, &config));
    }

    void TearDown() override {
        if (mSession != 0) {
            EXPECT_EQ(0, mCbs->pfnCloseSession(mSession));
        }
        BackendTest::TearDown();
    }

    KivStreamBuffer Buffer(size_t index) {
        mHandleCells[index] = reinterpret_cast<buffer_handle_t>(&mHandleStorage[index]);
        camera3_stream_buffer_t hal = {&mStream, &mHandleCells[index], 0, -1, -1, 0, nullptr};
        KivStreamBuffer kiv;
        EXPECT_EQ(0, mCbs->pfnTranslateToKivBuffer(&hal, &kiv));
        return kiv;
    }

    KivMetadataHandle Settings() {
        camera_metadata_t* settings = allocate_camera_metadata(1, 0);
        uint8_t intent = ANDROID_CONTROL_CAPTURE_INTENT_STILL_CAPTURE;
        add_camera_metadata_entry(settings, ANDROID_CONTROL_CAPTURE_INTENT, &intent, 1);
        KivMetadataHandle handle = mOps->pfnCreateByAndroidMetadata(mOps, settings, 0, 0, ~0u);
        free_camera_metadata(settings);
        return handle;
    }

    // Executes a request of two input frames (buffers 0, 1 and 2) and one output (buffer 3), then
    // scribbles over everything it passed: the backend must have copied it.
    uint32_t Execute(KivMetadataHandle* firstSettings = nullptr) {
        KivStreamBuffer inputBuffers[3] = {Buffer(0), Buffer(1), Buffer(2)};
        KivStreamBuffer outputBuffer = Buffer(3);
        KivOfflineStreamInfo inputs[2] = {{2, 0, &inputBuffers[0], 0, Settings()},
                                          {1, 0, &inputBuffers[2], 0, Settings()}};
        KivOfflineStreamInfo output = {1, 0, &outputBuffer, 0,
                                       mOps->pfnCreateKivMetadata(mOps, nullptr, 0)};
        if (firstSettings != nullptr) *firstSettings = inputs[0].pMetadata;
        uint32_t frameNumber = 7;
        KivOfflineCaptureRequestInfo request = {2, 0, inputs, &output, 0, &frameNumber, 0, 0};
        EXPECT_EQ(0, mCbs->pfnExecuteRequest(mSession, &request));
        memset(inputBuffers, 0, sizeof(inputBuffers));
        memset(&outputBuffer, 0, sizeof(outputBuffer));
        memset(inputs, 0, sizeof(inputs));
        memset(&output, 0, sizeof(output));
        return frameNumber;
    }

    buffer_handle_t Handle(size_t index) {
        return reinterpret_cast<buffer_handle_t>(&mHandleStorage[index]);
    }

    FakeClient mClient;
    uint64_t mSession = 0;
    camera3_stream_t mStream = {};
    uint64_t mHandleStorage[4] = {};
    buffer_handle_t mHandleCells[4] = {};
};

TEST_F(BackendSessionTest, RequestIsReportedFromTheSessionThread) {
    KivMetadataHandle firstSettings = nullptr;
    EXPECT_EQ(1000u, Execute(&firstSettings));
    EXPECT_EQ(1001u, Execute());
    ASSERT_TRUE(kivref::WaitIdle(mSession));

    std::vector<FakeClient::Event> events = mClient.Events();
    ASSERT_EQ(6u, events.size());
    using Event = FakeClient::Event;
    for (const Event& event : events) EXPECT_NE(std::this_thread::get_id(), event.thread);
    EXPECT_EQ(Event::Shutter, events[0].kind);
    EXPECT_EQ(1000u, events[0].frameNumber);

    // All input buffers come back in one record with the first frame's settings.
    EXPECT_EQ(Event::Input, events[1].kind);
    EXPECT_EQ(1000u, events[1].frameNumber);
    EXPECT_EQ((std::vector<buffer_handle_t>{Handle(0), Handle(1), Handle(2)}), events[1].handles);
    EXPECT_EQ(firstSettings, events[1].metadata);

    EXPECT_EQ(Event::Output, events[2].kind);
    EXPECT_EQ(std::vector<int>{CAMERA3_BUFFER_STATUS_OK}, events[2].statuses);
    EXPECT_EQ(std::vector<buffer_handle_t>{Handle(3)}, events[2].handles);
    EXPECT_EQ(1u, events[2].partialResult);
    EXPECT_EQ(static_cast<int64_t>(events[0].timestamp), events[2].sensorTimestamp);
    EXPECT_EQ(1000, events[2].frameCount);
    EXPECT_TRUE(events[2].echoedIntent);
    EXPECT_EQ(1001u, events[5].frameNumber);

    // The call is recorded before anything of it is reported.
    std::vector<kivref::CallRecord> calls = kivref::Calls();
    auto execute = std::find_if(calls.begin(), calls.end(), [](const kivref::CallRecord& c) {
        return c.slot == Slot::ExecuteRequest;
    });
    ASSERT_NE(calls.end(), execute);
    EXPECT_EQ(2, execute->ints[0]);
    EXPECT_EQ(1, execute->ints[1]);
    EXPECT_EQ(1000, execute->ints[2]);
    EXPECT_EQ(Slot::CreateKivMetadata, (execute - 1)->slot);
    EXPECT_EQ(1u, kivref::LiveKivMetadata());  // every handle came back or was dropped
}

TEST_F(BackendSessionTest, FlushReturnsQueuedRequestsAsErrors) {
    kivref::SetAutoDeliver(false);
    KivMetadataHandle firstSettings = nullptr;
    uint32_t first = Execute(&firstSettings);
    Execute();
    EXPECT_EQ(2, kivref::PendingRequests(mSession));
    // A queued request holds its handles.
    EXPECT_EQ(-1, mOps->pfnDestroyKivMetadata(firstSettings));

    KivOfflineFlushInfo flush = {1};
    ASSERT_EQ(0, mCbs->pfnFlush(mSession, &flush));
    std::vector<FakeClient::Event> events = mClient.Events();
    ASSERT_EQ(6u, events.size());
    EXPECT_EQ(FakeClient::Event::Error, events[0].kind);
    EXPECT_EQ(first, events[0].frameNumber);
    EXPECT_EQ(std::vector<int>{CAMERA3_MSG_ERROR_REQUEST}, events[0].statuses);
    EXPECT_EQ(std::vector<int>(3, CAMERA3_BUFFER_STATUS_ERROR), events[1].statuses);
    EXPECT_EQ(std::vector<int>{CAMERA3_BUFFER_STATUS_ERROR}, events[2].statuses);
    EXPECT_EQ(nullptr, events[2].metadata);
    EXPECT_EQ(0, kivref::PendingRequests(mSession));
    EXPECT_EQ(1u, kivref::LiveKivMetadata());
}

TEST_F(BackendSessionTest, ClosingDeliversOrReleasesAndThenStaysSilent) {
    // Queued work is delivered before the close returns.
    Execute();
    Execute();
    EXPECT_FALSE(kivref::Reset());
    ASSERT_EQ(0, mCbs->pfnCloseSession(mSession));
    EXPECT_EQ(6u, mClient.Events().size());
    EXPECT_EQ(-1, kivref::DeliverMessages(mSession, {}));
    EXPECT_EQ(-1, mCbs->pfnCloseSession(mSession));

    // Held requests go without callbacks, their handles freed by the backend.
    KivOfflineSessionInfo info = {"held", 0, &mClient.callbacks};
    mSession = mCbs->pfnOpenSession(mCbs, &info);
    kivref::SetAutoDeliver(false);
    EXPECT_EQ(1000u, Execute());
    ASSERT_EQ(0, mCbs->pfnCloseSession(mSession));
    mSession = 0;
    EXPECT_EQ(6u, mClient.Events().size());
    EXPECT_EQ(1u, kivref::LiveKivMetadata());
}

// ---------------------------------------------------------------------------------------------
// Fusion

// Y8 buffers of the host mapper, imported as the library imports what a client sends.
class BackendFusionTest : public BackendSessionTest {
  protected:
    static constexpr size_t kMaxBuffers = 6;

    void TearDown() override {
        BackendSessionTest::TearDown();
        for (size_t i = 0; i < mCount; i++) {
            EXPECT_EQ(android::OK, android::GraphicBufferMapper::get().freeBuffer(mImported[i]));
        }
        android::hostgralloc::clearFailures();
    }

    // A new buffer of `stream` whose pixel (x, y) is pattern(x, y) + offset.
    KivStreamBuffer Image(camera3_stream_t* stream, uint8_t offset) {
        native_handle_t* raw =
                android::hostgralloc::allocate(stream->width, stream->height, stream->format, 0x33);
        EXPECT_NE(nullptr, raw);
        buffer_handle_t& cell = mImported[mCount++];
        EXPECT_EQ(android::OK,
                  android::GraphicBufferMapper::get().importBufferNoValidate(raw, &cell));
        android::hostgralloc::release(raw);
        ForEachPixel(cell, stream, [offset](uint32_t x, uint32_t y, uint8_t* pixel) {
            *pixel = static_cast<uint8_t>(Pattern(x, y) + offset);
        });
        camera3_stream_buffer_t hal = {stream, &cell, 0, -1, -1, 0, nullptr};
        KivStreamBuffer kiv;
        EXPECT_EQ(0, mCbs->pfnTranslateToKivBuffer(&hal, &kiv));
        return kiv;
    }

    static uint8_t Pattern(uint32_t x, uint32_t y) {
        return static_cast<uint8_t>((x * 3 + y) & 0x7f);
    }

    template <typename Visit>
    static void ForEachPixel(buffer_handle_t handle, const camera3_stream_t* stream, Visit visit) {
        void* address = nullptr;
        android::GraphicBufferMapper& mapper = android::GraphicBufferMapper::get();
        ASSERT_EQ(android::OK, mapper.lock(handle, 0x33,
                                           android::Rect(stream->width, stream->height), &address));
        uint8_t* pixels = static_cast<uint8_t*>(address);
        for (uint32_t y = 0; y < stream->height; y++) {
            for (uint32_t x = 0; x < stream->width; x++)
                visit(x, y, &pixels[y * stream->width + x]);
        }
        EXPECT_EQ(android::OK, mapper.unlock(handle));
    }

    // Executes one request of the given input frames (one buffer each) into `output`, waits for
    // its result and gives the output buffer's status.
    int ExecuteAndWait(std::vector<KivStreamBuffer> frames, KivStreamBuffer output) {
        std::vector<KivOfflineStreamInfo> inputs;
        for (KivStreamBuffer& frame : frames) inputs.push_back({1, 0, &frame, 0, nullptr});
        KivOfflineStreamInfo out = {1, 0, &output, 0, nullptr};
        uint32_t frameNumber = 0;
        KivOfflineCaptureRequestInfo request = {static_cast<uint32_t>(inputs.size()),
                                                0,
                                                inputs.data(),
                                                &out,
                                                0,
                                                &frameNumber,
                                                0,
                                                0};
        EXPECT_EQ(0, mCbs->pfnExecuteRequest(mSession, &request));
        EXPECT_TRUE(kivref::WaitIdle(mSession));
        std::vector<FakeClient::Event> events = mClient.Events();
        if (events.empty() || events.back().kind != FakeClient::Event::Output ||
            events.back().statuses.size() != 1) {
            ADD_FAILURE() << "no output result";
            return -1;
        }
        return events.back().statuses[0];
    }

    buffer_handle_t mImported[kMaxBuffers] = {};
    size_t mCount = 0;
};

TEST_F(BackendFusionTest, OutputIsTheRoundedMeanOfTheMatchingInputs) {
    mStream.format = HAL_PIXEL_FORMAT_Y8;
    camera3_stream_t small = mStream;
    small.width = 32;
    small.height = 24;
    // Offsets 0, 41 and 42 average to 27.67: the mean rounds to 28. The smaller frame of
    // bright pixels does not match the output and is left out.
    KivStreamBuffer output = Image(&mStream, 0);
    ASSERT_EQ(CAMERA3_BUFFER_STATUS_OK, ExecuteAndWait({Image(&mStream, 0), Image(&mStream, 41),
                                                        Image(&small, 200), Image(&mStream, 42)},
                                                       output));
    size_t wrong = 0;
    ForEachPixel(mImported[0], &mStream, [&wrong](uint32_t x, uint32_t y, uint8_t* pixel) {
        if (*pixel != Pattern(x, y) + 28) wrong++;
    });
    EXPECT_EQ(0u, wrong);
}

TEST_F(BackendFusionTest, LockFailureLeavesTheOutputAndReportsAnError) {
    mStream.format = HAL_PIXEL_FORMAT_Y8;
    KivStreamBuffer output = Image(&mStream, 5);
    std::vector<KivStreamBuffer> frames = {Image(&mStream, 0), Image(&mStream, 9)};
    // The output is locked first.
    android::hostgralloc::failNext(android::hostgralloc::Op::Lock, android::NO_MEMORY);
    EXPECT_EQ(CAMERA3_BUFFER_STATUS_ERROR, ExecuteAndWait(frames, output));
    android::hostgralloc::clearFailures();
    size_t changed = 0;
    ForEachPixel(mImported[0], &mStream, [&changed](uint32_t x, uint32_t y, uint8_t* pixel) {
        if (*pixel != Pattern(x, y) + 5) changed++;
    });
    EXPECT_EQ(0u, changed);
}

}  // namespace

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Offline processing as a remote client drives it: configuring a session, sending requests of
 * input frames and output buffers, and what comes back from the backend's thread (notify
 * messages, results, returned buffers). Each scenario runs in a child process of its own, which
 * checks that buffers, descriptors, Vorn allocations and backend metadata balance at the end.
 */
#include <convert.h>
#include <gtest/gtest.h>
#include <hostplatform/GrallocTesting.h>
#include <system/camera_metadata.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "OfflineCameraAIDLSession.h"
#include "OfflineClientSide.h"
#include "RemoteSessionClient.h"

namespace offlinecamera::test {
namespace {

using ::aidl::android::hardware::camera::device::CameraMetadata;
using ::aidl::android::hardware::camera::device::Stream;
using ::aidl::android::hardware::camera::device::StreamConfigurationMode;
using ::aidl::android::hardware::camera::device::StreamType;
using ::aidl::android::hardware::camera::metadata::RequestAvailableDynamicRangeProfilesMap;
using ::aidl::android::hardware::graphics::common::BufferUsage;
using ::aidl::android::hardware::graphics::common::PixelFormat;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureRequest;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineSessionConfiguration;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::implementation::OfflineCameraAIDLSession;

constexpr const char* kSessionTag = "KivOfflineAIDLSession";
constexpr int32_t kInputStream = 1;
constexpr int32_t kOutputStream = 2;
constexpr uint32_t kWidth = 4;
constexpr uint32_t kHeight = 2;
constexpr int64_t kExposureNs = 8000000;

Stream MakeStream(int32_t id, StreamType type) {
    return clientside::OfflineStream(id, type, kWidth, kHeight, PixelFormat::Y8);
}

std::vector<uint8_t> Settings() {
    return clientside::CaptureSettings(kExposureNs, 100);
}

StreamBuffer MakeBuffer(int32_t streamId, int64_t bufferId) {
    return clientside::ClientBuffer(streamId, bufferId, kWidth, kHeight, HAL_PIXEL_FORMAT_Y8);
}

OfflineCaptureRequest MakeRequest(int32_t frameNumber, int64_t firstInputId, size_t frames,
                                  int64_t outputId, int32_t outputStream = kOutputStream) {
    return clientside::FusionRequest(frameNumber, firstInputId, frames, outputId, kWidth, kHeight,
                                     kExposureNs, outputStream);
}

OfflineSessionConfiguration MakeConfiguration(std::vector<Stream> streams) {
    OfflineSessionConfiguration config;
    config.cameraId = "0";
    config.streams = std::move(streams);
    config.operationMode = StreamConfigurationMode::NORMAL_MODE;
    return config;
}

void ConfigureInputAndOutput(OpenedSession& opened) {
    EXPECT_TRUE(opened.session
                        ->configureOfflineSession(clientside::FusionConfiguration(kWidth, kHeight))
                        .isOk());
}

int32_t Process(OpenedSession& opened, const std::vector<OfflineCaptureRequest>& requests) {
    int32_t frameNumber = -1;
    EXPECT_TRUE(opened.session->processOfflineRequest(requests, &frameNumber).isOk());
    return frameNumber;
}

int32_t Process(OpenedSession& opened, OfflineCaptureRequest request) {
    std::vector<OfflineCaptureRequest> requests;
    requests.push_back(std::move(request));
    return Process(opened, requests);
}

// The result the client received for a frame, or null.
const ReceivedResult* ResultOf(const std::vector<ReceivedResult>& results, int32_t frame) {
    for (const ReceivedResult& result : results) {
        if (result.frameNumber == frame) return &result;
    }
    return nullptr;
}

LogLine SessionError(const std::string& text) {
    return {ANDROID_LOG_ERROR, kSessionTag, text};
}

std::vector<int64_t> Ints(const kivref::CallRecord& call) {
    return std::vector<int64_t>(call.ints, call.ints + 3);
}

// The reference backend's line for a result callback that did not return 0.
LogLine BackendHeard(uint64_t handle, uint32_t frame, int32_t status) {
    return {ANDROID_LOG_WARN, "KivReferenceBackend",
            Format("session %lu: result callback for frame %u returned %d",
                   static_cast<unsigned long>(handle), frame, status)};
}

size_t CountWithPrefix(const std::vector<LogLine>& lines, const std::string& prefix) {
    size_t count = 0;
    for (const LogLine& line : lines) {
        if (line.message.compare(0, prefix.size(), prefix) == 0) count++;
    }
    return count;
}

// ---------------------------------------------------------------------------------------------
// Configuration

CHILD_TEST(OfflineConfigurationTest, ConfigurationMapsModesAndKeepsStreamRecordsInPlace) {
    RemoteClient client(s);
    const size_t tablesBefore = kivref::OpenMetadataOps();
    {
        OpenedSession opened = client.Open("modes");
        Stream output = MakeStream(kOutputStream, StreamType::OUTPUT);
        output.physicalCameraId = "2";
        // Extension fields the backend must not see.
        output.bufferSize = 4096;
        output.colorSpace = 3;
        output.dynamicRangeProfile = RequestAvailableDynamicRangeProfilesMap::
                ANDROID_REQUEST_AVAILABLE_DYNAMIC_RANGE_PROFILES_MAP_HLG10;
        ASSERT_TRUE(opened.session
                            ->configureOfflineSession(MakeConfiguration(
                                    {MakeStream(kInputStream, StreamType::INPUT), output}))
                            .isOk());
        kivref::CallRecord first = CallsOf(kivref::Slot::ConfigureSession).at(0);
        EXPECT_EQ(opened.handle, first.session);
        EXPECT_EQ("0", first.text);
        EXPECT_EQ(2, first.ints[0]);
        EXPECT_EQ(0x8001, first.ints[1]);
        ASSERT_EQ(2u, first.streamRecords.size());
        const camera3_stream_t& record = first.streamRecords[1];
        EXPECT_EQ(CAMERA3_STREAM_OUTPUT, record.stream_type);
        EXPECT_EQ(kWidth, record.width);
        EXPECT_STREQ("", record.vendor_stream_tag);
        EXPECT_EQ(0, record.dynamic_range_profile);
        EXPECT_EQ(0, record.vendor_stream_hint);
        EXPECT_EQ(0, record.color_space);
        // Fields that the client has no say in stay zero.
        const camera3_stream_t zero = {};
        EXPECT_EQ(0, memcmp(zero.reserved, record.reserved, sizeof(zero.reserved)));
        EXPECT_EQ(0u, record.sensor_pixel_modes + record.vendor_flags + record.vendor_reserved0 +
                              record.vendor_reserved1);
        // The physical camera id outlives the client's configuration.
        EXPECT_STREQ("2", first.streams[1]->physical_camera_id);
        EXPECT_TRUE(LogCapture::Contains({ANDROID_LOG_VERBOSE, kSessionTag,
                                          "configureOfflineSession: i: 1, id: 2, streamType: 0, "
                                          "width:4, height:2"}));

        struct Mode {
            int32_t operationMode;
            int32_t backendOperationMode;
            int64_t expected;
        };
        const Mode modes[] = {{1, 0, 0x8002},
                              {2, 0, 0x8003},
                              {3, 0, 0x8005},
                              {4, 0, 0x8004},
                              {5, 0, 0x8006},
                              {6, 0, 0x8007},
                              {7, 0, 0x8000},
                              {-1, 0, 0x8000},
                              {0, 0, 0x8001},
                              {3, 0x77, 0x77},
                              {-1, -2, -2 & 0xFFFFFFFFLL}};
        for (const Mode& mode : modes) {
            kivref::ClearCalls();
            OfflineSessionConfiguration config = MakeConfiguration({output});
            config.operationMode = static_cast<StreamConfigurationMode>(mode.operationMode);
            config.backendOperationMode = mode.backendOperationMode;
            ASSERT_TRUE(opened.session->configureOfflineSession(config).isOk());
            kivref::CallRecord call = CallsOf(kivref::Slot::ConfigureSession).at(0);
            EXPECT_EQ(mode.expected, static_cast<uint32_t>(call.ints[1]))
                    << "mode " << mode.operationMode << ", backend mode "
                    << mode.backendOperationMode;
            // Reconfiguring a stream overwrites its record where it is.
            ASSERT_EQ(1u, call.streams.size());
            EXPECT_EQ(first.streams[1], call.streams[0]);
        }
        // Every configuration took the camera's operations once more; the close gives back
        // each hold.
        EXPECT_EQ(tablesBefore + 1, kivref::OpenMetadataOps());
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
        EXPECT_EQ(12u, CountWithPrefix(LogCapture::Lines("KivOfflineCameraSevice"),
                                       "174 DeInitMetaOps: "));
    }
    EXPECT_EQ(tablesBefore, kivref::OpenMetadataOps());
}

CHILD_TEST(OfflineConfigurationTest, EmptyAndInvalidConfigurationsStillReachTheBackend) {
    RemoteClient client(s);
    {
        OpenedSession opened = client.Open("empty");
        ASSERT_TRUE(opened.session->configureOfflineSession(MakeConfiguration({})).isOk());
        OfflineSessionConfiguration invalid = MakeConfiguration({});
        invalid.cameraId = "front";  // not a number: camera 0
        invalid.sessionParams.metadata = {1, 2, 3, 4};
        ASSERT_TRUE(opened.session->configureOfflineSession(invalid).isOk());

        std::vector<kivref::CallRecord> calls = CallsOf(kivref::Slot::ConfigureSession);
        ASSERT_EQ(2u, calls.size());
        for (const kivref::CallRecord& call : calls) {
            EXPECT_EQ(0, call.ints[0]);
            EXPECT_EQ(nullptr, call.pointer);
            EXPECT_EQ(0u, call.cameraId);
        }
        EXPECT_EQ("front", calls[1].text);
        std::vector<LogLine> errors;
        for (const LogLine& line : LogCapture::Lines(kSessionTag)) {
            if (line.priority == ANDROID_LOG_ERROR) errors.push_back(line);
        }
        EXPECT_EQ((std::vector<LogLine>{
                          SessionError("508 convertStreamType StreamSize is zero"),
                          SessionError("475 convertToOfflineMetadata metaSize is zero"),
                          SessionError("508 convertStreamType StreamSize is zero"),
                          SessionError("466 convertToOfflineMetadata convert from AIDL meta to "
                                       "camera_metadata_t failed")}),
                  errors);
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
        EXPECT_FALSE(LogCapture::Contains(
                {ANDROID_LOG_INFO, kSessionTag,
                 "877 closeOfflineSession, release configure metadata, mSessionName:empty"}));
        EXPECT_EQ(std::vector<std::string>{"android.hardware.camera.device-convert-impl"},
                  LogCapture::TakePlatformErrorTags());
    }
}

CHILD_TEST(OfflineConfigurationTest, SessionParametersGoToTheBackendAndEndWithTheSession) {
    RemoteClient client(s);
    const size_t metadataBefore = kivref::LiveKivMetadata();
    {
        OpenedSession opened = client.Open("params");
        OfflineSessionConfiguration config = MakeConfiguration({});
        config.sessionParams.metadata = Settings();
        ASSERT_TRUE(opened.session->configureOfflineSession(config).isOk());
        kivref::CallRecord call = CallsOf(kivref::Slot::ConfigureSession).at(0);
        ASSERT_NE(nullptr, call.pointer);
        EXPECT_EQ(metadataBefore + 1, kivref::LiveKivMetadata());
        std::vector<kivref::CallRecord> conversions = CallsOf(kivref::Slot::CreateByAndroidMetadata);
        ASSERT_EQ(1u, conversions.size());
        EXPECT_EQ(call.pointer, conversions[0].result);
        EXPECT_EQ((std::vector<int64_t>{0, 0, 0xFFFFFFFF}), Ints(conversions[0]));

        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
        EXPECT_TRUE(LogCapture::Contains({ANDROID_LOG_INFO, kSessionTag,
                                          "877 closeOfflineSession, release configure metadata, "
                                          "mSessionName:params"}));
        // A second close releases them no more; only the backend's close refuses.
        LogCapture::Clear();
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
        EXPECT_EQ(0u, CountWithPrefix(LogCapture::Lines(kSessionTag), "877 "));
        EXPECT_TRUE(LogCapture::Lines(kCoreTag).empty()) << LogCapture::Dump();
        EXPECT_EQ(std::vector<std::string>{"KivReferenceBackend"},
                  LogCapture::TakePlatformErrorTags());
        EXPECT_EQ(metadataBefore, kivref::LiveKivMetadata());
    }
}

// ---------------------------------------------------------------------------------------------
// Requests and results

CHILD_TEST(OfflineProcessingTest, RequestsComeBackAsMessagesAndResults) {
    RemoteClient client(s);
    const size_t importsBefore = android::hostgralloc::liveImportCount();
    {
        OpenedSession opened = client.Open("burst");
        ConfigureInputAndOutput(opened);
        LogCapture::Clear();
        // Two requests in one call: the answer is the frame number of the last one.
        std::vector<OfflineCaptureRequest> requests;
        requests.push_back(MakeRequest(10, 100, 3, 200));
        requests.push_back(MakeRequest(11, 110, 3, 210));
        EXPECT_EQ(1001, Process(opened, requests));
        EXPECT_TRUE(LogCapture::Contains(
                {ANDROID_LOG_INFO, kSessionTag,
                 "770 processOfflineRequest: original request frameNum :10. override "
                 "frameNum:1000"}));
        EXPECT_TRUE(LogCapture::Contains(
                {ANDROID_LOG_INFO, kSessionTag,
                 "770 processOfflineRequest: original request frameNum :11. override "
                 "frameNum:1001"}));
        // Frames after the first take its settings: each frame's are converted.
        EXPECT_EQ(6u, CallsOf(kivref::Slot::CreateByAndroidMetadata).size());
        EXPECT_EQ(4u, LogCapture::Count({ANDROID_LOG_WARN, kSessionTag,
                                         "655 convertAndImportBuffer: avoid Binder transaction "
                                         "failure use first frame meta as source"}));
        std::vector<kivref::CallRecord> executed = CallsOf(kivref::Slot::ExecuteRequest);
        ASSERT_EQ(2u, executed.size());
        EXPECT_EQ((std::vector<int64_t>{3, 1, 1000}), Ints(executed[0]));
        // Each camera3 buffer handed to the backend: status OK and no fences.
        std::vector<kivref::CallRecord> translated = CallsOf(kivref::Slot::TranslateToKivBuffer);
        ASSERT_EQ(8u, translated.size());
        for (const kivref::CallRecord& call : translated) {
            EXPECT_EQ((std::vector<int64_t>{0, -1, -1}), Ints(call));
        }

        ASSERT_TRUE(kivref::WaitIdle(opened.handle));
        std::vector<NotifyMsg> messages = opened.callback->Messages();
        ASSERT_EQ(2u, messages.size());
        EXPECT_EQ(1000, messages[0].get<NotifyMsg::Tag::shutter>().frameNumber);
        EXPECT_EQ(1001, messages[1].get<NotifyMsg::Tag::shutter>().frameNumber);

        std::vector<ReceivedResult> results = opened.callback->Results();
        ASSERT_EQ(2u, results.size());
        // The backend's result metadata is converted as the client expects it.
        for (const kivref::CallRecord& call : CallsOf(kivref::Slot::CreateAndroidMetadata)) {
            EXPECT_EQ((std::vector<int64_t>{1, 1, 0}), Ints(call));
        }
        for (int32_t i = 0; i < 2; i++) {
            const ReceivedResult* result = ResultOf(results, 1000 + i);
            ASSERT_NE(nullptr, result);
            ASSERT_EQ(1u, result->outputBuffers.size());
            EXPECT_EQ(kOutputStream, result->outputBuffers[0].streamId);
            EXPECT_EQ(200 + 10 * i, result->outputBuffers[0].bufferId);
            EXPECT_EQ(BufferStatus::OK, result->outputBuffers[0].status);
            EXPECT_FALSE(result->outputBuffers[0].hasHandle);
            EXPECT_EQ(1, result->partialResult);
            // The first frame's settings came through the backend into the result.
            CameraMetadata bytes;
            bytes.metadata = result->metadata;
            const camera_metadata_t* metadata = nullptr;
            ASSERT_TRUE(::android::hardware::camera::device::implementation::convertFromAidl(
                    bytes, &metadata));
            camera_metadata_ro_entry_t entry;
            ASSERT_EQ(0, find_camera_metadata_ro_entry(metadata, ANDROID_SENSOR_EXPOSURE_TIME,
                                                       &entry));
            EXPECT_EQ(kExposureNs, entry.data.i64[0]);
        }
        // Inputs come back first and are freed with the next result, so every buffer is gone.
        std::vector<LogLine> lines = LogCapture::Lines(kSessionTag);
        EXPECT_EQ(2u, CountWithPrefix(lines, "238 ProcessOfflineResult, offlineSession return "));
        EXPECT_EQ(8u, CountWithPrefix(lines, "182 freeReturnedBuffers, fd:"));
        // The host's buffers have one descriptor: the line gives -1 for the second.
        for (const LogLine& line : lines) {
            if (line.message.compare(0, 28, "182 freeReturnedBuffers, fd:") != 0) continue;
            EXPECT_EQ(",-1", line.message.substr(line.message.size() - 3)) << line.message;
        }
        EXPECT_EQ(importsBefore, android::hostgralloc::liveImportCount());
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
    }
}

CHILD_TEST(OfflineProcessingTest, FaultyRequestsAreStillExecuted) {
    RemoteClient client(s);
    {
        OpenedSession opened = client.Open("faults");
        ConfigureInputAndOutput(opened);
        kivref::SetAutoDeliver(false);
        LogCapture::Clear();
        kivref::ClearCalls();
        const size_t metadataBefore = kivref::LiveKivMetadata();

        EXPECT_EQ(1000, Process(opened, MakeRequest(1, 5, 1, 6)));
        // Output buffer 6 has not come back yet: the request is not converted, but executed.
        EXPECT_EQ(1001, Process(opened, MakeRequest(2, 7, 1, 6)));
        EXPECT_TRUE(LogCapture::Contains(SessionError(
                "740 importBuffer: streamId :2, bufferId 6 not returned yet, used again!")));
        // An invalid buffer followed by a good one: the request is converted in full.
        OfflineCaptureRequest invalidFirst = MakeRequest(3, 9, 1, 10);
        invalidFirst.inputFrames[0].inputBuffers.insert(
                invalidFirst.inputFrames[0].inputBuffers.begin(), MakeBuffer(-1, 8));
        EXPECT_EQ(1002, Process(opened, std::move(invalidFirst)));
        EXPECT_TRUE(LogCapture::Contains(SessionError(
                "548 convertAndImportBuffer: invalid streamId in inputBuffer (-1), bufferId (8)")));
        // An output on a stream that was never configured.
        EXPECT_EQ(1003, Process(opened, MakeRequest(4, 11, 1, 12, 9)));
        // The output entry cannot be allocated: executed without conversion, nothing is lost.
        Vorn::Host::FailAllocations(1);
        EXPECT_EQ(1004, Process(opened, MakeRequest(5, 13, 1, 14)));
        // Nor can the input entries: the backend refuses the request, which keeps its number.
        Vorn::Host::FailAllocations(0);
        EXPECT_EQ(6, Process(opened, MakeRequest(6, 15, 1, 16)));
        EXPECT_EQ(std::vector<std::string>{"KivReferenceBackend"},
                  LogCapture::TakePlatformErrorTags());
        Vorn::Host::ClearAllocationFailures();

        std::vector<kivref::CallRecord> executed = CallsOf(kivref::Slot::ExecuteRequest);
        ASSERT_EQ(6u, executed.size());
        EXPECT_EQ(0, executed[4].ints[1]);
        EXPECT_EQ(0, executed[5].ints[1]);
        EXPECT_EQ(1, executed[0].ints[1]);
        EXPECT_EQ(0, executed[1].ints[1]);
        EXPECT_EQ(1, executed[2].ints[1]);
        EXPECT_EQ(1, executed[3].ints[1]);

        kivref::SetAutoDeliver(true);
        ASSERT_TRUE(kivref::WaitIdle(opened.handle));
        // Every settings and result metadata made for the requests came back and was destroyed.
        EXPECT_EQ(metadataBefore, kivref::LiveKivMetadata());
        std::vector<ReceivedResult> results = opened.callback->Results();
        ASSERT_EQ(3u, results.size());
        ASSERT_NE(nullptr, ResultOf(results, 1000));
        // Without an output entry the backend has nothing to give back.
        EXPECT_EQ(nullptr, ResultOf(results, 1004));
        // The unconverted request has an output without buffers and without metadata.
        const ReceivedResult* unconverted = ResultOf(results, 1001);
        ASSERT_NE(nullptr, unconverted);
        EXPECT_TRUE(unconverted->outputBuffers.empty());
        EXPECT_EQ(0, unconverted->partialResult);
        EXPECT_TRUE(unconverted->metadata.empty());
        ASSERT_NE(nullptr, ResultOf(results, 1002));
        // The unconfigured stream's buffer is not found in its result, which is withheld.
        EXPECT_EQ(nullptr, ResultOf(results, 1003));
        std::vector<LogLine> lines = LogCapture::Lines(kSessionTag);
        EXPECT_EQ(1u, CountWithPrefix(lines, "317 ProcessOfflineResult, this outbuffer is not "));
        // The backend hears why.
        EXPECT_TRUE(LogCapture::Contains(BackendHeard(opened.handle, 1003, 4)));
        // The invalid input was imported under stream -1, which has no configured record.
        EXPECT_EQ(1u, CountWithPrefix(lines, "262 ProcessOfflineResult, this buffer is not "));
        // Still cached until the close: input 7, the invalid input 8 and output 12.
        LogCapture::Clear();
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
    }
}

// A request without any buffer, one whose result metadata cannot be converted, one whose output
// buffer has no id, and one after the close.
CHILD_TEST(OfflineProcessingTest, EmptyRequestAndUnconvertibleResult) {
    RemoteClient client(s);
    OpenedSession opened = client.Open("empty");
    ConfigureInputAndOutput(opened);
    kivref::ClearCalls();
    OfflineCaptureRequest empty;
    empty.frameNumber = 7;
    EXPECT_EQ(1000, Process(opened, std::move(empty)));
    ASSERT_TRUE(kivref::WaitIdle(opened.handle));
    EXPECT_EQ((std::vector<int64_t>{0, 0, 1000}), Ints(CallsOf(kivref::Slot::ExecuteRequest).at(0)));
    ASSERT_EQ(1u, opened.callback->Results().size());
    EXPECT_TRUE(opened.callback->Results()[0].outputBuffers.empty());
    EXPECT_FALSE(opened.callback->Results()[0].metadata.empty());

    kivref::SetSlotFailure(kivref::Slot::CreateAndroidMetadata, true);
    EXPECT_EQ(1001, Process(opened, MakeRequest(8, 1, 1, 2)));
    ASSERT_TRUE(kivref::WaitIdle(opened.handle));
    kivref::SetSlotFailure(kivref::Slot::CreateAndroidMetadata, false);
    EXPECT_EQ(1u, opened.callback->Results().size());
    EXPECT_TRUE(LogCapture::Contains(SessionError(
            "352 ProcessOfflineResult, CreateAndroidMetadata failed, pCameraMetadata is NULL")));
    EXPECT_TRUE(LogCapture::Contains(BackendHeard(opened.handle, 1001, 1)));
    EXPECT_FALSE(LogCapture::Contains(BackendHeard(opened.handle, 1000, 0)));

    // The buffer array of an input frame cannot be allocated.
    Vorn::Host::FailAllocations(2);
    Process(opened, MakeRequest(11, 30, 1, 31));
    Vorn::Host::ClearAllocationFailures();
    EXPECT_TRUE(
            LogCapture::Contains(SessionError("617 convertAndImportBuffer: malloc memory failed")));
    ASSERT_TRUE(kivref::WaitIdle(opened.handle));
    // The backend has no input to fuse into the output.
    EXPECT_EQ(std::vector<std::string>{"KivReferenceBackend"}, LogCapture::TakePlatformErrorTags());

    // An output buffer without an id is logged, and still imported and executed.
    EXPECT_EQ(1003, Process(opened, MakeRequest(9, 3, 1, 0)));
    EXPECT_TRUE(LogCapture::Contains(SessionError(
            "569 convertAndImportBuffer: invalid streamId in outputBuffer (2), bufferid(0)")));
    ASSERT_TRUE(kivref::WaitIdle(opened.handle));
    EXPECT_TRUE(opened.session->closeOfflineSession().isOk());

    // A request after the close: the backend refuses it (the answer is the client's own number),
    // and its buffers go with the session.
    EXPECT_EQ(10, Process(opened, MakeRequest(10, 20, 1, 21)));
    EXPECT_EQ(std::vector<std::string>{"KivReferenceBackend"}, LogCapture::TakePlatformErrorTags());
}

CHILD_TEST(OfflineProcessingTest, DeliveriesMadeByTheBackend) {
    RemoteClient client(s);
    {
        OpenedSession opened = client.Open("records");
        ConfigureInputAndOutput(opened);
        LogCapture::Clear();

        // No results: the client still hears of the delivery. (Reserved room gives the empty
        // list an address; without one the backend passes null.)
        std::vector<KivOfflineCaptureResult> none;
        none.reserve(1);
        EXPECT_EQ(0, kivref::DeliverResults(opened.handle, none));
        EXPECT_EQ(1u, opened.callback->ResultCalls());
        EXPECT_TRUE(opened.callback->Results().empty());
        EXPECT_EQ(1, kivref::DeliverResults(opened.handle, {}));
        EXPECT_TRUE(LogCapture::Contains(
                SessionError("393 ProcessOfflineResultCb,pCallbackOps OR pResult is NULL!")));

        // An input return ends the call: the record after it is not delivered.
        KivOfflineResultInfo input = {};
        input.numBuffers = 1;  // without the buffers: nothing to give back
        KivOfflineResultInfo output = {};
        KivOfflineCaptureResult records[2] = {};
        records[0].frameNumber = 5;
        records[0].pInput = &input;
        records[1].frameNumber = 6;
        records[1].pOutput = &output;
        EXPECT_EQ(0, kivref::DeliverResults(opened.handle, {records[0], records[1]}));
        EXPECT_EQ(1u, opened.callback->ResultCalls());
        // A lone output without buffers or metadata is delivered with defaults.
        EXPECT_EQ(0, kivref::DeliverResults(opened.handle, {records[1]}));
        EXPECT_TRUE(LogCapture::Contains({ANDROID_LOG_INFO, kSessionTag,
                                          "238 ProcessOfflineResult, offlineSession return the "
                                          "input buffer"}));
        EXPECT_EQ(0u, CountWithPrefix(LogCapture::Lines(kSessionTag), "262 "));
        std::vector<ReceivedResult> results = opened.callback->Results();
        ASSERT_EQ(1u, results.size());
        EXPECT_EQ(6, results[0].frameNumber);
        EXPECT_TRUE(results[0].outputBuffers.empty());
        EXPECT_EQ(0, results[0].partialResult);
        EXPECT_TRUE(results[0].metadata.empty());
        // One that counts a buffer but has no array: an entry with defaults, nothing looked up.
        output.numBuffers = 1;
        EXPECT_EQ(0, kivref::DeliverResults(opened.handle, {records[1]}));
        ASSERT_EQ(2u, opened.callback->Results().size());
        EXPECT_EQ(1u, opened.callback->Results()[1].outputBuffers.size());

        camera3_notify_msg_t error = {};
        error.type = CAMERA3_MSG_ERROR;
        error.message.error.frame_number = 9;
        error.message.error.error_code = CAMERA3_MSG_ERROR_REQUEST;
        EXPECT_EQ(0, kivref::DeliverMessages(opened.handle, {error}));
        std::vector<NotifyMsg> messages = opened.callback->Messages();
        ASSERT_EQ(1u, messages.size());
        EXPECT_EQ(9, messages[0].get<NotifyMsg::Tag::error>().frameNumber);
        EXPECT_EQ(-1, messages[0].get<NotifyMsg::Tag::error>().errorStreamId);
        std::vector<camera3_notify_msg_t> noMessages;
        noMessages.reserve(1);
        EXPECT_EQ(0, kivref::DeliverMessages(opened.handle, noMessages));
        EXPECT_EQ(1, kivref::DeliverMessages(opened.handle, {}));
        EXPECT_TRUE(LogCapture::Contains(
                SessionError("162 ProcessOfflineMessageCb, pCallbackOps OR pMessage is NULL!")));
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
    }
}

CHILD_TEST(OfflineProcessingTest, ASessionWithoutAClientDropsWhatComesBack) {
    RemoteClient client(s);
    {
        // Only a session made in this process can lack a client.
        auto session = OfflineCameraAIDLSession::Open("orphan", nullptr);
        const uint64_t handle = LastSessionHandle();
        ASSERT_NE(0u, handle);
        camera3_notify_msg_t shutter = {};
        shutter.type = CAMERA3_MSG_SHUTTER;
        EXPECT_EQ(1, kivref::DeliverMessages(handle, {shutter}));
        EXPECT_EQ(1, kivref::DeliverResults(handle, {KivOfflineCaptureResult{}}));
        std::vector<LogLine> lines = LogCapture::Lines(kSessionTag);
        ASSERT_EQ(3u, lines.size());
        EXPECT_EQ(SessionError("144 ProcessOfflineMessage, Callback Or Message is NULL! Can not "
                               "return message to Client"),
                  lines[1]);
        EXPECT_EQ(SessionError("372 ProcessOfflineResult, Callback is NULL or result is NULL! Can "
                               "not return result to Client"),
                  lines[2]);
        EXPECT_TRUE(session->closeOfflineSession().isOk());
    }
}

// ---------------------------------------------------------------------------------------------
// Uses that the interface allows: several binder threads, nested calls, references dropped in
// callbacks.

// The client drops its last reference to the session while it handles the session's result: the
// session goes once the delivery has ended.
CHILD_TEST(OfflineSessionUseTest, DroppedInsideItsOwnDelivery) {
    RemoteClient client(s);
    OpenedSession opened = client.Open("dropped");
    ConfigureInputAndOutput(opened);
    opened.callback->OnNextResult([&opened] { opened.session.reset(); });
    EXPECT_EQ(1000, Process(opened, MakeRequest(1, 1, 2, 3)));
    ASSERT_TRUE(WaitUntil([] { return kivref::LiveSessions() == 0; }));
    ASSERT_EQ(1u, opened.callback->Results().size());
    EXPECT_EQ(3, opened.callback->Results()[0].outputBuffers.at(0).bufferId);
    // Its buffers went with the delivery: the two inputs given back before and the output.
    EXPECT_EQ(3u, CountWithPrefix(LogCapture::Lines(kSessionTag), "182 freeReturnedBuffers, fd:"));
}

// A client whose result callback flushes another session, whose backend delivers that session's
// results before the flush returns.
CHILD_TEST(OfflineSessionUseTest, ResultCallbackFlushesAnotherSession) {
    s.FailIfStuck(30);
    RemoteClient client(s);
    OpenedSession a = client.Open("a");
    OpenedSession b = client.Open("b");
    ConfigureInputAndOutput(a);
    ConfigureInputAndOutput(b);
    kivref::SetAutoDeliver(false);
    Process(b, MakeRequest(1, 1, 1, 2));
    Process(a, MakeRequest(1, 1, 1, 2));
    a.callback->OnNextResult([&b] { EXPECT_TRUE(b.session->flushOfflineSession({}).isOk()); });
    EXPECT_TRUE(a.session->flushOfflineSession({}).isOk());
    EXPECT_EQ(1u, a.callback->Results().size());
    EXPECT_EQ(1u, b.callback->Results().size());
    kivref::SetAutoDeliver(true);
}

// A buffer refused (its id is still out) and followed by one that imports: the request is
// converted in full, and every camera3 buffer that the backend was given is still readable while
// it executes the request.
CHILD_TEST(OfflineSessionUseTest, RefusedBufferIsReadableDuringExecution) {
    RemoteClient client(s);
    OpenedSession opened = client.Open("refused");
    ConfigureInputAndOutput(opened);
    kivref::SetAutoDeliver(false);
    Process(opened, MakeRequest(1, 1, 1, 2));
    OfflineCaptureRequest reused = MakeRequest(2, 3, 1, 2);
    reused.outputBuffers.push_back(MakeBuffer(kOutputStream, 4));
    kivref::ClearCalls();
    Process(opened, std::move(reused));
    std::vector<kivref::CallRecord> executed = CallsOf(kivref::Slot::ExecuteRequest);
    ASSERT_EQ(1u, executed.size());
    EXPECT_EQ(0, executed[0].status);
    EXPECT_EQ(2, executed[0].ints[1]);
    // Closed with both requests held: they go without being processed.
    EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
    kivref::SetAutoDeliver(true);
}

// Two binder threads send requests on one session: each request keeps what it hands to the
// backend until the backend has taken it.
CHILD_TEST(OfflineSessionUseTest, ConcurrentRequestsOnOneSession) {
    RemoteClient client(s);
    OpenedSession opened = client.Open("concurrent");
    ConfigureInputAndOutput(opened);
    kivref::HoldNextCall(kivref::Slot::ExecuteRequest);
    // The backend numbers the second request first.
    std::thread first([&opened] { EXPECT_EQ(1001, Process(opened, MakeRequest(1, 1, 2, 3))); });
    kivref::WaitForHeldCall();
    EXPECT_EQ(1000, Process(opened, MakeRequest(2, 4, 2, 6)));
    kivref::ReleaseHeldCall();
    first.join();
    ASSERT_TRUE(kivref::WaitIdle(opened.handle));
    EXPECT_EQ(2u, opened.callback->Results().size());
    EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
}

// The client closes the session on one binder thread while a request is on its way on another:
// the close frees the request's buffers only once the request is done with them.
CHILD_TEST(OfflineSessionUseTest, CloseWhileARequestIsOnItsWay) {
    RemoteClient client(s);
    OpenedSession opened = client.Open("closing");
    ConfigureInputAndOutput(opened);
    kivref::HoldNextCall(kivref::Slot::TranslateToKivBuffer);
    std::thread request([&opened] { Process(opened, MakeRequest(1, 1, 2, 3)); });
    kivref::WaitForHeldCall();
    std::atomic<bool> closed{false};
    std::thread close([&opened, &closed] {
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
        closed = true;
    });
    // The close must not end before the request is done; give it the time to do so wrongly.
    for (int i = 0; i < 200 && !closed; i++) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_FALSE(closed);
    kivref::ReleaseHeldCall();
    request.join();
    close.join();
    // The backend had closed the session when the request reached it.
    EXPECT_EQ(std::vector<std::string>{"KivReferenceBackend"}, LogCapture::TakePlatformErrorTags());
}

// A session gives back exactly the metadata holds that it took: one never configured, or closed
// twice, gives back none, and one configured twice gives back two.
CHILD_TEST(OfflineSessionUseTest, MetadataHoldsGivenBackAreThoseTaken) {
    RemoteClient client(s);
    OpenedSession configured = client.Open("configured");
    ConfigureInputAndOutput(configured);
    {
        OpenedSession unconfigured = client.Open("unconfigured");
        EXPECT_TRUE(unconfigured.session->closeOfflineSession().isOk());
        EXPECT_TRUE(unconfigured.session->closeOfflineSession().isOk());
        EXPECT_EQ(std::vector<std::string>{"KivReferenceBackend"},
                  LogCapture::TakePlatformErrorTags());
    }
    EXPECT_EQ(1u, kivref::OpenMetadataOps());
    // The configured session still converts its results' metadata.
    EXPECT_EQ(1000, Process(configured, MakeRequest(1, 1, 1, 2)));
    ASSERT_TRUE(kivref::WaitIdle(configured.handle));
    ASSERT_EQ(1u, configured.callback->Results().size());
    EXPECT_FALSE(configured.callback->Results()[0].metadata.empty());

    ConfigureInputAndOutput(configured);
    EXPECT_TRUE(configured.session->closeOfflineSession().isOk());
    EXPECT_EQ(0u, kivref::OpenMetadataOps());
}

// Configurations of a session while the backend delivers its results from its own thread.
CHILD_TEST(OfflineSessionUseTest, ReconfiguredWhileResultsArrive) {
    RemoteClient client(s);
    OpenedSession opened = client.Open("reconfigured");
    ConfigureInputAndOutput(opened);
    std::thread requests([&opened] {
        for (int64_t i = 0; i < 20; i++) Process(opened, MakeRequest(1, 10 * i + 1, 2, 10 * i + 3));
    });
    for (int i = 0; i < 20; i++) ConfigureInputAndOutput(opened);
    requests.join();
    ASSERT_TRUE(kivref::WaitIdle(opened.handle));
    EXPECT_EQ(20u, opened.callback->Results().size());
    EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
}

}  // namespace
}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The producer asks a registered consumer for buffers and hands them back in capture results,
 * through the core's exported operations and the service's callbacks.
 */
#include <hostplatform/GrallocTesting.h>
#include <string.h>
#include <ui/GraphicBufferMapper.h>

#include "BrokeringTestSupport.h"
#include "OfflineCameraService.h"

namespace offlinecamera::test {
namespace {

using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::Stream;
using ::aidl::android::hardware::camera::device::StreamRotation;
using ::aidl::android::hardware::camera::device::StreamType;
using ::aidl::android::hardware::graphics::common::BufferUsage;
using ::aidl::android::hardware::graphics::common::Dataspace;
using ::aidl::android::hardware::graphics::common::PixelFormat;

constexpr int32_t kClient = 7;

size_t LiveImports() {
    return ::android::hostgralloc::liveImportCount();
}

LogLine Found(int32_t id) {
    return ServiceLine(ANDROID_LOG_INFO,
                       Format("279 findCallback: find the callback for this clientID :%d", id));
}

LogLine Lent(const camera3_stream_buffer_t& buffer, int32_t streamId, int64_t bufferId) {
    return ServiceLine(ANDROID_LOG_INFO,
                       Format("381 requestStreamBuffers: buffer:%p!, streamId:%d, bufferId:%lu",
                              static_cast<void*>(buffer.buffer), streamId,
                              static_cast<unsigned long>(bufferId)));
}

LogLine InvalidLent() {
    return ServiceLine(
            ANDROID_LOG_ERROR,
            Format("367 requestStreamBuffers: output buffer for clientID %d is invalid!", kClient));
}

SeenBuffer Back(size_t stream, int64_t bufferId, BufferStatus status = BufferStatus::OK) {
    return {ClientStreamId(stream), bufferId, status, false, false};
}

// Streams of the HAL: a preview stream and a smaller RGBA stream.
struct Streams {
    camera3_stream_t preview = MakeStream(64, 48, HAL_PIXEL_FORMAT_YCBCR_420_888, 0x33,
                                          HAL_DATASPACE_V0_JFIF, CAMERA3_STREAM_ROTATION_90);
    camera3_stream_t rgba = MakeStream(32, 16, HAL_PIXEL_FORMAT_RGBA_8888, 0x3, HAL_DATASPACE_SRGB,
                                       CAMERA3_STREAM_ROTATION_0);
};

// A client registered as kClient, with the HAL's streams and producer for it, and the number of
// imports before any lending. The client unregisters when this goes.
struct Brokering {
    explicit Brokering(Scenario& s)
        : scenario(s), client(::ndk::SharedRefBase::make<TestClient>()), imports(LiveImports()) {
        EXPECT_TRUE(s.Service().registerClient(kClient, client->Remote()).isOk());
        LogCapture::Clear();
    }
    ~Brokering() {
        EXPECT_TRUE(producer.ArraysIntact());
        EXPECT_TRUE(scenario.Service().unRegisterClient(kClient).isOk());
    }

    Scenario& scenario;
    std::shared_ptr<TestClient> client;
    Streams streams;
    Producer producer{kClient};
    size_t imports;
};

// The producer fills a lent buffer through the graphics buffer mapper, as a camera HAL does.
void Fill(const camera3_stream_buffer_t& buffer, uint8_t value) {
    buffer_handle_t handle = *buffer.buffer;
    const int* ints = &handle->data[handle->numFds];
    void* address = nullptr;
    ASSERT_EQ(::android::OK, ::android::GraphicBufferMapper::get().lock(
                                     handle, 0x30, ::android::Rect(ints[1], ints[2]), &address));
    memset(address, value, static_cast<size_t>(ints[7]));
    EXPECT_EQ(::android::OK, ::android::GraphicBufferMapper::get().unlock(handle));
}

bool AllBytesAre(const std::vector<uint8_t>& bytes, uint8_t value) {
    if (bytes.empty()) return false;
    for (uint8_t byte : bytes) {
        if (byte != value) return false;
    }
    return true;
}

SCENARIO_TEST(BufferRequestTest, LendsBuffersOfTwoStreamsInOrder) {
    Brokering b(s);
    ASSERT_EQ(CAMERA3_BUF_REQ_OK, b.producer.Request({&b.streams.preview, &b.streams.rgba}, {3, 3}));
    EXPECT_EQ(2u, b.producer.ReturnedCount());
    EXPECT_EQ(b.imports + 6, LiveImports());

    ASSERT_EQ(1u, b.client->Requests().size());
    const std::vector<OfflineBufferRequest> requests = b.client->Requests()[0];
    ASSERT_EQ(2u, requests.size());
    Stream preview;  // the id stays 0: the client tells streams apart by their place
    preview.streamType = StreamType::OUTPUT;
    preview.width = 64;
    preview.height = 48;
    preview.format = PixelFormat::YCBCR_420_888;
    preview.usage = static_cast<BufferUsage>(0x33);
    preview.dataSpace = static_cast<Dataspace>(HAL_DATASPACE_V0_JFIF);
    preview.rotation = StreamRotation::ROTATION_90;
    preview.bufferSize = 64 * 48 * 2;
    EXPECT_EQ(preview, requests[0].stream);
    EXPECT_EQ(3, requests[0].numBuffersRequested);
    EXPECT_EQ(32 * 16 * 2, requests[1].stream.bufferSize);

    std::vector<LogLine> expected = {
            Found(kClient),
            ServiceLine(ANDROID_LOG_INFO,
                        Format("319 requestStreamBuffers: clientID:7, i:0, format:35, "
                               "dataSpace:%d, usage:51, rotation:1, wXh:64, 48",
                               HAL_DATASPACE_V0_JFIF)),
            ServiceLine(ANDROID_LOG_INFO,
                        Format("319 requestStreamBuffers: clientID:7, i:1, format:1, "
                               "dataSpace:%d, usage:3, rotation:0, wXh:32, 16",
                               HAL_DATASPACE_SRGB))};
    const camera3_stream_t* streamOf[] = {&b.streams.preview, &b.streams.rgba};
    int64_t bufferId = 1;
    for (size_t i = 0; i < 2; i++) {
        EXPECT_EQ(3u, b.producer.Returned()[i].num_output_buffers);
        for (size_t j = 0; j < 3; j++) {
            const camera3_stream_buffer_t& buffer = b.producer.Buffer(i, j);
            expected.push_back(Lent(buffer, ClientStreamId(i), bufferId++));
            EXPECT_EQ(streamOf[i], buffer.stream);
            EXPECT_EQ(CAMERA3_BUFFER_STATUS_OK, buffer.status);
            EXPECT_EQ(-1, buffer.acquire_fence);
            EXPECT_EQ(-1, buffer.release_fence);
            // The pointer leads to an imported copy of the buffer of this stream's size.
            ASSERT_NE(nullptr, buffer.buffer);
            ASSERT_NE(nullptr, *buffer.buffer);
            EXPECT_EQ(static_cast<int>(streamOf[i]->width), (*buffer.buffer)->data[2]);
        }
    }
    EXPECT_EQ(expected, LogCapture::Lines(kServiceTag));
    EXPECT_TRUE(LogCapture::Contains(CoreLine(
            ANDROID_LOG_INFO,
            "410 RequestStreamBuffers: clientID 7, numBufferReqs:2, NumReturnedBufReqs:2")));

    // Handed back last-lent first, each buffer finds its own record.
    std::vector<camera3_stream_buffer_t> all;
    for (size_t i = 2; i-- > 0;) {
        for (size_t j = 3; j-- > 0;) all.push_back(b.producer.Buffer(i, j));
    }
    EXPECT_EQ(0, b.producer.Result(1, nullptr, all));
    ASSERT_EQ(1u, b.client->Results().size());
    EXPECT_EQ((std::vector<SeenBuffer>{Back(1, 6), Back(1, 5), Back(1, 4), Back(0, 3), Back(0, 2),
                                       Back(0, 1)}),
              b.client->Results()[0].buffers);
    EXPECT_EQ(b.imports, LiveImports());
}

// Every entry asks for the first request's count, but never for more than its own array holds.
SCENARIO_TEST(BufferRequestTest, EveryEntryAsksForTheFirstCount) {
    Brokering b(s);
    ASSERT_EQ(CAMERA3_BUF_REQ_OK, b.producer.Request({&b.streams.preview, &b.streams.rgba}, {2, 5}));
    EXPECT_EQ(2u, b.producer.Returned()[0].num_output_buffers);
    EXPECT_EQ(5u, b.producer.Returned()[1].num_output_buffers);
    ASSERT_EQ(1u, b.client->Requests().size());
    EXPECT_EQ(2, b.client->Requests()[0][0].numBuffersRequested);
    EXPECT_EQ(2, b.client->Requests()[0][1].numBuffersRequested);
    EXPECT_EQ(nullptr, b.producer.Buffer(1, 2).buffer);

    LogCapture::Clear();
    ASSERT_EQ(CAMERA3_BUF_REQ_OK, b.producer.Request({&b.streams.preview, &b.streams.rgba}, {5, 2}));
    EXPECT_EQ(5u, b.producer.Returned()[0].num_output_buffers);
    EXPECT_EQ(2u, b.producer.Returned()[1].num_output_buffers);
    ASSERT_EQ(2u, b.client->Requests().size());
    EXPECT_EQ(5, b.client->Requests()[1][0].numBuffersRequested);
    EXPECT_EQ(2, b.client->Requests()[1][1].numBuffersRequested);
    EXPECT_TRUE(LogCapture::Contains(
            ServiceLine(ANDROID_LOG_WARN,
                        "321 requestStreamBuffers: clientID:7, i:1, asks for 2 buffers, not 5: the "
                        "producer has no room for more")));
    EXPECT_EQ(b.imports + 11, LiveImports());

    // The HAL gives back the second call's buffers, then the first's.
    std::vector<camera3_stream_buffer_t> all;
    for (size_t i = 0; i < 2; i++) {
        for (size_t j = 0; j < (i == 0 ? 5u : 2u); j++) all.push_back(b.producer.Buffer(i, j));
    }
    EXPECT_EQ(0, b.producer.Result(2, nullptr, all));
    EXPECT_EQ(0, b.producer.Result(1, nullptr,
                                   {b.producer.Buffer(1, 1, 0), b.producer.Buffer(1, 0, 0),
                                    b.producer.Buffer(0, 1, 0), b.producer.Buffer(0, 0, 0)}));
    ASSERT_EQ(2u, b.client->Results().size());
    EXPECT_EQ((std::vector<SeenBuffer>{Back(0, 5), Back(0, 6), Back(0, 7), Back(0, 8), Back(0, 9),
                                       Back(1, 10), Back(1, 11)}),
              b.client->Results()[0].buffers);
    EXPECT_EQ((std::vector<SeenBuffer>{Back(1, 4), Back(1, 3), Back(0, 2), Back(0, 1)}),
              b.client->Results()[1].buffers);
    EXPECT_EQ(b.imports, LiveImports());
}

// Calls that never reach the client: an unknown client, missing arrays or result, no requests.
SCENARIO_TEST(BufferRequestTest, CallsThatReachNoClient) {
    Brokering b(s);
    Producer stranger(99);
    EXPECT_EQ(CAMERA3_BUF_REQ_FAILED_UNKNOWN, stranger.Request({&b.streams.preview}, {1}));
    EXPECT_EQ(0u, stranger.ReturnedCount());
    EXPECT_EQ(CAMERA3_BUF_REQ_FAILED_UNKNOWN, stranger.Result(1, nullptr, {}));
    EXPECT_EQ((std::vector<LogLine>{
                      CoreLine(ANDROID_LOG_ERROR,
                               "381 RequestStreamBuffers: Do not have  this clientID: :99"),
                      CoreLine(ANDROID_LOG_ERROR,
                               "427 ProcessCaptureResult: Do not have  this clientID: :99")}),
              LogCapture::Lines());

    camera3_buffer_request_t request = {&b.streams.preview, 1};
    camera3_stream_buffer_ret_t returned = {};
    uint32_t count = 5;
    OfflineCameraService* core = OfflineCameraService::GetInstance();
    LogCapture::Clear();
    EXPECT_EQ(CAMERA3_BUF_REQ_OK,
              core->RequestStreamBuffers(kClient, 1, nullptr, &count, &returned));
    EXPECT_EQ(CAMERA3_BUF_REQ_OK, core->RequestStreamBuffers(kClient, 1, &request, &count, nullptr));
    EXPECT_EQ(0, core->ProcessCaptureResult(kClient, nullptr));
    EXPECT_EQ(5u, count);
    EXPECT_TRUE(LogCapture::Lines().empty()) << LogCapture::Dump();

    EXPECT_EQ(CAMERA3_BUF_REQ_FAILED_ILLEGAL_ARGUMENTS, b.producer.Request({}, {}));
    EXPECT_EQ(Producer::kUntouchedCount, b.producer.ReturnedCount());
    EXPECT_EQ(
            (std::vector<LogLine>{ServiceLine(ANDROID_LOG_ERROR,
                                              "660 requestStreamBuffersCb: pCallbackOps is NULL OR "
                                              "requestParams size is 0!"),
                                  CoreLine(ANDROID_LOG_INFO,
                                           "410 RequestStreamBuffers: clientID 7, numBufferReqs:0, "
                                           "NumReturnedBufReqs:77")}),
            LogCapture::Lines());
    EXPECT_TRUE(b.client->Requests().empty());
    EXPECT_TRUE(b.client->Results().empty());
}

SCENARIO_TEST(BufferRequestTest, ConsumerFailuresLendNothing) {
    Brokering b(s);
    const std::string failed =
            ::ndk::ScopedAStatus::fromStatus(STATUS_FAILED_TRANSACTION).getDescription();
    const std::string ok = ::ndk::ScopedAStatus::ok().getDescription();
    const struct {
        TestClient::Reply reply;
        std::string log;
    } cases[] = {
            {TestClient::Reply::kTransactionFails,
             Format("337 requestStreamBuffers: Request buffer Failed!Transaction error: %s or "
                    "status error:0",
                    failed.c_str())},
            {TestClient::Reply::kStatusFails,
             Format("337 requestStreamBuffers: Request buffer Failed!Transaction error: %s or "
                    "status error:1",
                    ok.c_str())},
            {TestClient::Reply::kOneEntryTooFew,
             "344 requestStreamBuffers: Request buffer num error request:2, return:1"},
    };
    for (const auto& c : cases) {
        b.client->SetReply(c.reply);
        LogCapture::Clear();
        EXPECT_EQ(CAMERA3_BUF_REQ_FAILED_UNKNOWN,
                  b.producer.Request({&b.streams.preview, &b.streams.rgba}, {1, 1}));
        EXPECT_EQ(Producer::kUntouchedCount, b.producer.ReturnedCount());
        const std::vector<LogLine> lines = LogCapture::Lines(kServiceTag);
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(ServiceLine(ANDROID_LOG_ERROR, c.log), lines.back());
        EXPECT_EQ(b.imports, LiveImports());
        EXPECT_EQ(nullptr, b.producer.Buffer(0, 0).buffer);
    }
}

SCENARIO_TEST(BufferRequestTest, InvalidBufferEndsTheRequest) {
    Brokering b(s);
    const struct {
        TestClient::Reply reply;
        uint32_t count;
    } cases[] = {
            {TestClient::Reply::kSecondBufferUnimportable, 3},
            {TestClient::Reply::kSecondBufferEmpty, 3},
            {TestClient::Reply::kOneBufferTooMany, 1},
    };
    for (const auto& c : cases) {
        b.client->SetReply(c.reply);
        LogCapture::Clear();
        EXPECT_EQ(CAMERA3_BUF_REQ_FAILED_UNKNOWN, b.producer.Request({&b.streams.rgba}, {c.count}));
        EXPECT_EQ(Producer::kUntouchedCount, b.producer.ReturnedCount());
        const std::vector<LogLine> lines = LogCapture::Lines(kServiceTag);
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(InvalidLent(), lines.back());
        // The buffer lent before the bad one stays lent; none after it is taken.
        EXPECT_EQ(b.imports + 1, LiveImports());
        EXPECT_NE(nullptr, b.producer.Buffer(0, 0).buffer);
        if (c.count > 1) {
            EXPECT_EQ(nullptr, b.producer.Buffer(0, 1).buffer);
        }
        EXPECT_EQ(0, b.producer.Result(1, nullptr, {b.producer.Buffer(0, 0)}));
        EXPECT_EQ(b.imports, LiveImports());
    }
    EXPECT_EQ(3u, b.client->Results().size());
    // The mapper refused the buffer that is not of this platform's allocator.
    EXPECT_EQ(std::vector<std::string>{"GraphicBufferMapper"}, LogCapture::TakePlatformErrorTags());
}

void ErrorInsteadOfBuffers(Scenario& s) {
    Brokering b(s);
    b.client->SetReply(TestClient::Reply::kErrorInsteadOfBuffers);
    b.producer.Request({&b.streams.preview}, {1});
}
TEST(BufferRequestTest, ErrorInsteadOfBuffersStopsTheProcess) {
    EXPECT_DEATH(RunScenario(ErrorInsteadOfBuffers), "bad access: a wrong tag");
}

SCENARIO_TEST(CaptureResultTest, DeliversMetadataAndBuffersWrittenByTheProducer) {
    Brokering b(s);
    ASSERT_EQ(CAMERA3_BUF_REQ_OK, b.producer.Request({&b.streams.preview, &b.streams.rgba}, {1, 1}));
    Fill(b.producer.Buffer(0, 0), 0x5a);
    Fill(b.producer.Buffer(1, 0), 0xa5);

    camera_metadata_t* metadata = allocate_camera_metadata(1, 8);
    const int64_t timestamp = 123456789;
    ASSERT_EQ(0, add_camera_metadata_entry(metadata, ANDROID_SENSOR_TIMESTAMP, &timestamp, 1));
    camera3_stream_buffer_t unused = b.producer.Buffer(1, 0);
    unused.status = CAMERA3_BUFFER_STATUS_ERROR;
    LogCapture::Clear();
    EXPECT_EQ(0, b.producer.Result(42, metadata, {b.producer.Buffer(0, 0), unused}));

    EXPECT_EQ((std::vector<LogLine>{
                      Found(kClient),
                      ServiceLine(ANDROID_LOG_INFO,
                                  Format("511 processCaptureResult:  return meta clientID:7, "
                                         "pCaptureResult:%p",
                                         static_cast<const void*>(b.producer.LastResult()))),
                      ServiceLine(ANDROID_LOG_INFO,
                                  "520 processCaptureResult: return buffer clientID:7, "
                                  "num_output_buffers:2")}),
              LogCapture::Lines(kServiceTag));
    ASSERT_EQ(1u, b.client->Results().size());
    const SeenResult result = b.client->Results()[0];
    EXPECT_EQ(42, result.frameNumber);
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(metadata);
    EXPECT_EQ(std::vector<uint8_t>(bytes, bytes + get_camera_metadata_size(metadata)),
              result.metadata);
    EXPECT_EQ((std::vector<SeenBuffer>{Back(0, 1), Back(1, 2, BufferStatus::ERROR)}),
              result.buffers);
    // The client reads in its own memory what the producer wrote.
    EXPECT_TRUE(AllBytesAre(b.client->Contents(1), 0x5a));
    EXPECT_TRUE(AllBytesAre(b.client->Contents(2), 0xa5));
    EXPECT_EQ(b.imports, LiveImports());

    // Metadata without buffers is delivered too.
    EXPECT_EQ(0, b.producer.Result(43, metadata, {}));
    ASSERT_EQ(2u, b.client->Results().size());
    EXPECT_EQ(43, b.client->Results()[1].frameNumber);
    EXPECT_EQ(result.metadata, b.client->Results()[1].metadata);
    EXPECT_TRUE(b.client->Results()[1].buffers.empty());
    free_camera_metadata(metadata);
}

SCENARIO_TEST(CaptureResultTest, UnknownBufferDropsTheWholeResult) {
    Brokering b(s);
    ASSERT_EQ(CAMERA3_BUF_REQ_OK, b.producer.Request({&b.streams.rgba}, {2}));
    const camera3_stream_buffer_t first = b.producer.Buffer(0, 0);
    const camera3_stream_buffer_t second = b.producer.Buffer(0, 1);

    native_handle_t* other = ::android::hostgralloc::allocate(4, 4, HAL_PIXEL_FORMAT_RGBA_8888, 0);
    buffer_handle_t otherHandle = other;
    camera3_stream_buffer_t stranger = first;
    stranger.buffer = &otherHandle;
    LogCapture::Clear();
    EXPECT_EQ(0, b.producer.Result(5, nullptr, {first, stranger}));
    EXPECT_TRUE(LogCapture::Contains(ServiceLine(
            ANDROID_LOG_ERROR,
            Format("552 processCaptureResult: Invalid returnd buffer clientID:7, buffer:%p",
                   static_cast<const void*>(other)))));
    EXPECT_TRUE(b.client->Results().empty());
    // The buffer met before the unknown one is freed and forgotten.
    EXPECT_EQ(b.imports + 1, LiveImports());

    EXPECT_EQ(0, b.producer.Result(6, nullptr, {second}));
    ASSERT_EQ(1u, b.client->Results().size());
    EXPECT_EQ(std::vector<SeenBuffer>{Back(0, 2)}, b.client->Results()[0].buffers);
    EXPECT_EQ(b.imports, LiveImports());
    ::android::hostgralloc::release(other);
}

// The producer keeps many buffers lent at once and gives them back in any order: each pointer
// leads to its own buffer for as long as the buffer is lent.
SCENARIO_TEST(CaptureResultTest, ReturnsInAnyOrderFindTheirOwnBuffers) {
    Brokering b(s);
    constexpr size_t kCalls = 5;
    constexpr uint32_t kPerCall = 8;
    std::vector<camera3_stream_buffer_t> lent;
    for (size_t call = 0; call < kCalls; call++) {
        ASSERT_EQ(CAMERA3_BUF_REQ_OK, b.producer.Request({&b.streams.rgba}, {kPerCall}));
        for (size_t j = 0; j < kPerCall; j++) lent.push_back(b.producer.Buffer(0, j));
    }
    EXPECT_EQ(b.imports + kCalls * kPerCall, LiveImports());
    // First lent first, then every other one from the end, each buffer alone.
    std::vector<size_t> order;
    for (size_t k = 0; k < lent.size() / 2; k++) order.push_back(k);
    for (size_t k = lent.size(); k-- > lent.size() / 2;) {
        if (k % 2 == 0) order.push_back(k);
    }
    for (size_t k = lent.size(); k-- > lent.size() / 2;) {
        if (k % 2 == 1) order.push_back(k);
    }
    std::vector<SeenBuffer> expected;
    for (size_t k : order) {
        ASSERT_EQ(0, b.producer.Result(static_cast<uint32_t>(k), nullptr, {lent[k]}));
        expected.push_back(Back(0, static_cast<int64_t>(k) + 1));
    }
    std::vector<SeenBuffer> seen;
    for (const SeenResult& result : b.client->Results()) {
        ASSERT_EQ(1u, result.buffers.size());
        seen.push_back(result.buffers[0]);
    }
    EXPECT_EQ(expected, seen);
    EXPECT_EQ(b.imports, LiveImports());
}

}  // namespace
}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The callback record that the service hands to the core, called the way the core could call
 * it, including what the core itself never does (returning buffers, missing arguments). Built
 * with the library's objects, as the service class is not exported.
 */
#include <android/binder_manager.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/GrallocTesting.h>

#include <unordered_map>

#include "BrokeringTestSupport.h"
#include "CheckedLookup.h"
#include "OfflineCameraAIDLService.h"

namespace offlinecamera::test {
namespace {

using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::implementation::checkedAt;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::implementation::ClientBufferRecord;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::implementation::OfflineCameraAIDLService;

constexpr int32_t kClient = 7;

// The object behind the published service.
std::shared_ptr<OfflineCameraAIDLService> PublishedService() {
    const std::string instance = std::string(IOfflineCameraService::descriptor) + "/default";
    ::ndk::SpAIBinder binder(AServiceManager_checkService(instance.c_str()));
    return std::static_pointer_cast<OfflineCameraAIDLService>(
            ::ndk::ICInterface::asInterface(binder.get()));
}

LogLine NotFound(int32_t id) {
    return ServiceLine(
            ANDROID_LOG_ERROR,
            Format("284 findCallback: can not find the callback for this clientID :%d", id));
}

LogLine Found(int32_t id) {
    return ServiceLine(ANDROID_LOG_INFO,
                       Format("279 findCallback: find the callback for this clientID :%d", id));
}

camera3_stream_t TestStream() {
    return MakeStream(16, 8, HAL_PIXEL_FORMAT_RGBA_8888, 0, HAL_DATASPACE_UNKNOWN,
                      CAMERA3_STREAM_ROTATION_0);
}

SCENARIO_TEST(ServiceCallbacksTest, ReturnsBuffersToTheClient) {
    auto client = ::ndk::SharedRefBase::make<TestClient>();
    ASSERT_TRUE(s.Service().registerClient(kClient, client->Remote()).isOk());
    camera3_stream_t stream = TestStream();
    Producer producer(kClient);
    const size_t imports = ::android::hostgralloc::liveImportCount();
    ASSERT_EQ(CAMERA3_BUF_REQ_OK, producer.Request({&stream}, {3}));
    const camera3_stream_buffer_t lent[] = {producer.Buffer(0, 0), producer.Buffer(0, 1),
                                            producer.Buffer(0, 2)};
    const ClientCallbacks& callbacks = PublishedService()->clientCallbacks();

    // A buffer that was never lent goes back as a default element, and nothing is freed for it.
    buffer_handle_t stranger = reinterpret_cast<buffer_handle_t>(&stream);
    LogCapture::Clear();
    callbacks.pReturnBuffers(&callbacks, kClient, {lent[2].buffer, &stranger});
    EXPECT_EQ(std::vector<LogLine>{Found(kClient)}, LogCapture::Lines());
    ASSERT_EQ(1u, client->Returns().size());
    EXPECT_EQ((std::vector<SeenBuffer>{{ClientStreamId(0), 3, BufferStatus::OK, false, false},
                                       {0, 0, BufferStatus::OK, false, false}}),
              client->Returns()[0]);
    EXPECT_EQ(imports + 2, ::android::hostgralloc::liveImportCount());

    LogCapture::Clear();
    callbacks.pReturnBuffers(&callbacks, kClient, {});
    callbacks.pReturnBuffers(&callbacks, 99, {lent[0].buffer});
    callbacks.pReturnBuffers(nullptr, kClient, {lent[0].buffer});
    EXPECT_EQ(
            (std::vector<LogLine>{
                    Found(kClient),
                    ServiceLine(ANDROID_LOG_INFO,
                                "636 returnBuffers, no buffers for this ClientId:7"),
                    NotFound(99),
                    ServiceLine(ANDROID_LOG_ERROR,
                                "642 returnBuffers, can not find the callback ClientId:99"),
                    ServiceLine(ANDROID_LOG_ERROR, "683 returnBuffersCb: pCallbackOps is NULL!")}),
            LogCapture::Lines());
    EXPECT_EQ(1u, client->Returns().size());

    callbacks.pReturnBuffers(&callbacks, kClient, {lent[1].buffer, lent[0].buffer});
    ASSERT_EQ(2u, client->Returns().size());
    EXPECT_EQ((std::vector<SeenBuffer>{{ClientStreamId(0), 2, BufferStatus::OK, false, false},
                                       {ClientStreamId(0), 1, BufferStatus::OK, false, false}}),
              client->Returns()[1]);
    EXPECT_EQ(imports, ::android::hostgralloc::liveImportCount());
    EXPECT_TRUE(s.Service().unRegisterClient(kClient).isOk());
}

// Calls without their arguments, and calls for a client that died.
SCENARIO_TEST(ServiceCallbacksTest, MissingArgumentsAndDeadClientsReachNoClient) {
    auto client = ::ndk::SharedRefBase::make<TestClient>();
    ASSERT_TRUE(s.Service().registerClient(12, client->Remote()).isOk());
    client->Die();
    const ClientCallbacks& callbacks = PublishedService()->clientCallbacks();
    camera3_stream_t stream = TestStream();
    camera3_stream_buffer_t output = {};
    camera3_capture_result_t result = {};
    LogCapture::Clear();
    EXPECT_EQ(static_cast<uint32_t>(CAMERA3_BUF_REQ_FAILED_ILLEGAL_ARGUMENTS),
              callbacks.pRequestBuffers(nullptr, kClient, {{&stream, 1, 0, &output, 1}}));
    callbacks.pResult(nullptr, kClient, &result);
    callbacks.pResult(&callbacks, kClient, nullptr);
    EXPECT_EQ(static_cast<uint32_t>(CAMERA3_BUF_REQ_FAILED_UNKNOWN),
              callbacks.pRequestBuffers(&callbacks, 12, {{&stream, 1, 0, &output, 1}}));
    callbacks.pResult(&callbacks, 12, &result);
    const LogLine noResult =
            ServiceLine(ANDROID_LOG_ERROR,
                        "705 processCaptureResultCb: pCallbackOps OR pCaptureResult is NULL!");
    EXPECT_EQ((std::vector<LogLine>{
                      ServiceLine(ANDROID_LOG_ERROR,
                                  "660 requestStreamBuffersCb: pCallbackOps is NULL OR "
                                  "requestParams size is 0!"),
                      noResult, noResult, NotFound(12),
                      ServiceLine(ANDROID_LOG_ERROR,
                                  "405 requestStreamBuffers: clientID:12 This product client did "
                                  "not register! can not fetch Buffer!"),
                      NotFound(12)}),
              LogCapture::Lines());
    EXPECT_EQ(nullptr, output.buffer);
    EXPECT_TRUE(client->Requests().empty());
    EXPECT_TRUE(client->Results().empty());
}

// The client leaves between the core's check of its id and the delivery of a result that hands
// buffers back: the producer has been told they went back, so they are freed.
SCENARIO_TEST(ServiceCallbacksTest, AResultForAClientThatJustLeftFreesItsBuffers) {
    auto client = ::ndk::SharedRefBase::make<TestClient>();
    ASSERT_TRUE(s.Service().registerClient(kClient, client->Remote()).isOk());
    camera3_stream_t stream = TestStream();
    Producer producer(kClient);
    const size_t imports = ::android::hostgralloc::liveImportCount();
    ASSERT_EQ(CAMERA3_BUF_REQ_OK, producer.Request({&stream}, {2}));
    ASSERT_EQ(0, producer.Result(1, nullptr, {}));
    ASSERT_TRUE(s.Service().unRegisterClient(kClient).isOk());
    camera3_capture_result_t result = *producer.LastResult();
    const camera3_stream_buffer_t lent[] = {producer.Buffer(0, 1), producer.Buffer(0, 0)};
    result.num_output_buffers = 2;
    result.output_buffers = lent;
    const ClientCallbacks& callbacks = PublishedService()->clientCallbacks();
    callbacks.pResult(&callbacks, kClient, &result);
    EXPECT_EQ(imports, ::android::hostgralloc::liveImportCount());
    EXPECT_EQ(1u, client->Results().size());
}

// A death notice on its way when the service object goes (the library is unloaded).
SCENARIO_TEST(ServiceCallbacksTest, ADeathNoticeOutlivesTheService) {
    auto service = ::ndk::SharedRefBase::make<OfflineCameraAIDLService>();
    auto client = ::ndk::SharedRefBase::make<TestClient>();
    ASSERT_TRUE(service->registerClient(kClient, client->Remote()).isOk());
    ::ndk::host::holdDeathNotices(true);
    ::ndk::host::killOnDeathThread(client->asBinder().get());
    service.reset();
    LogCapture::Clear();
    ::ndk::host::holdDeathNotices(false);
    ::ndk::host::waitForDeathNotices();
    EXPECT_EQ(std::vector<LogLine>{ServiceLine(ANDROID_LOG_INFO,
                                               "422 binderDied:client callback died clientID:7")},
              LogCapture::Lines(kServiceTag));
    // The core keeps the id of a client of a service that is gone.
    OfflineCameraService::GetInstance()->unRegisterConsumerClient(kClient);
}

TEST(CheckedLookupTest, MissingKeyStopsTheProcess) {
    std::unordered_map<int32_t, std::vector<ClientBufferRecord>> lists;
    lists[1].push_back({1, 2, nullptr});
    EXPECT_EQ(&lists[1], &checkedAt(lists, 1));
    EXPECT_DEATH(checkedAt(lists, 2), "unordered_map::at: key not found");
}

}  // namespace
}  // namespace offlinecamera::test

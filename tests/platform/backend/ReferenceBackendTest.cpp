/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The reference backend where the library's suites do not look: its entry point and counted
 * objects refuse misuse with an error line (what the suites' fixtures catch a library fault by),
 * and its fusion writes the rounded mean of the inputs that match the output, in 8 and 16 bits
 * (the demo only sees that 8-bit fusion lowers the noise).
 */
#include <gtest/gtest.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <string.h>
#include <ui/GraphicBufferMapper.h>

#include <string>
#include <vector>

#include "KivOfflineInterface.h"
#include "LogCapture.h"

namespace android {
namespace {

using ::offlinecamera::test::LogCapture;

const KivOfflineIntfCbs* OpenContext() {
    return KivOfflineOpenContext(KIV_OFFLINE_CONTEXT_NAME, KIV_OFFLINE_CONTEXT_VERSION);
}

void ExpectNothingLive() {
    EXPECT_EQ(0u, kivref::LiveContexts());
    EXPECT_EQ(0u, kivref::LiveSessions());
    EXPECT_EQ(0u, kivref::LiveKivMetadata());
    EXPECT_EQ(0u, kivref::LiveAndroidMetadata());
    EXPECT_EQ(0u, kivref::OpenMetadataOps());
}

// A misuse answers -1 and logs one error line of the backend.
#define EXPECT_REFUSED(call) \
    EXPECT_EQ(-1, call);     \
    EXPECT_EQ(std::vector<std::string>{"KivReferenceBackend"}, LogCapture::TakePlatformErrorTags())

TEST(ReferenceBackendTest, EachMisuseIsRefusedWithAnErrorLineAndNoEffect) {
    ASSERT_TRUE(kivref::Reset());
    LogCapture::Start();
    auto entry = [](const char* name, uint32_t version) {
        return KivOfflineOpenContext(name, version) == nullptr ? -1 : 0;
    };
    EXPECT_REFUSED(entry("HAL3", KIV_OFFLINE_CONTEXT_VERSION));
    EXPECT_REFUSED(entry(KIV_OFFLINE_CONTEXT_NAME, 256));

    const KivOfflineIntfCbs* cbs = OpenContext();
    ASSERT_NE(nullptr, cbs);
    KivMetadataOpsOpenInfo info = {7, 0, 0};
    const KivMetadataOps* ops = cbs->pfnOpenMetadataOps(cbs, &info);
    ASSERT_NE(nullptr, ops);
    camera_metadata_t* settings = allocate_camera_metadata(1, 0);
    KivMetadataHandle handle = ops->pfnCreateByAndroidMetadata(ops, settings, 0, 0, ~0u);
    free_camera_metadata(settings);
    camera_metadata_t* android = ops->pfnCreateAndroidMetadata(ops, handle, 1, 1, 0, nullptr);
    EXPECT_EQ(2u, kivref::LiveKivMetadata());  // with the context's characteristics
    EXPECT_EQ(1u, kivref::LiveAndroidMetadata());
    EXPECT_EQ(0, ops->pfnReleaseAndroidMetadata(ops, android));
    EXPECT_REFUSED(ops->pfnReleaseAndroidMetadata(ops, android));
    EXPECT_EQ(0, ops->pfnDestroyKivMetadata(handle));
    EXPECT_REFUSED(ops->pfnDestroyKivMetadata(handle));
    EXPECT_REFUSED(ops->pfnDestroyKivMetadata(cbs->pfnGetStaticInfo(cbs).pStaticMetadata));
    camera3_stream_buffer_t hal = {};
    KivStreamBuffer foreign = {};
    EXPECT_REFUSED(cbs->pfnTranslateFromKivBuffer(&foreign, &hal));

    KivOfflineCallbacks callbacks = {};
    KivOfflineSessionInfo sessionInfo = {"twice", 0, &callbacks};
    const uint64_t session = cbs->pfnOpenSession(cbs, &sessionInfo);
    EXPECT_EQ(1u, kivref::LiveSessions());
    EXPECT_EQ(0, cbs->pfnCloseSession(session));
    EXPECT_REFUSED(cbs->pfnCloseSession(session));
    const KivMetadataOps closedOps = *ops;
    EXPECT_EQ(0, ops->pfnClose(ops));
    EXPECT_REFUSED(closedOps.pfnClose(ops));
    const auto closeContext = cbs->pfnCloseContext;
    EXPECT_EQ(0, closeContext(cbs));
    EXPECT_REFUSED(closeContext(cbs));
    ExpectNothingLive();
}

// Writes base + i % 97 into sample i of a single-plane 8-bit or 16-bit buffer or, with check,
// counts the samples that hold anything else.
size_t Pattern(buffer_handle_t handle, const camera3_stream_t& stream, uint32_t base, bool check) {
    void* address = nullptr;
    GraphicBufferMapper& mapper = GraphicBufferMapper::get();
    EXPECT_EQ(OK, mapper.lock(handle, 0x33, Rect(stream.width, stream.height), &address));
    const size_t bytes = stream.format == HAL_PIXEL_FORMAT_RAW16 ? 2 : 1;  // little-endian
    size_t wrong = 0;
    for (uint32_t i = 0; address != nullptr && i < stream.width * stream.height; i++) {
        uint16_t sample = static_cast<uint16_t>(base + i % 97), found = 0;
        uint8_t* at = static_cast<uint8_t*>(address) + i * bytes;
        if (check) {
            memcpy(&found, at, bytes);
            wrong += found != sample;
        } else {
            memcpy(at, &sample, bytes);
        }
    }
    EXPECT_EQ(OK, mapper.unlock(handle));
    return wrong;
}

TEST(ReferenceBackendTest, OutputIsTheRoundedMeanOfTheMatchingInputs) {
    ASSERT_TRUE(kivref::Reset());
    const KivOfflineIntfCbs* cbs = OpenContext();
    ASSERT_NE(nullptr, cbs);
    KivOfflineCallbacks callbacks = {
            [](const KivOfflineCallbacks*, uint32_t, const KivOfflineCaptureResult*) { return 0; },
            [](const KivOfflineCallbacks*, uint32_t, const camera3_notify_msg_t*) { return 0; }, 0,
            0, nullptr};
    KivOfflineSessionInfo sessionInfo = {"fusion", 0, &callbacks};
    const uint64_t session = cbs->pfnOpenSession(cbs, &sessionInfo);

    // Offsets 0, 41 and 42 average to 27.67, which rounds to 28; the bright frame of another size
    // does not match the output and is left out. 16-bit samples lie above 255.
    for (const uint32_t base : {0u, 1000u}) {
        SCOPED_TRACE(base);
        camera3_stream_t stream = {};
        stream.width = 64;
        stream.height = 48;
        stream.format = base == 0 ? HAL_PIXEL_FORMAT_Y8 : HAL_PIXEL_FORMAT_RAW16;
        camera3_stream_t small = stream;
        small.width = 32;
        camera3_stream_t* streams[] = {&stream, &stream, &small, &stream, &stream};
        const uint32_t offsets[] = {5, 0, 100, 41, 42};  // the output first
        buffer_handle_t handles[5] = {};
        KivStreamBuffer buffers[5];
        std::vector<KivOfflineStreamInfo> frames;
        for (size_t i = 0; i < 5; i++) {
            native_handle_t* raw = hostgralloc::allocate(streams[i]->width, 48, stream.format, 0x33);
            ASSERT_EQ(OK, GraphicBufferMapper::get().importBufferNoValidate(raw, &handles[i]));
            hostgralloc::release(raw);
            Pattern(handles[i], *streams[i], base + offsets[i], false);
            camera3_stream_buffer_t hal = {streams[i], &handles[i], 0, -1, -1, 0, nullptr};
            ASSERT_EQ(0, cbs->pfnTranslateToKivBuffer(&hal, &buffers[i]));
            frames.push_back({1, 0, &buffers[i], 0, nullptr});
        }
        uint32_t frameNumber = 0;
        KivOfflineCaptureRequestInfo request = {4, 0, &frames[1], &frames[0], 0, &frameNumber,
                                                0, 0};
        ASSERT_EQ(0, cbs->pfnExecuteRequest(session, &request));
        ASSERT_TRUE(kivref::WaitIdle(session));
        EXPECT_EQ(0u, Pattern(handles[0], stream, base + 28, true));
        for (buffer_handle_t handle : handles) {
            EXPECT_EQ(OK, GraphicBufferMapper::get().freeBuffer(handle));
        }
    }
    EXPECT_EQ(0, cbs->pfnCloseSession(session));
    EXPECT_EQ(0, cbs->pfnCloseContext(cbs));
    ExpectNothingLive();
}

}  // namespace
}  // namespace android

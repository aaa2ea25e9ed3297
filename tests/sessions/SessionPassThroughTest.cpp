/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The core's session operations, which hand session work to the backend's per-session slots,
 * and the two buffer translations.
 */
#include <gtest/gtest.h>
#include <string.h>

#include <vector>

#include "IsolatedCoreTest.h"

namespace offlinecamera::test {
namespace {

class SessionPassThroughTest : public IsolatedCoreTest {
  protected:
    uint64_t Open(const char* name) {
        KivOfflineSessionInfo info = {name, 0, &mCallbacks};
        return mService->OpenSession(&info);
    }

    // A session record with no callbacks: nothing these tests run makes the backend deliver.
    KivOfflineCallbacks mCallbacks = {nullptr, nullptr, 0, 0, this};
};

TEST_F(SessionPassThroughTest, EachOperationReachesItsSlotWithTheSessionHandle) {
    Bind();
    uint64_t handle = Open("night");
    ASSERT_NE(0u, handle);
    kivref::CallRecord open = CallsOf(kivref::Slot::OpenSession).at(0);
    EXPECT_EQ(handle, open.session);
    EXPECT_EQ("night", open.text);
    EXPECT_EQ(&mCallbacks, open.pointer);

    KivOfflineSessionConfigInfo config = {};
    config.pCameraId = "3";
    config.operationMode = 0x8001;
    EXPECT_EQ(0, mService->ConfigureSession(handle, &config));
    KivOfflineFlushInfo flush = {9};
    EXPECT_EQ(0, mService->Flush(handle, &flush));
    EXPECT_EQ(0, mService->Dump(handle));
    KivOfflineCaptureRequestInfo request = {};
    uint32_t frameNumber = 5;
    request.pFrameNumber = &frameNumber;
    EXPECT_EQ(0, mService->ExecuteRequest(handle, &request));
    EXPECT_EQ(0, mService->CloseSession(3, handle));

    std::vector<kivref::Slot> expected = {
            kivref::Slot::OpenSession, kivref::Slot::ConfigureSession, kivref::Slot::Flush,
            kivref::Slot::Dump,        kivref::Slot::ExecuteRequest,   kivref::Slot::CloseSession};
    EXPECT_EQ(expected, CalledSlots());
    for (const kivref::CallRecord& call : kivref::Calls()) {
        EXPECT_EQ(handle, call.session);
    }
    EXPECT_EQ(3u, CallsOf(kivref::Slot::ConfigureSession).at(0).cameraId);
    EXPECT_EQ(9, CallsOf(kivref::Slot::Flush).at(0).ints[0]);
    EXPECT_EQ(&request, CallsOf(kivref::Slot::ExecuteRequest).at(0).pointer);
    // The frame number the backend wrote back reaches the caller's cell.
    EXPECT_EQ(1000u, frameNumber);
    EXPECT_EQ(0u, kivref::LiveSessions());
}

TEST_F(SessionPassThroughTest, CloseReleasesTheCameraHoldWhateverTheBackendAnswers) {
    Bind();
    uint64_t handle = Open("portrait");
    mService->InitMetaOps(6);
    kivref::SetSlotFailure(kivref::Slot::CloseSession, true);
    kivref::ClearCalls();

    EXPECT_EQ(-1, mService->CloseSession(6, handle));
    EXPECT_EQ((std::vector<kivref::Slot>{kivref::Slot::CloseSession, kivref::Slot::MetaClose}),
              CalledSlots());
    EXPECT_EQ(0u, kivref::OpenMetadataOps());
}

TEST_F(SessionPassThroughTest, TranslationsRoundTripTheCallersRecords) {
    Bind();
    camera3_stream_t stream = {};
    buffer_handle_t handle = nullptr;
    camera3_stream_buffer_t halBuffer = {};
    halBuffer.stream = &stream;
    halBuffer.buffer = &handle;
    halBuffer.status = CAMERA3_BUFFER_STATUS_ERROR;
    KivStreamBuffer kivBuffer;
    memset(&kivBuffer, 0, sizeof(kivBuffer));
    camera3_stream_buffer_t back = {};
    EXPECT_EQ(0, mService->TranslateToKivBuffer(&halBuffer, &kivBuffer));
    EXPECT_EQ(0, mService->TranslateFromKivBuffer(&kivBuffer, &back));
    EXPECT_EQ(&stream, back.stream);
    EXPECT_EQ(CAMERA3_BUFFER_STATUS_ERROR, back.status);
    EXPECT_EQ(&halBuffer, CallsOf(kivref::Slot::TranslateToKivBuffer).at(0).pointer);
    EXPECT_EQ(&back, CallsOf(kivref::Slot::TranslateFromKivBuffer).at(0).result);

    kivref::SetSlotFailure(kivref::Slot::TranslateFromKivBuffer, true);
    EXPECT_EQ(-1, mService->TranslateFromKivBuffer(&kivBuffer, &back));
}

}  // namespace
}  // namespace offlinecamera::test

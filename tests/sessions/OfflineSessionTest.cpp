/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Offline sessions as a remote client uses them: capability queries, opening sessions through
 * the published IOfflineCameraService, and the life of a session (flush, dump, close, the
 * client's death, destruction). The service is published once per process and the core is
 * bound once, so each scenario runs in a child process of its own.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <android/binder_manager.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>

#include <string>
#include <vector>

#include "ChildScenario.h"
#include "ClientSide.h"
#include "IsolatedCoreTest.h"
#include "OfflineCameraAIDLService.h"
#include "RemoteSessionClient.h"

namespace offlinecamera::test {
namespace {

using ::aidl::android::hardware::camera::device::CameraMetadata;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo;
using ::offlinecamera::clientside::RemoteSessionCallback;

constexpr const char* kServiceTag = "KivOfflineAIDLSevice";
constexpr const char* kSessionTag = "KivOfflineAIDLSession";

LogLine OpenedLine(uint64_t handle, const char* name) {
    return {ANDROID_LOG_INFO, kSessionTag,
            Format("76 OfflineCameraAIDLSession: Open an Offline session:%lu. "
                   "clientSessionName:%s",
                   static_cast<unsigned long>(handle), name)};
}

// ---------------------------------------------------------------------------------------------
// Capability queries and session opening

CHILD_TEST(OfflineSessionOpeningTest, QueriesAnswerTheFixedModesAndACopyOfTheStaticCaps) {
    RemoteClient client(s);
    std::vector<int32_t> modes;
    EXPECT_TRUE(client.Service().getSupportedOpModes(&modes).isOk());
    EXPECT_EQ((std::vector<int32_t>{0, 1, 2, 3, 4, 5}), modes);
    EXPECT_EQ((std::vector<LogLine>{{ANDROID_LOG_INFO, kServiceTag,
                                     "208 getSupportedOpModes: num of supported OpModes:6"}}),
              LogCapture::Lines(kServiceTag));

    const camera_metadata_t* core = OfflineCameraService::GetInstance()->GetOfflineStaticCaps();
    ASSERT_NE(nullptr, core);
    const uint8_t* coreBytes = reinterpret_cast<const uint8_t*>(core);
    CameraMetadata caps;
    EXPECT_TRUE(client.Service().getOfflineStaticCaps(&caps).isOk());
    EXPECT_EQ(std::vector<uint8_t>(coreBytes, coreBytes + get_camera_metadata_size(core)),
              caps.metadata);
    EXPECT_TRUE(kivref::Calls().empty());
}

CHILD_TEST(OfflineSessionOpeningTest, StaticCapsWithoutABoundBackendAreAnInternalError) {
    RemoteClient client(s, TEST_VENDOR_ROOT_EMPTY);
    CameraMetadata caps;
    ::ndk::ScopedAStatus status = client.Service().getOfflineStaticCaps(&caps);
    EXPECT_EQ(EX_SERVICE_SPECIFIC, status.getExceptionCode());
    EXPECT_EQ(6, status.getServiceSpecificError());
    EXPECT_TRUE(caps.metadata.empty());
    EXPECT_EQ((std::vector<LogLine>{{ANDROID_LOG_ERROR, kServiceTag,
                                     "GetOfflineStaticCaps: get offline static caps failed"}}),
              LogCapture::Lines(kServiceTag));
    EXPECT_EQ(std::vector<std::string>{"VornOsUtils"}, LogCapture::TakePlatformErrorTags());
}

CHILD_TEST(OfflineSessionOpeningTest, OpeningWithoutACallbackIsRefused) {
    RemoteClient client(s);
    std::shared_ptr<IOfflineCameraSession> session;
    ::ndk::ScopedAStatus status = client.Service().openOfflineSeesion("nobody", nullptr, &session);
    EXPECT_EQ(EX_SERVICE_SPECIFIC, status.getExceptionCode());
    EXPECT_EQ(1, status.getServiceSpecificError());
    EXPECT_EQ(nullptr, session);
    EXPECT_EQ((std::vector<LogLine>{{ANDROID_LOG_ERROR, kServiceTag,
                                     "223 openOfflineSeesion: callback is null"}}),
              LogCapture::Lines(kServiceTag));
    EXPECT_TRUE(kivref::Calls().empty());
}

// ---------------------------------------------------------------------------------------------
// Session life

CHILD_TEST(OfflineSessionLifeTest, RemoteClientOpensFlushesDumpsAndCloses) {
    RemoteClient client(s);
    {
        OpenedSession opened = client.OpenSession("portrait");
        ASSERT_NE(nullptr, opened.session);
        EXPECT_TRUE(opened.session->isRemote());
        const uint64_t handle = opened.handle;
        ASSERT_NE(0u, handle);
        kivref::CallRecord open = CallsOf(kivref::Slot::OpenSession).at(0);
        EXPECT_EQ("portrait", open.text);
        EXPECT_NE(nullptr, open.pointer);
        EXPECT_EQ(1u, kivref::LiveSessions());
        // The session watches the client's callback.
        EXPECT_EQ(1u, ::ndk::host::linkCount(opened.callback.binder.get()));

        OfflineFlushInfo flush;
        flush.flushFlags = 3;
        EXPECT_TRUE(opened.session->flushOfflineSession(flush).isOk());
        EXPECT_TRUE(opened.session->dumpOfflineSession().isOk());
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
        EXPECT_EQ(0u, kivref::LiveSessions());

        std::vector<kivref::Slot> slots;
        for (const kivref::CallRecord& call : kivref::Calls()) {
            slots.push_back(call.slot);
            EXPECT_EQ(handle, call.session);
            EXPECT_EQ(0, call.status);
        }
        EXPECT_EQ((std::vector<kivref::Slot>{kivref::Slot::OpenSession, kivref::Slot::Flush,
                                             kivref::Slot::Dump, kivref::Slot::CloseSession}),
                  slots);
        EXPECT_EQ(3, CallsOf(kivref::Slot::Flush).at(0).ints[0]);
        EXPECT_EQ(std::vector<LogLine>{OpenedLine(handle, "portrait")},
                  LogCapture::Lines(kSessionTag));
        // A session never configured holds no metadata operations and gives none back.
        EXPECT_TRUE(LogCapture::Lines(kCoreTag).empty());
        kivref::ClearCalls();
    }
    // The last reference ends the closed session without closing it again.
    EXPECT_TRUE(kivref::Calls().empty());
}

CHILD_TEST(OfflineSessionLifeTest, ARefusedSessionStillAnswersOk) {
    RemoteClient client(s);
    kivref::SetSlotFailure(kivref::Slot::OpenSession, true);
    {
        OpenedSession opened = client.OpenSession("refused");
        ASSERT_NE(nullptr, opened.session);
        EXPECT_EQ((std::vector<LogLine>{{ANDROID_LOG_ERROR, kSessionTag,
                                         "81 OfflineCameraAIDLSession: Open offline session "
                                         "failed! clientSessionName:refused "}}),
                  LogCapture::Lines(kSessionTag));

        OfflineFlushInfo flush;
        EXPECT_TRUE(opened.session->flushOfflineSession(flush).isOk());
        EXPECT_TRUE(opened.session->dumpOfflineSession().isOk());
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
        // Every operation still reaches the backend, with handle 0.
        EXPECT_EQ(4u, kivref::Calls().size());
        for (const kivref::CallRecord& call : kivref::Calls()) {
            EXPECT_EQ(0u, call.session);
        }
        EXPECT_EQ(std::vector<std::string>(3, "KivReferenceBackend"),
                  LogCapture::TakePlatformErrorTags());
    }
}

CHILD_TEST(OfflineSessionLifeTest, ClosingTwiceClosesTheBackendTwice) {
    RemoteClient client(s);
    {
        OpenedSession opened = client.OpenSession("twice");
        ASSERT_NE(nullptr, opened.session);
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
        EXPECT_TRUE(opened.session->closeOfflineSession().isOk());

        std::vector<kivref::CallRecord> closes = CallsOf(kivref::Slot::CloseSession);
        ASSERT_EQ(2u, closes.size());
        EXPECT_EQ(opened.handle, closes[0].session);
        EXPECT_EQ(opened.handle, closes[1].session);
        // The backend refuses the second close; neither gives back metadata operations that
        // the session never took.
        EXPECT_EQ(std::vector<std::string>{"KivReferenceBackend"},
                  LogCapture::TakePlatformErrorTags());
        EXPECT_TRUE(LogCapture::Lines(kCoreTag).empty());
        // Nothing was cached or configured, so neither close frees buffers or metadata.
        EXPECT_EQ(std::vector<LogLine>{OpenedLine(opened.handle, "twice")},
                  LogCapture::Lines(kSessionTag));
    }
    EXPECT_EQ(2u, CallsOf(kivref::Slot::CloseSession).size());
}

CHILD_TEST(OfflineSessionLifeTest, AClientDeathIsOnlyLogged) {
    RemoteClient client(s);
    {
        OpenedSession opened = client.OpenSession("night");
        ASSERT_NE(nullptr, opened.session);
        kivref::ClearCalls();
        LogCapture::Clear();

        ::ndk::host::kill(opened.callback.binder.get());
        EXPECT_EQ((std::vector<LogLine>{{ANDROID_LOG_INFO, kSessionTag,
                                         "110 binderDied: client callback die, session "
                                         "name:night"}}),
                  LogCapture::Lines(kSessionTag));
        EXPECT_TRUE(kivref::Calls().empty());
        EXPECT_EQ(1u, kivref::LiveSessions());

        // The session goes on serving until its client's last reference goes.
        OfflineFlushInfo flush;
        EXPECT_TRUE(opened.session->flushOfflineSession(flush).isOk());
        ASSERT_EQ(1u, CallsOf(kivref::Slot::Flush).size());
        EXPECT_EQ(opened.handle, CallsOf(kivref::Slot::Flush)[0].session);
    }
    // The last reference closes the session that its client never closed.
    EXPECT_EQ(1u, CallsOf(kivref::Slot::CloseSession).size());
}

// The client's death notice is on its way, on the binder library's death thread, when the
// client's last reference to the session goes.
CHILD_TEST(OfflineSessionLifeTest, ADeathNoticeAfterTheLastReference) {
    RemoteClient client(s);
    OpenedSession opened = client.OpenSession("late");
    ::ndk::host::holdDeathNotices(true);
    ::ndk::host::killOnDeathThread(opened.callback.binder.get());
    opened.session.reset();
    EXPECT_EQ(0u, kivref::LiveSessions());
    LogCapture::Clear();
    ::ndk::host::holdDeathNotices(false);
    ::ndk::host::waitForDeathNotices();
    EXPECT_EQ((std::vector<LogLine>{{ANDROID_LOG_INFO, kSessionTag,
                                     "110 binderDied: client callback die, session name:late"}}),
              LogCapture::Lines(kSessionTag));
}

CHILD_TEST(OfflineSessionLifeTest, TwoSessionsWithOneNameAreIndependent) {
    RemoteClient client(s);
    {
        RemoteSessionCallback callback = RemoteSessionCallback::Make();
        std::shared_ptr<IOfflineCameraSession> first = client.Open("same", callback);
        const uint64_t firstHandle = LastSessionHandle();
        std::shared_ptr<IOfflineCameraSession> second = client.Open("same", callback);
        const uint64_t secondHandle = LastSessionHandle();
        ASSERT_NE(nullptr, first);
        ASSERT_NE(nullptr, second);
        EXPECT_NE(first->asBinder(), second->asBinder());
        EXPECT_NE(firstHandle, secondHandle);
        EXPECT_EQ(2u, ::ndk::host::linkCount(callback.binder.get()));

        EXPECT_TRUE(first->closeOfflineSession().isOk());
        EXPECT_EQ(1u, kivref::LiveSessions());
        EXPECT_TRUE(second->dumpOfflineSession().isOk());
        std::vector<kivref::CallRecord> dumps = CallsOf(kivref::Slot::Dump);
        ASSERT_EQ(1u, dumps.size());
        EXPECT_EQ(secondHandle, dumps[0].session);
        EXPECT_EQ(0, dumps[0].status);
    }
}

}  // namespace
}  // namespace offlinecamera::test

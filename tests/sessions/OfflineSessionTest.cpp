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
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RemoteSessionClient.h"

namespace offlinecamera::test {
namespace {

using ::aidl::android::hardware::camera::device::CameraMetadata;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo;

constexpr const char* kServiceTag = "KivOfflineAIDLSevice";
constexpr const char* kSessionTag = "KivOfflineAIDLSession";

LogLine OpenedLine(uint64_t handle, const char* name) {
    return {ANDROID_LOG_INFO, kSessionTag,
            Format("76 OfflineCameraAIDLSession: Open an Offline session:%lu. "
                   "clientSessionName:%s",
                   static_cast<unsigned long>(handle), name)};
}

LogLine DiedLine(const char* name) {
    return {ANDROID_LOG_INFO, kSessionTag,
            Format("110 binderDied: client callback die, session name:%s", name)};
}

// Slots called for one backend session, in call order.
std::vector<kivref::Slot> SlotsOf(uint64_t handle) {
    std::vector<kivref::Slot> slots;
    for (const kivref::CallRecord& call : kivref::Calls()) {
        if (call.session == handle) slots.push_back(call.slot);
    }
    return slots;
}

CHILD_TEST(OfflineSessionOpeningTest, QueriesAndAnOpeningWithoutCallback) {
    RemoteClient client(s);
    std::vector<int32_t> modes;
    EXPECT_TRUE(client.Service().getSupportedOpModes(&modes).isOk());
    EXPECT_EQ((std::vector<int32_t>{0, 1, 2, 3, 4, 5}), modes);

    // The static characteristics are a copy of the core's.
    const camera_metadata_t* core = OfflineCameraService::GetInstance()->GetOfflineStaticCaps();
    ASSERT_NE(nullptr, core);
    const uint8_t* coreBytes = reinterpret_cast<const uint8_t*>(core);
    CameraMetadata caps;
    EXPECT_TRUE(client.Service().getOfflineStaticCaps(&caps).isOk());
    EXPECT_EQ(std::vector<uint8_t>(coreBytes, coreBytes + get_camera_metadata_size(core)),
              caps.metadata);

    std::shared_ptr<IOfflineCameraSession> session;
    ::ndk::ScopedAStatus status = client.Service().openOfflineSeesion("nobody", nullptr, &session);
    EXPECT_EQ(EX_SERVICE_SPECIFIC, status.getExceptionCode());
    EXPECT_EQ(1, status.getServiceSpecificError());
    EXPECT_EQ(nullptr, session);
    EXPECT_EQ((std::vector<LogLine>{{ANDROID_LOG_INFO, kServiceTag,
                                     "208 getSupportedOpModes: num of supported OpModes:6"},
                                    {ANDROID_LOG_ERROR, kServiceTag,
                                     "223 openOfflineSeesion: callback is null"}}),
              LogCapture::Lines(kServiceTag));
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

// Two sessions of one name and one callback: each operation reaches its own backend session, a
// close reaches the backend each time it is asked for, and the last reference closes only the
// session that was never closed.
CHILD_TEST(OfflineSessionLifeTest, OperationsReachTheirOwnBackendSession) {
    RemoteClient client(s);
    uint64_t first = 0;
    uint64_t second = 0;
    {
        OpenedSession a = client.Open("same");
        OpenedSession b = client.Open("same", a.callback);
        ASSERT_NE(nullptr, a.session);
        ASSERT_NE(nullptr, b.session);
        EXPECT_TRUE(a.session->isRemote());
        first = a.handle;
        second = b.handle;
        ASSERT_NE(0u, first);
        EXPECT_NE(first, second);
        EXPECT_NE(a.session->asBinder(), b.session->asBinder());
        EXPECT_EQ("same", CallsOf(kivref::Slot::OpenSession).at(0).text);
        // Each session watches the client's callback.
        EXPECT_EQ(2u, ::ndk::host::linkCount(a.callbackBinder.get()));

        OfflineFlushInfo flush;
        flush.flushFlags = 3;
        EXPECT_TRUE(a.session->flushOfflineSession(flush).isOk());
        EXPECT_TRUE(a.session->dumpOfflineSession().isOk());
        EXPECT_TRUE(a.session->closeOfflineSession().isOk());
        EXPECT_EQ(1u, kivref::LiveSessions());
        EXPECT_TRUE(a.session->closeOfflineSession().isOk());
        EXPECT_TRUE(b.session->dumpOfflineSession().isOk());
        EXPECT_EQ(3, CallsOf(kivref::Slot::Flush).at(0).ints[0]);
        EXPECT_EQ(0, CallsOf(kivref::Slot::Dump).at(1).status);
        // The backend refuses the second close.
        EXPECT_EQ(std::vector<std::string>{"KivReferenceBackend"},
                  LogCapture::TakePlatformErrorTags());
        // Never configured, neither session took or gives back metadata operations, and nothing
        // was cached.
        EXPECT_TRUE(LogCapture::Lines(kCoreTag).empty());
        EXPECT_EQ((std::vector<LogLine>{OpenedLine(first, "same"), OpenedLine(second, "same")}),
                  LogCapture::Lines(kSessionTag));
    }
    using kivref::Slot;
    EXPECT_EQ((std::vector<Slot>{Slot::OpenSession, Slot::Flush, Slot::Dump, Slot::CloseSession,
                                 Slot::CloseSession}),
              SlotsOf(first));
    EXPECT_EQ((std::vector<Slot>{Slot::OpenSession, Slot::Dump, Slot::CloseSession}),
              SlotsOf(second));
}

CHILD_TEST(OfflineSessionLifeTest, ARefusedSessionStillAnswersOk) {
    RemoteClient client(s);
    kivref::SetSlotFailure(kivref::Slot::OpenSession, true);
    OpenedSession opened = client.Open("refused");
    ASSERT_NE(nullptr, opened.session);
    EXPECT_EQ((std::vector<LogLine>{{ANDROID_LOG_ERROR, kSessionTag,
                                     "81 OfflineCameraAIDLSession: Open offline session "
                                     "failed! clientSessionName:refused "}}),
              LogCapture::Lines(kSessionTag));
    EXPECT_TRUE(opened.session->flushOfflineSession(OfflineFlushInfo{}).isOk());
    EXPECT_TRUE(opened.session->dumpOfflineSession().isOk());
    EXPECT_TRUE(opened.session->closeOfflineSession().isOk());
    // Every operation still reaches the backend, with handle 0.
    EXPECT_EQ(4u, SlotsOf(0).size());
    EXPECT_EQ(std::vector<std::string>(3, "KivReferenceBackend"),
              LogCapture::TakePlatformErrorTags());
}

CHILD_TEST(OfflineSessionLifeTest, AClientDeathIsOnlyLogged) {
    RemoteClient client(s);
    {
        OpenedSession opened = client.Open("night");
        ASSERT_NE(nullptr, opened.session);
        kivref::ClearCalls();
        LogCapture::Clear();
        ::ndk::host::kill(opened.callbackBinder.get());
        EXPECT_EQ(std::vector<LogLine>{DiedLine("night")}, LogCapture::Lines(kSessionTag));
        EXPECT_TRUE(kivref::Calls().empty());
        // The session goes on serving until its client's last reference goes.
        EXPECT_TRUE(opened.session->flushOfflineSession(OfflineFlushInfo{}).isOk());
        EXPECT_EQ(std::vector<kivref::Slot>{kivref::Slot::Flush}, SlotsOf(opened.handle));
    }
    EXPECT_EQ(1u, CallsOf(kivref::Slot::CloseSession).size());
}

// The client's death notice is on its way, on the binder library's death thread, when the
// client's last reference to the session goes.
CHILD_TEST(OfflineSessionLifeTest, ADeathNoticeAfterTheLastReference) {
    RemoteClient client(s);
    OpenedSession opened = client.Open("late");
    ::ndk::host::holdDeathNotices(true);
    ::ndk::host::killOnDeathThread(opened.callbackBinder.get());
    opened.session.reset();
    EXPECT_EQ(0u, kivref::LiveSessions());
    LogCapture::Clear();
    ::ndk::host::holdDeathNotices(false);
    ::ndk::host::waitForDeathNotices();
    EXPECT_EQ(std::vector<LogLine>{DiedLine("late")}, LogCapture::Lines(kSessionTag));
}

}  // namespace
}  // namespace offlinecamera::test

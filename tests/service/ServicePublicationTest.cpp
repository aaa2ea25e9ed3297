/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Publication of IOfflineCameraService. The service is published once per process, so each
 * scenario runs in a child process of its own; what it makes after publishing it gives back.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <android/binder_manager.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/KivReferenceBackend.h>

#include <string>

#include "ChildScenario.h"
#include "LogCapture.h"
#include "OfflineCameraAIDLService.h"

namespace offlinecamera::test {
namespace {

using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;

constexpr const char* kEntryTag = "KivOfflineAIDLService";
constexpr const char* kInstance =
        "vendor.oru.hardware.camera.offlinecamera.IOfflineCameraService/default";

const LogLine kStart = {ANDROID_LOG_INFO, kEntryTag,
                        "36 RegisterOfflineCameraAIDLService: start to register offline camera "
                        "AIDL service"};
const LogLine kSuccess = {ANDROID_LOG_INFO, kEntryTag,
                          "58 RegisterOfflineCameraAIDLService: Add offline camera aidl service "
                          "success!"};
const LogLine kAlready = {ANDROID_LOG_INFO, kEntryTag,
                          std::string("69 RegisterOfflineCameraAIDLService: offline camera "
                                      "service alredy register offlineAIDLService:") +
                                  kInstance};

CHILD_TEST(ServicePublicationTest, PublishesOnceAndOnlyLogsLater) {
    size_t contexts = kivref::LiveContexts();
    EXPECT_EQ(nullptr, AServiceManager_checkService(kInstance));

    RegisterOfflineCameraAIDLService();
    s.Settle();
    EXPECT_EQ((std::vector<LogLine>{kStart, kSuccess}), LogCapture::Lines(kEntryTag));

    // A client finds it under the descriptor with "/default" appended.
    EXPECT_EQ(std::string(IOfflineCameraService::descriptor) + "/default", kInstance);
    ::ndk::SpAIBinder binder(AServiceManager_waitForService(kInstance));
    ASSERT_NE(nullptr, binder.get());
    std::shared_ptr<IOfflineCameraService> service = IOfflineCameraService::fromBinder(binder);
    ASSERT_NE(nullptr, service);
    int32_t version = 0;
    EXPECT_TRUE(service->getInterfaceVersion(&version).isOk());
    EXPECT_EQ(IOfflineCameraService::version, version);
    std::string hash;
    EXPECT_TRUE(service->getInterfaceHash(&hash).isOk());
    EXPECT_EQ(IOfflineCameraService::hash, hash);

    // Publishing does not bind the backend: the core is made on first use.
    EXPECT_EQ(contexts, kivref::LiveContexts());

    LogCapture::Clear();
    RegisterOfflineCameraAIDLService();
    EXPECT_EQ((std::vector<LogLine>{kStart, kAlready}), LogCapture::Lines());
    ::ndk::SpAIBinder again(AServiceManager_checkService(kInstance));
    EXPECT_EQ(binder.get(), again.get());
}

CHILD_TEST(ServicePublicationTest, FailedPublicationIsNotRetried) {
    ndk::host::failNextAddService(EX_ILLEGAL_STATE);
    RegisterOfflineCameraAIDLService();
    s.Settle();
    EXPECT_EQ((std::vector<LogLine>{kStart,
                                    {ANDROID_LOG_ERROR, kEntryTag,
                                     Format("53 RegisterOfflineCameraAIDLService: Cannot "
                                            "register offline camera AIDL service-%s, "
                                            "errorCode:%d",
                                            kInstance, EX_ILLEGAL_STATE)}}),
              LogCapture::Lines(kEntryTag));
    EXPECT_EQ(nullptr, AServiceManager_checkService(kInstance));

    LogCapture::Clear();
    RegisterOfflineCameraAIDLService();
    EXPECT_EQ((std::vector<LogLine>{kStart, kAlready}), LogCapture::Lines());
    EXPECT_EQ(nullptr, AServiceManager_checkService(kInstance));
}

}  // namespace
}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Generated vendor interfaces: identity (descriptor, version, hash, transaction codes) against
 * the .aidl sources and their frozen copy, and binder dispatch of local and remote objects.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSession.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BpOfflineCameraSession.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineClientCallback.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace ::aidl::vendor::oru::hardware::camera::offlinecamera;
using ::ndk::ScopedAStatus;
using ::ndk::SharedRefBase;
using ::ndk::SpAIBinder;

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// Method names of the interface in an .aidl file, in declaration order.
std::vector<std::string> DeclaredMethods(const std::string& path) {
    std::string text = ReadFile(path);
    text = std::regex_replace(text, std::regex(R"(/\*[\s\S]*?\*/|//[^\n]*)"), " ");
    std::smatch body;
    if (!std::regex_search(text, body, std::regex(R"(\binterface\s+\w+\s*\{([\s\S]*)\})"))) {
        return {};
    }
    std::vector<std::string> methods;
    std::stringstream declarations(body[1].str());
    std::string declaration;
    const std::regex name(R"((\w+)\s*\()");
    while (std::getline(declarations, declaration, ';')) {
        std::smatch match;
        if (std::regex_search(declaration, match, name)) methods.push_back(match[1]);
    }
    return methods;
}

struct InterfaceIdentity {
    const char* name;
    const char* descriptor;
    int32_t version;
    std::string hash;
    // Generated transaction codes, by method name.
    std::vector<std::pair<std::string, uint32_t>> transactions;
};

std::vector<InterfaceIdentity> Identities() {
#define TX(I, m) \
    { #m, I::TRANSACTION_##m }
    return {
            {"IOfflineCameraService",
             IOfflineCameraService::descriptor,
             IOfflineCameraService::version,
             IOfflineCameraService::hash,
             {TX(IOfflineCameraService, getSupportedOpModes),
              TX(IOfflineCameraService, registerClient), TX(IOfflineCameraService, unRegisterClient),
              TX(IOfflineCameraService, openOfflineSeesion),
              TX(IOfflineCameraService, getOfflineStaticCaps)}},
            {"IOfflineCameraSession",
             IOfflineCameraSession::descriptor,
             IOfflineCameraSession::version,
             IOfflineCameraSession::hash,
             {TX(IOfflineCameraSession, configureOfflineSession),
              TX(IOfflineCameraSession, processOfflineRequest),
              TX(IOfflineCameraSession, closeOfflineSession),
              TX(IOfflineCameraSession, flushOfflineSession),
              TX(IOfflineCameraSession, dumpOfflineSession)}},
            {"IOfflineCameraSessionCallback",
             IOfflineCameraSessionCallback::descriptor,
             IOfflineCameraSessionCallback::version,
             IOfflineCameraSessionCallback::hash,
             {TX(IOfflineCameraSessionCallback, notify),
              TX(IOfflineCameraSessionCallback, processCaptureResult)}},
            {"IOfflineClientCallback",
             IOfflineClientCallback::descriptor,
             IOfflineClientCallback::version,
             IOfflineClientCallback::hash,
             {TX(IOfflineClientCallback, notify), TX(IOfflineClientCallback, processCaptureResult),
              TX(IOfflineClientCallback, requestStreamBuffers),
              TX(IOfflineClientCallback, returnStreamBuffers)}},
    };
#undef TX
}

TEST(AidlInterfaceIdentityTest, DescriptorVersionAndFrozenHash) {
    const std::string frozenHash = ReadFile(OFFLINECAMERA_FROZEN_DIR "/.hash");
    EXPECT_EQ(frozenHash, OFFLINECAMERA_FROZEN_HASH "\n");
    for (const InterfaceIdentity& identity : Identities()) {
        SCOPED_TRACE(identity.name);
        EXPECT_EQ(identity.descriptor,
                  std::string("vendor.oru.hardware.camera.offlinecamera.") + identity.name);
        EXPECT_EQ(identity.version, 2);
        EXPECT_EQ(identity.hash, OFFLINECAMERA_FROZEN_HASH);
    }
}

TEST(AidlInterfaceIdentityTest, TransactionCodesFollowDeclarationOrder) {
    for (const InterfaceIdentity& identity : Identities()) {
        SCOPED_TRACE(identity.name);
        const std::vector<std::string> declared =
                DeclaredMethods(std::string(OFFLINECAMERA_AIDL_DIR "/") + identity.name + ".aidl");
        ASSERT_EQ(declared.size(), identity.transactions.size());
        for (size_t i = 0; i < declared.size(); i++) {
            EXPECT_EQ(identity.transactions[i].first, declared[i]);
            EXPECT_EQ(identity.transactions[i].second, FIRST_CALL_TRANSACTION + i);
        }
    }
}

// Every binder made by a test is gone when the test ends.
class AidlBinderTest : public ::testing::Test {
  protected:
    void SetUp() override { mLiveBinders = ::ndk::host::liveBinderCount(); }
    void TearDown() override { EXPECT_EQ(::ndk::host::liveBinderCount(), mLiveBinders); }

  private:
    size_t mLiveBinders = 0;
};

// A server that records what reaches it.
class TestSession : public BnOfflineCameraSession {
  public:
    ScopedAStatus configureOfflineSession(const OfflineSessionConfiguration&) override {
        return ScopedAStatus::ok();
    }
    ScopedAStatus processOfflineRequest(const std::vector<OfflineCaptureRequest>& requests,
                                        int32_t* frameNumber) override {
        mRequests = requests.size();
        *frameNumber = 77;
        return ScopedAStatus::ok();
    }
    ScopedAStatus closeOfflineSession() override { return ScopedAStatus::ok(); }
    ScopedAStatus flushOfflineSession(const OfflineFlushInfo& info) override {
        return ScopedAStatus::fromServiceSpecificError(info.flushFlags);
    }
    ScopedAStatus dumpOfflineSession() override { return ScopedAStatus::ok(); }

    size_t mRequests = 0;
};

TEST_F(AidlBinderTest, LocalBinderGivesItsObjectAndRemoteOneAForwardingProxy) {
    auto session = SharedRefBase::make<TestSession>();
    SpAIBinder binder = session->asBinder();
    EXPECT_EQ(IOfflineCameraSession::fromBinder(binder), session);
    EXPECT_EQ(IOfflineCameraService::fromBinder(binder), nullptr);
    EXPECT_EQ(IOfflineCameraSession::fromBinder(SpAIBinder()), nullptr);

    ::ndk::host::setRemote(binder.get(), true);
    std::shared_ptr<IOfflineCameraSession> proxy = IOfflineCameraSession::fromBinder(binder);
    ASSERT_NE(std::dynamic_pointer_cast<BpOfflineCameraSession>(proxy), nullptr);
    EXPECT_EQ(proxy->asBinder(), binder);
    int32_t frameNumber = 0;
    ASSERT_TRUE(
            proxy->processOfflineRequest(std::vector<OfflineCaptureRequest>(3), &frameNumber).isOk());
    EXPECT_EQ(frameNumber, 77);
    EXPECT_EQ(session->mRequests, 3u);
    OfflineFlushInfo flush;
    flush.flushFlags = 5;
    EXPECT_EQ(proxy->flushOfflineSession(flush).getServiceSpecificError(), 5);
    int32_t version = 0;
    std::string hash;
    ASSERT_TRUE(proxy->getInterfaceVersion(&version).isOk());
    ASSERT_TRUE(proxy->getInterfaceHash(&hash).isOk());
    EXPECT_EQ(version, IOfflineCameraSession::version);
    EXPECT_EQ(hash, IOfflineCameraSession::hash);

    ::ndk::host::kill(binder.get());
    ScopedAStatus status = proxy->processOfflineRequest({}, &frameNumber);
    EXPECT_EQ(status.getExceptionCode(), EX_TRANSACTION_FAILED);
    EXPECT_EQ(status.getStatus(), STATUS_DEAD_OBJECT);
    EXPECT_EQ(session->mRequests, 3u);
}

}  // namespace

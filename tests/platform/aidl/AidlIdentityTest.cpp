/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * What the generated vendor interfaces carry for other processes and nothing on the host reads
 * back: the descriptor, the frozen version and its hash as the build computes it from the frozen
 * files, and transaction codes in the declaration order of the .aidl sources.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineClientCallback.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace ::aidl::vendor::oru::hardware::camera::offlinecamera;
using Transactions = std::vector<std::pair<std::string, uint32_t>>;

// Checks interface I against its .aidl file; transactions are the generated codes by method name.
template <typename I>
void ExpectIdentity(const std::string& name, const Transactions& transactions) {
    SCOPED_TRACE(name);
    EXPECT_EQ("vendor.oru.hardware.camera.offlinecamera." + name, I::descriptor);
    EXPECT_EQ(2, I::version);
    EXPECT_EQ(OFFLINECAMERA_FROZEN_HASH, I::hash);

    std::ifstream in(OFFLINECAMERA_AIDL_DIR "/" + name + ".aidl");
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    text = std::regex_replace(text, std::regex(R"(/\*[\s\S]*?\*/|//[^\n]*)"), " ");
    const size_t body = text.find('{', text.find("interface "));
    ASSERT_NE(std::string::npos, body);
    text = text.substr(body);
    const std::regex method(R"((\w+)\s*\([^;]*;)");
    size_t index = 0;
    for (std::sregex_iterator it(text.begin(), text.end(), method), end; it != end; ++it, ++index) {
        ASSERT_LT(index, transactions.size()) << (*it)[1];
        EXPECT_EQ((*it)[1], transactions[index].first);
        EXPECT_EQ(FIRST_CALL_TRANSACTION + index, transactions[index].second);
    }
    EXPECT_EQ(transactions.size(), index);
}

#define TX(m) \
    { #m, I::TRANSACTION_##m }
#define EXPECT_IDENTITY(Interface, ...)                           \
    {                                                             \
        using I = Interface;                                      \
        ExpectIdentity<I>(#Interface, Transactions{__VA_ARGS__}); \
    }

TEST(AidlIdentityTest, InterfacesCarryTheFrozenVersionAndDeclarationOrder) {
    EXPECT_IDENTITY(IOfflineCameraService, TX(getSupportedOpModes), TX(registerClient),
                    TX(unRegisterClient), TX(openOfflineSeesion), TX(getOfflineStaticCaps));
    EXPECT_IDENTITY(IOfflineCameraSession, TX(configureOfflineSession), TX(processOfflineRequest),
                    TX(closeOfflineSession), TX(flushOfflineSession), TX(dumpOfflineSession));
    EXPECT_IDENTITY(IOfflineCameraSessionCallback, TX(notify), TX(processCaptureResult));
    EXPECT_IDENTITY(IOfflineClientCallback, TX(notify), TX(processCaptureResult),
                    TX(requestStreamBuffers), TX(returnStreamBuffers));
}

}  // namespace

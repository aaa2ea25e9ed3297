/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host main of the device test (vts/), playing what a device gives it: the instances that the
 * tree's VINTF fragment declares, published by the camera HAL's part played in this process and
 * reached through a proxy. After each test, what the process holds must be back where it was.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <android/binder_manager.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/VornTesting.h>
#include <stdio.h>

#include <string>

#include "LogCapture.h"
#include "OfflineCameraAIDLService.h"
#include "OfflineCameraService.h"
#include "ProcessCounts.h"

namespace {

using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::offlinecamera::test::LogCapture;
using ::offlinecamera::test::ProcessCounts;

class BalanceListener : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override {
        LogCapture::Clear();
        mStart = ProcessCounts::Take();
    }

    // Runs before the result is printed, while the test is still the current one.
    void OnTestEnd(const ::testing::TestInfo& info) override {
        // Waits for what ends on the backend's thread after the test.
        EXPECT_EQ(mStart.ToString(), ProcessCounts::Settled(mStart).ToString())
                << "the test did not give back what it made";
        if (info.result()->Failed()) fprintf(stderr, "log:\n%s", LogCapture::Dump().c_str());
    }

    ProcessCounts mStart;
};

}  // namespace

int main(int argc, char** argv) {
    LogCapture::Start();
    if (::ndk::host::addVintfManifest(TEST_VINTF_MANIFEST) < 1) {
        fprintf(stderr, "cannot read the instances of %s\n", TEST_VINTF_MANIFEST);
        return 1;
    }
    Vorn::Host::SetVendorRoot(TEST_VENDOR_ROOT);
    RegisterOfflineCameraAIDLService();
    // The HAL binds the backend at start-up; what the core holds stays for the process.
    OfflineCameraService::GetInstance();
    std::string missing;  // declared but not published
    AServiceManager_forEachDeclaredInstance(
            IOfflineCameraService::descriptor, &missing, [](const char* instance, void* context) {
                const std::string name =
                        std::string(IOfflineCameraService::descriptor) + "/" + instance;
                ::ndk::SpAIBinder binder(AServiceManager_checkService(name.c_str()));
                if (binder.get() != nullptr) ::ndk::host::setRemote(binder.get(), true);
                if (binder.get() == nullptr) *static_cast<std::string*>(context) += name + " ";
            });
    if (!missing.empty()) {
        fprintf(stderr, "declared but not published: %s\n%s", missing.c_str(),
                LogCapture::Dump().c_str());
        return 1;
    }

    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new BalanceListener);
    const int status = RUN_ALL_TESTS();
    if (::testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
        fprintf(stderr, "no declared instance of %s to test\n", IOfflineCameraService::descriptor);
        return 1;
    }
    return status;
}

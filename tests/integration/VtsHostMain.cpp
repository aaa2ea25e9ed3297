/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host main of the device test (vts/): it plays what a device gives the test. The tree's VINTF
 * manifest fragment declares the instances; the camera HAL process's part, publishing the
 * service with the reference backend bound, is played in this process, and the service's binder
 * is marked remote so that the test reaches it through a proxy, as from another process. After
 * each test a listener checks that descriptors, imports, vendor allocations, backend objects,
 * binders and death recipients are back where they were.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <android/binder_manager.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/VornTesting.h>
#include <stdio.h>

#include <string>
#include <vector>

#include "LogCapture.h"
#include "OfflineCameraAIDLService.h"
#include "OfflineCameraService.h"
#include "ProcessCounts.h"

namespace {

using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::offlinecamera::test::LogCapture;
using ::offlinecamera::test::ProcessCounts;

class BalanceListener : public ::testing::EmptyTestEventListener {
  public:
    void OnTestStart(const ::testing::TestInfo& /*info*/) override {
        LogCapture::Clear();
        mStart = ProcessCounts::Take();
    }

    // Runs before the result is printed, while the test is still the current one.
    void OnTestEnd(const ::testing::TestInfo& info) override {
        const ProcessCounts end = ProcessCounts::Take();
        if (!(end == mStart)) {
            ADD_FAILURE() << "the test did not give back what it made\nbefore: "
                          << mStart.ToString() << "\nafter:  " << end.ToString();
        }
        if (info.result()->Failed()) {
            fprintf(stderr, "captured log:\n%s", LogCapture::Dump().c_str());
        }
    }

  private:
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

    std::vector<std::string> instances;
    AServiceManager_forEachDeclaredInstance(
            IOfflineCameraService::descriptor, &instances, [](const char* instance, void* context) {
                static_cast<std::vector<std::string>*>(context)->push_back(instance);
            });
    for (const std::string& instance : instances) {
        const std::string name = std::string(IOfflineCameraService::descriptor) + "/" + instance;
        ::ndk::SpAIBinder binder(AServiceManager_checkService(name.c_str()));
        if (binder.get() == nullptr) {
            fprintf(stderr, "%s is declared but not published\n%s", name.c_str(),
                    LogCapture::Dump().c_str());
            return 1;
        }
        ::ndk::host::setRemote(binder.get(), true);
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

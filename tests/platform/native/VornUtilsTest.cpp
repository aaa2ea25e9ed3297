/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

// Vorn utilities: vendor library mapping below the host's vendor root, and the vendor allocator.
#include <gtest/gtest.h>
#include <hostplatform/VornTesting.h>
#include <stdlib.h>
#include <vorn/VornMemory.h>
#include <vorn/VornOsUtils.h>

#include <string>

#include "PlatformTestSupport.h"

namespace {

constexpr char kPluginPath[] = "/vendor/lib64/hw/libvorn_test_plugin.so";

class VornLibraryTest : public platformtest::FdBalancedTest {
  protected:
    void TearDown() override {
        Vorn::Host::SetVendorRoot(nullptr);
        unsetenv("VORN_VENDOR_ROOT");
        FdBalancedTest::TearDown();
    }
};

TEST_F(VornLibraryTest, EnvironmentSuppliesTheRootUnlessOneIsSet) {
    setenv("VORN_VENDOR_ROOT", NATIVE_TEST_VENDOR_ROOT, 1);
    void* library = Vorn::OsUtils::LibMap(kPluginPath);
    ASSERT_NE(nullptr, library);
    auto answer =
            reinterpret_cast<int (*)()>(Vorn::OsUtils::LibGetAddr(library, "VornTestPluginAnswer"));
    ASSERT_NE(nullptr, answer);
    EXPECT_EQ(42, answer());
    offlinecamera::test::LogCapture::Start();
    EXPECT_EQ(nullptr, Vorn::OsUtils::LibGetAddr(library, "NoSuchSymbol"));
    EXPECT_TRUE(
            platformtest::logContains("VornOsUtils", "LibGetAddr: symbol NoSuchSymbol not found"));
    EXPECT_EQ(0, Vorn::OsUtils::LibUnmap(library));

    // Paths outside /vendor are opened as given.
    library = Vorn::OsUtils::LibMap((std::string(NATIVE_TEST_VENDOR_ROOT) + kPluginPath).c_str());
    ASSERT_NE(nullptr, library);
    EXPECT_EQ(0, Vorn::OsUtils::LibUnmap(library));

    Vorn::Host::SetVendorRoot("");  // overrides the environment: no mapping
    EXPECT_EQ(nullptr, Vorn::OsUtils::LibMap(kPluginPath));
    EXPECT_TRUE(platformtest::logContains("VornOsUtils",
                                          std::string("LibMap: cannot map ") + kPluginPath + ": "));
    EXPECT_EQ(nullptr, Vorn::OsUtils::LibMap(nullptr));
    EXPECT_NE(0, Vorn::OsUtils::LibUnmap(nullptr));
}

TEST(VornMemoryTest, CountsAllocationsAndFailsTheRequestedOnes) {
    const size_t live = Vorn::Host::LiveAllocations();
    const size_t total = Vorn::Host::TotalAllocations();
    auto* zeroed = static_cast<uint8_t*>(VornCalloc(16, 4));
    ASSERT_NE(nullptr, zeroed);
    for (size_t i = 0; i < 64; ++i) {
        EXPECT_EQ(0, zeroed[i]);
    }

    Vorn::Host::FailAllocations(1, 2);  // the second and third from now
    void* first = VornCalloc(1, 8);
    EXPECT_NE(nullptr, first);
    EXPECT_EQ(nullptr, VornCalloc(1, 8));
    EXPECT_EQ(nullptr, VornCalloc(1, 8));
    void* fourth = VornCalloc(1, 8);
    EXPECT_NE(nullptr, fourth);
    EXPECT_EQ(live + 3, Vorn::Host::LiveAllocations());
    EXPECT_EQ(total + 3, Vorn::Host::TotalAllocations());

    Vorn::Host::FailAllocations(0, 5);
    Vorn::Host::ClearAllocationFailures();
    void* afterClear = VornCalloc(1, 8);
    EXPECT_NE(nullptr, afterClear);
    for (void* block :
         {static_cast<void*>(zeroed), first, fourth, afterClear, static_cast<void*>(nullptr)}) {
        VornFree(block);
    }
    EXPECT_EQ(live, Vorn::Host::LiveAllocations());
}

}  // namespace

// Vorn utilities: vendor library mapping below the host's vendor root, and the vendor allocator.
#include <gtest/gtest.h>
#include <hostplatform/VornTesting.h>
#include <stdlib.h>
#include <vorn/VornMemory.h>
#include <vorn/VornOsUtils.h>

#include <string>

#include "NativeTestSupport.h"

namespace {

constexpr char kPluginPath[] = "/vendor/lib64/hw/libvorn_test_plugin.so";
constexpr char kPluginSymbol[] = "VornTestPluginAnswer";

class VornLibraryTest : public nativetest::FdBalancedTest {
  protected:
    void TearDown() override {
        Vorn::Host::SetVendorRoot(nullptr);
        unsetenv("VORN_VENDOR_ROOT");
        FdBalancedTest::TearDown();
    }

    static int callPlugin(void* library) {
        auto answer = reinterpret_cast<int (*)()>(Vorn::OsUtils::LibGetAddr(library, kPluginSymbol));
        return answer != nullptr ? answer() : -1;
    }
};

TEST_F(VornLibraryTest, VendorPathsResolveBelowTheVendorRoot) {
    Vorn::Host::SetVendorRoot(NATIVE_TEST_VENDOR_ROOT);
    EXPECT_EQ(NATIVE_TEST_VENDOR_ROOT, Vorn::Host::VendorRoot());
    void* library = Vorn::OsUtils::LibMap(kPluginPath);
    ASSERT_NE(nullptr, library);
    EXPECT_EQ(42, callPlugin(library));

    offlinecamera::test::LogCapture::Start();
    EXPECT_EQ(nullptr, Vorn::OsUtils::LibGetAddr(library, "NoSuchSymbol"));
    EXPECT_TRUE(
            nativetest::logContains("VornOsUtils", "LibGetAddr: symbol NoSuchSymbol not found"));
    EXPECT_EQ(0, Vorn::OsUtils::LibUnmap(library));

    // Paths outside /vendor are opened as given.
    library = Vorn::OsUtils::LibMap((std::string(NATIVE_TEST_VENDOR_ROOT) + kPluginPath).c_str());
    ASSERT_NE(nullptr, library);
    EXPECT_EQ(0, Vorn::OsUtils::LibUnmap(library));
}

TEST_F(VornLibraryTest, EnvironmentSuppliesTheRootUnlessOneIsSet) {
    setenv("VORN_VENDOR_ROOT", NATIVE_TEST_VENDOR_ROOT, 1);
    void* library = Vorn::OsUtils::LibMap(kPluginPath);
    ASSERT_NE(nullptr, library);
    EXPECT_EQ(42, callPlugin(library));
    EXPECT_EQ(0, Vorn::OsUtils::LibUnmap(library));

    Vorn::Host::SetVendorRoot("");  // overrides the environment: no mapping
    offlinecamera::test::LogCapture::Start();
    EXPECT_EQ(nullptr, Vorn::OsUtils::LibMap(kPluginPath));
    EXPECT_TRUE(nativetest::logContains("VornOsUtils",
                                        std::string("LibMap: cannot map ") + kPluginPath + ": "));
}

TEST_F(VornLibraryTest, MissingLibraryGivesNull) {
    Vorn::Host::SetVendorRoot(NATIVE_TEST_VENDOR_ROOT);
    offlinecamera::test::LogCapture::Start();
    EXPECT_EQ(nullptr, Vorn::OsUtils::LibMap("/vendor/lib64/hw/absent.so"));
    // The dlerror text names the file below the vendor root.
    EXPECT_TRUE(nativetest::logContains(
            "VornOsUtils", std::string(NATIVE_TEST_VENDOR_ROOT) +
                                   "/vendor/lib64/hw/absent.so: cannot open shared object file"))
            << offlinecamera::test::LogCapture::Dump();
    EXPECT_EQ(nullptr, Vorn::OsUtils::LibMap(nullptr));
    EXPECT_NE(0, Vorn::OsUtils::LibUnmap(nullptr));
}

class VornMemoryTest : public ::testing::Test {
  protected:
    void SetUp() override { mLiveAtStart = Vorn::Host::LiveAllocations(); }
    void TearDown() override {
        Vorn::Host::ClearAllocationFailures();
        EXPECT_EQ(mLiveAtStart, Vorn::Host::LiveAllocations());
    }
    size_t mLiveAtStart = 0;
};

TEST_F(VornMemoryTest, CountsLiveAndTotalAllocations) {
    const size_t totalAtStart = Vorn::Host::TotalAllocations();
    auto* first = static_cast<uint8_t*>(VornCalloc(16, 4));
    void* second = VornCalloc(1, 1);
    ASSERT_NE(nullptr, first);
    ASSERT_NE(nullptr, second);
    for (size_t i = 0; i < 64; ++i) {
        EXPECT_EQ(0, first[i]);
    }
    EXPECT_EQ(mLiveAtStart + 2, Vorn::Host::LiveAllocations());
    VornFree(first);
    VornFree(nullptr);
    EXPECT_EQ(mLiveAtStart + 1, Vorn::Host::LiveAllocations());
    VornFree(second);
    EXPECT_EQ(totalAtStart + 2, Vorn::Host::TotalAllocations());
}

TEST_F(VornMemoryTest, FailsTheRequestedAllocations) {
    Vorn::Host::FailAllocations(1, 2);
    void* first = VornCalloc(1, 8);
    EXPECT_NE(nullptr, first);
    EXPECT_EQ(nullptr, VornCalloc(1, 8));
    EXPECT_EQ(nullptr, VornCalloc(1, 8));
    void* fourth = VornCalloc(1, 8);
    EXPECT_NE(nullptr, fourth);
    EXPECT_EQ(mLiveAtStart + 2, Vorn::Host::LiveAllocations());
    VornFree(first);
    VornFree(fourth);

    Vorn::Host::FailAllocations(0, 5);
    Vorn::Host::ClearAllocationFailures();
    void* afterClear = VornCalloc(1, 8);
    EXPECT_NE(nullptr, afterClear);
    VornFree(afterClear);
}

}  // namespace

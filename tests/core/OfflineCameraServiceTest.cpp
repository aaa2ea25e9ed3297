/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Backend binding of the core: what a service built over a given backend holds, logs and
 * tears down.
 */
#include <gtest/gtest.h>
#include <hostplatform/CameraMetadataTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <hostplatform/VornTesting.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "LogCapture.h"
#include "OfflineCameraService.h"
#include "ResourceBalance.h"

namespace offlinecamera::test {
namespace {

constexpr const char* kTag = "KivOfflineCameraSevice";

LogLine SummaryLine(const void* intfCbs, const void* bufferOps, const void* staticMeta) {
    return {ANDROID_LOG_INFO, kTag,
            Format("%d %s: pOfflineIntfCbs %p, pOfflineBufferOps %p m_pStaticMeta %p", 266,
                   "Initialize", intfCbs, bufferOps, staticMeta)};
}

std::vector<kivref::Slot> CalledSlots() {
    std::vector<kivref::Slot> slots;
    for (const kivref::CallRecord& call : kivref::Calls()) slots.push_back(call.slot);
    return slots;
}

// The first recorded call of a slot.
std::optional<kivref::CallRecord> FindCall(kivref::Slot slot) {
    for (const kivref::CallRecord& call : kivref::Calls()) {
        if (call.slot == slot) return call;
    }
    return std::nullopt;
}

class BackendBindingTest : public BalancedTest {
  protected:
    void SetUp() override {
        kivref::Reset();
        kivref::ClearCalls();
        Vorn::Host::SetVendorRoot(TEST_VENDOR_ROOT);
        mContextsBefore = kivref::LiveContexts();
        BalancedTest::SetUp();
    }
    void TearDown() override {
        mService.reset();
        EXPECT_EQ(mContextsBefore, kivref::LiveContexts());
        BalancedTest::TearDown();
        kivref::Reset();
        Vorn::Host::SetVendorRoot(TEST_VENDOR_ROOT);
    }

    OfflineCameraService* Bind() {
        mService = std::make_unique<OfflineCameraService>();
        return mService.get();
    }

    std::unique_ptr<OfflineCameraService> mService;
    size_t mContextsBefore = 0;
};

TEST_F(BackendBindingTest, MissingLibraryOrEntryPointLeavesTheServiceUnbound) {
    for (const char* root : {TEST_VENDOR_ROOT_EMPTY, TEST_VENDOR_ROOT_NO_ENTRY}) {
        SCOPED_TRACE(root);
        LogCapture::Clear();
        Vorn::Host::SetVendorRoot(root);
        OfflineCameraService* service = Bind();

        EXPECT_EQ(nullptr, service->GetOfflineStaticCaps());
        EXPECT_EQ(std::vector<LogLine>{SummaryLine(nullptr, nullptr, nullptr)},
                  LogCapture::Lines(kTag));
        EXPECT_TRUE(kivref::Calls().empty());

        // The registry does not need the backend.
        service->RegisterConsumerClient(3, nullptr);
        EXPECT_FALSE(service->RegisterProducerClient(3));
        mService.reset();
    }
    // The library could not be mapped, then had no entry point.
    EXPECT_EQ(std::vector<std::string>(2, "VornOsUtils"), LogCapture::TakePlatformErrorTags());
}

TEST_F(BackendBindingTest, StaticMetadataIsReadThroughATemporaryMetadataTable) {
    OfflineCameraService* service = Bind();

    std::optional<kivref::CallRecord> open = FindCall(kivref::Slot::OpenContext);
    ASSERT_TRUE(open.has_value());
    EXPECT_EQ("HAL3 Extension", open->text);
    EXPECT_EQ(257, open->ints[0]);

    // Buffer ops first, then the static characteristics through a table opened for no camera,
    // which is released and closed again before the constructor returns.
    std::vector<kivref::Slot> expected = {kivref::Slot::OpenContext,
                                          kivref::Slot::GetBufferOps,
                                          kivref::Slot::OpenMetadataOps,
                                          kivref::Slot::GetStaticInfo,
                                          kivref::Slot::CreateAndroidMetadata,
                                          kivref::Slot::ReleaseAndroidMetadata,
                                          kivref::Slot::MetaClose};
    EXPECT_EQ(expected, CalledSlots());
    EXPECT_EQ(0xFFFFFFFFu, FindCall(kivref::Slot::OpenMetadataOps)->cameraId);
    std::optional<kivref::CallRecord> create = FindCall(kivref::Slot::CreateAndroidMetadata);
    EXPECT_EQ(0, create->ints[0]);
    EXPECT_EQ(0, create->ints[1]);
    EXPECT_EQ(0, create->ints[2]);
    EXPECT_EQ(nullptr, create->pointer);
    EXPECT_EQ(0u, kivref::OpenMetadataOps());
    EXPECT_EQ(0u, kivref::LiveAndroidMetadata());

    camera_metadata_t* caps = service->GetOfflineStaticCaps();
    ASSERT_NE(nullptr, caps);
    EXPECT_EQ(caps, service->GetOfflineStaticCaps());
    EXPECT_EQ(0, validate_camera_metadata_structure(caps, nullptr));
    EXPECT_EQ(kivref::DefaultStaticEntryCount(), get_camera_metadata_entry_count(caps));
    camera_metadata_ro_entry_t level;
    EXPECT_EQ(0, find_camera_metadata_ro_entry(caps, ANDROID_INFO_SUPPORTED_HARDWARE_LEVEL, &level));

    // The summary names the backend's main table, its buffer operations and the metadata.
    const void* table = open->result;
    ASSERT_NE(nullptr, table);
    EXPECT_EQ(std::vector<LogLine>{SummaryLine(table, FindCall(kivref::Slot::GetBufferOps)->result,
                                               caps)},
              LogCapture::Lines(kTag));
}

TEST_F(BackendBindingTest, StaticMetadataKeepsTheFixedCapacity) {
    struct Case {
        size_t entries;
        size_t dataBytes;
        size_t expectedEntries;
    };
    // 10 entries and 80 data bytes fit exactly; one more entry or 8 more bytes leave it empty.
    for (const Case& c : {Case{10, 80, 10}, Case{11, 80, 0}, Case{10, 88, 0}}) {
        SCOPED_TRACE(testing::Message() << c.entries << " entries, " << c.dataBytes << " bytes");
        kivref::SetStaticMetadata(c.entries, c.dataBytes);
        OfflineCameraService* service = Bind();
        camera_metadata_t* caps = service->GetOfflineStaticCaps();
        ASSERT_NE(nullptr, caps);
        EXPECT_EQ(0, validate_camera_metadata_structure(caps, nullptr));
        EXPECT_EQ(c.expectedEntries, get_camera_metadata_entry_count(caps));
        EXPECT_EQ(0u, kivref::LiveAndroidMetadata());
        // A copy that does not fit is refused by the metadata library.
        EXPECT_EQ(std::vector<std::string>(c.expectedEntries == 0 ? 1 : 0, "CameraMetadata"),
                  LogCapture::TakePlatformErrorTags());
        mService.reset();
    }
}

TEST_F(BackendBindingTest, MissingOrFailingSlotsAreAbsorbed) {
    // Without buffer operations nothing is closed for them at teardown.
    kivref::SetSlotAbsent(kivref::Slot::GetBufferOps, true);
    Bind();
    ASSERT_NE(nullptr, mService->GetOfflineStaticCaps());
    kivref::ClearCalls();
    mService.reset();
    EXPECT_EQ(std::vector<kivref::Slot>{kivref::Slot::CloseContext}, CalledSlots());
    kivref::Reset();

    // Without metadata operations there is no static metadata and no static info call.
    kivref::ClearCalls();
    kivref::SetSlotAbsent(kivref::Slot::OpenMetadataOps, true);
    EXPECT_EQ(nullptr, Bind()->GetOfflineStaticCaps());
    EXPECT_FALSE(FindCall(kivref::Slot::GetStaticInfo).has_value());
    mService.reset();
    kivref::Reset();

    // A table that cannot be opened is logged.
    LogCapture::Clear();
    kivref::SetSlotFailure(kivref::Slot::OpenMetadataOps, true);
    EXPECT_EQ(nullptr, Bind()->GetOfflineStaticCaps());
    EXPECT_TRUE(LogCapture::Contains(
            {ANDROID_LOG_ERROR, kTag, "259 Initialize: Failed to open Metadata Ops"}))
            << LogCapture::Dump();
    mService.reset();
    kivref::Reset();

    // Characteristics that cannot be converted leave the buffer empty; the null result is still
    // released and the table closed.
    kivref::ClearCalls();
    kivref::SetSlotFailure(kivref::Slot::CreateAndroidMetadata, true);
    camera_metadata_t* caps = Bind()->GetOfflineStaticCaps();
    ASSERT_NE(nullptr, caps);
    EXPECT_EQ(0u, get_camera_metadata_entry_count(caps));
    std::optional<kivref::CallRecord> release = FindCall(kivref::Slot::ReleaseAndroidMetadata);
    ASSERT_TRUE(release.has_value());
    EXPECT_EQ(nullptr, release->pointer);
    EXPECT_TRUE(FindCall(kivref::Slot::MetaClose).has_value());
    EXPECT_EQ(0u, kivref::OpenMetadataOps());
}

TEST_F(BackendBindingTest, FailedStaticAllocationLeavesTheTableOpen) {
    // Only the service's fixed-capacity buffer fails, not the backend's own metadata.
    android::hostmetadata::failNextAllocations(1, 10, 80);
    EXPECT_EQ(nullptr, Bind()->GetOfflineStaticCaps());
    EXPECT_TRUE(LogCapture::Contains(
            {ANDROID_LOG_WARN, kTag, "254 Initialize: Failed to allocate metadata"}))
            << LogCapture::Dump();
    EXPECT_FALSE(FindCall(kivref::Slot::CreateAndroidMetadata).has_value());
    // The static table is not closed on this path; the backend closes it with its context.
    EXPECT_FALSE(FindCall(kivref::Slot::MetaClose).has_value());
    EXPECT_EQ(1u, kivref::OpenMetadataOps());
    EXPECT_TRUE(LogCapture::Contains(SummaryLine(
            kivref::Calls()[0].result, FindCall(kivref::Slot::GetBufferOps)->result, nullptr)));
}

TEST_F(BackendBindingTest, TeardownLogsCloseFailuresAndGoesOn) {
    Bind();
    LogCapture::Clear();
    mService.reset();
    EXPECT_TRUE(LogCapture::Lines(kTag).empty()) << LogCapture::Dump();

    kivref::SetSlotFailure(kivref::Slot::BufferOpsClose, true);
    kivref::SetSlotFailure(kivref::Slot::CloseContext, true);
    Bind();
    LogCapture::Clear();
    mService.reset();

    std::vector<LogLine> expected = {
            {ANDROID_LOG_ERROR, kTag, "58 ~OfflineCameraService: Failed to close buffer ops"},
            {ANDROID_LOG_ERROR, kTag, "79 ~OfflineCameraService: Failed to close buffer ops"}};
    EXPECT_EQ(expected, LogCapture::Lines(kTag));
}

}  // namespace
}  // namespace offlinecamera::test

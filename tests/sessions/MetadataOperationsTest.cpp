/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The core's per-camera metadata operations: shared opening by reference count, closing at the
 * last release (a session's close included), and the conversions that look a camera's table up.
 */
#include <gtest/gtest.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <vector>

#include "IsolatedCoreTest.h"

namespace offlinecamera::test {
namespace {

LogLine Info(const std::string& message) {
    return {ANDROID_LOG_INFO, kCoreTag, message};
}

LogLine NotFindLine(int line, const char* function, size_t size, uint32_t cameraId) {
    return {ANDROID_LOG_ERROR, kCoreTag,
            Format("%d %s: metaOpSize:%zu, Not find mFrameworkCameraId:%d metaOps", line, function,
                   size, cameraId)};
}

class MetadataOperationsTest : public IsolatedCoreTest {
  protected:
    // The table most recently opened for a camera.
    static const void* OpenedTable(uint32_t cameraId) {
        const void* table = nullptr;
        for (const kivref::CallRecord& call : CallsOf(kivref::Slot::OpenMetadataOps)) {
            if (call.cameraId == cameraId) table = call.result;
        }
        return table;
    }

    // Runs all five conversions for a camera; true when each gave its failure value.
    bool AllConversionsFail(uint32_t cameraId) {
        int dummy = 0;
        uint32_t tags[] = {ANDROID_SENSOR_TIMESTAMP};
        bool failed = mService->CreateAndroidMetadata(cameraId, &dummy, 1, 1, 0, nullptr) == nullptr;
        failed &= mService->CreateByAndroidMetadata(cameraId, nullptr, 0, 0, 0xFFFFFFFF) == nullptr;
        failed &= mService->CreateKivMetaData(cameraId, tags, 1) == nullptr;
        failed &= mService->DestoryKivMetadata(cameraId, &dummy) == 1;
        failed &= mService->ReleaseAndroidMetadata(cameraId, nullptr) == 1;
        return failed;
    }
};

TEST_F(MetadataOperationsTest, UsersShareOneTableUntilTheLastReleaseAndReopenTheEntry) {
    Bind();
    mService->InitMetaOps(5);
    const void* first = OpenedTable(5);
    ASSERT_NE(nullptr, first);
    mService->InitMetaOps(5);
    mService->DeInitMetaOps(5);
    EXPECT_EQ(1u, kivref::OpenMetadataOps());
    mService->DeInitMetaOps(5);
    EXPECT_EQ(0u, kivref::OpenMetadataOps());
    // Releasing too often and releasing an unknown camera change nothing.
    mService->DeInitMetaOps(5);
    mService->DeInitMetaOps(9);
    // The closed entry is opened again in place: the map keeps one entry.
    mService->InitMetaOps(5);
    const void* second = OpenedTable(5);
    ASSERT_NE(nullptr, second);

    EXPECT_EQ(2u, CallsOf(kivref::Slot::OpenMetadataOps).size());
    ASSERT_EQ(1u, CallsOf(kivref::Slot::MetaClose).size());
    EXPECT_EQ(first, CallsOf(kivref::Slot::MetaClose)[0].table);
    const char* reduce =
            "174 DeInitMetaOps: metaOpSize:%zu, ref:%d mLogicalCameraId:%d reduce "
            "metaOps:%p";
    std::vector<LogLine> expected = {
            Info(Format("143 InitMetaOps: metaOpSize:0, mFrameworkCameraId:5, open new "
                        "metaOps:%p",
                        first)),
            Info(Format("106 InitMetaOps: metaOpSize:1, ref:1, FrameworkCameraId:5, already get "
                        "metaOps %p",
                        first)),
            Info(Format(reduce, size_t{1}, 1, 5, first)),
            Info(Format(reduce, size_t{1}, 0, 5, first)),
            Info(Format(reduce, size_t{1}, 0, 5, nullptr)),
            NotFindLine(189, "DeInitMetaOps", 1, 9),
            Info(Format("126 InitMetaOps: metaOpSize:1, ref:1, frameworkCameraId:5, Open new "
                        "metaOps:%p",
                        second))};
    EXPECT_EQ(expected, LogCapture::Lines(kCoreTag));

    mService->DeInitMetaOps(5);
    EXPECT_EQ(0u, kivref::OpenMetadataOps());
}

TEST_F(MetadataOperationsTest, ATableThatCannotBeOpenedAddsNoEntry) {
    for (auto script : {kivref::SetSlotFailure, kivref::SetSlotAbsent}) {
        kivref::Reset();
        script(kivref::Slot::OpenMetadataOps, true);
        Bind();
        mService->InitMetaOps(4);
        mService->DeInitMetaOps(4);
        EXPECT_EQ((std::vector<LogLine>{Info("143 InitMetaOps: metaOpSize:0, "
                                             "mFrameworkCameraId:4, open new metaOps:(nil)"),
                                        NotFindLine(189, "DeInitMetaOps", 0, 4)}),
                  LogCapture::Lines(kCoreTag));
    }

    // Reopening a closed entry fails without a log and leaves its count at 0.
    kivref::SetSlotAbsent(kivref::Slot::OpenMetadataOps, false);
    kivref::Reset();
    Bind();
    mService->InitMetaOps(4);
    mService->DeInitMetaOps(4);
    kivref::SetSlotFailure(kivref::Slot::OpenMetadataOps, true);
    LogCapture::Clear();
    mService->InitMetaOps(4);
    EXPECT_TRUE(LogCapture::Lines(kCoreTag).empty());
    EXPECT_TRUE(AllConversionsFail(4));
    mService->DeInitMetaOps(4);
    EXPECT_EQ(std::vector<LogLine>{Info("174 DeInitMetaOps: metaOpSize:1, ref:0 "
                                        "mLogicalCameraId:4 reduce metaOps:(nil)")},
              LogCapture::Lines(kCoreTag));
}

TEST_F(MetadataOperationsTest, TeardownClosesEveryTableStillInUse) {
    Bind();
    for (uint32_t cameraId : {3, 3, 7, 8}) mService->InitMetaOps(cameraId);
    mService->DeInitMetaOps(8);
    kivref::ClearCalls();

    mService.reset();
    EXPECT_EQ(0u, kivref::OpenMetadataOps());
    std::vector<uint32_t> closed;
    for (const kivref::CallRecord& call : CallsOf(kivref::Slot::MetaClose)) {
        closed.push_back(call.cameraId);
    }
    std::sort(closed.begin(), closed.end());
    EXPECT_EQ((std::vector<uint32_t>{3, 7}), closed);
}

TEST_F(MetadataOperationsTest, ConversionsLogAnUnknownCameraAndSkipAClosedOne) {
    Bind();
    mService->InitMetaOps(1);
    mService->DeInitMetaOps(1);
    LogCapture::Clear();
    kivref::ClearCalls();

    EXPECT_TRUE(AllConversionsFail(1));
    EXPECT_TRUE(LogCapture::Lines(kCoreTag).empty());

    EXPECT_TRUE(AllConversionsFail(8));
    const char* canNotFind = "%d %s: MetaOpSize:%zu, Can not find mFrameworkCameraId:%d metaOps";
    std::vector<LogLine> expected = {
            {ANDROID_LOG_ERROR, kCoreTag,
             Format(canNotFind, 544, "CreateAndroidMetadata", size_t{1}, 8)},
            {ANDROID_LOG_ERROR, kCoreTag,
             Format(canNotFind, 580, "CreateByAndroidMetadata", size_t{1}, 8)},
            NotFindLine(623, "CreateKivMetaData", 1, 8),
            NotFindLine(654, "DestoryKivMetadata", 1, 8),
            NotFindLine(687, "ReleaseAndroidMetadata", 1, 8)};
    EXPECT_EQ(expected, LogCapture::Lines(kCoreTag));
    EXPECT_TRUE(kivref::Calls().empty());
}

TEST_F(MetadataOperationsTest, ConversionsGoThroughTheCamerasOwnTable) {
    Bind();
    mService->InitMetaOps(1);
    mService->InitMetaOps(2);
    const void* table1 = OpenedTable(1);
    const void* table2 = OpenedTable(2);
    kivref::ClearCalls();
    LogCapture::Clear();

    camera_metadata_t* settings = allocate_camera_metadata(2, 8);
    ASSERT_NE(nullptr, settings);
    int32_t orientation = 270;
    ASSERT_EQ(0, add_camera_metadata_entry(settings, ANDROID_JPEG_ORIENTATION, &orientation, 1));

    KivMetadataHandle fromSettings =
            mService->CreateByAndroidMetadata(2, settings, 0, 0, 0xFFFFFFFF);
    ASSERT_NE(nullptr, fromSettings);
    kivref::CallRecord createBy = CallsOf(kivref::Slot::CreateByAndroidMetadata).at(0);
    EXPECT_EQ(table2, createBy.table);
    EXPECT_EQ(settings, createBy.pointer);
    EXPECT_EQ(0xFFFFFFFF, createBy.ints[2]);

    uint32_t size = 0;
    camera_metadata_t* converted = mService->CreateAndroidMetadata(2, fromSettings, 1, 1, 0, &size);
    ASSERT_NE(nullptr, converted);
    EXPECT_EQ(get_camera_metadata_size(converted), size);
    camera_metadata_ro_entry_t entry;
    ASSERT_EQ(0, find_camera_metadata_ro_entry(converted, ANDROID_JPEG_ORIENTATION, &entry));
    EXPECT_EQ(270, entry.data.i32[0]);
    kivref::CallRecord create = CallsOf(kivref::Slot::CreateAndroidMetadata).at(0);
    EXPECT_EQ(table2, create.table);
    EXPECT_EQ(1, create.ints[0]);

    // A failing release gives its status back unchanged.
    kivref::SetSlotFailure(kivref::Slot::ReleaseAndroidMetadata, true);
    EXPECT_EQ(-1, mService->ReleaseAndroidMetadata(2, converted));
    kivref::SetSlotFailure(kivref::Slot::ReleaseAndroidMetadata, false);

    uint32_t tags[] = {ANDROID_SENSOR_TIMESTAMP, ANDROID_REQUEST_FRAME_COUNT};
    KivMetadataHandle empty = mService->CreateKivMetaData(1, tags, 2);
    ASSERT_NE(nullptr, empty);
    kivref::CallRecord createKiv = CallsOf(kivref::Slot::CreateKivMetadata).at(0);
    EXPECT_EQ(table1, createKiv.table);
    EXPECT_EQ(2, createKiv.ints[0]);

    EXPECT_EQ(0, mService->DestoryKivMetadata(1, empty));
    EXPECT_EQ(0, mService->DestoryKivMetadata(2, fromSettings));
    EXPECT_TRUE(LogCapture::Lines(kCoreTag).empty());

    free_camera_metadata(settings);
    mService->DeInitMetaOps(1);
    mService->DeInitMetaOps(2);
}

// A session's close ends its hold on the camera's table whatever the backend answers.
TEST_F(MetadataOperationsTest, CloseReleasesTheCameraHoldWhateverTheBackendAnswers) {
    Bind();
    KivOfflineCallbacks callbacks = {nullptr, nullptr, 0, 0, this};
    KivOfflineSessionInfo info = {"portrait", 0, &callbacks};
    uint64_t handle = mService->OpenSession(&info);
    mService->InitMetaOps(6);
    kivref::SetSlotFailure(kivref::Slot::CloseSession, true);
    kivref::ClearCalls();
    EXPECT_EQ(-1, mService->CloseSession(6, handle));
    EXPECT_EQ((std::vector<kivref::Slot>{kivref::Slot::CloseSession, kivref::Slot::MetaClose}),
              CalledSlots());
    EXPECT_EQ(0u, kivref::OpenMetadataOps());
}

}  // namespace
}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Shared pieces of the session tests: reading the reference backend's call record, and a fixture
 * for tests of the core's metadata and session operations, in which each test binds its own
 * OfflineCameraService instance to the reference backend with a fresh script and call record.
 */
#pragma once

#include <hostplatform/KivReferenceBackend.h>
#include <hostplatform/VornTesting.h>

#include <memory>
#include <vector>

#include "LogCapture.h"
#include "OfflineCameraService.h"
#include "ResourceBalance.h"

namespace offlinecamera::test {

constexpr const char* kCoreTag = "KivOfflineCameraSevice";

// Recorded backend calls of one slot, in call order.
inline std::vector<kivref::CallRecord> CallsOf(kivref::Slot slot) {
    std::vector<kivref::CallRecord> calls;
    for (const kivref::CallRecord& call : kivref::Calls()) {
        if (call.slot == slot) calls.push_back(call);
    }
    return calls;
}

inline std::vector<kivref::Slot> CalledSlots() {
    std::vector<kivref::Slot> slots;
    for (const kivref::CallRecord& call : kivref::Calls()) slots.push_back(call.slot);
    return slots;
}

class IsolatedCoreTest : public BalancedTest {
  protected:
    void SetUp() override {
        kivref::Reset();
        Vorn::Host::SetVendorRoot(TEST_VENDOR_ROOT);
        BalancedTest::SetUp();
    }
    void TearDown() override {
        mService.reset();
        EXPECT_EQ(0u, kivref::LiveSessions());
        BalancedTest::TearDown();
        kivref::Reset();
    }

    // Binds an instance; the calls and log lines of binding are cleared.
    OfflineCameraService* Bind() {
        mService = std::make_unique<OfflineCameraService>();
        kivref::ClearCalls();
        LogCapture::Clear();
        return mService.get();
    }

    std::unique_ptr<OfflineCameraService> mService;
};

}  // namespace offlinecamera::test

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * A client of the published service in another process, as the session tests play it: it
 * reaches the service, and the sessions it opens, through proxies of remote binders.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <android/binder_manager.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <hostplatform/VornTesting.h>

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "ChildScenario.h"
#include "IsolatedCoreTest.h"
#include "LogCapture.h"
#include "OfflineCameraAIDLService.h"
#include "OfflineCameraService.h"

namespace offlinecamera::test {

using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::CaptureResult;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::android::hardware::camera::device::StreamBuffer;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;

constexpr const char* kInstance =
        "vendor.oru.hardware.camera.offlinecamera.IOfflineCameraService/default";

// The backend handle of the session opened last.
inline uint64_t LastSessionHandle() {
    std::vector<kivref::CallRecord> opens = CallsOf(kivref::Slot::OpenSession);
    return opens.empty() ? 0 : opens.back().session;
}

// What the client keeps of a result (results own descriptors and cannot be copied).
struct ReceivedBuffer {
    int32_t streamId;
    int64_t bufferId;
    BufferStatus status;
    bool hasHandle;
};
struct ReceivedResult {
    int32_t frameNumber;
    int32_t partialResult;
    std::vector<uint8_t> metadata;
    std::vector<ReceivedBuffer> outputBuffers;
};

// A session client's callback that keeps what it receives.
class RecordingCallback : public BnOfflineCameraSessionCallback {
  public:
    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& msgs) override {
        std::lock_guard<std::mutex> lock(mLock);
        mMessages.insert(mMessages.end(), msgs.begin(), msgs.end());
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus processCaptureResult(const std::vector<CaptureResult>& results) override {
        std::function<void()> action;
        {
            std::lock_guard<std::mutex> lock(mLock);
            action.swap(mOnResult);
        }
        // What the client does while it handles the results: calls into sessions, drops them.
        if (action) action();
        std::lock_guard<std::mutex> lock(mLock);
        mResultCalls++;
        for (const CaptureResult& result : results) {
            ReceivedResult received{
                    result.frameNumber, result.partialResult, result.result.metadata, {}};
            for (const StreamBuffer& buffer : result.outputBuffers) {
                received.outputBuffers.push_back({buffer.streamId, buffer.bufferId, buffer.status,
                                                  !buffer.buffer.fds.empty()});
            }
            mResults.push_back(std::move(received));
        }
        return ::ndk::ScopedAStatus::ok();
    }

    std::vector<NotifyMsg> Messages() {
        std::lock_guard<std::mutex> lock(mLock);
        return mMessages;
    }
    std::vector<ReceivedResult> Results() {
        std::lock_guard<std::mutex> lock(mLock);
        return mResults;
    }
    size_t ResultCalls() {
        std::lock_guard<std::mutex> lock(mLock);
        return mResultCalls;
    }
    // The next result call runs action first.
    void OnNextResult(std::function<void()> action) {
        std::lock_guard<std::mutex> lock(mLock);
        mOnResult = std::move(action);
    }

  private:
    // Guards everything received; the backend's thread delivers while the test reads.
    std::mutex mLock;
    std::vector<NotifyMsg> mMessages;
    std::vector<ReceivedResult> mResults;
    size_t mResultCalls = 0;
    std::function<void()> mOnResult;
};

// A session as its client holds it, through a proxy, with the callback it was opened with, whose
// binder is marked remote.
struct OpenedSession {
    std::shared_ptr<RecordingCallback> callback;
    ::ndk::SpAIBinder callbackBinder;
    std::shared_ptr<IOfflineCameraSession> session;
    uint64_t handle = 0;  // the backend's handle, 0 when it refused
};

// A client in another process: it reaches the service, and the sessions it opens, through
// proxies of remote binders.
class RemoteClient {
  public:
    explicit RemoteClient(ChildScenario& scenario, const char* vendorRoot = TEST_VENDOR_ROOT) {
        Vorn::Host::SetVendorRoot(vendorRoot);
        RegisterOfflineCameraAIDLService();
        ::ndk::SpAIBinder binder(AServiceManager_waitForService(kInstance));
        ::ndk::host::setRemote(binder.get(), true);
        mService = IOfflineCameraService::fromBinder(binder);
        // The core binds the backend on first use; what it holds stays for the process.
        OfflineCameraService::GetInstance();
        kivref::ClearCalls();
        LogCapture::Clear();
        scenario.Settle();
    }

    IOfflineCameraService& Service() { return *mService; }

    // Opens a session with the given callback, or one of its own.
    OpenedSession Open(const std::string& name,
                       std::shared_ptr<RecordingCallback> callback = nullptr) {
        OpenedSession opened;
        opened.callback =
                callback != nullptr ? callback : ::ndk::SharedRefBase::make<RecordingCallback>();
        opened.callbackBinder = opened.callback->asBinder();
        ::ndk::host::setRemote(opened.callbackBinder.get(), true);
        std::shared_ptr<IOfflineCameraSession> local;
        ::ndk::ScopedAStatus status = mService->openOfflineSeesion(name, opened.callback, &local);
        EXPECT_TRUE(status.isOk()) << status.getDescription();
        if (local == nullptr) return opened;
        ::ndk::SpAIBinder binder = local->asBinder();
        ::ndk::host::setRemote(binder.get(), true);
        opened.session = IOfflineCameraSession::fromBinder(binder);
        opened.handle = LastSessionHandle();
        return opened;
    }

  private:
    std::shared_ptr<IOfflineCameraService> mService;
};

}  // namespace offlinecamera::test

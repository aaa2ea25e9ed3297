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

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <android/binder_manager.h>
#include <gtest/gtest.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <hostplatform/VornTesting.h>

#include <memory>
#include <string>
#include <vector>

#include "ChildScenario.h"
#include "ClientSide.h"
#include "IsolatedCoreTest.h"
#include "LogCapture.h"
#include "OfflineCameraAIDLService.h"
#include "OfflineCameraService.h"

namespace offlinecamera::test {

using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::offlinecamera::clientside::RemoteSessionCallback;

constexpr const char* kInstance =
        "vendor.oru.hardware.camera.offlinecamera.IOfflineCameraService/default";

// The backend handle of the session opened last.
uint64_t LastSessionHandle() {
    std::vector<kivref::CallRecord> opens = CallsOf(kivref::Slot::OpenSession);
    return opens.empty() ? 0 : opens.back().session;
}

// A session as its client holds it, with the callback it was opened with.
struct OpenedSession {
    RemoteSessionCallback callback;
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

    // Opens a session and holds it as the client does, through a proxy; null on failure.
    std::shared_ptr<IOfflineCameraSession> Open(const std::string& name,
                                                const RemoteSessionCallback& callback) {
        std::shared_ptr<IOfflineCameraSession> session;
        ::ndk::ScopedAStatus status = mService->openOfflineSeesion(name, callback.object, &session);
        EXPECT_TRUE(status.isOk()) << status.getDescription();
        if (session == nullptr) return nullptr;
        ::ndk::SpAIBinder binder = session->asBinder();
        ::ndk::host::setRemote(binder.get(), true);
        return IOfflineCameraSession::fromBinder(binder);
    }

    // Opens a session with a callback of its own.
    OpenedSession OpenSession(const std::string& name) {
        OpenedSession opened;
        opened.callback = RemoteSessionCallback::Make();
        opened.session = Open(name, opened.callback);
        opened.handle = LastSessionHandle();
        return opened;
    }

  private:
    std::shared_ptr<IOfflineCameraService> mService;
};

}  // namespace offlinecamera::test

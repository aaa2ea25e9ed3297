/*
 * Offline sessions opened by clients on several threads at once: open, flush, dump and close
 * through the published service, against the backend's own entries.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <benchmark/benchmark.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/KivReferenceBackend.h>

#include "Benchmarks.h"

namespace offlinecamera::bench {
namespace {

using ::aidl::android::hardware::camera::device::CaptureResult;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo;

constexpr const char* kSessionName = "bench";

class NullSessionCallback : public BnOfflineCameraSessionCallback {
  public:
    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& /*msgs*/) override {
        return ::ndk::ScopedAStatus::ok();
    }
    ::ndk::ScopedAStatus processCaptureResult(const std::vector<CaptureResult>& /*results*/) override {
        return ::ndk::ScopedAStatus::ok();
    }
};

void SessionsLibrary(benchmark::State& state) {
    // One callback per client thread, living in the client's process, for all its sessions.
    auto callback = ::ndk::SharedRefBase::make<NullSessionCallback>();
    ::ndk::SpAIBinder binder = callback->asBinder();
    ::ndk::host::setRemote(binder.get(), true);
    OfflineFlushInfo flushInfo;
    for (auto _ : state) {
        std::shared_ptr<IOfflineCameraSession> session;
        if (!Service().openOfflineSeesion(kSessionName, callback, &session).isOk() ||
            session == nullptr) {
            state.SkipWithError("the service opened no session");
            break;
        }
        (void)session->flushOfflineSession(flushInfo);
        (void)session->dumpOfflineSession();
        (void)session->closeOfflineSession();
    }
}

int32_t IgnoreResults(const KivOfflineCallbacks* /*pCallbackOps*/, uint32_t /*numResults*/,
                      const KivOfflineCaptureResult* /*pResults*/) {
    return 0;
}

int32_t IgnoreMessages(const KivOfflineCallbacks* /*pCallbackOps*/, uint32_t /*numMessages*/,
                       const camera3_notify_msg_t* /*pMessages*/) {
    return 0;
}

// A context of the backend's own, opened the way the library opens its context.
const KivOfflineIntfCbs* Backend() {
    static const KivOfflineIntfCbs* const backend = KivOfflineOpenContext("HAL3 Extension", 257);
    return backend;
}

void SessionsBaseline(benchmark::State& state) {
    const KivOfflineIntfCbs* backend = Backend();
    const KivOfflineCallbacks callbacks = {IgnoreResults, IgnoreMessages, 0, 0, nullptr};
    const KivOfflineSessionInfo info = {kSessionName, 0, &callbacks};
    for (auto _ : state) {
        const uint64_t session = backend->pfnOpenSession(backend, &info);
        if (session == 0) {
            state.SkipWithError("the backend opened no session");
            break;
        }
        KivOfflineFlushInfo flushInfo = {0};
        (void)backend->pfnFlush(session, &flushInfo);
        (void)backend->pfnDump(session);
        (void)backend->pfnCloseSession(session);
    }
}

}  // namespace

void RegisterSessionBenchmarks() {
    benchmark::RegisterBenchmark("BM_ParallelSessions/library", SessionsLibrary)
            ->ThreadRange(1, 8)
            ->UseRealTime();
    benchmark::RegisterBenchmark("BM_ParallelSessions/baseline", SessionsBaseline)
            ->ThreadRange(1, 8)
            ->UseRealTime();
}

}  // namespace offlinecamera::bench

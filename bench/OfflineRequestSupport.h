/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The parties of the offline request benchmark. A session client in another process with a pool
 * of buffers it allocated up front sends requests of one input frame of kOfflineInputBuffers
 * buffers (with its capture settings) and one output buffer, and waits until the result reaches
 * its callback. The library path is a session opened through the published service; the
 * baseline makes only the calls that any such service has to make: the mapper's import of every
 * buffer and its free once the backend gives it back, the backend's translation of every buffer
 * both ways, the backend metadata of the settings and of the result, ExecuteRequest, and the
 * client's callbacks with the converted messages and result.
 *
 * The buffers are small (kOfflineWidth x kOfflineHeight): the backend's own processing of the
 * pixels is not what is measured.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <convert.h>
#include <cutils/native_handle.h>
#include <stdint.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

#include "KivOfflineInterface.h"

namespace offlinecamera::bench {

using ::aidl::android::hardware::camera::device::CaptureResult;
using ::aidl::android::hardware::camera::device::NotifyMsg;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::BnOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSessionCallback;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureRequest;

constexpr size_t kOfflineInputBuffers = 4;
constexpr uint32_t kOfflineWidth = 64;
constexpr uint32_t kOfflineHeight = 48;
constexpr int32_t kOfflineInputStream = 1;
constexpr int32_t kOfflineOutputStream = 2;

/* What one result told the client. */
struct SeenOfflineResult {
    int32_t frameNumber = 0;
    std::vector<std::pair<int32_t, int64_t>> buffers;  // stream id and buffer id
    size_t metadataBytes = 0;
};

/* A session client's callback that keeps the last result and wakes whoever waits for one. */
class ResultWaiter : public BnOfflineCameraSessionCallback {
  public:
    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& msgs) override;
    ::ndk::ScopedAStatus processCaptureResult(const std::vector<CaptureResult>& results) override;

    /* The callback as the library's process holds it: a proxy of a remote binder. */
    std::shared_ptr<IOfflineCameraSessionCallback> Remote();

    /* Waits until `count` results have arrived in all; false after a second without one. */
    bool WaitForResults(size_t count);
    size_t Results();
    size_t Messages();
    SeenOfflineResult Last();

  private:
    // Guards everything below; results arrive on the backend's thread.
    std::mutex mLock;
    std::condition_variable mArrived;
    size_t mResults = 0;
    size_t mMessages = 0;
    SeenOfflineResult mLast;
};

/* The client's buffers and the request it sends: buffer ids 1 to 4 in, 5 out. */
class OfflineClient {
  public:
    OfflineClient();
    ~OfflineClient();
    OfflineClient(const OfflineClient&) = delete;
    OfflineClient& operator=(const OfflineClient&) = delete;

    /* One request, its handles duplicated from the pool as the parcel carries them. */
    std::vector<OfflineCaptureRequest> Request(int32_t frameNumber) const;

  private:
    std::vector<native_handle_t*> mPool;
    std::vector<uint8_t> mSettings;
};

/* A session of the published service, configured with an input and an output stream. */
class LibraryOfflineSession {
  public:
    LibraryOfflineSession();
    ~LibraryOfflineSession();

    bool Opened() const { return mSession != nullptr; }
    /* Sends the request and waits until its result reaches the client. */
    bool Process(const std::vector<OfflineCaptureRequest>& requests);
    ResultWaiter& Client() { return *mWaiter; }

  private:
    std::shared_ptr<ResultWaiter> mWaiter;
    std::shared_ptr<IOfflineCameraSession> mSession;
};

/* The same on the backend's own entries, in the baseline's context. */
class BaselineOfflineSession {
  public:
    BaselineOfflineSession();
    ~BaselineOfflineSession();

    bool Opened() const { return mSession != 0 && mMetaOps != nullptr; }
    bool Process(const std::vector<OfflineCaptureRequest>& requests);
    ResultWaiter& Client() { return *mWaiter; }

  private:
    struct Imported {
        int32_t streamId;
        int64_t bufferId;
        buffer_handle_t handle;
    };

    static constexpr size_t kBuffers = kOfflineInputBuffers + 1;

    static int32_t OnResult(const KivOfflineCallbacks* pCallbacks, uint32_t numResults,
                            const KivOfflineCaptureResult* pResults);
    static int32_t OnMessage(const KivOfflineCallbacks* pCallbacks, uint32_t numMessages,
                             const camera3_notify_msg_t* pMessages);
    /* Frees the imported buffer with this handle; its ids, or false when it is unknown. */
    bool Release(buffer_handle_t handle, Imported* pReleased);

    std::shared_ptr<ResultWaiter> mWaiter;
    std::shared_ptr<IOfflineCameraSessionCallback> mClient;
    const KivOfflineIntfCbs* mBackend;
    const KivMetadataOps* mMetaOps = nullptr;
    KivOfflineCallbacks mCallbacks;
    uint64_t mSession = 0;
    ::android::hardware::camera::device::implementation::Camera3Stream mStreams[2];
    // Guards mImported: requests add to it on the caller's thread, results take from it on the
    // backend's.
    std::mutex mImportedLock;
    std::vector<Imported> mImported;
    // The handles of the request in flight, where the backend's records were made from.
    buffer_handle_t mHandles[kBuffers] = {};
    // Buffers the backend gave back, freed after the next result reaches the client. Only the
    // backend's thread uses it once the session is open.
    std::vector<buffer_handle_t> mReleased;
};

}  // namespace offlinecamera::bench

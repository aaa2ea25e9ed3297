/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * One backend session: its configuration and a worker thread that processes executed requests
 * in order and reports them through the caller's callbacks.
 */
#pragma once

#include <hostplatform/KivReferenceBackend.h>
#include <stdint.h>

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "KivOfflineInterface.h"

namespace kivref {

class BackendMetadata;

class BackendSession : public std::enable_shared_from_this<BackendSession> {
  public:
    BackendSession(uint64_t handle, std::string name, const KivOfflineCallbacks* callbacks,
                   const KivOfflineIntfCbs* context, uint32_t firstFrameNumber);
    ~BackendSession();
    BackendSession(const BackendSession&) = delete;
    BackendSession& operator=(const BackendSession&) = delete;

    void Start();

    int32_t Configure(const KivOfflineSessionConfigInfo& info);
    // Copies the request and queues it, writing the frame number it will be reported under.
    // The call is recorded before the worker can report anything of it.
    int32_t Execute(const KivOfflineCaptureRequestInfo& request, CallRecord record);
    // Reports every queued request as failed and waits until that is done.
    int32_t Flush(uint32_t flags, CallRecord record);
    void Dump();
    // Closing: BeginClose refuses new work (false when already closing); FinishClose delivers
    // what is deliverable, releases held requests without callbacks and stops the worker. No
    // callback is made once it returns.
    bool BeginClose();
    void FinishClose();

    int32_t DeliverResults(const std::vector<KivOfflineCaptureResult>& results);
    int32_t DeliverMessages(const std::vector<camera3_notify_msg_t>& messages);
    void WaitIdle();
    int32_t Pending();
    // Re-reads the automatic delivery setting.
    void Wake();

  private:
    struct Frame {
        std::vector<KivStreamBuffer> buffers;
        std::shared_ptr<BackendMetadata> metadata;
    };
    struct Request {
        uint32_t frameNumber = 0;
        std::vector<Frame> inputs;
        bool hasOutput = false;
        Frame output;
        bool flushed = false;
    };
    // A delivery that a test asked for, waiting for the worker.
    struct Injected {
        const std::vector<KivOfflineCaptureResult>* results = nullptr;
        const std::vector<camera3_notify_msg_t>* messages = nullptr;
        int32_t status = -1;
        bool done = false;
    };

    void Run();
    bool DeliverableLocked() const;
    bool OnWorkerLocked() const;
    void Process(Request& request);
    void ProcessFlushed(Request& request);
    // Writes the mean of the matching input frames into each output buffer; an output that
    // cannot be produced gets the error status.
    void FuseInputs(Request& request);
    void ReturnInputs(Request& request, int32_t bufferStatus);
    void Release(Request& request);
    int32_t RunInjected(const Injected& injected);
    int32_t Inject(Injected* injected);
    // Whether the session was closed from one of its own callbacks.
    bool Abandoned();
    // Make no callback once the session is abandoned; SendResult then answers false.
    void SendMessage(const camera3_notify_msg_t& message);
    bool SendResult(const KivOfflineCaptureResult& result);

    const uint64_t mHandle;
    const std::string mName;
    const KivOfflineCallbacks* const mCallbacks;
    const KivOfflineIntfCbs* const mContext;

    // Guards every member below except mWorker, which only the opening and closing threads use.
    // Never held while a callback runs.
    std::mutex mLock;
    std::condition_variable mChanged;
    std::deque<Request> mRequests;
    std::deque<Injected*> mInjected;
    uint32_t mNextFrameNumber;
    uint32_t mFlushPending = 0;
    bool mBusy = false;
    bool mStopping = false;
    bool mAbandoned = false;  // closed from its own callback: nothing more is delivered
    bool mConfigured = false;
    std::string mCameraIdText;
    uint32_t mCameraId = 0;
    uint32_t mOperationMode = 0;
    std::vector<camera3_stream_t*> mStreams;
    KivMetadataHandle mSessionParameters = nullptr;  // not owned
    uint64_t mDelivered = 0;
    uint64_t mFlushed = 0;

    std::thread::id mWorkerId;

    std::thread mWorker;
};

}  // namespace kivref

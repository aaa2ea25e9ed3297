/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The parties of the benchmarks. Buffer brokering: a consumer client in another process that
 * lends buffers from a pool it allocated up front, the camera HAL driving the library's producer
 * operations, and the baseline, which makes only the calls that any broker has to make (the
 * client's binder calls and the mapper's import and free) and keeps no bookkeeping beyond the
 * stack of what it has imported. Sessions: one open-flush-dump-close cycle of a client through
 * the published service, and the same cycle on the backend's own entries.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSessionCallback.h>
#include <hardware/camera3.h>
#include <stdint.h>
#include <system/camera_metadata.h>

#include <memory>
#include <mutex>
#include <vector>

#include "ClientSide.h"
#include "KivOfflineInterface.h"

namespace offlinecamera::bench {

using namespace ::offlinecamera::clientside;

/*
 * Publishes the service (once per process), binds the core, connects to the service as a client
 * would and opens the baseline's backend context. Call once, before anything below.
 */
void SetUpProcess();

/* The published service as a client in another process reaches it. */
IOfflineCameraService& Service();

/* The baseline's own backend context, opened as the library opens its own. */
const KivOfflineIntfCbs* BaselineBackend();

/* Silences liblog while measuring: formatting the lines would dominate otherwise. */
void SilenceLog();
/* The default host logger, printing to stderr. */
void LogToStderr();

/*
 * A consumer client. Buffers come from a pool allocated at construction and are lent in pool
 * order, each at most once until it comes back in a result or a return. Buffer ids are the pool
 * index plus one; the i-th request of a call gets stream id 10 + i.
 */
class PoolClient : public BnOfflineClientCallback {
  public:
    PoolClient(size_t poolSize, uint32_t width, uint32_t height, int32_t format);
    ~PoolClient() override;

    ::ndk::ScopedAStatus notify(const std::vector<NotifyMsg>& msgs) override;
    ::ndk::ScopedAStatus processCaptureResult(
            const std::vector<OfflineCaptureResult>& results) override;
    ::ndk::ScopedAStatus requestStreamBuffers(const std::vector<OfflineBufferRequest>& bufReqs,
                                              std::vector<StreamBufferRet>* buffers,
                                              BufferRequestStatus* status) override;
    ::ndk::ScopedAStatus returnStreamBuffers(const std::vector<StreamBuffer>& buffers) override;

    /* The callback as the library's process receives it: a proxy of a remote binder. */
    std::shared_ptr<IOfflineClientCallback> Remote();

    /* What the client has seen so far. */
    size_t LentCount();
    size_t ResultCount();
    size_t MetadataBytes();
    /* Buffer ids that came back, in the order they came back. */
    std::vector<int64_t> CameBack();
    void ClearSeen();

  private:
    void TakeBack(const std::vector<StreamBuffer>& buffers);

    // Guards everything below.
    std::mutex mLock;
    std::vector<native_handle_t*> mPool;
    std::vector<bool> mLent;
    size_t mNext = 0;
    size_t mLentCount = 0;
    size_t mResultCount = 0;
    size_t mMetadataBytes = 0;
    std::vector<int64_t> mCameBack;
};

/* A small capture result metadata: a few int64 and byte entries, as a frame carries them. */
camera_metadata_t* MakeResultMetadata(int64_t timestamp);

/* One buffer that the HAL holds. */
struct HeldBuffer {
    camera3_stream_t* stream;
    // The handle as it was read right after the request. The HAL returns a pointer to this
    // copy: the library compares handle values, and its list of lent buffers may move once
    // more buffers are lent than it keeps room for.
    buffer_handle_t handle;
};

/*
 * The camera HAL as the library's producer for one client id. It keeps the buffers it holds on
 * a stack and gives them back last lent first.
 */
class HalProducer {
  public:
    explicit HalProducer(int32_t clientId);

    /* Asks for counts[i] buffers of streams[i]; 0 on success. */
    int32_t Request(const std::vector<camera3_stream_t*>& streams,
                    const std::vector<uint32_t>& counts);

    /* Hands over one result with the last `count` buffers held, last lent first. */
    int32_t Return(size_t count, uint32_t frameNumber, const camera_metadata_t* metadata);

    size_t Held() const { return mHeld.size(); }

  private:
    int32_t mClientId;
    std::vector<HeldBuffer> mHeld;
    // Scratch arrays of one call, kept to spare their allocations.
    std::vector<camera3_buffer_request_t> mRequests;
    std::vector<camera3_stream_buffer_ret_t> mReturned;
    std::vector<std::vector<camera3_stream_buffer_t>> mOutputs;
    std::vector<camera3_stream_buffer_t> mResultBuffers;
};

/*
 * The same work without the library: the client's binder calls with the same parcelables, the
 * mapper's import of every lent buffer and its free after the result, and the copy of the
 * metadata into the result parcelable.
 */
class BaselineBroker {
  public:
    explicit BaselineBroker(std::shared_ptr<IOfflineClientCallback> client);
    ~BaselineBroker();

    /* Asks for counts[i] buffers of streams[i]; true on success. */
    bool Request(const std::vector<camera3_stream_t*>& streams, const std::vector<uint32_t>& counts);

    /* Sends one result with the last `count` buffers imported, last lent first, and frees them. */
    void Return(size_t count, uint32_t frameNumber, const camera_metadata_t* metadata);

    size_t Held() const { return mImported.size(); }

  private:
    struct Imported {
        int32_t streamId;
        int64_t bufferId;
        buffer_handle_t handle;
    };

    std::shared_ptr<IOfflineClientCallback> mClient;
    std::vector<Imported> mImported;
};

/* A session callback in the client's process, with a remote binder. */
std::shared_ptr<::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSessionCallback>
MakeSessionCallback();

/*
 * Opens a session through the service with this callback, flushes, dumps and closes it, and
 * drops it; false when no session was opened.
 */
bool LibrarySessionCycle(
        const std::shared_ptr<
                ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSessionCallback>&
                callback);

/* The same on the backend's entries, in a context of the baseline's own; false as above. */
bool BaselineSessionCycle();

}  // namespace offlinecamera::bench

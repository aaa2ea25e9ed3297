/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "OfflineCameraAIDLService.h"

#include <android/binder_manager.h>
#include <convert.h>

#include <algorithm>

#include "CheckedLookup.h"
#include "HandleImporter.h"
#include "OfflineCameraAIDLSession.h"
#include "OfflineLog.h"

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

namespace {

using ::aidl::android::hardware::camera::common::Status;
using ::aidl::android::hardware::camera::device::BufferRequestStatus;
using ::aidl::android::hardware::camera::device::BufferStatus;
using ::aidl::android::hardware::camera::device::Stream;
using ::aidl::android::hardware::camera::device::StreamBuffer;
using ::aidl::android::hardware::camera::device::StreamBufferRet;
using ::aidl::android::hardware::camera::device::StreamBuffersVal;
using ::aidl::android::hardware::camera::device::StreamRotation;
using ::aidl::android::hardware::camera::device::StreamType;
using ::aidl::android::hardware::graphics::common::BufferUsage;
using ::aidl::android::hardware::graphics::common::Dataspace;
using ::aidl::android::hardware::graphics::common::PixelFormat;
using ::android::hardware::camera::common::V1_0::helper::HandleImporter;
using ::android::hardware::camera::device::implementation::convertFromAidl;
using ::android::hardware::camera::device::implementation::convertToAidl;
using ::android::hardware::camera::device::implementation::convertToScopedAStatus;

// Kept on purpose: the tag's spelling, which log filters in the field match.
constexpr const char* kLogTag = "KivOfflineAIDLSevice";

// Operation modes that offline sessions accept; clients and the backend agree on their meaning.
constexpr int32_t kSupportedOpModes[] = {0, 1, 2, 3, 4, 5};
constexpr size_t kOpModesCapacity = 10;

// Imports the buffers that consumer clients lend to the producer, and frees them when they come
// back.
HandleImporter gHandleImporter;

// Releases a handle made by convertFromAidl: its duplicated descriptors, then the handle.
void releaseReceivedHandle(native_handle_t* handle) {
    native_handle_close(handle);
    native_handle_delete(handle);
}

// Erases the first lent buffer whose handle is this one from the list, into *pRecord; false when
// there is none.
bool takeRecord(std::list<ClientBufferRecord>& records, buffer_handle_t handle,
                ClientBufferRecord* pRecord) {
    auto record = std::find_if(records.begin(), records.end(),
                               [handle](const ClientBufferRecord& r) { return r.handle == handle; });
    if (record == records.end()) {
        return false;
    }
    *pRecord = *record;
    records.erase(record);
    return true;
}

void freeBuffers(const std::vector<buffer_handle_t>& handles) {
    for (buffer_handle_t handle : handles) {
        gHandleImporter.freeBuffer(handle);
    }
}

}  // namespace

/*
 * The cookie of one client's death link. The binder library hands it to binderDied and then to
 * deathLinkEnded, which deletes it, also when the link is undone by unRegisterClient, fails, or
 * goes with the death recipient; a death notice that races with the unregistration or the end of
 * the service therefore never reads freed memory. What it holds does not change once linked.
 */
struct ClientDeathCookie {
    int32_t clientId;
    // The service and the registration watched, without keeping either alive.
    std::weak_ptr<OfflineCameraAIDLService> service;
    std::weak_ptr<IOfflineClientCallback> callback;
};

using ::offlinecamera::MutexLock;

OfflineCameraAIDLService::OfflineCameraAIDLService()
    : mDeathRecipient(AIBinder_DeathRecipient_new(binderDied)) {
    AIBinder_DeathRecipient_setOnUnlinked(mDeathRecipient.get(), deathLinkEnded);
    mCallbackMap.max_load_factor(1.0f);
    mClientBuffers.max_load_factor(1.0f);
    mClientCallbacks.pResult = processCaptureResultCb;
    mClientCallbacks.pRequestBuffers = requestStreamBuffersCb;
    mClientCallbacks.pReturnBuffers = returnBuffersCb;
    mClientCallbacks.pPrivateData = this;
    for (ClientSlot& slot : mClientSlots) {
        slot.clientId = -1;
        slot.inUse = false;
        slot.pCookie = nullptr;
    }
}

// Members go in reverse order: the death recipient, which ends every death link (and with it
// each cookie), then both maps with the client references and buffer lists they hold, then the
// locks. Kept on purpose: the core's registry is left as it is, and buffers still lent stay
// imported.
OfflineCameraAIDLService::~OfflineCameraAIDLService() = default;

::ndk::ScopedAStatus OfflineCameraAIDLService::getSupportedOpModes(
        std::vector<int32_t>* _aidl_return) {
    if (_aidl_return->capacity() < kOpModesCapacity) {
        _aidl_return->reserve(kOpModesCapacity);
    }
    for (int32_t mode : kSupportedOpModes) {
        _aidl_return->push_back(mode);
    }
    OFFLINE_LOGI(kLogTag, "%d %s: num of supported OpModes:%zu", 208, "getSupportedOpModes",
                 _aidl_return->size());
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus OfflineCameraAIDLService::registerClient(
        int32_t in_clientId, const std::shared_ptr<IOfflineClientCallback>& in_callback) {
    if (in_callback == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s: callback is NULL!", 149, "registerClient");
        return convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    }

    MutexLock callbackLock(mCallbackLock);
    if (mCallbackMap.find(in_clientId) != mCallbackMap.end()) {
        OFFLINE_LOGE(kLogTag, "%d %s: this clientID: %d was already registered.", 143,
                     "registerClient", in_clientId);
        return convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    }

    MutexLock slotLock(mSlotLock);
    ClientSlot* pSlot = nullptr;
    for (ClientSlot& slot : mClientSlots) {
        if (!slot.inUse) {
            pSlot = &slot;
            break;
        }
    }
    if (pSlot == nullptr) {
        OFFLINE_LOGE(kLogTag,
                     "%d %s: Client num is more than max:%d! clientID: %d Failed to register", 119,
                     "registerClient", static_cast<int>(kMaxClients), in_clientId);
        return convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    }
    pSlot->inUse = true;
    pSlot->clientId = in_clientId;
    pSlot->pCookie =
            new ClientDeathCookie{in_clientId, ref<OfflineCameraAIDLService>(), in_callback};

    binder_status_t linkStatus;
    {
        ::ndk::SpAIBinder binder = in_callback->asBinder();
        linkStatus = AIBinder_linkToDeath(binder.get(), mDeathRecipient.get(), pSlot->pCookie);
    }
    if (linkStatus != STATUS_OK) {
        // Kept on purpose: the client is served all the same, without a death watch and without a
        // slot. The failed link has ended, and its cookie with it.
        pSlot->inUse = false;
        pSlot->pCookie = nullptr;
        OFFLINE_LOGE(kLogTag, "%d %s: Failed to linkToDeath: in_clientID: %d", 129,
                     "registerClient", in_clientId);
    }

    mCallbackMap.emplace(in_clientId, in_callback);
    // A list left from an earlier registration of this id is kept, with the buffers still lent.
    mClientBuffers.emplace(in_clientId, std::list<ClientBufferRecord>());
    OfflineCameraService::GetInstance()->RegisterConsumerClient(in_clientId, &mClientCallbacks);
    OFFLINE_LOGI(kLogTag, "%s: clientID:%d register successfully!", "registerClient", in_clientId);
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus OfflineCameraAIDLService::unRegisterClient(int32_t in_clientId) {
    MutexLock callbackLock(mCallbackLock);
    auto entry = mCallbackMap.find(in_clientId);
    if (entry == mCallbackMap.end()) {
        OFFLINE_LOGE(kLogTag, "%d %s: This clientID: %d did not register before!", 166,
                     "unRegisterClient", in_clientId);
        return convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    }

    OfflineCameraService::GetInstance()->unRegisterConsumerClient(in_clientId);

    if (entry->second != nullptr) {
        MutexLock slotLock(mSlotLock);
        for (ClientSlot& slot : mClientSlots) {
            if (slot.inUse && slot.clientId == in_clientId) {
                // Undoing the link ends it, and its cookie goes; a death notice already on its
                // way still holds the cookie until it is done.
                ::ndk::SpAIBinder binder = entry->second->asBinder();
                (void)AIBinder_unlinkToDeath(binder.get(), mDeathRecipient.get(), slot.pCookie);
                slot.inUse = false;
                slot.clientId = -1;
                slot.pCookie = nullptr;
                break;
            }
        }
    }

    // The client's lent buffers stay recorded: the producer may still give them back.
    mCallbackMap.erase(entry);
    OFFLINE_LOGI(kLogTag, "%d %s: client %d unregister", 178, "unRegisterClient", in_clientId);
    return ::ndk::ScopedAStatus::ok();
}

void OfflineCameraAIDLService::binderDied(void* cookie) {
    const ClientDeathCookie* pCookie = static_cast<const ClientDeathCookie*>(cookie);
    OFFLINE_LOGI(kLogTag, "%d %s:client callback died clientID:%d", 422, "binderDied",
                 pCookie->clientId);
    // The service goes only when the library is unloaded; then there is nobody to tell.
    std::shared_ptr<OfflineCameraAIDLService> service = pCookie->service.lock();
    if (service != nullptr) {
        service->clientDied(*pCookie);
    }
}

void OfflineCameraAIDLService::deathLinkEnded(void* cookie) {
    delete static_cast<ClientDeathCookie*>(cookie);
}

void OfflineCameraAIDLService::clientDied(const ClientDeathCookie& cookie) {
    MutexLock callbackLock(mCallbackLock);
    auto entry = mCallbackMap.find(cookie.clientId);
    // The client unregistered meanwhile, and may have registered again with another callback,
    // which this death does not concern.
    if (entry == mCallbackMap.end() || entry->second != cookie.callback.lock()) {
        return;
    }
    mCallbackMap.erase(entry);
    OfflineCameraService::GetInstance()->unRegisterConsumerClient(cookie.clientId);

    // The binder is dead, so there is no link left to undo. Its lent buffers stay recorded.
    MutexLock slotLock(mSlotLock);
    for (ClientSlot& slot : mClientSlots) {
        if (slot.inUse && slot.pCookie == &cookie) {
            slot.inUse = false;
            slot.clientId = -1;
            slot.pCookie = nullptr;
            break;
        }
    }
}

std::shared_ptr<IOfflineClientCallback> OfflineCameraAIDLService::findCallback(int32_t clientId) {
    MutexLock callbackLock(mCallbackLock);
    auto entry = mCallbackMap.find(clientId);
    if (entry == mCallbackMap.end()) {
        OFFLINE_LOGE(kLogTag, "%d %s: can not find the callback for this clientID :%d", 284,
                     "findCallback", clientId);
        return nullptr;
    }
    OFFLINE_LOGI(kLogTag, "%d %s: find the callback for this clientID :%d", 279, "findCallback",
                 clientId);
    return entry->second;
}

::ndk::ScopedAStatus OfflineCameraAIDLService::openOfflineSeesion(
        const std::string& in_clientSessionName,
        const std::shared_ptr<IOfflineCameraSessionCallback>& in_callback,
        std::shared_ptr<IOfflineCameraSession>* _aidl_return) {
    if (in_callback == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s: callback is null", 223, "openOfflineSeesion");
        return convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    }
    // The service keeps no list of its sessions: each lives as long as its client holds it.
    std::shared_ptr<OfflineCameraAIDLSession> session =
            OfflineCameraAIDLSession::Open(in_clientSessionName, in_callback);
    if (session == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s: offline camera session create failed", 233,
                     "openOfflineSeesion");
        _aidl_return->reset();
        return convertToScopedAStatus(Status::INTERNAL_ERROR);
    }
    *_aidl_return = std::move(session);
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus OfflineCameraAIDLService::getOfflineStaticCaps(
        ::aidl::android::hardware::camera::device::CameraMetadata* _aidl_return) {
    // The core keeps the metadata for the life of the process; clients get a copy.
    const camera_metadata_t* pStaticMeta =
            OfflineCameraService::GetInstance()->GetOfflineStaticCaps();
    if (pStaticMeta == nullptr) {
        OFFLINE_LOGE(kLogTag, "%s: get offline static caps failed", "GetOfflineStaticCaps");
        return convertToScopedAStatus(Status::INTERNAL_ERROR);
    }
    convertToAidl(pStaticMeta, _aidl_return);
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

uint32_t OfflineCameraAIDLService::requestStreamBuffersCb(const ClientCallbacks* pCallbackOps,
                                                          int32_t clientId,
                                                          std::vector<StreamBufferRequest> requests) {
    if (pCallbackOps == nullptr || requests.empty()) {
        OFFLINE_LOGE(kLogTag, "%d %s: pCallbackOps is NULL OR requestParams size is 0!", 660,
                     "requestStreamBuffersCb");
        return CAMERA3_BUF_REQ_FAILED_ILLEGAL_ARGUMENTS;
    }
    auto* service = static_cast<OfflineCameraAIDLService*>(pCallbackOps->pPrivateData);
    return service->requestStreamBuffers(clientId, requests);
}

void OfflineCameraAIDLService::returnBuffersCb(const ClientCallbacks* pCallbackOps, int32_t clientId,
                                               std::vector<buffer_handle_t*> buffers) {
    if (pCallbackOps == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s: pCallbackOps is NULL!", 683, "returnBuffersCb");
        return;
    }
    auto* service = static_cast<OfflineCameraAIDLService*>(pCallbackOps->pPrivateData);
    service->returnBuffers(clientId, buffers);
}

int32_t OfflineCameraAIDLService::processCaptureResultCb(
        const ClientCallbacks* pCallbackOps, int32_t clientId,
        const camera3_capture_result_t* pCaptureResult) {
    // The core does not read the result of a delivery.
    if (pCallbackOps == nullptr || pCaptureResult == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s: pCallbackOps OR pCaptureResult is NULL!", 705,
                     "processCaptureResultCb");
        return 0;
    }
    auto* service = static_cast<OfflineCameraAIDLService*>(pCallbackOps->pPrivateData);
    service->processCaptureResult(clientId, pCaptureResult);
    return 0;
}

uint32_t OfflineCameraAIDLService::requestStreamBuffers(int32_t clientId,
                                                        std::vector<StreamBufferRequest> requests) {
    std::shared_ptr<IOfflineClientCallback> callback = findCallback(clientId);
    if (callback == nullptr) {
        OFFLINE_LOGE(kLogTag,
                     "%d %s: clientID:%d This product client did not register! can not fetch "
                     "Buffer!",
                     405, "requestStreamBuffers", clientId);
        return CAMERA3_BUF_REQ_FAILED_UNKNOWN;
    }

    std::vector<OfflineBufferRequest> bufferRequests(requests.size());
    for (size_t i = 0; i < requests.size(); i++) {
        const camera3_stream_t* pStream = requests[i].stream;
        Stream& stream = bufferRequests[i].stream;
        // Kept on purpose: the stream id stays 0; the consumer tells streams apart by their
        // place in the list.
        stream.streamType = static_cast<StreamType>(pStream->stream_type);
        stream.width = static_cast<int32_t>(pStream->width);
        stream.height = static_cast<int32_t>(pStream->height);
        stream.format = static_cast<PixelFormat>(pStream->format);
        stream.usage = static_cast<BufferUsage>(pStream->usage);
        stream.dataSpace = static_cast<Dataspace>(pStream->data_space);
        stream.rotation = static_cast<StreamRotation>(pStream->rotation);
        stream.bufferSize = stream.width * stream.height * 2;
        bufferRequests[i].numBuffersRequested = static_cast<int32_t>(requests[i].numBuffers);
        OFFLINE_LOGI(kLogTag,
                     "%d %s: clientID:%d, i:%d, format:%d, dataSpace:%d, usage:%ld, rotation:%d, "
                     "wXh:%d, %d",
                     319, "requestStreamBuffers", clientId, static_cast<int>(i),
                     static_cast<int>(stream.format), static_cast<int>(stream.dataSpace),
                     static_cast<long>(stream.usage), static_cast<int>(stream.rotation),
                     stream.width, stream.height);
        // Every entry carries the first request's count; an entry whose array has less room is
        // asked for no more than fits.
        if (requests[i].numBuffers > requests[i].numOutputBuffers) {
            OFFLINE_LOGW(kLogTag,
                         "%d %s: clientID:%d, i:%d, asks for %u buffers, not %u: the producer has "
                         "no room for more",
                         321, "requestStreamBuffers", clientId, static_cast<int>(i),
                         requests[i].numOutputBuffers, requests[i].numBuffers);
            bufferRequests[i].numBuffersRequested =
                    static_cast<int32_t>(requests[i].numOutputBuffers);
        }
    }

    std::vector<StreamBufferRet> returned;
    BufferRequestStatus status = BufferRequestStatus::OK;
    ::ndk::ScopedAStatus transaction =
            callback->requestStreamBuffers(bufferRequests, &returned, &status);
    if (!transaction.isOk() || status != BufferRequestStatus::OK) {
        OFFLINE_LOGE(kLogTag,
                     "%d %s: Request buffer Failed!Transaction error: %s or status error:%d", 337,
                     "requestStreamBuffers", transaction.getDescription().c_str(),
                     static_cast<int>(status));
        return CAMERA3_BUF_REQ_FAILED_UNKNOWN;
    }
    if (returned.size() != requests.size()) {
        OFFLINE_LOGE(kLogTag, "%d %s: Request buffer num error request:%zu, return:%zu", 344,
                     "requestStreamBuffers", requests.size(), returned.size());
        return CAMERA3_BUF_REQ_FAILED_UNKNOWN;
    }

    {
        MutexLock callbackLock(mCallbackLock);
        (void)mClientBuffers[clientId];
    }
    if (returned.empty()) {
        return CAMERA3_BUF_REQ_OK;
    }

    for (size_t i = 0; i < returned.size(); i++) {
        // Kept on purpose: a reply that holds an error instead of buffers stops the process here.
        const std::vector<StreamBuffer>& buffers =
                returned[i].val.get<StreamBuffersVal::Tag::buffers>();
        const size_t asked = static_cast<size_t>(bufferRequests[i].numBuffersRequested);
        for (size_t j = 0; j < buffers.size(); j++) {
            const StreamBuffer& buffer = buffers[j];
            // Only as many buffers as were asked for fit in the producer's array; one more is
            // refused like a buffer that cannot be imported.
            native_handle_t* received = j < asked ? convertFromAidl(buffer.buffer) : nullptr;
            buffer_handle_t handle = received;
            if (received == nullptr || !gHandleImporter.importBuffer(handle)) {
                if (received != nullptr) {
                    releaseReceivedHandle(received);
                }
                // Kept on purpose: buffers of this reply lent so far stay lent.
                OFFLINE_LOGE(kLogTag, "%d %s: output buffer for clientID %d is invalid!", 367,
                             "requestStreamBuffers", clientId);
                return CAMERA3_BUF_REQ_FAILED_UNKNOWN;
            }

            ClientBufferRecord* pRecord =
                    recordLentBuffer(clientId, {buffer.streamId, buffer.bufferId, handle});
            OFFLINE_LOGI(kLogTag, "%d %s: buffer:%p!, streamId:%d, bufferId:%lu", 381,
                         "requestStreamBuffers", static_cast<void*>(&pRecord->handle),
                         buffer.streamId, static_cast<unsigned long>(buffer.bufferId));

            camera3_stream_buffer_t& output = requests[i].pOutputBuffers[j];
            output.stream = requests[i].stream;
            output.buffer = &pRecord->handle;
            output.status = CAMERA3_BUFFER_STATUS_OK;
            output.acquire_fence = -1;
            output.release_fence = -1;

            // The record owns the imported copy; the received handle has served its purpose.
            releaseReceivedHandle(received);
        }
    }
    return CAMERA3_BUF_REQ_OK;
}

ClientBufferRecord* OfflineCameraAIDLService::recordLentBuffer(int32_t clientId,
                                                               const ClientBufferRecord& record) {
    MutexLock callbackLock(mCallbackLock);
    std::list<ClientBufferRecord>& records = mClientBuffers[clientId];
    records.push_back(record);
    return &records.back();
}

bool OfflineCameraAIDLService::takeLentBuffer(int32_t clientId, const buffer_handle_t* pBuffer,
                                              ClientBufferRecord* pRecord) {
    MutexLock callbackLock(mCallbackLock);
    // Kept on purpose: a client id without a list of lent buffers stops the process.
    std::list<ClientBufferRecord>& records = checkedAt(mClientBuffers, clientId);
    // A record is found by the handle that the producer's pointer reads.
    return takeRecord(records, *pBuffer, pRecord);
}

void OfflineCameraAIDLService::forgetLentBuffers(int32_t clientId,
                                                 const camera3_capture_result_t* pCaptureResult) {
    std::vector<buffer_handle_t> handles;
    {
        MutexLock callbackLock(mCallbackLock);
        auto records = mClientBuffers.find(clientId);
        if (records == mClientBuffers.end() || pCaptureResult->output_buffers == nullptr) {
            return;
        }
        for (uint32_t i = 0; i < pCaptureResult->num_output_buffers; i++) {
            ClientBufferRecord record;
            if (takeRecord(records->second, *pCaptureResult->output_buffers[i].buffer, &record)) {
                handles.push_back(record.handle);
            }
        }
    }
    freeBuffers(handles);
}

void OfflineCameraAIDLService::returnBuffers(int32_t clientId,
                                             std::vector<buffer_handle_t*> buffers) {
    std::shared_ptr<IOfflineClientCallback> callback = findCallback(clientId);
    if (callback == nullptr) {
        OFFLINE_LOGE(kLogTag, "%d %s, can not find the callback ClientId:%d", 642, "returnBuffers",
                     clientId);
        return;
    }
    if (buffers.empty()) {
        OFFLINE_LOGI(kLogTag, "%d %s, no buffers for this ClientId:%d", 636, "returnBuffers",
                     clientId);
        return;
    }

    // Kept on purpose: a buffer that was never lent goes back as a default element, silently.
    std::vector<StreamBuffer> streamBuffers(buffers.size());
    std::vector<buffer_handle_t> returnedHandles;
    for (size_t i = 0; i < buffers.size(); i++) {
        ClientBufferRecord record;
        if (!takeLentBuffer(clientId, buffers[i], &record)) {
            continue;
        }
        streamBuffers[i].streamId = record.streamId;
        streamBuffers[i].bufferId = record.bufferId;
        streamBuffers[i].status = BufferStatus::OK;
        returnedHandles.push_back(record.handle);
    }

    (void)callback->returnStreamBuffers(streamBuffers);
    freeBuffers(returnedHandles);
}

void OfflineCameraAIDLService::processCaptureResult(int32_t clientId,
                                                    const camera3_capture_result_t* pCaptureResult) {
    std::shared_ptr<IOfflineClientCallback> callback = findCallback(clientId);
    if (callback == nullptr) {
        // The client left after the core let the result through, so the producer has been told
        // that its buffers went back: nobody holds them any more.
        forgetLentBuffers(clientId, pCaptureResult);
        return;
    }

    std::vector<OfflineCaptureResult> results(1);
    OfflineCaptureResult& result = results[0];
    result.frameNumber = pCaptureResult->frame_number;
    if (pCaptureResult->result != nullptr) {
        OFFLINE_LOGI(kLogTag, "%d %s:  return meta clientID:%d, pCaptureResult:%p", 511,
                     "processCaptureResult", clientId, static_cast<const void*>(pCaptureResult));
        convertToAidl(pCaptureResult->result, &result.result);
    }

    std::vector<buffer_handle_t> returnedHandles;
    if (pCaptureResult->num_output_buffers > 0 && pCaptureResult->output_buffers != nullptr) {
        OFFLINE_LOGI(kLogTag, "%d %s: return buffer clientID:%d, num_output_buffers:%d", 520,
                     "processCaptureResult", clientId,
                     static_cast<int>(pCaptureResult->num_output_buffers));
        result.outputBuffers.resize(pCaptureResult->num_output_buffers);
        for (uint32_t i = 0; i < pCaptureResult->num_output_buffers; i++) {
            const camera3_stream_buffer_t& output = pCaptureResult->output_buffers[i];
            ClientBufferRecord record;
            if (!takeLentBuffer(clientId, output.buffer, &record)) {
                // Kept on purpose: the whole result is dropped; buffers matched so far are
                // forgotten.
                OFFLINE_LOGE(kLogTag, "%d %s: Invalid returnd buffer clientID:%d, buffer:%p", 552,
                             "processCaptureResult", clientId,
                             static_cast<const void*>(*output.buffer));
                freeBuffers(returnedHandles);
                return;
            }
            StreamBuffer& buffer = result.outputBuffers[i];
            buffer.streamId = record.streamId;
            buffer.bufferId = record.bufferId;
            buffer.status = static_cast<BufferStatus>(output.status);
            returnedHandles.push_back(record.handle);
        }
    }

    (void)callback->processCaptureResult(results);
    freeBuffers(returnedHandles);
}

}  // namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation

namespace {

using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::implementation::OfflineCameraAIDLService;

constexpr const char* kEntryLogTag = "KivOfflineAIDLService";

// The published service; set once, by the first RegisterOfflineCameraAIDLService call.
std::shared_ptr<OfflineCameraAIDLService> gOfflineAIDLService;
const std::string gInstanceSuffix = "/default";

}  // namespace

extern "C" void RegisterOfflineCameraAIDLService() {
    OFFLINE_LOGI(kEntryLogTag, "%d %s: start to register offline camera AIDL service", 36,
                 "RegisterOfflineCameraAIDLService");

    // The hosting process calls this once, from its start-up thread; the guard takes no lock.
    if (gOfflineAIDLService != nullptr) {
        const std::string instance =
                std::string(IOfflineCameraService::descriptor) + gInstanceSuffix;
        OFFLINE_LOGI(kEntryLogTag,
                     "%d %s: offline camera service alredy register offlineAIDLService:%s", 69,
                     "RegisterOfflineCameraAIDLService", instance.c_str());
        return;
    }

    gOfflineAIDLService = ::ndk::SharedRefBase::make<OfflineCameraAIDLService>();

    const std::string instance = std::string(IOfflineCameraService::descriptor) + gInstanceSuffix;
    if (gOfflineAIDLService == nullptr) {
        OFFLINE_LOGE(kEntryLogTag, "%d %s: Cannot register offline camera aidl service", 63,
                     "RegisterOfflineCameraAIDLService");
        return;
    }

    binder_exception_t result;
    {
        ::ndk::SpAIBinder binder = gOfflineAIDLService->asBinder();
        result = AServiceManager_addService(binder.get(), instance.c_str());
    }
    if (result != EX_NONE) {
        OFFLINE_LOGE(kEntryLogTag,
                     "%d %s: Cannot register offline camera AIDL service-%s, errorCode:%d", 53,
                     "RegisterOfflineCameraAIDLService", instance.c_str(), result);
        return;
    }
    OFFLINE_LOGI(kEntryLogTag, "%d %s: Add offline camera aidl service success!", 58,
                 "RegisterOfflineCameraAIDLService");
}

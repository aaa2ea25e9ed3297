/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "OfflineCameraAIDLService.h"

#include <android/binder_manager.h>
#include <android/log.h>
#include <convert.h>

#include <algorithm>

#include "CheckedLookup.h"
#include "HandleImporter.h"
#include "OfflineCameraAIDLSession.h"

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

constexpr const char* kLogTag = "KivOfflineAIDLSevice";

// Operation modes that offline sessions accept; clients and the backend agree on their meaning.
constexpr int32_t kSupportedOpModes[] = {0, 1, 2, 3, 4, 5};
constexpr size_t kOpModesCapacity = 10;

#define AIDL_SERVICE_LOGI(...) __android_log_print(ANDROID_LOG_INFO, kLogTag, __VA_ARGS__)
#define AIDL_SERVICE_LOGE(...) __android_log_print(ANDROID_LOG_ERROR, kLogTag, __VA_ARGS__)

// Imports the buffers that consumer clients lend to the producer, and frees them when they come
// back.
HandleImporter gHandleImporter;

// Least room kept in a client's list of lent buffers. The producer holds pointers into the list,
// and an append moves the list when it outgrows its room. Room for a whole reply is made before
// its first append, so the pointers of one reply stay put, and so do those of earlier replies
// while no more than this many buffers are lent at once.
constexpr size_t kLentBufferRoom = 32;

// Releases a handle made by convertFromAidl: its duplicated descriptors, then the handle.
void releaseReceivedHandle(native_handle_t* handle) {
    native_handle_close(handle);
    native_handle_delete(handle);
}

// The first lent buffer whose handle is the one that the producer's pointer reads now.
std::vector<ClientBufferRecord>::iterator findLentBuffer(std::vector<ClientBufferRecord>& records,
                                                         const buffer_handle_t* pBuffer) {
    const buffer_handle_t handle = *pBuffer;
    return std::find_if(records.begin(), records.end(), [handle](const ClientBufferRecord& record) {
        return record.handle == handle;
    });
}

void freeBuffers(const std::vector<buffer_handle_t>& handles) {
    for (buffer_handle_t handle : handles) {
        gHandleImporter.freeBuffer(handle);
    }
}

}  // namespace

OfflineCameraAIDLService::OfflineCameraAIDLService()
    : mDeathRecipient(AIBinder_DeathRecipient_new(binderDied)) {
    mCallbackMap.max_load_factor(1.0f);
    mClientBuffers.max_load_factor(1.0f);
    mClientCallbacks.pResult = processCaptureResultCb;
    mClientCallbacks.pRequestBuffers = requestStreamBuffersCb;
    mClientCallbacks.pReturnBuffers = returnBuffersCb;
    mClientCallbacks.pPrivateData = this;
    for (ClientSlot& slot : mClientSlots) {
        slot.clientId = -1;
        slot.service = nullptr;
        slot.inUse = false;
    }
}

// Members go in reverse order: the locks, the death recipient, then both maps with the client
// references and buffer lists they hold. Death links are not undone, the core's registry is left
// as it is, and buffers still lent stay imported.
OfflineCameraAIDLService::~OfflineCameraAIDLService() = default;

::ndk::ScopedAStatus OfflineCameraAIDLService::getSupportedOpModes(
        std::vector<int32_t>* _aidl_return) {
    if (_aidl_return->capacity() < kOpModesCapacity) {
        _aidl_return->reserve(kOpModesCapacity);
    }
    for (int32_t mode : kSupportedOpModes) {
        _aidl_return->push_back(mode);
    }
    __android_log_print(ANDROID_LOG_INFO, kLogTag, "%d %s: num of supported OpModes:%zu", 208,
                        "getSupportedOpModes", _aidl_return->size());
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus OfflineCameraAIDLService::registerClient(
        int32_t in_clientId, const std::shared_ptr<IOfflineClientCallback>& in_callback) {
    if (in_callback == nullptr) {
        AIDL_SERVICE_LOGE("%d %s: callback is NULL!", 149, "registerClient");
        return convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    }

    std::lock_guard<std::mutex> callbackLock(mCallbackLock);
    if (mCallbackMap.find(in_clientId) != mCallbackMap.end()) {
        AIDL_SERVICE_LOGE("%d %s: this clientID: %d was already registered.", 143, "registerClient",
                          in_clientId);
        return convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    }

    std::lock_guard<std::mutex> slotLock(mSlotLock);
    ClientSlot* pSlot = nullptr;
    for (ClientSlot& slot : mClientSlots) {
        if (!slot.inUse) {
            pSlot = &slot;
            break;
        }
    }
    if (pSlot == nullptr) {
        AIDL_SERVICE_LOGE("%d %s: Client num is more than max:%d! clientID: %d Failed to register",
                          119, "registerClient", static_cast<int>(kMaxClients), in_clientId);
        return convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    }
    pSlot->inUse = true;
    pSlot->clientId = in_clientId;
    pSlot->service = this;

    binder_status_t linkStatus;
    {
        ::ndk::SpAIBinder binder = in_callback->asBinder();
        linkStatus = AIBinder_linkToDeath(binder.get(), mDeathRecipient.get(), pSlot);
    }
    if (linkStatus != STATUS_OK) {
        // The client is served all the same, without a death watch and without a slot.
        pSlot->inUse = false;
        AIDL_SERVICE_LOGE("%d %s: Failed to linkToDeath: in_clientID: %d", 129, "registerClient",
                          in_clientId);
    }

    mCallbackMap.emplace(in_clientId, in_callback);
    // A list left from an earlier registration of this id is kept, with the buffers still lent.
    mClientBuffers.emplace(in_clientId, std::vector<ClientBufferRecord>());
    OfflineCameraService::GetInstance()->RegisterConsumerClient(in_clientId, &mClientCallbacks);
    AIDL_SERVICE_LOGI("%s: clientID:%d register successfully!", "registerClient", in_clientId);
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus OfflineCameraAIDLService::unRegisterClient(int32_t in_clientId) {
    std::lock_guard<std::mutex> callbackLock(mCallbackLock);
    auto entry = mCallbackMap.find(in_clientId);
    if (entry == mCallbackMap.end()) {
        AIDL_SERVICE_LOGE("%d %s: This clientID: %d did not register before!", 166,
                          "unRegisterClient", in_clientId);
        return convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    }

    OfflineCameraService::GetInstance()->unRegisterConsumerClient(in_clientId);

    if (entry->second != nullptr) {
        std::lock_guard<std::mutex> slotLock(mSlotLock);
        for (ClientSlot& slot : mClientSlots) {
            if (slot.inUse && slot.clientId == in_clientId) {
                ::ndk::SpAIBinder binder = entry->second->asBinder();
                (void)AIBinder_unlinkToDeath(binder.get(), mDeathRecipient.get(), &slot);
                slot.inUse = false;
                slot.clientId = -1;
                slot.service = nullptr;
                break;
            }
        }
    }

    // The client's lent buffers stay recorded: the producer may still give them back.
    mCallbackMap.erase(entry);
    AIDL_SERVICE_LOGI("%d %s: client %d unregister", 178, "unRegisterClient", in_clientId);
    return ::ndk::ScopedAStatus::ok();
}

void OfflineCameraAIDLService::binderDied(void* cookie) {
    ClientSlot* pSlot = static_cast<ClientSlot*>(cookie);
    const int32_t clientId = pSlot->clientId;
    AIDL_SERVICE_LOGI("%d %s:client callback died clientID:%d", 422, "binderDied", clientId);
    OfflineCameraAIDLService* service = pSlot->service;

    std::lock_guard<std::mutex> callbackLock(service->mCallbackLock);
    auto entry = service->mCallbackMap.find(clientId);
    if (entry == service->mCallbackMap.end()) {
        return;
    }
    service->mCallbackMap.erase(entry);
    OfflineCameraService::GetInstance()->unRegisterConsumerClient(clientId);

    // The binder is dead, so there is no link left to undo. Its lent buffers stay recorded.
    std::lock_guard<std::mutex> slotLock(service->mSlotLock);
    for (ClientSlot& slot : service->mClientSlots) {
        if (slot.inUse && slot.clientId == clientId) {
            slot.inUse = false;
            slot.clientId = -1;
            slot.service = nullptr;
            break;
        }
    }
}

std::shared_ptr<IOfflineClientCallback> OfflineCameraAIDLService::findCallback(int32_t clientId) {
    std::lock_guard<std::mutex> callbackLock(mCallbackLock);
    auto entry = mCallbackMap.find(clientId);
    if (entry == mCallbackMap.end()) {
        AIDL_SERVICE_LOGE("%d %s: can not find the callback for this clientID :%d", 284,
                          "findCallback", clientId);
        return nullptr;
    }
    AIDL_SERVICE_LOGI("%d %s: find the callback for this clientID :%d", 279, "findCallback",
                      clientId);
    return entry->second;
}

::ndk::ScopedAStatus OfflineCameraAIDLService::openOfflineSeesion(
        const std::string& in_clientSessionName,
        const std::shared_ptr<IOfflineCameraSessionCallback>& in_callback,
        std::shared_ptr<IOfflineCameraSession>* _aidl_return) {
    if (in_callback == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%d %s: callback is null", 223,
                            "openOfflineSeesion");
        return convertToScopedAStatus(Status::ILLEGAL_ARGUMENT);
    }
    // The service keeps no list of its sessions: each lives as long as its client holds it.
    std::shared_ptr<OfflineCameraAIDLSession> session =
            ::ndk::SharedRefBase::make<OfflineCameraAIDLSession>(in_clientSessionName, in_callback);
    if (session == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "%d %s: offline camera session create failed", 233,
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
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%s: get offline static caps failed",
                            "GetOfflineStaticCaps");
        return convertToScopedAStatus(Status::INTERNAL_ERROR);
    }
    convertToAidl(pStaticMeta, _aidl_return);
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

uint32_t OfflineCameraAIDLService::requestStreamBuffersCb(const ClientCallbacks* pCallbackOps,
                                                          int32_t clientId,
                                                          std::vector<StreamBufferRequest> requests) {
    if (pCallbackOps == nullptr || requests.empty()) {
        AIDL_SERVICE_LOGE("%d %s: pCallbackOps is NULL OR requestParams size is 0!", 660,
                          "requestStreamBuffersCb");
        return CAMERA3_BUF_REQ_FAILED_ILLEGAL_ARGUMENTS;
    }
    auto* service = static_cast<OfflineCameraAIDLService*>(pCallbackOps->pPrivateData);
    return service->requestStreamBuffers(clientId, requests);
}

void OfflineCameraAIDLService::returnBuffersCb(const ClientCallbacks* pCallbackOps, int32_t clientId,
                                               std::vector<buffer_handle_t*> buffers) {
    if (pCallbackOps == nullptr) {
        AIDL_SERVICE_LOGE("%d %s: pCallbackOps is NULL!", 683, "returnBuffersCb");
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
        AIDL_SERVICE_LOGE("%d %s: pCallbackOps OR pCaptureResult is NULL!", 705,
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
        AIDL_SERVICE_LOGE(
                "%d %s: clientID:%d This product client did not register! can not fetch Buffer!",
                405, "requestStreamBuffers", clientId);
        return CAMERA3_BUF_REQ_FAILED_UNKNOWN;
    }

    std::vector<OfflineBufferRequest> bufferRequests(requests.size());
    for (size_t i = 0; i < requests.size(); i++) {
        const camera3_stream_t* pStream = requests[i].stream;
        Stream& stream = bufferRequests[i].stream;
        // The stream id stays 0: the consumer tells streams apart by their place in the list.
        stream.streamType = static_cast<StreamType>(pStream->stream_type);
        stream.width = static_cast<int32_t>(pStream->width);
        stream.height = static_cast<int32_t>(pStream->height);
        stream.format = static_cast<PixelFormat>(pStream->format);
        stream.usage = static_cast<BufferUsage>(pStream->usage);
        stream.dataSpace = static_cast<Dataspace>(pStream->data_space);
        stream.rotation = static_cast<StreamRotation>(pStream->rotation);
        stream.bufferSize = stream.width * stream.height * 2;
        bufferRequests[i].numBuffersRequested = static_cast<int32_t>(requests[i].numBuffers);
        AIDL_SERVICE_LOGI(
                "%d %s: clientID:%d, i:%d, format:%d, dataSpace:%d, usage:%ld, rotation:%d, "
                "wXh:%d, %d",
                319, "requestStreamBuffers", clientId, static_cast<int>(i),
                static_cast<int>(stream.format), static_cast<int>(stream.dataSpace),
                static_cast<long>(stream.usage), static_cast<int>(stream.rotation), stream.width,
                stream.height);
    }

    std::vector<StreamBufferRet> returned;
    BufferRequestStatus status = BufferRequestStatus::OK;
    ::ndk::ScopedAStatus transaction =
            callback->requestStreamBuffers(bufferRequests, &returned, &status);
    if (!transaction.isOk() || status != BufferRequestStatus::OK) {
        AIDL_SERVICE_LOGE("%d %s: Request buffer Failed!Transaction error: %s or status error:%d",
                          337, "requestStreamBuffers", transaction.getDescription().c_str(),
                          static_cast<int>(status));
        return CAMERA3_BUF_REQ_FAILED_UNKNOWN;
    }
    if (returned.size() != requests.size()) {
        AIDL_SERVICE_LOGE("%d %s: Request buffer num error request:%zu, return:%zu", 344,
                          "requestStreamBuffers", requests.size(), returned.size());
        return CAMERA3_BUF_REQ_FAILED_UNKNOWN;
    }

    // The lists of lent buffers are used without a lock: the producer neither runs two callbacks
    // for one client at once nor runs them while clients register.
    std::vector<ClientBufferRecord>& records = mClientBuffers[clientId];
    if (returned.empty()) {
        return CAMERA3_BUF_REQ_OK;
    }
    size_t lentCount = 0;
    for (const StreamBufferRet& ret : returned) {
        if (ret.val.getTag() == StreamBuffersVal::Tag::buffers) {
            lentCount += ret.val.get<StreamBuffersVal::Tag::buffers>().size();
        }
    }
    // Room for the whole reply, so that the pointers handed out below stay put.
    records.reserve(std::max(records.size() + lentCount, kLentBufferRoom));

    for (size_t i = 0; i < returned.size(); i++) {
        // A reply that holds an error instead of buffers stops the process here.
        const std::vector<StreamBuffer>& buffers =
                returned[i].val.get<StreamBuffersVal::Tag::buffers>();
        for (size_t j = 0; j < buffers.size(); j++) {
            const StreamBuffer& buffer = buffers[j];
            // Only as many buffers as were asked for fit in the producer's array.
            native_handle_t* received =
                    j < requests[i].numBuffers ? convertFromAidl(buffer.buffer) : nullptr;
            buffer_handle_t handle = received;
            if (received == nullptr || !gHandleImporter.importBuffer(handle)) {
                if (received != nullptr) {
                    releaseReceivedHandle(received);
                }
                AIDL_SERVICE_LOGE("%d %s: output buffer for clientID %d is invalid!", 367,
                                  "requestStreamBuffers", clientId);
                return CAMERA3_BUF_REQ_FAILED_UNKNOWN;
            }

            records.push_back({buffer.streamId, buffer.bufferId, handle});
            ClientBufferRecord& record = records.back();
            AIDL_SERVICE_LOGI("%d %s: buffer:%p!, streamId:%d, bufferId:%lu", 381,
                              "requestStreamBuffers", static_cast<void*>(&record.handle),
                              record.streamId, static_cast<unsigned long>(record.bufferId));

            camera3_stream_buffer_t& output = requests[i].pOutputBuffers[j];
            output.stream = requests[i].stream;
            output.buffer = &record.handle;
            output.status = CAMERA3_BUFFER_STATUS_OK;
            output.acquire_fence = -1;
            output.release_fence = -1;

            // The record owns the imported copy; the received handle has served its purpose.
            releaseReceivedHandle(received);
        }
    }
    return CAMERA3_BUF_REQ_OK;
}

void OfflineCameraAIDLService::returnBuffers(int32_t clientId,
                                             std::vector<buffer_handle_t*> buffers) {
    std::shared_ptr<IOfflineClientCallback> callback = findCallback(clientId);
    if (callback == nullptr) {
        AIDL_SERVICE_LOGE("%d %s, can not find the callback ClientId:%d", 642, "returnBuffers",
                          clientId);
        return;
    }
    if (buffers.empty()) {
        AIDL_SERVICE_LOGI("%d %s, no buffers for this ClientId:%d", 636, "returnBuffers", clientId);
        return;
    }

    // A buffer that was never lent goes back as a default element.
    std::vector<StreamBuffer> streamBuffers(buffers.size());
    std::vector<buffer_handle_t> returnedHandles;
    for (size_t i = 0; i < buffers.size(); i++) {
        std::vector<ClientBufferRecord>& records = checkedAt(mClientBuffers, clientId);
        auto record = findLentBuffer(records, buffers[i]);
        if (record == records.end()) {
            continue;
        }
        streamBuffers[i].streamId = record->streamId;
        streamBuffers[i].bufferId = record->bufferId;
        streamBuffers[i].status = BufferStatus::OK;
        returnedHandles.push_back(record->handle);
        records.erase(record);
    }

    (void)callback->returnStreamBuffers(streamBuffers);
    freeBuffers(returnedHandles);
}

void OfflineCameraAIDLService::processCaptureResult(int32_t clientId,
                                                    const camera3_capture_result_t* pCaptureResult) {
    std::shared_ptr<IOfflineClientCallback> callback = findCallback(clientId);
    if (callback == nullptr) {
        return;
    }

    std::vector<OfflineCaptureResult> results(1);
    OfflineCaptureResult& result = results[0];
    result.frameNumber = pCaptureResult->frame_number;
    if (pCaptureResult->result != nullptr) {
        AIDL_SERVICE_LOGI("%d %s:  return meta clientID:%d, pCaptureResult:%p", 511,
                          "processCaptureResult", clientId,
                          static_cast<const void*>(pCaptureResult));
        convertToAidl(pCaptureResult->result, &result.result);
    }

    std::vector<buffer_handle_t> returnedHandles;
    if (pCaptureResult->num_output_buffers > 0 && pCaptureResult->output_buffers != nullptr) {
        AIDL_SERVICE_LOGI("%d %s: return buffer clientID:%d, num_output_buffers:%d", 520,
                          "processCaptureResult", clientId,
                          static_cast<int>(pCaptureResult->num_output_buffers));
        result.outputBuffers.resize(pCaptureResult->num_output_buffers);
        for (uint32_t i = 0; i < pCaptureResult->num_output_buffers; i++) {
            const camera3_stream_buffer_t& output = pCaptureResult->output_buffers[i];
            std::vector<ClientBufferRecord>& records = checkedAt(mClientBuffers, clientId);
            auto record = findLentBuffer(records, output.buffer);
            if (record == records.end()) {
                // The whole result is dropped; buffers matched so far are forgotten.
                AIDL_SERVICE_LOGE("%d %s: Invalid returnd buffer clientID:%d, buffer:%p", 552,
                                  "processCaptureResult", clientId,
                                  static_cast<const void*>(*output.buffer));
                freeBuffers(returnedHandles);
                return;
            }
            StreamBuffer& buffer = result.outputBuffers[i];
            buffer.streamId = record->streamId;
            buffer.bufferId = record->bufferId;
            buffer.status = static_cast<BufferStatus>(output.status);
            returnedHandles.push_back(record->handle);
            records.erase(record);
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
    __android_log_print(ANDROID_LOG_INFO, kEntryLogTag,
                        "%d %s: start to register offline camera AIDL service", 36,
                        "RegisterOfflineCameraAIDLService");

    // The hosting process calls this once, from its start-up thread; the guard takes no lock.
    if (gOfflineAIDLService != nullptr) {
        const std::string instance =
                std::string(IOfflineCameraService::descriptor) + gInstanceSuffix;
        __android_log_print(ANDROID_LOG_INFO, kEntryLogTag,
                            "%d %s: offline camera service alredy register offlineAIDLService:%s",
                            69, "RegisterOfflineCameraAIDLService", instance.c_str());
        return;
    }

    gOfflineAIDLService = ::ndk::SharedRefBase::make<OfflineCameraAIDLService>();

    const std::string instance = std::string(IOfflineCameraService::descriptor) + gInstanceSuffix;
    if (gOfflineAIDLService == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kEntryLogTag,
                            "%d %s: Cannot register offline camera aidl service", 63,
                            "RegisterOfflineCameraAIDLService");
        return;
    }

    binder_exception_t result;
    {
        ::ndk::SpAIBinder binder = gOfflineAIDLService->asBinder();
        result = AServiceManager_addService(binder.get(), instance.c_str());
    }
    if (result != EX_NONE) {
        __android_log_print(ANDROID_LOG_ERROR, kEntryLogTag,
                            "%d %s: Cannot register offline camera AIDL service-%s, errorCode:%d",
                            53, "RegisterOfflineCameraAIDLService", instance.c_str(), result);
        return;
    }
    __android_log_print(ANDROID_LOG_INFO, kEntryLogTag,
                        "%d %s: Add offline camera aidl service success!", 58,
                        "RegisterOfflineCameraAIDLService");
}

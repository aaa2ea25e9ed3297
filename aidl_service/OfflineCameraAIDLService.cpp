/*
 * Copyright (C) 2026 Oru Camera
 */
#include "OfflineCameraAIDLService.h"

#include <android/binder_manager.h>
#include <android/log.h>
#include <convert.h>

#include "OfflineCameraAIDLSession.h"

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

namespace {

using ::aidl::android::hardware::camera::common::Status;
using ::android::hardware::camera::device::implementation::convertToAidl;
using ::android::hardware::camera::device::implementation::convertToScopedAStatus;

constexpr const char* kLogTag = "KivOfflineAIDLSevice";

// Operation modes that offline sessions accept; clients and the backend agree on their meaning.
constexpr int32_t kSupportedOpModes[] = {0, 1, 2, 3, 4, 5};
constexpr size_t kOpModesCapacity = 10;

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
// references and buffer lists they hold. Death links are not undone and the core's registry is
// left as it is.
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
        int32_t /*in_clientId*/, const std::shared_ptr<IOfflineClientCallback>& /*in_callback*/) {
    // Consumer registration is not served by this build yet.
    return convertToScopedAStatus(Status::OPERATION_NOT_SUPPORTED);
}

::ndk::ScopedAStatus OfflineCameraAIDLService::unRegisterClient(int32_t /*in_clientId*/) {
    return convertToScopedAStatus(Status::OPERATION_NOT_SUPPORTED);
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

// No consumer can be registered through this build yet, so the core never reaches a client
// here; every delivery reports failure.
int32_t OfflineCameraAIDLService::processCaptureResultCb(
        const ClientCallbacks* /*pCallbackOps*/, int32_t /*clientId*/,
        const camera3_capture_result_t* /*pResult*/) {
    return CAMERA3_BUF_REQ_FAILED_UNKNOWN;
}

uint32_t OfflineCameraAIDLService::requestStreamBuffersCb(
        const ClientCallbacks* /*pCallbackOps*/, int32_t /*clientId*/,
        std::vector<StreamBufferRequest> /*requests*/) {
    return CAMERA3_BUF_REQ_FAILED_UNKNOWN;
}

void OfflineCameraAIDLService::returnBuffersCb(const ClientCallbacks* /*pCallbackOps*/,
                                               int32_t /*clientId*/,
                                               std::vector<buffer_handle_t*> /*buffers*/) {}

void OfflineCameraAIDLService::binderDied(void* /*cookie*/) {}

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

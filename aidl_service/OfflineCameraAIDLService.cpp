/*
 * Copyright (C) 2026 Oru Camera
 */
#include "OfflineCameraAIDLService.h"

#include <android/binder_manager.h>
#include <android/log.h>
#include <convert.h>

namespace aidl::vendor::oru::hardware::camera::offlinecamera::implementation {

namespace {

using ::aidl::android::hardware::camera::common::Status;
using ::android::hardware::camera::device::implementation::convertToScopedAStatus;

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
        std::vector<int32_t>* /*_aidl_return*/) {
    // Capability queries are not served by this build yet.
    return convertToScopedAStatus(Status::OPERATION_NOT_SUPPORTED);
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
        const std::string& /*in_clientSessionName*/,
        const std::shared_ptr<IOfflineCameraSessionCallback>& /*in_callback*/,
        std::shared_ptr<IOfflineCameraSession>* /*_aidl_return*/) {
    // Offline sessions are not served by this build yet.
    return convertToScopedAStatus(Status::OPERATION_NOT_SUPPORTED);
}

::ndk::ScopedAStatus OfflineCameraAIDLService::getOfflineStaticCaps(
        ::aidl::android::hardware::camera::device::CameraMetadata* /*_aidl_return*/) {
    return convertToScopedAStatus(Status::OPERATION_NOT_SUPPORTED);
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

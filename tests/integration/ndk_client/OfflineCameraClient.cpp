/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#define LOG_TAG "OruOfflineCameraClient"

#include "OfflineCameraClient.h"

#include <android/binder_ibinder.h>
#include <android/binder_manager.h>
#include <android/log.h>

#include <utility>

namespace oru::offlinecamera::client {

using ::aidl::android::hardware::camera::device::StreamBufferRequestError;
using ::aidl::android::hardware::camera::device::StreamBuffersVal;

::ndk::ScopedAStatus ConsumerCallback::notify(const std::vector<NotifyMsg>& /*in_msgs*/) {
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus ConsumerCallback::processCaptureResult(
        const std::vector<OfflineCaptureResult>& in_results) {
    mResults += static_cast<int32_t>(in_results.size());
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus ConsumerCallback::requestStreamBuffers(
        const std::vector<OfflineBufferRequest>& in_bufReqs,
        std::vector<StreamBufferRet>* out_buffers, BufferRequestStatus* _aidl_return) {
    // One answer per request, in request order, each saying that no buffer is available.
    out_buffers->clear();
    for (const OfflineBufferRequest& request : in_bufReqs) {
        StreamBufferRet ret;
        ret.streamId = request.stream.id;
        ret.val = StreamBuffersVal::make<StreamBuffersVal::Tag::error>(
                StreamBufferRequestError::NO_BUFFER_AVAILABLE);
        out_buffers->push_back(std::move(ret));
    }
    mDeclinedRequests += static_cast<int32_t>(in_bufReqs.size());
    *_aidl_return = BufferRequestStatus::FAILED_UNKNOWN;
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus ConsumerCallback::returnStreamBuffers(
        const std::vector<StreamBuffer>& /*in_buffers*/) {
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus SessionCallback::notify(const std::vector<NotifyMsg>& in_msgs) {
    mMessages += static_cast<int32_t>(in_msgs.size());
    return ::ndk::ScopedAStatus::ok();
}

::ndk::ScopedAStatus SessionCallback::processCaptureResult(
        const std::vector<CaptureResult>& in_results) {
    mResults += static_cast<int32_t>(in_results.size());
    return ::ndk::ScopedAStatus::ok();
}

std::string OfflineCameraClient::InstanceName() {
    return std::string(IOfflineCameraService::descriptor) + "/default";
}

std::unique_ptr<OfflineCameraClient> OfflineCameraClient::Connect(bool wait) {
    const std::string instance = InstanceName();
    ::ndk::SpAIBinder binder(wait ? AServiceManager_waitForService(instance.c_str())
                                  : AServiceManager_checkService(instance.c_str()));
    std::shared_ptr<IOfflineCameraService> service = IOfflineCameraService::fromBinder(binder);
    if (service == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, LOG_TAG, "%s is not published", instance.c_str());
        return nullptr;
    }
    std::unique_ptr<OfflineCameraClient> client(new OfflineCameraClient(std::move(service)));
    if (!client->init()) return nullptr;
    return client;
}

OfflineCameraClient::OfflineCameraClient(std::shared_ptr<IOfflineCameraService> service)
    : mService(std::move(service)),
      mConsumer(::ndk::SharedRefBase::make<ConsumerCallback>()),
      mSession(::ndk::SharedRefBase::make<SessionCallback>()),
      mDeathState(std::make_shared<DeathState>()),
      mDeathRecipient(AIBinder_DeathRecipient_new(onServiceDied)) {
    AIBinder_DeathRecipient_setOnUnlinked(mDeathRecipient.get(), onUnlinked);
}

// Deleting the recipient undoes the link; onUnlinked then frees the cookie.
OfflineCameraClient::~OfflineCameraClient() = default;

bool OfflineCameraClient::init() {
    ::ndk::ScopedAStatus status = mService->getInterfaceVersion(&mServedVersion);
    if (status.isOk()) status = mService->getInterfaceHash(&mServedHash);
    if (!status.isOk()) {
        __android_log_print(ANDROID_LOG_ERROR, LOG_TAG, "cannot ask %s for its version: %s",
                            InstanceName().c_str(), status.getDescription().c_str());
        return false;
    }
    if (mServedVersion < IOfflineCameraService::version) {
        __android_log_print(ANDROID_LOG_ERROR, LOG_TAG,
                            "the service serves version %d; this client needs %d", mServedVersion,
                            IOfflineCameraService::version);
        return false;
    }
    // A service in this process cannot die apart from it and takes no death link.
    if (mService->isRemote()) {
        auto* cookie = new std::shared_ptr<DeathState>(mDeathState);
        binder_status_t linked =
                AIBinder_linkToDeath(mService->asBinder().get(), mDeathRecipient.get(), cookie);
        if (linked != STATUS_OK) {
            // onUnlinked has freed the cookie.
            __android_log_print(ANDROID_LOG_WARN, LOG_TAG, "cannot watch the service: %d", linked);
        }
    }
    return true;
}

bool OfflineCameraClient::sameInterface() const {
    return mServedVersion == IOfflineCameraService::version &&
           mServedHash == IOfflineCameraService::hash;
}

void OfflineCameraClient::onServiceDied(void* cookie) {
    (*static_cast<std::shared_ptr<DeathState>*>(cookie))->died = true;
    __android_log_print(ANDROID_LOG_WARN, LOG_TAG, "the offline camera service died");
}

void OfflineCameraClient::onUnlinked(void* cookie) {
    delete static_cast<std::shared_ptr<DeathState>*>(cookie);
}

::ndk::ScopedAStatus OfflineCameraClient::supportedOpModes(std::vector<int32_t>* modes) {
    return mService->getSupportedOpModes(modes);
}

::ndk::ScopedAStatus OfflineCameraClient::registerConsumer(int32_t clientId) {
    return mService->registerClient(clientId, mConsumer);
}

::ndk::ScopedAStatus OfflineCameraClient::unregisterConsumer(int32_t clientId) {
    return mService->unRegisterClient(clientId);
}

::ndk::ScopedAStatus OfflineCameraClient::openSession(
        const std::string& name, std::shared_ptr<IOfflineCameraSession>* session) {
    return mService->openOfflineSeesion(name, mSession, session);
}

}  // namespace oru::offlinecamera::client

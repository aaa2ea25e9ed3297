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
// The death link's cookie: a reference to the client's flag.
using DiedCookie = std::shared_ptr<std::atomic<bool>>;

ScopedAStatus ConsumerCallback::requestStreamBuffers(
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
    *_aidl_return = BufferRequestStatus::FAILED_UNKNOWN;
    return ScopedAStatus::ok();
}

std::unique_ptr<OfflineCameraClient> OfflineCameraClient::Connect() {
    // descriptor is a const char*: adding the suffix to it directly would be pointer arithmetic.
    const std::string instance = std::string(IOfflineCameraService::descriptor) + "/default";
    std::unique_ptr<OfflineCameraClient> client(new OfflineCameraClient);
    std::shared_ptr<IOfflineCameraService>& service = client->mService;
    service = IOfflineCameraService::fromBinder(
            ::ndk::SpAIBinder(AServiceManager_waitForService(instance.c_str())));
    int32_t version = 0;
    if (service == nullptr || !service->getInterfaceVersion(&version).isOk() ||
        version < IOfflineCameraService::version) {
        __android_log_print(ANDROID_LOG_ERROR, LOG_TAG, "%s: not published or older than V%d",
                            instance.c_str(), IOfflineCameraService::version);
        return nullptr;
    }
    // A service in this process cannot die apart from it and takes no death link.
    if (!service->isRemote()) return client;
    client->mDeathRecipient.set(AIBinder_DeathRecipient_new([](void* cookie) {
        **static_cast<DiedCookie*>(cookie) = true;
        __android_log_print(ANDROID_LOG_WARN, LOG_TAG, "the offline camera service died");
    }));
    AIBinder_DeathRecipient_setOnUnlinked(client->mDeathRecipient.get(), [](void* cookie) {
        delete static_cast<DiedCookie*>(cookie);
    });
    // On failure, the binder library has called the onUnlinked callback already.
    binder_status_t linked = AIBinder_linkToDeath(
            service->asBinder().get(), client->mDeathRecipient.get(), new DiedCookie(client->mDied));
    if (linked != STATUS_OK) {
        __android_log_print(ANDROID_LOG_WARN, LOG_TAG, "cannot watch the service: %d", linked);
    }
    return client;
}

}  // namespace oru::offlinecamera::client

/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineClientCallback.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2). Calls between objects of this process never go
 * through parcels: a proxy hands each call to the object served behind its binder.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineClientCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BpOfflineClientCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineClientCallback.h>
#include <assert.h>
#include <string.h>

namespace aidl {
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {
// No transaction reaches a class of this build: proxies of the host process call the served
// object directly (see the resolve function below), so there is no parcel to read.
static binder_status_t _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_onTransact(
        AIBinder* /*_aidl_binder*/, transaction_code_t /*_aidl_code*/, const AParcel* /*_aidl_in*/,
        AParcel* /*_aidl_out*/) {
    return STATUS_UNKNOWN_TRANSACTION;
}

static AIBinder_Class* _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_clazz =
        ::ndk::ICInterface::defineClass(
                IOfflineClientCallback::descriptor,
                _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_onTransact);

// The object served behind a proxy's binder, or the status a transaction to it would give.
static binder_status_t _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_resolve(
        const ::ndk::SpAIBinder& binder, std::shared_ptr<IOfflineClientCallback>* impl) {
    if (!AIBinder_isAlive(binder.get())) return STATUS_DEAD_OBJECT;
    *impl = std::static_pointer_cast<IOfflineClientCallback>(
            ::ndk::ICInterface::asInterface(binder.get()));
    return *impl ? STATUS_OK : STATUS_UNKNOWN_TRANSACTION;
}

BpOfflineClientCallback::BpOfflineClientCallback(const ::ndk::SpAIBinder& binder)
    : BpCInterface(binder) {}
BpOfflineClientCallback::~BpOfflineClientCallback() {}

::ndk::ScopedAStatus BpOfflineClientCallback::notify(
        const std::vector<::aidl::android::hardware::camera::device::NotifyMsg>& in_msgs) {
    std::shared_ptr<IOfflineClientCallback> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineClientCallback::getDefaultImpl()) {
        return IOfflineClientCallback::getDefaultImpl()->notify(in_msgs);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->notify(in_msgs);
}

::ndk::ScopedAStatus BpOfflineClientCallback::processCaptureResult(
        const std::vector<::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureResult>&
                in_results) {
    std::shared_ptr<IOfflineClientCallback> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineClientCallback::getDefaultImpl()) {
        return IOfflineClientCallback::getDefaultImpl()->processCaptureResult(in_results);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->processCaptureResult(in_results);
}

::ndk::ScopedAStatus BpOfflineClientCallback::requestStreamBuffers(
        const std::vector<::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineBufferRequest>&
                in_bufReqs,
        std::vector<::aidl::android::hardware::camera::device::StreamBufferRet>* out_buffers,
        ::aidl::android::hardware::camera::device::BufferRequestStatus* _aidl_return) {
    std::shared_ptr<IOfflineClientCallback> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineClientCallback::getDefaultImpl()) {
        return IOfflineClientCallback::getDefaultImpl()->requestStreamBuffers(
                in_bufReqs, out_buffers, _aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->requestStreamBuffers(in_bufReqs, out_buffers, _aidl_return);
}

::ndk::ScopedAStatus BpOfflineClientCallback::returnStreamBuffers(
        const std::vector<::aidl::android::hardware::camera::device::StreamBuffer>& in_buffers) {
    std::shared_ptr<IOfflineClientCallback> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineClientCallback::getDefaultImpl()) {
        return IOfflineClientCallback::getDefaultImpl()->returnStreamBuffers(in_buffers);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->returnStreamBuffers(in_buffers);
}

::ndk::ScopedAStatus BpOfflineClientCallback::getInterfaceVersion(int32_t* _aidl_return) {
    if (_aidl_cached_version != -1) {
        *_aidl_return = _aidl_cached_version;
        return ::ndk::ScopedAStatus::ok();
    }
    std::shared_ptr<IOfflineClientCallback> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineClientCallback::getDefaultImpl()) {
        return IOfflineClientCallback::getDefaultImpl()->getInterfaceVersion(_aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->getInterfaceVersion(_aidl_return);
    if (_aidl_status.isOk()) _aidl_cached_version = *_aidl_return;
    return _aidl_status;
}

::ndk::ScopedAStatus BpOfflineClientCallback::getInterfaceHash(std::string* _aidl_return) {
    std::lock_guard<std::mutex> lockGuard(_aidl_cached_hash_mutex);
    if (_aidl_cached_hash != "-1") {
        *_aidl_return = _aidl_cached_hash;
        return ::ndk::ScopedAStatus::ok();
    }
    std::shared_ptr<IOfflineClientCallback> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineClientCallback::getDefaultImpl()) {
        return IOfflineClientCallback::getDefaultImpl()->getInterfaceHash(_aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->getInterfaceHash(_aidl_return);
    if (_aidl_status.isOk()) _aidl_cached_hash = *_aidl_return;
    return _aidl_status;
}

// Source for BnOfflineClientCallback
BnOfflineClientCallback::BnOfflineClientCallback() {}
BnOfflineClientCallback::~BnOfflineClientCallback() {}

::ndk::SpAIBinder BnOfflineClientCallback::createBinder() {
    AIBinder* binder = AIBinder_new(
            _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_clazz,
            static_cast<void*>(this));
#ifdef BINDER_STABILITY_SUPPORT
    AIBinder_markVintfStability(binder);
#endif  // BINDER_STABILITY_SUPPORT
    return ::ndk::SpAIBinder(binder);
}

::ndk::ScopedAStatus BnOfflineClientCallback::getInterfaceVersion(int32_t* _aidl_return) {
    *_aidl_return = IOfflineClientCallback::version;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus BnOfflineClientCallback::getInterfaceHash(std::string* _aidl_return) {
    *_aidl_return = IOfflineClientCallback::hash;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

// Source for IOfflineClientCallback
const char* IOfflineClientCallback::descriptor =
        "vendor.oru.hardware.camera.offlinecamera.IOfflineClientCallback";
IOfflineClientCallback::IOfflineClientCallback() {}
IOfflineClientCallback::~IOfflineClientCallback() {}

std::shared_ptr<IOfflineClientCallback> IOfflineClientCallback::fromBinder(
        const ::ndk::SpAIBinder& binder) {
    if (binder.get() == nullptr) return nullptr;
    if (!AIBinder_associateClass(
                binder.get(),
                _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineClientCallback_clazz)) {
        const AIBinder_Class* originalClass = AIBinder_getClass(binder.get());
        if (originalClass == nullptr) return nullptr;
        if (0 == strcmp(AIBinder_Class_getDescriptor(originalClass), descriptor)) {
            return ::ndk::SharedRefBase::make<BpOfflineClientCallback>(binder);
        }
        return nullptr;
    }
    if (!AIBinder_isRemote(binder.get())) {
        std::shared_ptr<::ndk::ICInterface> interface =
                ::ndk::ICInterface::asInterface(binder.get());
        if (interface) return std::static_pointer_cast<IOfflineClientCallback>(interface);
    }
    return ::ndk::SharedRefBase::make<BpOfflineClientCallback>(binder);
}

bool IOfflineClientCallback::setDefaultImpl(const std::shared_ptr<IOfflineClientCallback>& impl) {
    // Only one user of this interface can use this function at a time. This is a heuristic to
    // detect if two different users in the same process use this function.
    assert(!IOfflineClientCallback::default_impl);
    if (impl) {
        IOfflineClientCallback::default_impl = impl;
        return true;
    }
    return false;
}

const std::shared_ptr<IOfflineClientCallback>& IOfflineClientCallback::getDefaultImpl() {
    return IOfflineClientCallback::default_impl;
}

std::shared_ptr<IOfflineClientCallback> IOfflineClientCallback::default_impl = nullptr;

::ndk::ScopedAStatus IOfflineClientCallbackDefault::notify(
        const std::vector<::aidl::android::hardware::camera::device::NotifyMsg>& /*in_msgs*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineClientCallbackDefault::processCaptureResult(
        const std::vector<::aidl::vendor::oru::hardware::camera::offlinecamera::
                                  OfflineCaptureResult>& /*in_results*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineClientCallbackDefault::requestStreamBuffers(
        const std::vector<::aidl::vendor::oru::hardware::camera::offlinecamera::
                                  OfflineBufferRequest>& /*in_bufReqs*/,
        std::vector<::aidl::android::hardware::camera::device::StreamBufferRet>* /*out_buffers*/,
        ::aidl::android::hardware::camera::device::BufferRequestStatus* /*_aidl_return*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineClientCallbackDefault::returnStreamBuffers(
        const std::vector<::aidl::android::hardware::camera::device::StreamBuffer>& /*in_buffers*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineClientCallbackDefault::getInterfaceVersion(int32_t* _aidl_return) {
    *_aidl_return = 0;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus IOfflineClientCallbackDefault::getInterfaceHash(std::string* _aidl_return) {
    *_aidl_return = "";
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::SpAIBinder IOfflineClientCallbackDefault::asBinder() {
    return ::ndk::SpAIBinder();
}

bool IOfflineClientCallbackDefault::isRemote() {
    return false;
}
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

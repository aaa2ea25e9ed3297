/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2). Calls between objects of this process never go
 * through parcels: a proxy hands each call to the object served behind its binder.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BpOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.h>
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
static binder_status_t
_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSessionCallback_onTransact(
        AIBinder* /*_aidl_binder*/, transaction_code_t /*_aidl_code*/, const AParcel* /*_aidl_in*/,
        AParcel* /*_aidl_out*/) {
    return STATUS_UNKNOWN_TRANSACTION;
}

static AIBinder_Class* _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSessionCallback_clazz =
        ::ndk::ICInterface::defineClass(
                IOfflineCameraSessionCallback::descriptor,
                _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSessionCallback_onTransact);

// The object served behind a proxy's binder, or the status a transaction to it would give.
static binder_status_t
_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSessionCallback_resolve(
        const ::ndk::SpAIBinder& binder, std::shared_ptr<IOfflineCameraSessionCallback>* impl) {
    if (!AIBinder_isAlive(binder.get())) return STATUS_DEAD_OBJECT;
    *impl = std::static_pointer_cast<IOfflineCameraSessionCallback>(
            ::ndk::ICInterface::asInterface(binder.get()));
    return *impl ? STATUS_OK : STATUS_UNKNOWN_TRANSACTION;
}

BpOfflineCameraSessionCallback::BpOfflineCameraSessionCallback(const ::ndk::SpAIBinder& binder)
    : BpCInterface(binder) {}
BpOfflineCameraSessionCallback::~BpOfflineCameraSessionCallback() {}

::ndk::ScopedAStatus BpOfflineCameraSessionCallback::notify(
        const std::vector<::aidl::android::hardware::camera::device::NotifyMsg>& in_msgs) {
    std::shared_ptr<IOfflineCameraSessionCallback> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSessionCallback_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION &&
        IOfflineCameraSessionCallback::getDefaultImpl()) {
        return IOfflineCameraSessionCallback::getDefaultImpl()->notify(in_msgs);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->notify(in_msgs);
}

::ndk::ScopedAStatus BpOfflineCameraSessionCallback::processCaptureResult(
        const std::vector<::aidl::android::hardware::camera::device::CaptureResult>& in_results) {
    std::shared_ptr<IOfflineCameraSessionCallback> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSessionCallback_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION &&
        IOfflineCameraSessionCallback::getDefaultImpl()) {
        return IOfflineCameraSessionCallback::getDefaultImpl()->processCaptureResult(in_results);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->processCaptureResult(in_results);
}

::ndk::ScopedAStatus BpOfflineCameraSessionCallback::getInterfaceVersion(int32_t* _aidl_return) {
    if (_aidl_cached_version != -1) {
        *_aidl_return = _aidl_cached_version;
        return ::ndk::ScopedAStatus::ok();
    }
    std::shared_ptr<IOfflineCameraSessionCallback> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSessionCallback_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION &&
        IOfflineCameraSessionCallback::getDefaultImpl()) {
        return IOfflineCameraSessionCallback::getDefaultImpl()->getInterfaceVersion(_aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->getInterfaceVersion(_aidl_return);
    if (_aidl_status.isOk()) _aidl_cached_version = *_aidl_return;
    return _aidl_status;
}

::ndk::ScopedAStatus BpOfflineCameraSessionCallback::getInterfaceHash(std::string* _aidl_return) {
    std::lock_guard<std::mutex> lockGuard(_aidl_cached_hash_mutex);
    if (_aidl_cached_hash != "-1") {
        *_aidl_return = _aidl_cached_hash;
        return ::ndk::ScopedAStatus::ok();
    }
    std::shared_ptr<IOfflineCameraSessionCallback> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSessionCallback_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION &&
        IOfflineCameraSessionCallback::getDefaultImpl()) {
        return IOfflineCameraSessionCallback::getDefaultImpl()->getInterfaceHash(_aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->getInterfaceHash(_aidl_return);
    if (_aidl_status.isOk()) _aidl_cached_hash = *_aidl_return;
    return _aidl_status;
}

// Source for BnOfflineCameraSessionCallback
BnOfflineCameraSessionCallback::BnOfflineCameraSessionCallback() {}
BnOfflineCameraSessionCallback::~BnOfflineCameraSessionCallback() {}

::ndk::SpAIBinder BnOfflineCameraSessionCallback::createBinder() {
    AIBinder* binder = AIBinder_new(
            _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSessionCallback_clazz,
            static_cast<void*>(this));
#ifdef BINDER_STABILITY_SUPPORT
    AIBinder_markVintfStability(binder);
#endif  // BINDER_STABILITY_SUPPORT
    return ::ndk::SpAIBinder(binder);
}

::ndk::ScopedAStatus BnOfflineCameraSessionCallback::getInterfaceVersion(int32_t* _aidl_return) {
    *_aidl_return = IOfflineCameraSessionCallback::version;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus BnOfflineCameraSessionCallback::getInterfaceHash(std::string* _aidl_return) {
    *_aidl_return = IOfflineCameraSessionCallback::hash;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

// Source for IOfflineCameraSessionCallback
const char* IOfflineCameraSessionCallback::descriptor =
        "vendor.oru.hardware.camera.offlinecamera.IOfflineCameraSessionCallback";
IOfflineCameraSessionCallback::IOfflineCameraSessionCallback() {}
IOfflineCameraSessionCallback::~IOfflineCameraSessionCallback() {}

std::shared_ptr<IOfflineCameraSessionCallback> IOfflineCameraSessionCallback::fromBinder(
        const ::ndk::SpAIBinder& binder) {
    if (binder.get() == nullptr) return nullptr;
    if (!AIBinder_associateClass(
                binder.get(),
                _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSessionCallback_clazz)) {
        const AIBinder_Class* originalClass = AIBinder_getClass(binder.get());
        if (originalClass == nullptr) return nullptr;
        if (0 == strcmp(AIBinder_Class_getDescriptor(originalClass), descriptor)) {
            return ::ndk::SharedRefBase::make<BpOfflineCameraSessionCallback>(binder);
        }
        return nullptr;
    }
    if (!AIBinder_isRemote(binder.get())) {
        std::shared_ptr<::ndk::ICInterface> interface =
                ::ndk::ICInterface::asInterface(binder.get());
        if (interface) return std::static_pointer_cast<IOfflineCameraSessionCallback>(interface);
    }
    return ::ndk::SharedRefBase::make<BpOfflineCameraSessionCallback>(binder);
}

bool IOfflineCameraSessionCallback::setDefaultImpl(
        const std::shared_ptr<IOfflineCameraSessionCallback>& impl) {
    // Only one user of this interface can use this function at a time. This is a heuristic to
    // detect if two different users in the same process use this function.
    assert(!IOfflineCameraSessionCallback::default_impl);
    if (impl) {
        IOfflineCameraSessionCallback::default_impl = impl;
        return true;
    }
    return false;
}

const std::shared_ptr<IOfflineCameraSessionCallback>& IOfflineCameraSessionCallback::getDefaultImpl() {
    return IOfflineCameraSessionCallback::default_impl;
}

std::shared_ptr<IOfflineCameraSessionCallback> IOfflineCameraSessionCallback::default_impl = nullptr;

::ndk::ScopedAStatus IOfflineCameraSessionCallbackDefault::notify(
        const std::vector<::aidl::android::hardware::camera::device::NotifyMsg>& /*in_msgs*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraSessionCallbackDefault::processCaptureResult(
        const std::vector<::aidl::android::hardware::camera::device::CaptureResult>& /*in_results*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraSessionCallbackDefault::getInterfaceVersion(int32_t* _aidl_return) {
    *_aidl_return = 0;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus IOfflineCameraSessionCallbackDefault::getInterfaceHash(
        std::string* _aidl_return) {
    *_aidl_return = "";
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::SpAIBinder IOfflineCameraSessionCallbackDefault::asBinder() {
    return ::ndk::SpAIBinder();
}

bool IOfflineCameraSessionCallbackDefault::isRemote() {
    return false;
}
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

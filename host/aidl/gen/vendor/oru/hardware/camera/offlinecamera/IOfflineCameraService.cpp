/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2). Calls between objects of this process never go
 * through parcels: a proxy hands each call to the object served behind its binder.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraService.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BpOfflineCameraService.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.h>
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
static binder_status_t _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_onTransact(
        AIBinder* /*_aidl_binder*/, transaction_code_t /*_aidl_code*/, const AParcel* /*_aidl_in*/,
        AParcel* /*_aidl_out*/) {
    return STATUS_UNKNOWN_TRANSACTION;
}

static AIBinder_Class* _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_clazz =
        ::ndk::ICInterface::defineClass(
                IOfflineCameraService::descriptor,
                _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_onTransact);

// The object served behind a proxy's binder, or the status a transaction to it would give.
static binder_status_t _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_resolve(
        const ::ndk::SpAIBinder& binder, std::shared_ptr<IOfflineCameraService>* impl) {
    if (!AIBinder_isAlive(binder.get())) return STATUS_DEAD_OBJECT;
    *impl = std::static_pointer_cast<IOfflineCameraService>(
            ::ndk::ICInterface::asInterface(binder.get()));
    return *impl ? STATUS_OK : STATUS_UNKNOWN_TRANSACTION;
}

BpOfflineCameraService::BpOfflineCameraService(const ::ndk::SpAIBinder& binder)
    : BpCInterface(binder) {}
BpOfflineCameraService::~BpOfflineCameraService() {}

::ndk::ScopedAStatus BpOfflineCameraService::getSupportedOpModes(std::vector<int32_t>* _aidl_return) {
    std::shared_ptr<IOfflineCameraService> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraService::getDefaultImpl()) {
        return IOfflineCameraService::getDefaultImpl()->getSupportedOpModes(_aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->getSupportedOpModes(_aidl_return);
}

::ndk::ScopedAStatus BpOfflineCameraService::registerClient(
        int32_t in_clientId,
        const std::shared_ptr<
                ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineClientCallback>&
                in_callback) {
    std::shared_ptr<IOfflineCameraService> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraService::getDefaultImpl()) {
        return IOfflineCameraService::getDefaultImpl()->registerClient(
                in_clientId,
                in_callback ? ::aidl::vendor::oru::hardware::camera::offlinecamera::
                                      IOfflineClientCallback::fromBinder(in_callback->asBinder())
                            : nullptr);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->registerClient(
            in_clientId,
            in_callback ? ::aidl::vendor::oru::hardware::camera::offlinecamera::
                                  IOfflineClientCallback::fromBinder(in_callback->asBinder())
                        : nullptr);
}

::ndk::ScopedAStatus BpOfflineCameraService::unRegisterClient(int32_t in_clientId) {
    std::shared_ptr<IOfflineCameraService> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraService::getDefaultImpl()) {
        return IOfflineCameraService::getDefaultImpl()->unRegisterClient(in_clientId);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->unRegisterClient(in_clientId);
}

::ndk::ScopedAStatus BpOfflineCameraService::openOfflineSeesion(
        const std::string& in_clientSessionName,
        const std::shared_ptr<
                ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSessionCallback>&
                in_callback,
        std::shared_ptr<::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession>*
                _aidl_return) {
    std::shared_ptr<IOfflineCameraService> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraService::getDefaultImpl()) {
        return IOfflineCameraService::getDefaultImpl()->openOfflineSeesion(
                in_clientSessionName,
                in_callback
                        ? ::aidl::vendor::oru::hardware::camera::offlinecamera::
                                  IOfflineCameraSessionCallback::fromBinder(in_callback->asBinder())
                        : nullptr,
                _aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->openOfflineSeesion(
            in_clientSessionName,
            in_callback ? ::aidl::vendor::oru::hardware::camera::offlinecamera::
                                  IOfflineCameraSessionCallback::fromBinder(in_callback->asBinder())
                        : nullptr,
            _aidl_return);
    if (_aidl_status.isOk() && *_aidl_return) {
        *_aidl_return =
                ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession::fromBinder(
                        (*_aidl_return)->asBinder());
    }
    return _aidl_status;
}

::ndk::ScopedAStatus BpOfflineCameraService::getOfflineStaticCaps(
        ::aidl::android::hardware::camera::device::CameraMetadata* _aidl_return) {
    std::shared_ptr<IOfflineCameraService> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraService::getDefaultImpl()) {
        return IOfflineCameraService::getDefaultImpl()->getOfflineStaticCaps(_aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->getOfflineStaticCaps(_aidl_return);
}

::ndk::ScopedAStatus BpOfflineCameraService::getInterfaceVersion(int32_t* _aidl_return) {
    if (_aidl_cached_version != -1) {
        *_aidl_return = _aidl_cached_version;
        return ::ndk::ScopedAStatus::ok();
    }
    std::shared_ptr<IOfflineCameraService> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraService::getDefaultImpl()) {
        return IOfflineCameraService::getDefaultImpl()->getInterfaceVersion(_aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->getInterfaceVersion(_aidl_return);
    if (_aidl_status.isOk()) _aidl_cached_version = *_aidl_return;
    return _aidl_status;
}

::ndk::ScopedAStatus BpOfflineCameraService::getInterfaceHash(std::string* _aidl_return) {
    std::lock_guard<std::mutex> lockGuard(_aidl_cached_hash_mutex);
    if (_aidl_cached_hash != "-1") {
        *_aidl_return = _aidl_cached_hash;
        return ::ndk::ScopedAStatus::ok();
    }
    std::shared_ptr<IOfflineCameraService> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraService::getDefaultImpl()) {
        return IOfflineCameraService::getDefaultImpl()->getInterfaceHash(_aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->getInterfaceHash(_aidl_return);
    if (_aidl_status.isOk()) _aidl_cached_hash = *_aidl_return;
    return _aidl_status;
}

// Source for BnOfflineCameraService
BnOfflineCameraService::BnOfflineCameraService() {}
BnOfflineCameraService::~BnOfflineCameraService() {}

::ndk::SpAIBinder BnOfflineCameraService::createBinder() {
    AIBinder* binder = AIBinder_new(
            _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_clazz,
            static_cast<void*>(this));
#ifdef BINDER_STABILITY_SUPPORT
    AIBinder_markVintfStability(binder);
#endif  // BINDER_STABILITY_SUPPORT
    return ::ndk::SpAIBinder(binder);
}

::ndk::ScopedAStatus BnOfflineCameraService::getInterfaceVersion(int32_t* _aidl_return) {
    *_aidl_return = IOfflineCameraService::version;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus BnOfflineCameraService::getInterfaceHash(std::string* _aidl_return) {
    *_aidl_return = IOfflineCameraService::hash;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

// Source for IOfflineCameraService
const char* IOfflineCameraService::descriptor =
        "vendor.oru.hardware.camera.offlinecamera.IOfflineCameraService";
IOfflineCameraService::IOfflineCameraService() {}
IOfflineCameraService::~IOfflineCameraService() {}

std::shared_ptr<IOfflineCameraService> IOfflineCameraService::fromBinder(
        const ::ndk::SpAIBinder& binder) {
    if (binder.get() == nullptr) return nullptr;
    if (!AIBinder_associateClass(
                binder.get(),
                _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraService_clazz)) {
        const AIBinder_Class* originalClass = AIBinder_getClass(binder.get());
        if (originalClass == nullptr) return nullptr;
        if (0 == strcmp(AIBinder_Class_getDescriptor(originalClass), descriptor)) {
            return ::ndk::SharedRefBase::make<BpOfflineCameraService>(binder);
        }
        return nullptr;
    }
    if (!AIBinder_isRemote(binder.get())) {
        std::shared_ptr<::ndk::ICInterface> interface =
                ::ndk::ICInterface::asInterface(binder.get());
        if (interface) return std::static_pointer_cast<IOfflineCameraService>(interface);
    }
    return ::ndk::SharedRefBase::make<BpOfflineCameraService>(binder);
}

bool IOfflineCameraService::setDefaultImpl(const std::shared_ptr<IOfflineCameraService>& impl) {
    // Only one user of this interface can use this function at a time. This is a heuristic to
    // detect if two different users in the same process use this function.
    assert(!IOfflineCameraService::default_impl);
    if (impl) {
        IOfflineCameraService::default_impl = impl;
        return true;
    }
    return false;
}

const std::shared_ptr<IOfflineCameraService>& IOfflineCameraService::getDefaultImpl() {
    return IOfflineCameraService::default_impl;
}

std::shared_ptr<IOfflineCameraService> IOfflineCameraService::default_impl = nullptr;

::ndk::ScopedAStatus IOfflineCameraServiceDefault::getSupportedOpModes(
        std::vector<int32_t>* /*_aidl_return*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraServiceDefault::registerClient(
        int32_t /*in_clientId*/,
        const std::shared_ptr<::aidl::vendor::oru::hardware::camera::offlinecamera::
                                      IOfflineClientCallback>& /*in_callback*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraServiceDefault::unRegisterClient(int32_t /*in_clientId*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraServiceDefault::openOfflineSeesion(
        const std::string& /*in_clientSessionName*/,
        const std::shared_ptr<::aidl::vendor::oru::hardware::camera::offlinecamera::
                                      IOfflineCameraSessionCallback>& /*in_callback*/,
        std::shared_ptr<::aidl::vendor::oru::hardware::camera::offlinecamera::
                                IOfflineCameraSession>* /*_aidl_return*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraServiceDefault::getOfflineStaticCaps(
        ::aidl::android::hardware::camera::device::CameraMetadata* /*_aidl_return*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraServiceDefault::getInterfaceVersion(int32_t* _aidl_return) {
    *_aidl_return = 0;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus IOfflineCameraServiceDefault::getInterfaceHash(std::string* _aidl_return) {
    *_aidl_return = "";
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::SpAIBinder IOfflineCameraServiceDefault::asBinder() {
    return ::ndk::SpAIBinder();
}

bool IOfflineCameraServiceDefault::isRemote() {
    return false;
}
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

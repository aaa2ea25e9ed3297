/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2). Calls between objects of this process never go
 * through parcels: a proxy hands each call to the object served behind its binder.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BnOfflineCameraSession.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/BpOfflineCameraSession.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
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
static binder_status_t _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_onTransact(
        AIBinder* /*_aidl_binder*/, transaction_code_t /*_aidl_code*/, const AParcel* /*_aidl_in*/,
        AParcel* /*_aidl_out*/) {
    return STATUS_UNKNOWN_TRANSACTION;
}

static AIBinder_Class* _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_clazz =
        ::ndk::ICInterface::defineClass(
                IOfflineCameraSession::descriptor,
                _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_onTransact);

// The object served behind a proxy's binder, or the status a transaction to it would give.
static binder_status_t _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_resolve(
        const ::ndk::SpAIBinder& binder, std::shared_ptr<IOfflineCameraSession>* impl) {
    if (!AIBinder_isAlive(binder.get())) return STATUS_DEAD_OBJECT;
    *impl = std::static_pointer_cast<IOfflineCameraSession>(
            ::ndk::ICInterface::asInterface(binder.get()));
    return *impl ? STATUS_OK : STATUS_UNKNOWN_TRANSACTION;
}

BpOfflineCameraSession::BpOfflineCameraSession(const ::ndk::SpAIBinder& binder)
    : BpCInterface(binder) {}
BpOfflineCameraSession::~BpOfflineCameraSession() {}

::ndk::ScopedAStatus BpOfflineCameraSession::configureOfflineSession(
        const ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineSessionConfiguration&
                in_config) {
    std::shared_ptr<IOfflineCameraSession> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraSession::getDefaultImpl()) {
        return IOfflineCameraSession::getDefaultImpl()->configureOfflineSession(in_config);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->configureOfflineSession(in_config);
}

::ndk::ScopedAStatus BpOfflineCameraSession::processOfflineRequest(
        const std::vector<::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureRequest>&
                in_requests,
        int32_t* _aidl_return) {
    std::shared_ptr<IOfflineCameraSession> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraSession::getDefaultImpl()) {
        return IOfflineCameraSession::getDefaultImpl()->processOfflineRequest(in_requests,
                                                                              _aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->processOfflineRequest(in_requests, _aidl_return);
}

::ndk::ScopedAStatus BpOfflineCameraSession::closeOfflineSession() {
    std::shared_ptr<IOfflineCameraSession> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraSession::getDefaultImpl()) {
        return IOfflineCameraSession::getDefaultImpl()->closeOfflineSession();
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->closeOfflineSession();
}

::ndk::ScopedAStatus BpOfflineCameraSession::flushOfflineSession(
        const ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo& in_flushInfo) {
    std::shared_ptr<IOfflineCameraSession> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraSession::getDefaultImpl()) {
        return IOfflineCameraSession::getDefaultImpl()->flushOfflineSession(in_flushInfo);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->flushOfflineSession(in_flushInfo);
}

::ndk::ScopedAStatus BpOfflineCameraSession::dumpOfflineSession() {
    std::shared_ptr<IOfflineCameraSession> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraSession::getDefaultImpl()) {
        return IOfflineCameraSession::getDefaultImpl()->dumpOfflineSession();
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    return _aidl_impl->dumpOfflineSession();
}

::ndk::ScopedAStatus BpOfflineCameraSession::getInterfaceVersion(int32_t* _aidl_return) {
    if (_aidl_cached_version != -1) {
        *_aidl_return = _aidl_cached_version;
        return ::ndk::ScopedAStatus::ok();
    }
    std::shared_ptr<IOfflineCameraSession> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraSession::getDefaultImpl()) {
        return IOfflineCameraSession::getDefaultImpl()->getInterfaceVersion(_aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->getInterfaceVersion(_aidl_return);
    if (_aidl_status.isOk()) _aidl_cached_version = *_aidl_return;
    return _aidl_status;
}

::ndk::ScopedAStatus BpOfflineCameraSession::getInterfaceHash(std::string* _aidl_return) {
    std::lock_guard<std::mutex> lockGuard(_aidl_cached_hash_mutex);
    if (_aidl_cached_hash != "-1") {
        *_aidl_return = _aidl_cached_hash;
        return ::ndk::ScopedAStatus::ok();
    }
    std::shared_ptr<IOfflineCameraSession> _aidl_impl;
    binder_status_t _aidl_ret_status =
            _aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_resolve(
                    asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && IOfflineCameraSession::getDefaultImpl()) {
        return IOfflineCameraSession::getDefaultImpl()->getInterfaceHash(_aidl_return);
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->getInterfaceHash(_aidl_return);
    if (_aidl_status.isOk()) _aidl_cached_hash = *_aidl_return;
    return _aidl_status;
}

// Source for BnOfflineCameraSession
BnOfflineCameraSession::BnOfflineCameraSession() {}
BnOfflineCameraSession::~BnOfflineCameraSession() {}

::ndk::SpAIBinder BnOfflineCameraSession::createBinder() {
    AIBinder* binder = AIBinder_new(
            _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_clazz,
            static_cast<void*>(this));
#ifdef BINDER_STABILITY_SUPPORT
    AIBinder_markVintfStability(binder);
#endif  // BINDER_STABILITY_SUPPORT
    return ::ndk::SpAIBinder(binder);
}

::ndk::ScopedAStatus BnOfflineCameraSession::getInterfaceVersion(int32_t* _aidl_return) {
    *_aidl_return = IOfflineCameraSession::version;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus BnOfflineCameraSession::getInterfaceHash(std::string* _aidl_return) {
    *_aidl_return = IOfflineCameraSession::hash;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

// Source for IOfflineCameraSession
const char* IOfflineCameraSession::descriptor =
        "vendor.oru.hardware.camera.offlinecamera.IOfflineCameraSession";
IOfflineCameraSession::IOfflineCameraSession() {}
IOfflineCameraSession::~IOfflineCameraSession() {}

std::shared_ptr<IOfflineCameraSession> IOfflineCameraSession::fromBinder(
        const ::ndk::SpAIBinder& binder) {
    if (binder.get() == nullptr) return nullptr;
    if (!AIBinder_associateClass(
                binder.get(),
                _g_aidl_vendor_oru_hardware_camera_offlinecamera_IOfflineCameraSession_clazz)) {
        const AIBinder_Class* originalClass = AIBinder_getClass(binder.get());
        if (originalClass == nullptr) return nullptr;
        if (0 == strcmp(AIBinder_Class_getDescriptor(originalClass), descriptor)) {
            return ::ndk::SharedRefBase::make<BpOfflineCameraSession>(binder);
        }
        return nullptr;
    }
    if (!AIBinder_isRemote(binder.get())) {
        std::shared_ptr<::ndk::ICInterface> interface =
                ::ndk::ICInterface::asInterface(binder.get());
        if (interface) return std::static_pointer_cast<IOfflineCameraSession>(interface);
    }
    return ::ndk::SharedRefBase::make<BpOfflineCameraSession>(binder);
}

bool IOfflineCameraSession::setDefaultImpl(const std::shared_ptr<IOfflineCameraSession>& impl) {
    // Only one user of this interface can use this function at a time. This is a heuristic to
    // detect if two different users in the same process use this function.
    assert(!IOfflineCameraSession::default_impl);
    if (impl) {
        IOfflineCameraSession::default_impl = impl;
        return true;
    }
    return false;
}

const std::shared_ptr<IOfflineCameraSession>& IOfflineCameraSession::getDefaultImpl() {
    return IOfflineCameraSession::default_impl;
}

std::shared_ptr<IOfflineCameraSession> IOfflineCameraSession::default_impl = nullptr;

::ndk::ScopedAStatus IOfflineCameraSessionDefault::configureOfflineSession(
        const ::aidl::vendor::oru::hardware::camera::offlinecamera::
                OfflineSessionConfiguration& /*in_config*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraSessionDefault::processOfflineRequest(
        const std::vector<::aidl::vendor::oru::hardware::camera::offlinecamera::
                                  OfflineCaptureRequest>& /*in_requests*/,
        int32_t* /*_aidl_return*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraSessionDefault::closeOfflineSession() {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraSessionDefault::flushOfflineSession(
        const ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo& /*in_flushInfo*/) {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraSessionDefault::dumpOfflineSession() {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

::ndk::ScopedAStatus IOfflineCameraSessionDefault::getInterfaceVersion(int32_t* _aidl_return) {
    *_aidl_return = 0;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus IOfflineCameraSessionDefault::getInterfaceHash(std::string* _aidl_return) {
    *_aidl_return = "";
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::SpAIBinder IOfflineCameraSessionDefault::asBinder() {
    return ::ndk::SpAIBinder();
}

bool IOfflineCameraSessionDefault::isRemote() {
    return false;
}
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/android/hardware/camera/device/CameraMetadata.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineClientCallback.h>
#include <android/binder_interface_utils.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#ifdef BINDER_STABILITY_SUPPORT
#include <android/binder_stability.h>
#endif  // BINDER_STABILITY_SUPPORT

namespace aidl {
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {

class IOfflineCameraService : public ::ndk::ICInterface {
  public:
    static const char* descriptor;
    IOfflineCameraService();
    virtual ~IOfflineCameraService();

    static inline const int32_t version = 2;
    static inline const std::string hash = "d1d076b582228ffe48ccf1067caf545b97f5f83b";
    static constexpr uint32_t TRANSACTION_getSupportedOpModes = FIRST_CALL_TRANSACTION + 0;
    static constexpr uint32_t TRANSACTION_registerClient = FIRST_CALL_TRANSACTION + 1;
    static constexpr uint32_t TRANSACTION_unRegisterClient = FIRST_CALL_TRANSACTION + 2;
    static constexpr uint32_t TRANSACTION_openOfflineSeesion = FIRST_CALL_TRANSACTION + 3;
    static constexpr uint32_t TRANSACTION_getOfflineStaticCaps = FIRST_CALL_TRANSACTION + 4;

    static std::shared_ptr<IOfflineCameraService> fromBinder(const ::ndk::SpAIBinder& binder);
    static bool setDefaultImpl(const std::shared_ptr<IOfflineCameraService>& impl);
    static const std::shared_ptr<IOfflineCameraService>& getDefaultImpl();
    virtual ::ndk::ScopedAStatus getSupportedOpModes(std::vector<int32_t>* _aidl_return) = 0;
    virtual ::ndk::ScopedAStatus registerClient(
            int32_t in_clientId,
            const std::shared_ptr<
                    ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineClientCallback>&
                    in_callback) = 0;
    virtual ::ndk::ScopedAStatus unRegisterClient(int32_t in_clientId) = 0;
    virtual ::ndk::ScopedAStatus openOfflineSeesion(
            const std::string& in_clientSessionName,
            const std::shared_ptr<::aidl::vendor::oru::hardware::camera::offlinecamera::
                                          IOfflineCameraSessionCallback>& in_callback,
            std::shared_ptr<::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession>*
                    _aidl_return) = 0;
    virtual ::ndk::ScopedAStatus getOfflineStaticCaps(
            ::aidl::android::hardware::camera::device::CameraMetadata* _aidl_return) = 0;
    virtual ::ndk::ScopedAStatus getInterfaceVersion(int32_t* _aidl_return) = 0;
    virtual ::ndk::ScopedAStatus getInterfaceHash(std::string* _aidl_return) = 0;

  private:
    static std::shared_ptr<IOfflineCameraService> default_impl;
};

class IOfflineCameraServiceDefault : public IOfflineCameraService {
  public:
    ::ndk::ScopedAStatus getSupportedOpModes(std::vector<int32_t>* _aidl_return) override;
    ::ndk::ScopedAStatus registerClient(
            int32_t in_clientId,
            const std::shared_ptr<
                    ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineClientCallback>&
                    in_callback) override;
    ::ndk::ScopedAStatus unRegisterClient(int32_t in_clientId) override;
    ::ndk::ScopedAStatus openOfflineSeesion(
            const std::string& in_clientSessionName,
            const std::shared_ptr<::aidl::vendor::oru::hardware::camera::offlinecamera::
                                          IOfflineCameraSessionCallback>& in_callback,
            std::shared_ptr<::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraSession>*
                    _aidl_return) override;
    ::ndk::ScopedAStatus getOfflineStaticCaps(
            ::aidl::android::hardware::camera::device::CameraMetadata* _aidl_return) override;
    ::ndk::ScopedAStatus getInterfaceVersion(int32_t* _aidl_return) override;
    ::ndk::ScopedAStatus getInterfaceHash(std::string* _aidl_return) override;
    ::ndk::SpAIBinder asBinder() override;
    bool isRemote() override;
};
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

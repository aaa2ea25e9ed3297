/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/android/hardware/camera/device/CaptureResult.h>
#include <aidl/android/hardware/camera/device/NotifyMsg.h>
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

class IOfflineCameraSessionCallback : public ::ndk::ICInterface {
  public:
    static const char* descriptor;
    IOfflineCameraSessionCallback();
    virtual ~IOfflineCameraSessionCallback();

    static inline const int32_t version = 2;
    static inline const std::string hash = "d1d076b582228ffe48ccf1067caf545b97f5f83b";
    static constexpr uint32_t TRANSACTION_notify = FIRST_CALL_TRANSACTION + 0;
    static constexpr uint32_t TRANSACTION_processCaptureResult = FIRST_CALL_TRANSACTION + 1;

    static std::shared_ptr<IOfflineCameraSessionCallback> fromBinder(const ::ndk::SpAIBinder& binder);
    static bool setDefaultImpl(const std::shared_ptr<IOfflineCameraSessionCallback>& impl);
    static const std::shared_ptr<IOfflineCameraSessionCallback>& getDefaultImpl();
    virtual ::ndk::ScopedAStatus notify(
            const std::vector<::aidl::android::hardware::camera::device::NotifyMsg>& in_msgs) = 0;
    virtual ::ndk::ScopedAStatus processCaptureResult(
            const std::vector<::aidl::android::hardware::camera::device::CaptureResult>&
                    in_results) = 0;
    virtual ::ndk::ScopedAStatus getInterfaceVersion(int32_t* _aidl_return) = 0;
    virtual ::ndk::ScopedAStatus getInterfaceHash(std::string* _aidl_return) = 0;

  private:
    static std::shared_ptr<IOfflineCameraSessionCallback> default_impl;
};

class IOfflineCameraSessionCallbackDefault : public IOfflineCameraSessionCallback {
  public:
    ::ndk::ScopedAStatus notify(
            const std::vector<::aidl::android::hardware::camera::device::NotifyMsg>& in_msgs) override;
    ::ndk::ScopedAStatus processCaptureResult(
            const std::vector<::aidl::android::hardware::camera::device::CaptureResult>& in_results)
            override;
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

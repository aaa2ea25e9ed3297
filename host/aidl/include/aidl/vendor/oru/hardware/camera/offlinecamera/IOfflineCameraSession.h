/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/OfflineCaptureRequest.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/OfflineFlushInfo.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/OfflineSessionConfiguration.h>
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

class IOfflineCameraSession : public ::ndk::ICInterface {
  public:
    static const char* descriptor;
    IOfflineCameraSession();
    virtual ~IOfflineCameraSession();

    static inline const int32_t version = 2;
    static inline const std::string hash = "d1d076b582228ffe48ccf1067caf545b97f5f83b";
    static constexpr uint32_t TRANSACTION_configureOfflineSession = FIRST_CALL_TRANSACTION + 0;
    static constexpr uint32_t TRANSACTION_processOfflineRequest = FIRST_CALL_TRANSACTION + 1;
    static constexpr uint32_t TRANSACTION_closeOfflineSession = FIRST_CALL_TRANSACTION + 2;
    static constexpr uint32_t TRANSACTION_flushOfflineSession = FIRST_CALL_TRANSACTION + 3;
    static constexpr uint32_t TRANSACTION_dumpOfflineSession = FIRST_CALL_TRANSACTION + 4;

    static std::shared_ptr<IOfflineCameraSession> fromBinder(const ::ndk::SpAIBinder& binder);
    static bool setDefaultImpl(const std::shared_ptr<IOfflineCameraSession>& impl);
    static const std::shared_ptr<IOfflineCameraSession>& getDefaultImpl();
    virtual ::ndk::ScopedAStatus configureOfflineSession(
            const ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineSessionConfiguration&
                    in_config) = 0;
    virtual ::ndk::ScopedAStatus processOfflineRequest(
            const std::vector<
                    ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureRequest>&
                    in_requests,
            int32_t* _aidl_return) = 0;
    virtual ::ndk::ScopedAStatus closeOfflineSession() = 0;
    virtual ::ndk::ScopedAStatus flushOfflineSession(
            const ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo&
                    in_flushInfo) = 0;
    virtual ::ndk::ScopedAStatus dumpOfflineSession() = 0;
    virtual ::ndk::ScopedAStatus getInterfaceVersion(int32_t* _aidl_return) = 0;
    virtual ::ndk::ScopedAStatus getInterfaceHash(std::string* _aidl_return) = 0;

  private:
    static std::shared_ptr<IOfflineCameraSession> default_impl;
};

class IOfflineCameraSessionDefault : public IOfflineCameraSession {
  public:
    ::ndk::ScopedAStatus configureOfflineSession(
            const ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineSessionConfiguration&
                    in_config) override;
    ::ndk::ScopedAStatus processOfflineRequest(
            const std::vector<
                    ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureRequest>&
                    in_requests,
            int32_t* _aidl_return) override;
    ::ndk::ScopedAStatus closeOfflineSession() override;
    ::ndk::ScopedAStatus flushOfflineSession(
            const ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineFlushInfo&
                    in_flushInfo) override;
    ::ndk::ScopedAStatus dumpOfflineSession() override;
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

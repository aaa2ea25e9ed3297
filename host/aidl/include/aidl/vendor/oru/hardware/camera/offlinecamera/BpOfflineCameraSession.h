/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSession.h>
#include <android/binder_ibinder.h>

#include <mutex>

namespace aidl {
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {
class BpOfflineCameraSession : public ::ndk::BpCInterface<IOfflineCameraSession> {
  public:
    explicit BpOfflineCameraSession(const ::ndk::SpAIBinder& binder);
    virtual ~BpOfflineCameraSession();

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
    int32_t _aidl_cached_version = -1;
    std::string _aidl_cached_hash = "-1";
    // Guards _aidl_cached_hash.
    std::mutex _aidl_cached_hash_mutex;
};
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

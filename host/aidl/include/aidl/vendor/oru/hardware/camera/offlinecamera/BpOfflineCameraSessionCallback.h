/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraSessionCallback.h>
#include <android/binder_ibinder.h>

#include <mutex>

namespace aidl {
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {
class BpOfflineCameraSessionCallback : public ::ndk::BpCInterface<IOfflineCameraSessionCallback> {
  public:
    explicit BpOfflineCameraSessionCallback(const ::ndk::SpAIBinder& binder);
    virtual ~BpOfflineCameraSessionCallback();

    ::ndk::ScopedAStatus notify(
            const std::vector<::aidl::android::hardware::camera::device::NotifyMsg>& in_msgs) override;
    ::ndk::ScopedAStatus processCaptureResult(
            const std::vector<::aidl::android::hardware::camera::device::CaptureResult>& in_results)
            override;
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

/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <android/binder_ibinder.h>

#include <mutex>

namespace aidl {
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {
class BpOfflineCameraService : public ::ndk::BpCInterface<IOfflineCameraService> {
  public:
    explicit BpOfflineCameraService(const ::ndk::SpAIBinder& binder);
    virtual ~BpOfflineCameraService();

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

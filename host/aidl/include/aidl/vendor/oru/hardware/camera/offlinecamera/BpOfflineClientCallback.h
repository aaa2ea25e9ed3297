/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineClientCallback.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineClientCallback.h>
#include <android/binder_ibinder.h>

#include <mutex>

namespace aidl {
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {
class BpOfflineClientCallback : public ::ndk::BpCInterface<IOfflineClientCallback> {
  public:
    explicit BpOfflineClientCallback(const ::ndk::SpAIBinder& binder);
    virtual ~BpOfflineClientCallback();

    ::ndk::ScopedAStatus notify(
            const std::vector<::aidl::android::hardware::camera::device::NotifyMsg>& in_msgs) override;
    ::ndk::ScopedAStatus processCaptureResult(
            const std::vector<
                    ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureResult>&
                    in_results) override;
    ::ndk::ScopedAStatus requestStreamBuffers(
            const std::vector<
                    ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineBufferRequest>&
                    in_bufReqs,
            std::vector<::aidl::android::hardware::camera::device::StreamBufferRet>* out_buffers,
            ::aidl::android::hardware::camera::device::BufferRequestStatus* _aidl_return) override;
    ::ndk::ScopedAStatus returnStreamBuffers(
            const std::vector<::aidl::android::hardware::camera::device::StreamBuffer>& in_buffers)
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

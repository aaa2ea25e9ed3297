/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/IOfflineClientCallback.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/android/hardware/camera/device/BufferRequestStatus.h>
#include <aidl/android/hardware/camera/device/NotifyMsg.h>
#include <aidl/android/hardware/camera/device/StreamBuffer.h>
#include <aidl/android/hardware/camera/device/StreamBufferRet.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/OfflineBufferRequest.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/OfflineCaptureResult.h>
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

class IOfflineClientCallback : public ::ndk::ICInterface {
  public:
    static const char* descriptor;
    IOfflineClientCallback();
    virtual ~IOfflineClientCallback();

    static inline const int32_t version = 2;
    static inline const std::string hash = "d1d076b582228ffe48ccf1067caf545b97f5f83b";
    static constexpr uint32_t TRANSACTION_notify = FIRST_CALL_TRANSACTION + 0;
    static constexpr uint32_t TRANSACTION_processCaptureResult = FIRST_CALL_TRANSACTION + 1;
    static constexpr uint32_t TRANSACTION_requestStreamBuffers = FIRST_CALL_TRANSACTION + 2;
    static constexpr uint32_t TRANSACTION_returnStreamBuffers = FIRST_CALL_TRANSACTION + 3;

    static std::shared_ptr<IOfflineClientCallback> fromBinder(const ::ndk::SpAIBinder& binder);
    static bool setDefaultImpl(const std::shared_ptr<IOfflineClientCallback>& impl);
    static const std::shared_ptr<IOfflineClientCallback>& getDefaultImpl();
    virtual ::ndk::ScopedAStatus notify(
            const std::vector<::aidl::android::hardware::camera::device::NotifyMsg>& in_msgs) = 0;
    virtual ::ndk::ScopedAStatus processCaptureResult(
            const std::vector<
                    ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineCaptureResult>&
                    in_results) = 0;
    virtual ::ndk::ScopedAStatus requestStreamBuffers(
            const std::vector<
                    ::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineBufferRequest>&
                    in_bufReqs,
            std::vector<::aidl::android::hardware::camera::device::StreamBufferRet>* out_buffers,
            ::aidl::android::hardware::camera::device::BufferRequestStatus* _aidl_return) = 0;
    virtual ::ndk::ScopedAStatus returnStreamBuffers(
            const std::vector<::aidl::android::hardware::camera::device::StreamBuffer>&
                    in_buffers) = 0;
    virtual ::ndk::ScopedAStatus getInterfaceVersion(int32_t* _aidl_return) = 0;
    virtual ::ndk::ScopedAStatus getInterfaceHash(std::string* _aidl_return) = 0;

  private:
    static std::shared_ptr<IOfflineClientCallback> default_impl;
};

class IOfflineClientCallbackDefault : public IOfflineClientCallback {
  public:
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
    ::ndk::SpAIBinder asBinder() override;
    bool isRemote() override;
};
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

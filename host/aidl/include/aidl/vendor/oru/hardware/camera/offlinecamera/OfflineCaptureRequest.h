/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/OfflineCaptureRequest.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/android/hardware/camera/device/StreamBuffer.h>
#include <aidl/internal/ToString.h>
#include <aidl/vendor/oru/hardware/camera/offlinecamera/OfflineInputFrame.h>
#include <android/binder_auto_utils.h>
#include <android/binder_interface_utils.h>
#include <android/binder_parcelable_utils.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace aidl {
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {
class OfflineCaptureRequest {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    int32_t frameNumber = 0;
    std::vector<::aidl::vendor::oru::hardware::camera::offlinecamera::OfflineInputFrame> inputFrames;
    std::vector<::aidl::android::hardware::camera::device::StreamBuffer> outputBuffers;
    int32_t requestFlags = 0;

    inline bool operator==(const OfflineCaptureRequest& _rhs) const {
        return std::tie(frameNumber, inputFrames, outputBuffers, requestFlags) ==
               std::tie(_rhs.frameNumber, _rhs.inputFrames, _rhs.outputBuffers, _rhs.requestFlags);
    }
    inline bool operator<(const OfflineCaptureRequest& _rhs) const {
        return std::tie(frameNumber, inputFrames, outputBuffers, requestFlags) <
               std::tie(_rhs.frameNumber, _rhs.inputFrames, _rhs.outputBuffers, _rhs.requestFlags);
    }
    inline bool operator!=(const OfflineCaptureRequest& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const OfflineCaptureRequest& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const OfflineCaptureRequest& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const OfflineCaptureRequest& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "OfflineCaptureRequest{";
        _aidl_os << "frameNumber: " << ::aidl::internal::ToString(frameNumber);
        _aidl_os << ", inputFrames: " << ::aidl::internal::ToString(inputFrames);
        _aidl_os << ", outputBuffers: " << ::aidl::internal::ToString(outputBuffers);
        _aidl_os << ", requestFlags: " << ::aidl::internal::ToString(requestFlags);
        _aidl_os << "}";
        return _aidl_os.str();
    }
};
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

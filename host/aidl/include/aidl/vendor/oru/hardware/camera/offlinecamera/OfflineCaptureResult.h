/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/OfflineCaptureResult.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/android/hardware/camera/device/CameraMetadata.h>
#include <aidl/android/hardware/camera/device/StreamBuffer.h>
#include <aidl/internal/ToString.h>
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
class OfflineCaptureResult {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    int64_t frameNumber = 0L;
    std::vector<::aidl::android::hardware::camera::device::StreamBuffer> outputBuffers;
    ::aidl::android::hardware::camera::device::CameraMetadata result;
    int32_t partialResult = 0;

    inline bool operator==(const OfflineCaptureResult& _rhs) const {
        return std::tie(frameNumber, outputBuffers, result, partialResult) ==
               std::tie(_rhs.frameNumber, _rhs.outputBuffers, _rhs.result, _rhs.partialResult);
    }
    inline bool operator<(const OfflineCaptureResult& _rhs) const {
        return std::tie(frameNumber, outputBuffers, result, partialResult) <
               std::tie(_rhs.frameNumber, _rhs.outputBuffers, _rhs.result, _rhs.partialResult);
    }
    inline bool operator!=(const OfflineCaptureResult& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const OfflineCaptureResult& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const OfflineCaptureResult& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const OfflineCaptureResult& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "OfflineCaptureResult{";
        _aidl_os << "frameNumber: " << ::aidl::internal::ToString(frameNumber);
        _aidl_os << ", outputBuffers: " << ::aidl::internal::ToString(outputBuffers);
        _aidl_os << ", result: " << ::aidl::internal::ToString(result);
        _aidl_os << ", partialResult: " << ::aidl::internal::ToString(partialResult);
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

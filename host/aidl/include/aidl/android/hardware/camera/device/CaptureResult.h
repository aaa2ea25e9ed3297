/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/CaptureResult.aidl (android.hardware.camera.device-V3).
 */
#pragma once

#include <aidl/android/hardware/camera/device/CameraMetadata.h>
#include <aidl/android/hardware/camera/device/PhysicalCameraMetadata.h>
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
namespace android {
namespace hardware {
namespace camera {
namespace device {
class CaptureResult {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    int32_t frameNumber = 0;
    int64_t fmqResultSize = 0L;
    ::aidl::android::hardware::camera::device::CameraMetadata result;
    std::vector<::aidl::android::hardware::camera::device::StreamBuffer> outputBuffers;
    ::aidl::android::hardware::camera::device::StreamBuffer inputBuffer;
    int32_t partialResult = 0;
    std::vector<::aidl::android::hardware::camera::device::PhysicalCameraMetadata>
            physicalCameraMetadata;

    inline bool operator==(const CaptureResult& _rhs) const {
        return std::tie(frameNumber, fmqResultSize, result, outputBuffers, inputBuffer,
                        partialResult, physicalCameraMetadata) ==
               std::tie(_rhs.frameNumber, _rhs.fmqResultSize, _rhs.result, _rhs.outputBuffers,
                        _rhs.inputBuffer, _rhs.partialResult, _rhs.physicalCameraMetadata);
    }
    inline bool operator<(const CaptureResult& _rhs) const {
        return std::tie(frameNumber, fmqResultSize, result, outputBuffers, inputBuffer,
                        partialResult, physicalCameraMetadata) <
               std::tie(_rhs.frameNumber, _rhs.fmqResultSize, _rhs.result, _rhs.outputBuffers,
                        _rhs.inputBuffer, _rhs.partialResult, _rhs.physicalCameraMetadata);
    }
    inline bool operator!=(const CaptureResult& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const CaptureResult& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const CaptureResult& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const CaptureResult& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "CaptureResult{";
        _aidl_os << "frameNumber: " << ::aidl::internal::ToString(frameNumber);
        _aidl_os << ", fmqResultSize: " << ::aidl::internal::ToString(fmqResultSize);
        _aidl_os << ", result: " << ::aidl::internal::ToString(result);
        _aidl_os << ", outputBuffers: " << ::aidl::internal::ToString(outputBuffers);
        _aidl_os << ", inputBuffer: " << ::aidl::internal::ToString(inputBuffer);
        _aidl_os << ", partialResult: " << ::aidl::internal::ToString(partialResult);
        _aidl_os << ", physicalCameraMetadata: "
                 << ::aidl::internal::ToString(physicalCameraMetadata);
        _aidl_os << "}";
        return _aidl_os.str();
    }
};
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

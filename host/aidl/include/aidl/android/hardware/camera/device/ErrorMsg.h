/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/ErrorMsg.aidl (android.hardware.camera.device-V3).
 */
#pragma once

#include <aidl/android/hardware/camera/device/ErrorCode.h>
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
class ErrorMsg {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    int32_t frameNumber = 0;
    int32_t errorStreamId = 0;
    ::aidl::android::hardware::camera::device::ErrorCode errorCode =
            ::aidl::android::hardware::camera::device::ErrorCode(0);

    inline bool operator==(const ErrorMsg& _rhs) const {
        return std::tie(frameNumber, errorStreamId, errorCode) ==
               std::tie(_rhs.frameNumber, _rhs.errorStreamId, _rhs.errorCode);
    }
    inline bool operator<(const ErrorMsg& _rhs) const {
        return std::tie(frameNumber, errorStreamId, errorCode) <
               std::tie(_rhs.frameNumber, _rhs.errorStreamId, _rhs.errorCode);
    }
    inline bool operator!=(const ErrorMsg& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const ErrorMsg& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const ErrorMsg& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const ErrorMsg& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "ErrorMsg{";
        _aidl_os << "frameNumber: " << ::aidl::internal::ToString(frameNumber);
        _aidl_os << ", errorStreamId: " << ::aidl::internal::ToString(errorStreamId);
        _aidl_os << ", errorCode: " << ::aidl::internal::ToString(errorCode);
        _aidl_os << "}";
        return _aidl_os.str();
    }
};
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

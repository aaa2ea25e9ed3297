/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/CameraMetadata.aidl (android.hardware.camera.device-V3).
 */
#pragma once

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
class CameraMetadata {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    std::vector<uint8_t> metadata;

    inline bool operator==(const CameraMetadata& _rhs) const {
        return std::tie(metadata) == std::tie(_rhs.metadata);
    }
    inline bool operator<(const CameraMetadata& _rhs) const {
        return std::tie(metadata) < std::tie(_rhs.metadata);
    }
    inline bool operator!=(const CameraMetadata& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const CameraMetadata& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const CameraMetadata& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const CameraMetadata& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "CameraMetadata{";
        _aidl_os << "metadata: " << ::aidl::internal::ToString(metadata);
        _aidl_os << "}";
        return _aidl_os.str();
    }
};
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

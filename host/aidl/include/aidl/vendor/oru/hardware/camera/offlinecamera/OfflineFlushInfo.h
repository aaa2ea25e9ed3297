/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/OfflineFlushInfo.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
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
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {
class OfflineFlushInfo {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    int32_t flushFlags = 0;

    inline bool operator==(const OfflineFlushInfo& _rhs) const {
        return std::tie(flushFlags) == std::tie(_rhs.flushFlags);
    }
    inline bool operator<(const OfflineFlushInfo& _rhs) const {
        return std::tie(flushFlags) < std::tie(_rhs.flushFlags);
    }
    inline bool operator!=(const OfflineFlushInfo& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const OfflineFlushInfo& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const OfflineFlushInfo& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const OfflineFlushInfo& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "OfflineFlushInfo{";
        _aidl_os << "flushFlags: " << ::aidl::internal::ToString(flushFlags);
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

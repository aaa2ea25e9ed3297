/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/ShutterMsg.aidl (android.hardware.camera.device-V3).
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
class ShutterMsg {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    int32_t frameNumber = 0;
    int64_t timestamp = 0L;
    int64_t readoutTimestamp = 0L;

    inline bool operator==(const ShutterMsg& _rhs) const {
        return std::tie(frameNumber, timestamp, readoutTimestamp) ==
               std::tie(_rhs.frameNumber, _rhs.timestamp, _rhs.readoutTimestamp);
    }
    inline bool operator<(const ShutterMsg& _rhs) const {
        return std::tie(frameNumber, timestamp, readoutTimestamp) <
               std::tie(_rhs.frameNumber, _rhs.timestamp, _rhs.readoutTimestamp);
    }
    inline bool operator!=(const ShutterMsg& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const ShutterMsg& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const ShutterMsg& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const ShutterMsg& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "ShutterMsg{";
        _aidl_os << "frameNumber: " << ::aidl::internal::ToString(frameNumber);
        _aidl_os << ", timestamp: " << ::aidl::internal::ToString(timestamp);
        _aidl_os << ", readoutTimestamp: " << ::aidl::internal::ToString(readoutTimestamp);
        _aidl_os << "}";
        return _aidl_os.str();
    }
};
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

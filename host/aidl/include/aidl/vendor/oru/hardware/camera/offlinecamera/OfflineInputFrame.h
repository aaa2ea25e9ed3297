/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/OfflineInputFrame.aidl
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
class OfflineInputFrame {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    std::vector<::aidl::android::hardware::camera::device::StreamBuffer> inputBuffers;
    int64_t timestamp = 0L;
    ::aidl::android::hardware::camera::device::CameraMetadata settings;

    inline bool operator==(const OfflineInputFrame& _rhs) const {
        return std::tie(inputBuffers, timestamp, settings) ==
               std::tie(_rhs.inputBuffers, _rhs.timestamp, _rhs.settings);
    }
    inline bool operator<(const OfflineInputFrame& _rhs) const {
        return std::tie(inputBuffers, timestamp, settings) <
               std::tie(_rhs.inputBuffers, _rhs.timestamp, _rhs.settings);
    }
    inline bool operator!=(const OfflineInputFrame& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const OfflineInputFrame& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const OfflineInputFrame& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const OfflineInputFrame& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "OfflineInputFrame{";
        _aidl_os << "inputBuffers: " << ::aidl::internal::ToString(inputBuffers);
        _aidl_os << ", timestamp: " << ::aidl::internal::ToString(timestamp);
        _aidl_os << ", settings: " << ::aidl::internal::ToString(settings);
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

/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/OfflineBufferRequest.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/android/hardware/camera/device/Stream.h>
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
class OfflineBufferRequest {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    ::aidl::android::hardware::camera::device::Stream stream;
    int32_t numBuffersRequested = 0;

    inline bool operator==(const OfflineBufferRequest& _rhs) const {
        return std::tie(stream, numBuffersRequested) ==
               std::tie(_rhs.stream, _rhs.numBuffersRequested);
    }
    inline bool operator<(const OfflineBufferRequest& _rhs) const {
        return std::tie(stream, numBuffersRequested) <
               std::tie(_rhs.stream, _rhs.numBuffersRequested);
    }
    inline bool operator!=(const OfflineBufferRequest& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const OfflineBufferRequest& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const OfflineBufferRequest& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const OfflineBufferRequest& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "OfflineBufferRequest{";
        _aidl_os << "stream: " << ::aidl::internal::ToString(stream);
        _aidl_os << ", numBuffersRequested: " << ::aidl::internal::ToString(numBuffersRequested);
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

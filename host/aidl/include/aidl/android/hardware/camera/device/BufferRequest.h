/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/BufferRequest.aidl (android.hardware.camera.device-V3).
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
class BufferRequest {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    int32_t streamId = 0;
    int32_t numBuffersRequested = 0;

    inline bool operator==(const BufferRequest& _rhs) const {
        return std::tie(streamId, numBuffersRequested) ==
               std::tie(_rhs.streamId, _rhs.numBuffersRequested);
    }
    inline bool operator<(const BufferRequest& _rhs) const {
        return std::tie(streamId, numBuffersRequested) <
               std::tie(_rhs.streamId, _rhs.numBuffersRequested);
    }
    inline bool operator!=(const BufferRequest& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const BufferRequest& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const BufferRequest& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const BufferRequest& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "BufferRequest{";
        _aidl_os << "streamId: " << ::aidl::internal::ToString(streamId);
        _aidl_os << ", numBuffersRequested: " << ::aidl::internal::ToString(numBuffersRequested);
        _aidl_os << "}";
        return _aidl_os.str();
    }
};
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/StreamBuffer.aidl (android.hardware.camera.device-V3).
 */
#pragma once

#include <aidl/android/hardware/camera/device/BufferStatus.h>
#include <aidl/android/hardware/common/NativeHandle.h>
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
class StreamBuffer {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    int32_t streamId = 0;
    int64_t bufferId = 0L;
    ::aidl::android::hardware::common::NativeHandle buffer;
    ::aidl::android::hardware::camera::device::BufferStatus status =
            ::aidl::android::hardware::camera::device::BufferStatus(0);
    ::aidl::android::hardware::common::NativeHandle acquireFence;
    ::aidl::android::hardware::common::NativeHandle releaseFence;

    inline bool operator==(const StreamBuffer& _rhs) const {
        return std::tie(streamId, bufferId, buffer, status, acquireFence, releaseFence) ==
               std::tie(_rhs.streamId, _rhs.bufferId, _rhs.buffer, _rhs.status, _rhs.acquireFence,
                        _rhs.releaseFence);
    }
    inline bool operator<(const StreamBuffer& _rhs) const {
        return std::tie(streamId, bufferId, buffer, status, acquireFence, releaseFence) <
               std::tie(_rhs.streamId, _rhs.bufferId, _rhs.buffer, _rhs.status, _rhs.acquireFence,
                        _rhs.releaseFence);
    }
    inline bool operator!=(const StreamBuffer& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const StreamBuffer& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const StreamBuffer& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const StreamBuffer& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "StreamBuffer{";
        _aidl_os << "streamId: " << ::aidl::internal::ToString(streamId);
        _aidl_os << ", bufferId: " << ::aidl::internal::ToString(bufferId);
        _aidl_os << ", buffer: " << ::aidl::internal::ToString(buffer);
        _aidl_os << ", status: " << ::aidl::internal::ToString(status);
        _aidl_os << ", acquireFence: " << ::aidl::internal::ToString(acquireFence);
        _aidl_os << ", releaseFence: " << ::aidl::internal::ToString(releaseFence);
        _aidl_os << "}";
        return _aidl_os.str();
    }
};
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

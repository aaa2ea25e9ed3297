/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/common/NativeHandle.aidl (android.hardware.common-V2).
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
namespace common {
class NativeHandle {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    std::vector<::ndk::ScopedFileDescriptor> fds;
    std::vector<int32_t> ints;

    inline bool operator==(const NativeHandle& _rhs) const {
        return std::tie(fds, ints) == std::tie(_rhs.fds, _rhs.ints);
    }
    inline bool operator<(const NativeHandle& _rhs) const {
        return std::tie(fds, ints) < std::tie(_rhs.fds, _rhs.ints);
    }
    inline bool operator!=(const NativeHandle& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const NativeHandle& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const NativeHandle& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const NativeHandle& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "NativeHandle{";
        _aidl_os << "fds: " << ::aidl::internal::ToString(fds);
        _aidl_os << ", ints: " << ::aidl::internal::ToString(ints);
        _aidl_os << "}";
        return _aidl_os.str();
    }
};
}  // namespace common
}  // namespace hardware
}  // namespace android
}  // namespace aidl

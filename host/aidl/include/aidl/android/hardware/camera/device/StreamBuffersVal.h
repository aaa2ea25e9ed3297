/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/StreamBuffersVal.aidl (android.hardware.camera.device-V3).
 */
#pragma once

#include <aidl/android/hardware/camera/device/StreamBuffer.h>
#include <aidl/android/hardware/camera/device/StreamBufferRequestError.h>
#include <aidl/internal/BionicAssert.h>
#include <aidl/internal/ToString.h>
#include <android/binder_auto_utils.h>
#include <android/binder_interface_utils.h>
#include <android/binder_parcelable_utils.h>

#include <cassert>
#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace aidl {
namespace android {
namespace hardware {
namespace camera {
namespace device {
class StreamBuffersVal {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    enum class Tag : int32_t {
        error = 0,
        buffers = 1,
    };

    // Expose tag symbols for legacy code
    static const inline Tag error = Tag::error;
    static const inline Tag buffers = Tag::buffers;

    template <typename _Tp>
    static constexpr bool _not_self =
            !std::is_same_v<std::remove_cv_t<std::remove_reference_t<_Tp>>, StreamBuffersVal>;

    StreamBuffersVal()
        : _value(std::in_place_index<static_cast<size_t>(error)>,
                 ::aidl::android::hardware::camera::device::StreamBufferRequestError(
                         ::aidl::android::hardware::camera::device::StreamBufferRequestError::
                                 UNKNOWN_ERROR)) {}

    template <typename _Tp, typename = std::enable_if_t<_not_self<_Tp>>>
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr StreamBuffersVal(_Tp&& _arg) : _value(std::forward<_Tp>(_arg)) {}

    template <size_t _Np, typename... _Tp>
    constexpr explicit StreamBuffersVal(std::in_place_index_t<_Np>, _Tp&&... _args)
        : _value(std::in_place_index<_Np>, std::forward<_Tp>(_args)...) {}

    template <Tag _tag, typename... _Tp>
    static StreamBuffersVal make(_Tp&&... _args) {
        return StreamBuffersVal(std::in_place_index<static_cast<size_t>(_tag)>,
                                std::forward<_Tp>(_args)...);
    }

    template <Tag _tag, typename _Tp, typename... _Up>
    static StreamBuffersVal make(std::initializer_list<_Tp> _il, _Up&&... _args) {
        return StreamBuffersVal(std::in_place_index<static_cast<size_t>(_tag)>, std::move(_il),
                                std::forward<_Up>(_args)...);
    }

    Tag getTag() const { return static_cast<Tag>(_value.index()); }

    template <Tag _tag>
    const auto& get() const {
        if (getTag() != _tag) {
            __assert2(__FILE__, __LINE__, __PRETTY_FUNCTION__, "bad access: a wrong tag");
        }
        return std::get<static_cast<size_t>(_tag)>(_value);
    }

    template <Tag _tag>
    auto& get() {
        if (getTag() != _tag) {
            __assert2(__FILE__, __LINE__, __PRETTY_FUNCTION__, "bad access: a wrong tag");
        }
        return std::get<static_cast<size_t>(_tag)>(_value);
    }

    template <Tag _tag, typename... _Tp>
    void set(_Tp&&... _args) {
        _value.template emplace<static_cast<size_t>(_tag)>(std::forward<_Tp>(_args)...);
    }

    inline bool operator==(const StreamBuffersVal& _rhs) const { return _value == _rhs._value; }
    inline bool operator<(const StreamBuffersVal& _rhs) const { return _value < _rhs._value; }
    inline bool operator!=(const StreamBuffersVal& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const StreamBuffersVal& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const StreamBuffersVal& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const StreamBuffersVal& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream os;
        os << "StreamBuffersVal{";
        switch (getTag()) {
            case error:
                os << "error: " << ::aidl::internal::ToString(get<error>());
                break;
            case buffers:
                os << "buffers: " << ::aidl::internal::ToString(get<buffers>());
                break;
        }
        os << "}";
        return os.str();
    }

  private:
    std::variant<::aidl::android::hardware::camera::device::StreamBufferRequestError,
                 std::vector<::aidl::android::hardware::camera::device::StreamBuffer>>
            _value;
};
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/StreamType.aidl (android.hardware.camera.device-V3).
 */
#pragma once

#include <android/binder_enums.h>

#include <array>
#include <cstdint>
#include <string>

namespace aidl {
namespace android {
namespace hardware {
namespace camera {
namespace device {
enum class StreamType : int32_t {
    OUTPUT = 0,
    INPUT = 1,
};

[[nodiscard]] static inline std::string toString(StreamType val) {
    switch (val) {
        case StreamType::OUTPUT:
            return "OUTPUT";
        case StreamType::INPUT:
            return "INPUT";
        default:
            return std::to_string(static_cast<int32_t>(val));
    }
}
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

namespace ndk {
namespace internal {
template <>
constexpr inline std::array<::aidl::android::hardware::camera::device::StreamType, 2>
        enum_values<::aidl::android::hardware::camera::device::StreamType> = {
                ::aidl::android::hardware::camera::device::StreamType::OUTPUT,
                ::aidl::android::hardware::camera::device::StreamType::INPUT,
};
}  // namespace internal
}  // namespace ndk

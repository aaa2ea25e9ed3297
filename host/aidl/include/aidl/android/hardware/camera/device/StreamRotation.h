/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/StreamRotation.aidl (android.hardware.camera.device-V3).
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
enum class StreamRotation : int32_t {
    ROTATION_0 = 0,
    ROTATION_90 = 1,
    ROTATION_180 = 2,
    ROTATION_270 = 3,
};

[[nodiscard]] static inline std::string toString(StreamRotation val) {
    switch (val) {
        case StreamRotation::ROTATION_0:
            return "ROTATION_0";
        case StreamRotation::ROTATION_90:
            return "ROTATION_90";
        case StreamRotation::ROTATION_180:
            return "ROTATION_180";
        case StreamRotation::ROTATION_270:
            return "ROTATION_270";
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
constexpr inline std::array<::aidl::android::hardware::camera::device::StreamRotation, 4>
        enum_values<::aidl::android::hardware::camera::device::StreamRotation> = {
                ::aidl::android::hardware::camera::device::StreamRotation::ROTATION_0,
                ::aidl::android::hardware::camera::device::StreamRotation::ROTATION_90,
                ::aidl::android::hardware::camera::device::StreamRotation::ROTATION_180,
                ::aidl::android::hardware::camera::device::StreamRotation::ROTATION_270,
};
}  // namespace internal
}  // namespace ndk

/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/BufferStatus.aidl (android.hardware.camera.device-V3).
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
enum class BufferStatus : int32_t {
    OK = 0,
    ERROR = 1,
};

[[nodiscard]] static inline std::string toString(BufferStatus val) {
    switch (val) {
        case BufferStatus::OK:
            return "OK";
        case BufferStatus::ERROR:
            return "ERROR";
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
constexpr inline std::array<::aidl::android::hardware::camera::device::BufferStatus, 2>
        enum_values<::aidl::android::hardware::camera::device::BufferStatus> = {
                ::aidl::android::hardware::camera::device::BufferStatus::OK,
                ::aidl::android::hardware::camera::device::BufferStatus::ERROR,
};
}  // namespace internal
}  // namespace ndk

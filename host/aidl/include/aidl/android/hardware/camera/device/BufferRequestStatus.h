/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/BufferRequestStatus.aidl (android.hardware.camera.device-V3).
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
enum class BufferRequestStatus : int32_t {
    OK = 0,
    FAILED_PARTIAL = 1,
    FAILED_CONFIGURING = 2,
    FAILED_ILLEGAL_ARGUMENTS = 3,
    FAILED_UNKNOWN = 4,
};

[[nodiscard]] static inline std::string toString(BufferRequestStatus val) {
    switch (val) {
        case BufferRequestStatus::OK:
            return "OK";
        case BufferRequestStatus::FAILED_PARTIAL:
            return "FAILED_PARTIAL";
        case BufferRequestStatus::FAILED_CONFIGURING:
            return "FAILED_CONFIGURING";
        case BufferRequestStatus::FAILED_ILLEGAL_ARGUMENTS:
            return "FAILED_ILLEGAL_ARGUMENTS";
        case BufferRequestStatus::FAILED_UNKNOWN:
            return "FAILED_UNKNOWN";
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
constexpr inline std::array<::aidl::android::hardware::camera::device::BufferRequestStatus, 5>
        enum_values<::aidl::android::hardware::camera::device::BufferRequestStatus> = {
                ::aidl::android::hardware::camera::device::BufferRequestStatus::OK,
                ::aidl::android::hardware::camera::device::BufferRequestStatus::FAILED_PARTIAL,
                ::aidl::android::hardware::camera::device::BufferRequestStatus::FAILED_CONFIGURING,
                ::aidl::android::hardware::camera::device::BufferRequestStatus::FAILED_ILLEGAL_ARGUMENTS,
                ::aidl::android::hardware::camera::device::BufferRequestStatus::FAILED_UNKNOWN,
};
}  // namespace internal
}  // namespace ndk

/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/common/Status.aidl (android.hardware.camera.common-V1).
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
namespace common {
enum class Status : int32_t {
    OK = 0,
    ILLEGAL_ARGUMENT = 1,
    CAMERA_IN_USE = 2,
    MAX_CAMERAS_IN_USE = 3,
    OPERATION_NOT_SUPPORTED = 4,
    CAMERA_DISCONNECTED = 5,
    INTERNAL_ERROR = 6,
};

[[nodiscard]] static inline std::string toString(Status val) {
    switch (val) {
        case Status::OK:
            return "OK";
        case Status::ILLEGAL_ARGUMENT:
            return "ILLEGAL_ARGUMENT";
        case Status::CAMERA_IN_USE:
            return "CAMERA_IN_USE";
        case Status::MAX_CAMERAS_IN_USE:
            return "MAX_CAMERAS_IN_USE";
        case Status::OPERATION_NOT_SUPPORTED:
            return "OPERATION_NOT_SUPPORTED";
        case Status::CAMERA_DISCONNECTED:
            return "CAMERA_DISCONNECTED";
        case Status::INTERNAL_ERROR:
            return "INTERNAL_ERROR";
        default:
            return std::to_string(static_cast<int32_t>(val));
    }
}
}  // namespace common
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

namespace ndk {
namespace internal {
template <>
constexpr inline std::array<::aidl::android::hardware::camera::common::Status, 7>
        enum_values<::aidl::android::hardware::camera::common::Status> = {
                ::aidl::android::hardware::camera::common::Status::OK,
                ::aidl::android::hardware::camera::common::Status::ILLEGAL_ARGUMENT,
                ::aidl::android::hardware::camera::common::Status::CAMERA_IN_USE,
                ::aidl::android::hardware::camera::common::Status::MAX_CAMERAS_IN_USE,
                ::aidl::android::hardware::camera::common::Status::OPERATION_NOT_SUPPORTED,
                ::aidl::android::hardware::camera::common::Status::CAMERA_DISCONNECTED,
                ::aidl::android::hardware::camera::common::Status::INTERNAL_ERROR,
};
}  // namespace internal
}  // namespace ndk

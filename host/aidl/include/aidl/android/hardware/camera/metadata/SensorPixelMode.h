/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/metadata/SensorPixelMode.aidl (android.hardware.camera.metadata-V3).
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
namespace metadata {
enum class SensorPixelMode : int32_t {
    ANDROID_SENSOR_PIXEL_MODE_DEFAULT = 0,
    ANDROID_SENSOR_PIXEL_MODE_MAXIMUM_RESOLUTION = 1,
};

[[nodiscard]] static inline std::string toString(SensorPixelMode val) {
    switch (val) {
        case SensorPixelMode::ANDROID_SENSOR_PIXEL_MODE_DEFAULT:
            return "ANDROID_SENSOR_PIXEL_MODE_DEFAULT";
        case SensorPixelMode::ANDROID_SENSOR_PIXEL_MODE_MAXIMUM_RESOLUTION:
            return "ANDROID_SENSOR_PIXEL_MODE_MAXIMUM_RESOLUTION";
        default:
            return std::to_string(static_cast<int32_t>(val));
    }
}
}  // namespace metadata
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

namespace ndk {
namespace internal {
template <>
constexpr inline std::array<::aidl::android::hardware::camera::metadata::SensorPixelMode, 2>
        enum_values<::aidl::android::hardware::camera::metadata::SensorPixelMode> = {
                ::aidl::android::hardware::camera::metadata::SensorPixelMode::
                        ANDROID_SENSOR_PIXEL_MODE_DEFAULT,
                ::aidl::android::hardware::camera::metadata::SensorPixelMode::
                        ANDROID_SENSOR_PIXEL_MODE_MAXIMUM_RESOLUTION,
};
}  // namespace internal
}  // namespace ndk

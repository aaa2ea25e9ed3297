/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/metadata/ScalerAvailableStreamUseCases.aidl
 * (android.hardware.camera.metadata-V3).
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
enum class ScalerAvailableStreamUseCases : int64_t {
    ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_DEFAULT = 0L,
    ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_PREVIEW = 1L,
    ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_STILL_CAPTURE = 2L,
    ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VIDEO_RECORD = 3L,
    ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_PREVIEW_VIDEO_STILL = 4L,
    ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VIDEO_CALL = 5L,
    ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_CROPPED_RAW = 6L,
    ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VENDOR_START = 65536L,
};

[[nodiscard]] static inline std::string toString(ScalerAvailableStreamUseCases val) {
    switch (val) {
        case ScalerAvailableStreamUseCases::ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_DEFAULT:
            return "ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_DEFAULT";
        case ScalerAvailableStreamUseCases::ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_PREVIEW:
            return "ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_PREVIEW";
        case ScalerAvailableStreamUseCases::ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_STILL_CAPTURE:
            return "ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_STILL_CAPTURE";
        case ScalerAvailableStreamUseCases::ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VIDEO_RECORD:
            return "ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VIDEO_RECORD";
        case ScalerAvailableStreamUseCases::ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_PREVIEW_VIDEO_STILL:
            return "ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_PREVIEW_VIDEO_STILL";
        case ScalerAvailableStreamUseCases::ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VIDEO_CALL:
            return "ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VIDEO_CALL";
        case ScalerAvailableStreamUseCases::ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_CROPPED_RAW:
            return "ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_CROPPED_RAW";
        case ScalerAvailableStreamUseCases::ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VENDOR_START:
            return "ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VENDOR_START";
        default:
            return std::to_string(static_cast<int64_t>(val));
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
constexpr inline std::array<
        ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases, 8>
        enum_values<::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases> = {
                ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases::
                        ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_DEFAULT,
                ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases::
                        ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_PREVIEW,
                ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases::
                        ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_STILL_CAPTURE,
                ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases::
                        ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VIDEO_RECORD,
                ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases::
                        ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_PREVIEW_VIDEO_STILL,
                ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases::
                        ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VIDEO_CALL,
                ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases::
                        ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_CROPPED_RAW,
                ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases::
                        ANDROID_SCALER_AVAILABLE_STREAM_USE_CASES_VENDOR_START,
};
}  // namespace internal
}  // namespace ndk

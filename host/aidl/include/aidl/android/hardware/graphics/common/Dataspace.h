/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/graphics/common/Dataspace.aidl (android.hardware.graphics.common-V5).
 */
#pragma once

#include <android/binder_enums.h>

#include <array>
#include <cstdint>
#include <string>

namespace aidl {
namespace android {
namespace hardware {
namespace graphics {
namespace common {
enum class Dataspace : int32_t {
    UNKNOWN = 0,
    ARBITRARY = 1,
    DEPTH = 4096,
    SENSOR = 4097,
    DYNAMIC_DEPTH = 4098,
    JPEG_APP_SEGMENTS = 4099,
    HEIF = 4100,
    SRGB_LINEAR = 138477568,
    SRGB = 142671872,
    JFIF = 146931712,
    BT601_625 = 281149440,
    BT709 = 281083904,
};

[[nodiscard]] static inline std::string toString(Dataspace val) {
    switch (val) {
        case Dataspace::UNKNOWN:
            return "UNKNOWN";
        case Dataspace::ARBITRARY:
            return "ARBITRARY";
        case Dataspace::DEPTH:
            return "DEPTH";
        case Dataspace::SENSOR:
            return "SENSOR";
        case Dataspace::DYNAMIC_DEPTH:
            return "DYNAMIC_DEPTH";
        case Dataspace::JPEG_APP_SEGMENTS:
            return "JPEG_APP_SEGMENTS";
        case Dataspace::HEIF:
            return "HEIF";
        case Dataspace::SRGB_LINEAR:
            return "SRGB_LINEAR";
        case Dataspace::SRGB:
            return "SRGB";
        case Dataspace::JFIF:
            return "JFIF";
        case Dataspace::BT601_625:
            return "BT601_625";
        case Dataspace::BT709:
            return "BT709";
        default:
            return std::to_string(static_cast<int32_t>(val));
    }
}
}  // namespace common
}  // namespace graphics
}  // namespace hardware
}  // namespace android
}  // namespace aidl

namespace ndk {
namespace internal {
template <>
constexpr inline std::array<::aidl::android::hardware::graphics::common::Dataspace, 12>
        enum_values<::aidl::android::hardware::graphics::common::Dataspace> = {
                ::aidl::android::hardware::graphics::common::Dataspace::UNKNOWN,
                ::aidl::android::hardware::graphics::common::Dataspace::ARBITRARY,
                ::aidl::android::hardware::graphics::common::Dataspace::DEPTH,
                ::aidl::android::hardware::graphics::common::Dataspace::SENSOR,
                ::aidl::android::hardware::graphics::common::Dataspace::DYNAMIC_DEPTH,
                ::aidl::android::hardware::graphics::common::Dataspace::JPEG_APP_SEGMENTS,
                ::aidl::android::hardware::graphics::common::Dataspace::HEIF,
                ::aidl::android::hardware::graphics::common::Dataspace::SRGB_LINEAR,
                ::aidl::android::hardware::graphics::common::Dataspace::SRGB,
                ::aidl::android::hardware::graphics::common::Dataspace::JFIF,
                ::aidl::android::hardware::graphics::common::Dataspace::BT601_625,
                ::aidl::android::hardware::graphics::common::Dataspace::BT709,
};
}  // namespace internal
}  // namespace ndk

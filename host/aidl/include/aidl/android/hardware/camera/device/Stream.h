/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/Stream.aidl (android.hardware.camera.device-V3).
 */
#pragma once

#include <aidl/android/hardware/camera/device/StreamRotation.h>
#include <aidl/android/hardware/camera/device/StreamType.h>
#include <aidl/android/hardware/camera/metadata/RequestAvailableDynamicRangeProfilesMap.h>
#include <aidl/android/hardware/camera/metadata/ScalerAvailableStreamUseCases.h>
#include <aidl/android/hardware/camera/metadata/SensorPixelMode.h>
#include <aidl/android/hardware/graphics/common/BufferUsage.h>
#include <aidl/android/hardware/graphics/common/Dataspace.h>
#include <aidl/android/hardware/graphics/common/PixelFormat.h>
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
namespace camera {
namespace device {
class Stream {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    int32_t id = 0;
    ::aidl::android::hardware::camera::device::StreamType streamType =
            ::aidl::android::hardware::camera::device::StreamType(0);
    int32_t width = 0;
    int32_t height = 0;
    ::aidl::android::hardware::graphics::common::PixelFormat format =
            ::aidl::android::hardware::graphics::common::PixelFormat(0);
    ::aidl::android::hardware::graphics::common::BufferUsage usage =
            ::aidl::android::hardware::graphics::common::BufferUsage(0);
    ::aidl::android::hardware::graphics::common::Dataspace dataSpace =
            ::aidl::android::hardware::graphics::common::Dataspace(0);
    ::aidl::android::hardware::camera::device::StreamRotation rotation =
            ::aidl::android::hardware::camera::device::StreamRotation(0);
    std::string physicalCameraId;
    int32_t bufferSize = 0;
    int32_t groupId = 0;
    std::vector<::aidl::android::hardware::camera::metadata::SensorPixelMode> sensorPixelModesUsed;
    ::aidl::android::hardware::camera::metadata::RequestAvailableDynamicRangeProfilesMap dynamicRangeProfile =
            ::aidl::android::hardware::camera::metadata::RequestAvailableDynamicRangeProfilesMap(0);
    ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases useCase =
            ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases(0);
    int32_t colorSpace = 0;

    inline bool operator==(const Stream& _rhs) const {
        return std::tie(id, streamType, width, height, format, usage, dataSpace, rotation,
                        physicalCameraId, bufferSize, groupId, sensorPixelModesUsed,
                        dynamicRangeProfile, useCase, colorSpace) ==
               std::tie(_rhs.id, _rhs.streamType, _rhs.width, _rhs.height, _rhs.format, _rhs.usage,
                        _rhs.dataSpace, _rhs.rotation, _rhs.physicalCameraId, _rhs.bufferSize,
                        _rhs.groupId, _rhs.sensorPixelModesUsed, _rhs.dynamicRangeProfile,
                        _rhs.useCase, _rhs.colorSpace);
    }
    inline bool operator<(const Stream& _rhs) const {
        return std::tie(id, streamType, width, height, format, usage, dataSpace, rotation,
                        physicalCameraId, bufferSize, groupId, sensorPixelModesUsed,
                        dynamicRangeProfile, useCase, colorSpace) <
               std::tie(_rhs.id, _rhs.streamType, _rhs.width, _rhs.height, _rhs.format, _rhs.usage,
                        _rhs.dataSpace, _rhs.rotation, _rhs.physicalCameraId, _rhs.bufferSize,
                        _rhs.groupId, _rhs.sensorPixelModesUsed, _rhs.dynamicRangeProfile,
                        _rhs.useCase, _rhs.colorSpace);
    }
    inline bool operator!=(const Stream& _rhs) const { return !(*this == _rhs); }
    inline bool operator>(const Stream& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const Stream& _rhs) const { return !(*this < _rhs); }
    inline bool operator<=(const Stream& _rhs) const { return !(_rhs < *this); }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "Stream{";
        _aidl_os << "id: " << ::aidl::internal::ToString(id);
        _aidl_os << ", streamType: " << ::aidl::internal::ToString(streamType);
        _aidl_os << ", width: " << ::aidl::internal::ToString(width);
        _aidl_os << ", height: " << ::aidl::internal::ToString(height);
        _aidl_os << ", format: " << ::aidl::internal::ToString(format);
        _aidl_os << ", usage: " << ::aidl::internal::ToString(usage);
        _aidl_os << ", dataSpace: " << ::aidl::internal::ToString(dataSpace);
        _aidl_os << ", rotation: " << ::aidl::internal::ToString(rotation);
        _aidl_os << ", physicalCameraId: " << ::aidl::internal::ToString(physicalCameraId);
        _aidl_os << ", bufferSize: " << ::aidl::internal::ToString(bufferSize);
        _aidl_os << ", groupId: " << ::aidl::internal::ToString(groupId);
        _aidl_os << ", sensorPixelModesUsed: " << ::aidl::internal::ToString(sensorPixelModesUsed);
        _aidl_os << ", dynamicRangeProfile: " << ::aidl::internal::ToString(dynamicRangeProfile);
        _aidl_os << ", useCase: " << ::aidl::internal::ToString(useCase);
        _aidl_os << ", colorSpace: " << ::aidl::internal::ToString(colorSpace);
        _aidl_os << "}";
        return _aidl_os.str();
    }
};
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/OfflineSessionConfiguration.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#pragma once

#include <aidl/android/hardware/camera/device/CameraMetadata.h>
#include <aidl/android/hardware/camera/device/Stream.h>
#include <aidl/android/hardware/camera/device/StreamConfigurationMode.h>
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
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {
class OfflineSessionConfiguration {
  public:
    typedef std::false_type fixed_size;
    static const char* descriptor;

    std::string cameraId;
    std::vector<::aidl::android::hardware::camera::device::Stream> streams;
    ::aidl::android::hardware::camera::device::StreamConfigurationMode operationMode =
            ::aidl::android::hardware::camera::device::StreamConfigurationMode(0);
    ::aidl::android::hardware::camera::device::CameraMetadata sessionParams;
    int32_t backendOperationMode = 0;

    inline bool operator==(const OfflineSessionConfiguration& _rhs) const {
        return std::tie(cameraId, streams, operationMode, sessionParams, backendOperationMode) ==
               std::tie(_rhs.cameraId, _rhs.streams, _rhs.operationMode, _rhs.sessionParams,
                        _rhs.backendOperationMode);
    }
    inline bool operator<(const OfflineSessionConfiguration& _rhs) const {
        return std::tie(cameraId, streams, operationMode, sessionParams, backendOperationMode) <
               std::tie(_rhs.cameraId, _rhs.streams, _rhs.operationMode, _rhs.sessionParams,
                        _rhs.backendOperationMode);
    }
    inline bool operator!=(const OfflineSessionConfiguration& _rhs) const {
        return !(*this == _rhs);
    }
    inline bool operator>(const OfflineSessionConfiguration& _rhs) const { return _rhs < *this; }
    inline bool operator>=(const OfflineSessionConfiguration& _rhs) const {
        return !(*this < _rhs);
    }
    inline bool operator<=(const OfflineSessionConfiguration& _rhs) const {
        return !(_rhs < *this);
    }

    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::STABILITY_VINTF;
    inline std::string toString() const {
        std::ostringstream _aidl_os;
        _aidl_os << "OfflineSessionConfiguration{";
        _aidl_os << "cameraId: " << ::aidl::internal::ToString(cameraId);
        _aidl_os << ", streams: " << ::aidl::internal::ToString(streams);
        _aidl_os << ", operationMode: " << ::aidl::internal::ToString(operationMode);
        _aidl_os << ", sessionParams: " << ::aidl::internal::ToString(sessionParams);
        _aidl_os << ", backendOperationMode: " << ::aidl::internal::ToString(backendOperationMode);
        _aidl_os << "}";
        return _aidl_os.str();
    }
};
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/PhysicalCameraMetadata.aidl (android.hardware.camera.device-V3).
 */
#include <aidl/android/hardware/camera/device/PhysicalCameraMetadata.h>

namespace aidl {
namespace android {
namespace hardware {
namespace camera {
namespace device {
const char* PhysicalCameraMetadata::descriptor =
        "android.hardware.camera.device.PhysicalCameraMetadata";
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

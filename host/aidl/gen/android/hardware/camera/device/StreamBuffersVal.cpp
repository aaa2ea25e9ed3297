/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/StreamBuffersVal.aidl (android.hardware.camera.device-V3).
 */
#include <aidl/android/hardware/camera/device/StreamBuffersVal.h>

namespace aidl {
namespace android {
namespace hardware {
namespace camera {
namespace device {
const char* StreamBuffersVal::descriptor = "android.hardware.camera.device.StreamBuffersVal";
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

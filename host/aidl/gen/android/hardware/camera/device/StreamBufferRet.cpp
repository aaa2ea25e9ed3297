/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/camera/device/StreamBufferRet.aidl (android.hardware.camera.device-V3).
 */
#include <aidl/android/hardware/camera/device/StreamBufferRet.h>

namespace aidl {
namespace android {
namespace hardware {
namespace camera {
namespace device {
const char* StreamBufferRet::descriptor = "android.hardware.camera.device.StreamBufferRet";
}  // namespace device
}  // namespace camera
}  // namespace hardware
}  // namespace android
}  // namespace aidl

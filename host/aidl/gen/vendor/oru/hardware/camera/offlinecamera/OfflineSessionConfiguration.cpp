/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/OfflineSessionConfiguration.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/OfflineSessionConfiguration.h>

namespace aidl {
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {
const char* OfflineSessionConfiguration::descriptor =
        "vendor.oru.hardware.camera.offlinecamera.OfflineSessionConfiguration";
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

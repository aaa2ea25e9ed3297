/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * vendor/oru/hardware/camera/offlinecamera/OfflineInputFrame.aidl
 * (vendor.oru.hardware.camera.offlinecamera-V2).
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/OfflineInputFrame.h>

namespace aidl {
namespace vendor {
namespace oru {
namespace hardware {
namespace camera {
namespace offlinecamera {
const char* OfflineInputFrame::descriptor =
        "vendor.oru.hardware.camera.offlinecamera.OfflineInputFrame";
}  // namespace offlinecamera
}  // namespace camera
}  // namespace hardware
}  // namespace oru
}  // namespace vendor
}  // namespace aidl

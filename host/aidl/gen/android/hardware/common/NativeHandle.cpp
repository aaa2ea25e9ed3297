/*
 * Host build of the NDK-backend code that the aidl compiler generates for
 * android/hardware/common/NativeHandle.aidl (android.hardware.common-V2).
 */
#include <aidl/android/hardware/common/NativeHandle.h>

namespace aidl {
namespace android {
namespace hardware {
namespace common {
const char* NativeHandle::descriptor = "android.hardware.common.NativeHandle";
}  // namespace common
}  // namespace hardware
}  // namespace android
}  // namespace aidl

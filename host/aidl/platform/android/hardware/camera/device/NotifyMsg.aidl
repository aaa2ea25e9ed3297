package android.hardware.camera.device;

import android.hardware.camera.device.ErrorMsg;
import android.hardware.camera.device.ShutterMsg;

@VintfStability
union NotifyMsg {
    ErrorMsg error;
    ShutterMsg shutter;
}

/*
 * Copyright (C) 2026 Oru Camera
 *
 * Vendor offline camera interface.
 */

package vendor.oru.hardware.camera.offlinecamera;

import android.hardware.camera.device.CaptureResult;
import android.hardware.camera.device.NotifyMsg;

/** Callback of an offline session's client. */
@VintfStability
interface IOfflineCameraSessionCallback {
    void notify(in NotifyMsg[] msgs);

    void processCaptureResult(in CaptureResult[] results);
}

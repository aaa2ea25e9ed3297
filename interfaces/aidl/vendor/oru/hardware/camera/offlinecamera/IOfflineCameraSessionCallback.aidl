/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
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

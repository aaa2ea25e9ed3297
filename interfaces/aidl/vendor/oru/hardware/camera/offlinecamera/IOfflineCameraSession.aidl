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

import vendor.oru.hardware.camera.offlinecamera.OfflineCaptureRequest;
import vendor.oru.hardware.camera.offlinecamera.OfflineFlushInfo;
import vendor.oru.hardware.camera.offlinecamera.OfflineSessionConfiguration;

/** An offline processing session. */
@VintfStability
interface IOfflineCameraSession {
    void configureOfflineSession(in OfflineSessionConfiguration config);

    /** Returns the frame number under which the results of the last request arrive. */
    int processOfflineRequest(in OfflineCaptureRequest[] requests);

    void closeOfflineSession();

    void flushOfflineSession(in OfflineFlushInfo flushInfo);

    void dumpOfflineSession();
}

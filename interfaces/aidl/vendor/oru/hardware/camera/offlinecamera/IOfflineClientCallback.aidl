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

import android.hardware.camera.device.BufferRequestStatus;
import android.hardware.camera.device.NotifyMsg;
import android.hardware.camera.device.StreamBuffer;
import android.hardware.camera.device.StreamBufferRet;
import vendor.oru.hardware.camera.offlinecamera.OfflineBufferRequest;
import vendor.oru.hardware.camera.offlinecamera.OfflineCaptureResult;

/** Callback of a buffer consumer client. */
@VintfStability
interface IOfflineClientCallback {
    /** Notify messages of the producer. Reserved; the service does not send them. */
    void notify(in NotifyMsg[] msgs);

    /** Capture results of the producer, with the lent buffers that they fill. */
    void processCaptureResult(in OfflineCaptureResult[] results);

    /** Asks the consumer to lend buffers, one StreamBufferRet per request, in request order. */
    BufferRequestStatus requestStreamBuffers(
            in OfflineBufferRequest[] bufReqs, out StreamBufferRet[] buffers);

    /** Gives lent buffers back unused. */
    void returnStreamBuffers(in StreamBuffer[] buffers);
}

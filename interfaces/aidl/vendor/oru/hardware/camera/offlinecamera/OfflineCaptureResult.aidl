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

import android.hardware.camera.device.CameraMetadata;
import android.hardware.camera.device.StreamBuffer;

/** A capture result of the producer, sent to a consumer client. */
@VintfStability
parcelable OfflineCaptureResult {
    long frameNumber;
    StreamBuffer[] outputBuffers;
    CameraMetadata result;
    int partialResult;
}

/*
 * Copyright (C) 2026 Oru Camera
 *
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

/*
 * Copyright (C) 2026 Oru Camera
 *
 * Vendor offline camera interface.
 */

package vendor.oru.hardware.camera.offlinecamera;

import android.hardware.camera.device.StreamBuffer;
import vendor.oru.hardware.camera.offlinecamera.OfflineInputFrame;

/** One offline request: input frames to process and the output buffers to fill. */
@VintfStability
parcelable OfflineCaptureRequest {
    int frameNumber;
    OfflineInputFrame[] inputFrames;
    StreamBuffer[] outputBuffers;
    int requestFlags;
}

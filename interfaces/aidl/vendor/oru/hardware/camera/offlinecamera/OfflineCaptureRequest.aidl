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

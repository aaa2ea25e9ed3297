/*
 * Copyright (C) 2026 Oru Camera
 *
 * Vendor offline camera interface.
 */

package vendor.oru.hardware.camera.offlinecamera;

import android.hardware.camera.device.Stream;

/** One stream's request for buffers, sent to a consumer client. */
@VintfStability
parcelable OfflineBufferRequest {
    Stream stream;
    int numBuffersRequested;
}

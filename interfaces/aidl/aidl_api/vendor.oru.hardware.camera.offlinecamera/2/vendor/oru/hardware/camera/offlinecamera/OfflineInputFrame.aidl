/*
 * Copyright (C) 2026 Oru Camera
 *
 * Vendor offline camera interface.
 */

package vendor.oru.hardware.camera.offlinecamera;

import android.hardware.camera.device.CameraMetadata;
import android.hardware.camera.device.StreamBuffer;

/**
 * One input frame of an offline request. Settings may be left empty in every frame but the
 * first; the first frame's settings then apply.
 */
@VintfStability
parcelable OfflineInputFrame {
    StreamBuffer[] inputBuffers;
    long timestamp;
    CameraMetadata settings;
}

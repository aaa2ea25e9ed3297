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

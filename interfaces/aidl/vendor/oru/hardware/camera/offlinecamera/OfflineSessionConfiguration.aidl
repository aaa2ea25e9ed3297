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
import android.hardware.camera.device.Stream;
import android.hardware.camera.device.StreamConfigurationMode;

/** Stream configuration of an offline session. */
@VintfStability
parcelable OfflineSessionConfiguration {
    /** Decimal framework camera id, e.g. "0". */
    String cameraId;
    Stream[] streams;
    StreamConfigurationMode operationMode;
    CameraMetadata sessionParams;
    /** When non-zero, passed to the backend as its operation mode unchanged. */
    int backendOperationMode;
}

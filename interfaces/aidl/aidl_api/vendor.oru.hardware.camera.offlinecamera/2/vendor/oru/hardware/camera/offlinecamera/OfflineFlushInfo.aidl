/*
 * Copyright (C) 2026 Oru Camera
 *
 * Vendor offline camera interface.
 */

package vendor.oru.hardware.camera.offlinecamera;

/** Flush parameters of an offline session. */
@VintfStability
parcelable OfflineFlushInfo {
    int flushFlags;
}

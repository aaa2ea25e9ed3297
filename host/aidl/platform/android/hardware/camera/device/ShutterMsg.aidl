/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

package android.hardware.camera.device;

@VintfStability
parcelable ShutterMsg {
    int frameNumber;
    long timestamp;
    long readoutTimestamp;
}

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

package android.hardware.camera.common;

@VintfStability
@Backing(type="int")
enum Status {
    OK = 0,
    ILLEGAL_ARGUMENT,
    CAMERA_IN_USE,
    MAX_CAMERAS_IN_USE,
    OPERATION_NOT_SUPPORTED,
    CAMERA_DISCONNECTED,
    INTERNAL_ERROR,
}

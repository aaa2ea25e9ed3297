/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

package android.hardware.graphics.common;

@VintfStability
@Backing(type="int")
enum Dataspace {
    UNKNOWN = 0x0,
    ARBITRARY = 0x1,
    DEPTH = 0x1000,
    SENSOR = 0x1001,
    DYNAMIC_DEPTH = 0x1002,
    JPEG_APP_SEGMENTS = 0x1003,
    HEIF = 0x1004,
    SRGB_LINEAR = 0x8410000,
    SRGB = 0x8810000,
    JFIF = 0x8C20000,
    BT601_625 = 0x10C20000,
    BT709 = 0x10C10000,
}

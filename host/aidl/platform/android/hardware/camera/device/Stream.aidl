/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

package android.hardware.camera.device;

import android.hardware.camera.device.StreamRotation;
import android.hardware.camera.device.StreamType;
import android.hardware.camera.metadata.RequestAvailableDynamicRangeProfilesMap;
import android.hardware.camera.metadata.ScalerAvailableStreamUseCases;
import android.hardware.camera.metadata.SensorPixelMode;
import android.hardware.graphics.common.BufferUsage;
import android.hardware.graphics.common.Dataspace;
import android.hardware.graphics.common.PixelFormat;

@VintfStability
parcelable Stream {
    int id;
    StreamType streamType;
    int width;
    int height;
    PixelFormat format;
    BufferUsage usage;
    Dataspace dataSpace;
    StreamRotation rotation;
    String physicalCameraId;
    int bufferSize;
    int groupId;
    SensorPixelMode[] sensorPixelModesUsed;
    RequestAvailableDynamicRangeProfilesMap dynamicRangeProfile;
    ScalerAvailableStreamUseCases useCase;
    int colorSpace;
}

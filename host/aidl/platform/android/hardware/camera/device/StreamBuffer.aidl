package android.hardware.camera.device;

import android.hardware.camera.device.BufferStatus;
import android.hardware.common.NativeHandle;

@VintfStability
parcelable StreamBuffer {
    int streamId;
    long bufferId;
    NativeHandle buffer;
    BufferStatus status;
    NativeHandle acquireFence;
    NativeHandle releaseFence;
}

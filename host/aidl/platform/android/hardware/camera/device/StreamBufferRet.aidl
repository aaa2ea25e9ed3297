package android.hardware.camera.device;

import android.hardware.camera.device.StreamBuffersVal;

@VintfStability
parcelable StreamBufferRet {
    int streamId;
    StreamBuffersVal val;
}

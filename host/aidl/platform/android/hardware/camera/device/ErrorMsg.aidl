package android.hardware.camera.device;

import android.hardware.camera.device.ErrorCode;

@VintfStability
parcelable ErrorMsg {
    int frameNumber;
    int errorStreamId;
    ErrorCode errorCode;
}

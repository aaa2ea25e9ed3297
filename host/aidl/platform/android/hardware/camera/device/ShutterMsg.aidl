package android.hardware.camera.device;

@VintfStability
parcelable ShutterMsg {
    int frameNumber;
    long timestamp;
    long readoutTimestamp;
}

package android.hardware.camera.device;

@VintfStability
parcelable BufferRequest {
    int streamId;
    int numBuffersRequested;
}

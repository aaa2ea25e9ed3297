package android.hardware.camera.device;

@VintfStability
parcelable CameraMetadata {
    byte[] metadata;
}

package android.hardware.camera.device;

import android.hardware.camera.device.CameraMetadata;

@VintfStability
parcelable PhysicalCameraMetadata {
    long fmqMetadataSize;
    String physicalCameraId;
    CameraMetadata metadata;
}

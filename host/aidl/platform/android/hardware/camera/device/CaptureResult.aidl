package android.hardware.camera.device;

import android.hardware.camera.device.CameraMetadata;
import android.hardware.camera.device.PhysicalCameraMetadata;
import android.hardware.camera.device.StreamBuffer;

@VintfStability
parcelable CaptureResult {
    int frameNumber;
    long fmqResultSize;
    CameraMetadata result;
    StreamBuffer[] outputBuffers;
    StreamBuffer inputBuffer;
    int partialResult;
    PhysicalCameraMetadata[] physicalCameraMetadata;
}

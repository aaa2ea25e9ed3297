package android.hardware.camera.device;

import android.hardware.camera.device.StreamBuffer;
import android.hardware.camera.device.StreamBufferRequestError;

@VintfStability
union StreamBuffersVal {
    StreamBufferRequestError error = StreamBufferRequestError.UNKNOWN_ERROR;
    StreamBuffer[] buffers;
}

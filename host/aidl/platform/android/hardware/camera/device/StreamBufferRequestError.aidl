package android.hardware.camera.device;

@VintfStability
@Backing(type="int")
enum StreamBufferRequestError {
    NO_BUFFER_AVAILABLE = 1,
    MAX_BUFFER_EXCEEDED = 2,
    STREAM_DISCONNECTED = 3,
    UNKNOWN_ERROR = 4,
}

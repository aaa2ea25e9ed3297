package android.hardware.camera.device;

@VintfStability
@Backing(type="int")
enum BufferStatus {
    OK = 0,
    ERROR = 1,
}

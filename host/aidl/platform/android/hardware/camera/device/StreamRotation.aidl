package android.hardware.camera.device;

@VintfStability
@Backing(type="int")
enum StreamRotation {
    ROTATION_0 = 0,
    ROTATION_90 = 1,
    ROTATION_180 = 2,
    ROTATION_270 = 3,
}

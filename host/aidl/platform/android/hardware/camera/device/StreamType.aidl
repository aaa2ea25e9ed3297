package android.hardware.camera.device;

@VintfStability
@Backing(type="int")
enum StreamType {
    OUTPUT = 0,
    INPUT = 1,
}

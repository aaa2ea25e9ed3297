package android.hardware.camera.common;

@VintfStability
@Backing(type="int")
enum Status {
    OK = 0,
    ILLEGAL_ARGUMENT,
    CAMERA_IN_USE,
    MAX_CAMERAS_IN_USE,
    OPERATION_NOT_SUPPORTED,
    CAMERA_DISCONNECTED,
    INTERNAL_ERROR,
}

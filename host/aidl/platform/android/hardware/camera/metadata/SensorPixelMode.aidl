package android.hardware.camera.metadata;

@VintfStability
@Backing(type="int")
enum SensorPixelMode {
    ANDROID_SENSOR_PIXEL_MODE_DEFAULT = 0,
    ANDROID_SENSOR_PIXEL_MODE_MAXIMUM_RESOLUTION,
}

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for <system/camera_metadata_tags.h>: metadata sections, their tag ranges and the
 * tags (with their enumerated values) that a camera pipeline of this tree reads and writes.
 *
 * A tag is (section << 16) | index. Indices within a section follow the platform's numbering;
 * only a subset of each section's tags is listed, always from index 0 upwards without gaps, so
 * that every section's *_END marks the first index this stand-in does not know.
 */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

typedef enum camera_metadata_section {
    ANDROID_COLOR_CORRECTION,
    ANDROID_CONTROL,
    ANDROID_DEMOSAIC,
    ANDROID_EDGE,
    ANDROID_FLASH,
    ANDROID_FLASH_INFO,
    ANDROID_HOT_PIXEL,
    ANDROID_JPEG,
    ANDROID_LENS,
    ANDROID_LENS_INFO,
    ANDROID_NOISE_REDUCTION,
    ANDROID_QUIRKS,
    ANDROID_REQUEST,
    ANDROID_SCALER,
    ANDROID_SENSOR,
    ANDROID_SENSOR_INFO,
    ANDROID_SHADING,
    ANDROID_STATISTICS,
    ANDROID_STATISTICS_INFO,
    ANDROID_TONEMAP,
    ANDROID_LED,
    ANDROID_INFO,
    ANDROID_BLACK_LEVEL,
    ANDROID_SYNC,
    ANDROID_REPROCESS,
    ANDROID_DEPTH,
    ANDROID_LOGICAL_MULTI_CAMERA,
    ANDROID_DISTORTION_CORRECTION,
    ANDROID_HEIC,
    ANDROID_HEIC_INFO,
    ANDROID_AUTOMOTIVE,
    ANDROID_AUTOMOTIVE_LENS,
    ANDROID_EXTENSION,
    ANDROID_JPEGR,
    ANDROID_SECTION_COUNT,

    VENDOR_SECTION = 0x8000
} camera_metadata_section_t;

/* First tag value of each section. */
typedef enum camera_metadata_section_start {
    ANDROID_COLOR_CORRECTION_START = ANDROID_COLOR_CORRECTION << 16,
    ANDROID_CONTROL_START = ANDROID_CONTROL << 16,
    ANDROID_DEMOSAIC_START = ANDROID_DEMOSAIC << 16,
    ANDROID_EDGE_START = ANDROID_EDGE << 16,
    ANDROID_FLASH_START = ANDROID_FLASH << 16,
    ANDROID_FLASH_INFO_START = ANDROID_FLASH_INFO << 16,
    ANDROID_HOT_PIXEL_START = ANDROID_HOT_PIXEL << 16,
    ANDROID_JPEG_START = ANDROID_JPEG << 16,
    ANDROID_LENS_START = ANDROID_LENS << 16,
    ANDROID_LENS_INFO_START = ANDROID_LENS_INFO << 16,
    ANDROID_NOISE_REDUCTION_START = ANDROID_NOISE_REDUCTION << 16,
    ANDROID_QUIRKS_START = ANDROID_QUIRKS << 16,
    ANDROID_REQUEST_START = ANDROID_REQUEST << 16,
    ANDROID_SCALER_START = ANDROID_SCALER << 16,
    ANDROID_SENSOR_START = ANDROID_SENSOR << 16,
    ANDROID_SENSOR_INFO_START = ANDROID_SENSOR_INFO << 16,
    ANDROID_SHADING_START = ANDROID_SHADING << 16,
    ANDROID_STATISTICS_START = ANDROID_STATISTICS << 16,
    ANDROID_STATISTICS_INFO_START = ANDROID_STATISTICS_INFO << 16,
    ANDROID_TONEMAP_START = ANDROID_TONEMAP << 16,
    ANDROID_LED_START = ANDROID_LED << 16,
    ANDROID_INFO_START = ANDROID_INFO << 16,
    ANDROID_BLACK_LEVEL_START = ANDROID_BLACK_LEVEL << 16,
    ANDROID_SYNC_START = ANDROID_SYNC << 16,
    ANDROID_REPROCESS_START = ANDROID_REPROCESS << 16,
    ANDROID_DEPTH_START = ANDROID_DEPTH << 16,
    ANDROID_LOGICAL_MULTI_CAMERA_START = ANDROID_LOGICAL_MULTI_CAMERA << 16,
    ANDROID_DISTORTION_CORRECTION_START = ANDROID_DISTORTION_CORRECTION << 16,
    ANDROID_HEIC_START = ANDROID_HEIC << 16,
    ANDROID_HEIC_INFO_START = ANDROID_HEIC_INFO << 16,
    ANDROID_AUTOMOTIVE_START = ANDROID_AUTOMOTIVE << 16,
    ANDROID_AUTOMOTIVE_LENS_START = ANDROID_AUTOMOTIVE_LENS << 16,
    ANDROID_EXTENSION_START = ANDROID_EXTENSION << 16,
    ANDROID_JPEGR_START = ANDROID_JPEGR << 16,
    VENDOR_SECTION_START = 0x80000000u
} camera_metadata_section_start_t;

/* Tags. Type of each in brackets. */
typedef enum camera_metadata_tag {
    ANDROID_COLOR_CORRECTION_MODE = ANDROID_COLOR_CORRECTION_START, /* byte */
    ANDROID_COLOR_CORRECTION_TRANSFORM,                             /* rational */
    ANDROID_COLOR_CORRECTION_GAINS,                                 /* float */
    ANDROID_COLOR_CORRECTION_ABERRATION_MODE,                       /* byte */
    ANDROID_COLOR_CORRECTION_AVAILABLE_ABERRATION_MODES,            /* byte */
    ANDROID_COLOR_CORRECTION_END,

    ANDROID_CONTROL_AE_ANTIBANDING_MODE = ANDROID_CONTROL_START, /* byte */
    ANDROID_CONTROL_AE_EXPOSURE_COMPENSATION,                    /* int32 */
    ANDROID_CONTROL_AE_LOCK,                                     /* byte */
    ANDROID_CONTROL_AE_MODE,                                     /* byte */
    ANDROID_CONTROL_AE_REGIONS,                                  /* int32 */
    ANDROID_CONTROL_AE_TARGET_FPS_RANGE,                         /* int32 */
    ANDROID_CONTROL_AE_PRECAPTURE_TRIGGER,                       /* byte */
    ANDROID_CONTROL_AF_MODE,                                     /* byte */
    ANDROID_CONTROL_AF_REGIONS,                                  /* int32 */
    ANDROID_CONTROL_AF_TRIGGER,                                  /* byte */
    ANDROID_CONTROL_AWB_LOCK,                                    /* byte */
    ANDROID_CONTROL_AWB_MODE,                                    /* byte */
    ANDROID_CONTROL_AWB_REGIONS,                                 /* int32 */
    ANDROID_CONTROL_CAPTURE_INTENT,                              /* byte */
    ANDROID_CONTROL_EFFECT_MODE,                                 /* byte */
    ANDROID_CONTROL_MODE,                                        /* byte */
    ANDROID_CONTROL_SCENE_MODE,                                  /* byte */
    ANDROID_CONTROL_VIDEO_STABILIZATION_MODE,                    /* byte */
    ANDROID_CONTROL_AE_AVAILABLE_ANTIBANDING_MODES,              /* byte */
    ANDROID_CONTROL_AE_AVAILABLE_MODES,                          /* byte */
    ANDROID_CONTROL_AE_AVAILABLE_TARGET_FPS_RANGES,              /* int32 */
    ANDROID_CONTROL_AE_COMPENSATION_RANGE,                       /* int32 */
    ANDROID_CONTROL_AE_COMPENSATION_STEP,                        /* rational */
    ANDROID_CONTROL_AF_AVAILABLE_MODES,                          /* byte */
    ANDROID_CONTROL_AVAILABLE_EFFECTS,                           /* byte */
    ANDROID_CONTROL_AVAILABLE_SCENE_MODES,                       /* byte */
    ANDROID_CONTROL_AVAILABLE_VIDEO_STABILIZATION_MODES,         /* byte */
    ANDROID_CONTROL_AWB_AVAILABLE_MODES,                         /* byte */
    ANDROID_CONTROL_MAX_REGIONS,                                 /* int32 */
    ANDROID_CONTROL_SCENE_MODE_OVERRIDES,                        /* byte */
    ANDROID_CONTROL_AE_PRECAPTURE_ID,                            /* int32 */
    ANDROID_CONTROL_AE_STATE,                                    /* byte */
    ANDROID_CONTROL_AF_STATE,                                    /* byte */
    ANDROID_CONTROL_AF_TRIGGER_ID,                               /* int32 */
    ANDROID_CONTROL_AWB_STATE,                                   /* byte */
    ANDROID_CONTROL_END,

    ANDROID_DEMOSAIC_MODE = ANDROID_DEMOSAIC_START, /* byte */
    ANDROID_DEMOSAIC_END,

    ANDROID_EDGE_MODE = ANDROID_EDGE_START, /* byte */
    ANDROID_EDGE_STRENGTH,                  /* byte */
    ANDROID_EDGE_AVAILABLE_EDGE_MODES,      /* byte */
    ANDROID_EDGE_END,

    ANDROID_FLASH_FIRING_POWER = ANDROID_FLASH_START, /* byte */
    ANDROID_FLASH_FIRING_TIME,                        /* int64 */
    ANDROID_FLASH_MODE,                               /* byte */
    ANDROID_FLASH_COLOR_TEMPERATURE,                  /* byte */
    ANDROID_FLASH_MAX_ENERGY,                         /* byte */
    ANDROID_FLASH_STATE,                              /* byte */
    ANDROID_FLASH_END,

    ANDROID_FLASH_INFO_AVAILABLE = ANDROID_FLASH_INFO_START, /* byte */
    ANDROID_FLASH_INFO_CHARGE_DURATION,                      /* int64 */
    ANDROID_FLASH_INFO_END,

    ANDROID_HOT_PIXEL_MODE = ANDROID_HOT_PIXEL_START, /* byte */
    ANDROID_HOT_PIXEL_END,

    ANDROID_JPEG_GPS_COORDINATES = ANDROID_JPEG_START, /* double */
    ANDROID_JPEG_GPS_PROCESSING_METHOD,                /* byte */
    ANDROID_JPEG_GPS_TIMESTAMP,                        /* int64 */
    ANDROID_JPEG_ORIENTATION,                          /* int32 */
    ANDROID_JPEG_QUALITY,                              /* byte */
    ANDROID_JPEG_THUMBNAIL_QUALITY,                    /* byte */
    ANDROID_JPEG_THUMBNAIL_SIZE,                       /* int32 */
    ANDROID_JPEG_AVAILABLE_THUMBNAIL_SIZES,            /* int32 */
    ANDROID_JPEG_MAX_SIZE,                             /* int32 */
    ANDROID_JPEG_SIZE,                                 /* int32 */
    ANDROID_JPEG_END,

    ANDROID_LENS_APERTURE = ANDROID_LENS_START, /* float */
    ANDROID_LENS_FILTER_DENSITY,                /* float */
    ANDROID_LENS_FOCAL_LENGTH,                  /* float */
    ANDROID_LENS_FOCUS_DISTANCE,                /* float */
    ANDROID_LENS_OPTICAL_STABILIZATION_MODE,    /* byte */
    ANDROID_LENS_FACING,                        /* byte */
    ANDROID_LENS_POSE_ROTATION,                 /* float */
    ANDROID_LENS_POSE_TRANSLATION,              /* float */
    ANDROID_LENS_FOCUS_RANGE,                   /* float */
    ANDROID_LENS_STATE,                         /* byte */
    ANDROID_LENS_END,

    ANDROID_LENS_INFO_AVAILABLE_APERTURES = ANDROID_LENS_INFO_START, /* float */
    ANDROID_LENS_INFO_AVAILABLE_FILTER_DENSITIES,                    /* float */
    ANDROID_LENS_INFO_AVAILABLE_FOCAL_LENGTHS,                       /* float */
    ANDROID_LENS_INFO_AVAILABLE_OPTICAL_STABILIZATION,               /* byte */
    ANDROID_LENS_INFO_HYPERFOCAL_DISTANCE,                           /* float */
    ANDROID_LENS_INFO_MINIMUM_FOCUS_DISTANCE,                        /* float */
    ANDROID_LENS_INFO_SHADING_MAP_SIZE,                              /* int32 */
    ANDROID_LENS_INFO_FOCUS_DISTANCE_CALIBRATION,                    /* byte */
    ANDROID_LENS_INFO_END,

    ANDROID_NOISE_REDUCTION_MODE = ANDROID_NOISE_REDUCTION_START, /* byte */
    ANDROID_NOISE_REDUCTION_STRENGTH,                             /* byte */
    ANDROID_NOISE_REDUCTION_AVAILABLE_NOISE_REDUCTION_MODES,      /* byte */
    ANDROID_NOISE_REDUCTION_END,

    ANDROID_QUIRKS_METERING_CROP_REGION = ANDROID_QUIRKS_START, /* byte */
    ANDROID_QUIRKS_END,

    ANDROID_REQUEST_FRAME_COUNT = ANDROID_REQUEST_START, /* int32 */
    ANDROID_REQUEST_ID,                                  /* int32 */
    ANDROID_REQUEST_INPUT_STREAMS,                       /* int32 */
    ANDROID_REQUEST_METADATA_MODE,                       /* byte */
    ANDROID_REQUEST_OUTPUT_STREAMS,                      /* int32 */
    ANDROID_REQUEST_TYPE,                                /* byte */
    ANDROID_REQUEST_MAX_NUM_OUTPUT_STREAMS,              /* int32 */
    ANDROID_REQUEST_MAX_NUM_REPROCESS_STREAMS,           /* int32 */
    ANDROID_REQUEST_MAX_NUM_INPUT_STREAMS,               /* int32 */
    ANDROID_REQUEST_PIPELINE_DEPTH,                      /* byte */
    ANDROID_REQUEST_PIPELINE_MAX_DEPTH,                  /* byte */
    ANDROID_REQUEST_PARTIAL_RESULT_COUNT,                /* int32 */
    ANDROID_REQUEST_AVAILABLE_CAPABILITIES,              /* byte */
    ANDROID_REQUEST_AVAILABLE_REQUEST_KEYS,              /* int32 */
    ANDROID_REQUEST_AVAILABLE_RESULT_KEYS,               /* int32 */
    ANDROID_REQUEST_AVAILABLE_CHARACTERISTICS_KEYS,      /* int32 */
    ANDROID_REQUEST_AVAILABLE_SESSION_KEYS,              /* int32 */
    ANDROID_REQUEST_END,

    ANDROID_SCALER_CROP_REGION = ANDROID_SCALER_START, /* int32 */
    ANDROID_SCALER_AVAILABLE_FORMATS,                  /* int32 */
    ANDROID_SCALER_AVAILABLE_JPEG_MIN_DURATIONS,       /* int64 */
    ANDROID_SCALER_AVAILABLE_JPEG_SIZES,               /* int32 */
    ANDROID_SCALER_AVAILABLE_MAX_DIGITAL_ZOOM,         /* float */
    ANDROID_SCALER_AVAILABLE_PROCESSED_MIN_DURATIONS,  /* int64 */
    ANDROID_SCALER_AVAILABLE_PROCESSED_SIZES,          /* int32 */
    ANDROID_SCALER_AVAILABLE_RAW_MIN_DURATIONS,        /* int64 */
    ANDROID_SCALER_AVAILABLE_RAW_SIZES,                /* int32 */
    ANDROID_SCALER_AVAILABLE_INPUT_OUTPUT_FORMATS_MAP, /* int32 */
    ANDROID_SCALER_AVAILABLE_STREAM_CONFIGURATIONS,    /* int32 */
    ANDROID_SCALER_AVAILABLE_MIN_FRAME_DURATIONS,      /* int64 */
    ANDROID_SCALER_AVAILABLE_STALL_DURATIONS,          /* int64 */
    ANDROID_SCALER_CROPPING_TYPE,                      /* byte */
    ANDROID_SCALER_END,

    ANDROID_SENSOR_EXPOSURE_TIME = ANDROID_SENSOR_START, /* int64 */
    ANDROID_SENSOR_FRAME_DURATION,                       /* int64 */
    ANDROID_SENSOR_SENSITIVITY,                          /* int32 */
    ANDROID_SENSOR_REFERENCE_ILLUMINANT1,                /* byte */
    ANDROID_SENSOR_REFERENCE_ILLUMINANT2,                /* byte */
    ANDROID_SENSOR_CALIBRATION_TRANSFORM1,               /* rational */
    ANDROID_SENSOR_CALIBRATION_TRANSFORM2,               /* rational */
    ANDROID_SENSOR_COLOR_TRANSFORM1,                     /* rational */
    ANDROID_SENSOR_COLOR_TRANSFORM2,                     /* rational */
    ANDROID_SENSOR_FORWARD_MATRIX1,                      /* rational */
    ANDROID_SENSOR_FORWARD_MATRIX2,                      /* rational */
    ANDROID_SENSOR_BASE_GAIN_FACTOR,                     /* rational */
    ANDROID_SENSOR_BLACK_LEVEL_PATTERN,                  /* int32 */
    ANDROID_SENSOR_MAX_ANALOG_SENSITIVITY,               /* int32 */
    ANDROID_SENSOR_ORIENTATION,                          /* int32 */
    ANDROID_SENSOR_PROFILE_HUE_SAT_MAP_DIMENSIONS,       /* int32 */
    ANDROID_SENSOR_TIMESTAMP,                            /* int64 */
    ANDROID_SENSOR_TEMPERATURE,                          /* float */
    ANDROID_SENSOR_NEUTRAL_COLOR_POINT,                  /* rational */
    ANDROID_SENSOR_NOISE_PROFILE,                        /* double */
    ANDROID_SENSOR_PROFILE_HUE_SAT_MAP,                  /* float */
    ANDROID_SENSOR_PROFILE_TONE_CURVE,                   /* float */
    ANDROID_SENSOR_GREEN_SPLIT,                          /* float */
    ANDROID_SENSOR_TEST_PATTERN_DATA,                    /* int32 */
    ANDROID_SENSOR_TEST_PATTERN_MODE,                    /* int32 */
    ANDROID_SENSOR_AVAILABLE_TEST_PATTERN_MODES,         /* int32 */
    ANDROID_SENSOR_ROLLING_SHUTTER_SKEW,                 /* int64 */
    ANDROID_SENSOR_END,

    ANDROID_SENSOR_INFO_ACTIVE_ARRAY_SIZE = ANDROID_SENSOR_INFO_START, /* int32 */
    ANDROID_SENSOR_INFO_SENSITIVITY_RANGE,                             /* int32 */
    ANDROID_SENSOR_INFO_COLOR_FILTER_ARRANGEMENT,                      /* byte */
    ANDROID_SENSOR_INFO_EXPOSURE_TIME_RANGE,                           /* int64 */
    ANDROID_SENSOR_INFO_MAX_FRAME_DURATION,                            /* int64 */
    ANDROID_SENSOR_INFO_PHYSICAL_SIZE,                                 /* float */
    ANDROID_SENSOR_INFO_PIXEL_ARRAY_SIZE,                              /* int32 */
    ANDROID_SENSOR_INFO_WHITE_LEVEL,                                   /* int32 */
    ANDROID_SENSOR_INFO_TIMESTAMP_SOURCE,                              /* byte */
    ANDROID_SENSOR_INFO_LENS_SHADING_APPLIED,                          /* byte */
    ANDROID_SENSOR_INFO_PRE_CORRECTION_ACTIVE_ARRAY_SIZE,              /* int32 */
    ANDROID_SENSOR_INFO_END,

    ANDROID_SHADING_MODE = ANDROID_SHADING_START, /* byte */
    ANDROID_SHADING_STRENGTH,                     /* byte */
    ANDROID_SHADING_AVAILABLE_MODES,              /* byte */
    ANDROID_SHADING_END,

    ANDROID_STATISTICS_FACE_DETECT_MODE = ANDROID_STATISTICS_START, /* byte */
    ANDROID_STATISTICS_HISTOGRAM_MODE,                              /* byte */
    ANDROID_STATISTICS_SHARPNESS_MAP_MODE,                          /* byte */
    ANDROID_STATISTICS_HOT_PIXEL_MAP_MODE,                          /* byte */
    ANDROID_STATISTICS_FACE_IDS,                                    /* int32 */
    ANDROID_STATISTICS_FACE_LANDMARKS,                              /* int32 */
    ANDROID_STATISTICS_FACE_RECTANGLES,                             /* int32 */
    ANDROID_STATISTICS_FACE_SCORES,                                 /* byte */
    ANDROID_STATISTICS_HISTOGRAM,                                   /* int32 */
    ANDROID_STATISTICS_SHARPNESS_MAP,                               /* int32 */
    ANDROID_STATISTICS_LENS_SHADING_CORRECTION_MAP,                 /* byte */
    ANDROID_STATISTICS_LENS_SHADING_MAP,                            /* float */
    ANDROID_STATISTICS_PREDICTED_COLOR_GAINS,                       /* float */
    ANDROID_STATISTICS_PREDICTED_COLOR_TRANSFORM,                   /* rational */
    ANDROID_STATISTICS_SCENE_FLICKER,                               /* byte */
    ANDROID_STATISTICS_HOT_PIXEL_MAP,                               /* int32 */
    ANDROID_STATISTICS_LENS_SHADING_MAP_MODE,                       /* byte */
    ANDROID_STATISTICS_END,

    ANDROID_STATISTICS_INFO_AVAILABLE_FACE_DETECT_MODES = ANDROID_STATISTICS_INFO_START, /* byte */
    ANDROID_STATISTICS_INFO_HISTOGRAM_BUCKET_COUNT,                                      /* int32 */
    ANDROID_STATISTICS_INFO_MAX_FACE_COUNT,                                              /* int32 */
    ANDROID_STATISTICS_INFO_MAX_HISTOGRAM_COUNT,                                         /* int32 */
    ANDROID_STATISTICS_INFO_MAX_SHARPNESS_MAP_VALUE,                                     /* int32 */
    ANDROID_STATISTICS_INFO_SHARPNESS_MAP_SIZE,                                          /* int32 */
    ANDROID_STATISTICS_INFO_AVAILABLE_HOT_PIXEL_MAP_MODES,                               /* byte */
    ANDROID_STATISTICS_INFO_AVAILABLE_LENS_SHADING_MAP_MODES,                            /* byte */
    ANDROID_STATISTICS_INFO_END,

    ANDROID_TONEMAP_CURVE_BLUE = ANDROID_TONEMAP_START, /* float */
    ANDROID_TONEMAP_CURVE_GREEN,                        /* float */
    ANDROID_TONEMAP_CURVE_RED,                          /* float */
    ANDROID_TONEMAP_MODE,                               /* byte */
    ANDROID_TONEMAP_MAX_CURVE_POINTS,                   /* int32 */
    ANDROID_TONEMAP_AVAILABLE_TONE_MAP_MODES,           /* byte */
    ANDROID_TONEMAP_GAMMA,                              /* float */
    ANDROID_TONEMAP_PRESET_CURVE,                       /* byte */
    ANDROID_TONEMAP_END,

    ANDROID_LED_TRANSMIT = ANDROID_LED_START, /* byte */
    ANDROID_LED_AVAILABLE_LEDS,               /* byte */
    ANDROID_LED_END,

    ANDROID_INFO_SUPPORTED_HARDWARE_LEVEL = ANDROID_INFO_START, /* byte */
    ANDROID_INFO_VERSION,                                       /* byte (string) */
    ANDROID_INFO_END,

    ANDROID_BLACK_LEVEL_LOCK = ANDROID_BLACK_LEVEL_START, /* byte */
    ANDROID_BLACK_LEVEL_END,

    ANDROID_SYNC_FRAME_NUMBER = ANDROID_SYNC_START, /* int64 */
    ANDROID_SYNC_MAX_LATENCY,                       /* int32 */
    ANDROID_SYNC_END,

    ANDROID_REPROCESS_EFFECTIVE_EXPOSURE_FACTOR = ANDROID_REPROCESS_START, /* float */
    ANDROID_REPROCESS_MAX_CAPTURE_STALL,                                   /* int32 */
    ANDROID_REPROCESS_END,

    ANDROID_DEPTH_MAX_DEPTH_SAMPLES = ANDROID_DEPTH_START, /* int32 */
    ANDROID_DEPTH_AVAILABLE_DEPTH_STREAM_CONFIGURATIONS,   /* int32 */
    ANDROID_DEPTH_AVAILABLE_DEPTH_MIN_FRAME_DURATIONS,     /* int64 */
    ANDROID_DEPTH_AVAILABLE_DEPTH_STALL_DURATIONS,         /* int64 */
    ANDROID_DEPTH_DEPTH_IS_EXCLUSIVE,                      /* byte */
    ANDROID_DEPTH_END,

    ANDROID_LOGICAL_MULTI_CAMERA_PHYSICAL_IDS = ANDROID_LOGICAL_MULTI_CAMERA_START, /* byte */
    ANDROID_LOGICAL_MULTI_CAMERA_SENSOR_SYNC_TYPE,                                  /* byte */
    ANDROID_LOGICAL_MULTI_CAMERA_END,

    ANDROID_DISTORTION_CORRECTION_MODE = ANDROID_DISTORTION_CORRECTION_START, /* byte */
    ANDROID_DISTORTION_CORRECTION_AVAILABLE_MODES,                            /* byte */
    ANDROID_DISTORTION_CORRECTION_END,

    ANDROID_HEIC_END = ANDROID_HEIC_START,
    ANDROID_HEIC_INFO_END = ANDROID_HEIC_INFO_START,
    ANDROID_AUTOMOTIVE_END = ANDROID_AUTOMOTIVE_START,
    ANDROID_AUTOMOTIVE_LENS_END = ANDROID_AUTOMOTIVE_LENS_START,
    ANDROID_EXTENSION_END = ANDROID_EXTENSION_START,
    ANDROID_JPEGR_END = ANDROID_JPEGR_START,
} camera_metadata_tag_t;

/* Enumerated values of the tags above. */

typedef enum camera_metadata_enum_android_control_ae_mode {
    ANDROID_CONTROL_AE_MODE_OFF,
    ANDROID_CONTROL_AE_MODE_ON,
    ANDROID_CONTROL_AE_MODE_ON_AUTO_FLASH,
    ANDROID_CONTROL_AE_MODE_ON_ALWAYS_FLASH,
    ANDROID_CONTROL_AE_MODE_ON_AUTO_FLASH_REDEYE,
} camera_metadata_enum_android_control_ae_mode_t;

typedef enum camera_metadata_enum_android_control_af_mode {
    ANDROID_CONTROL_AF_MODE_OFF,
    ANDROID_CONTROL_AF_MODE_AUTO,
    ANDROID_CONTROL_AF_MODE_MACRO,
    ANDROID_CONTROL_AF_MODE_CONTINUOUS_VIDEO,
    ANDROID_CONTROL_AF_MODE_CONTINUOUS_PICTURE,
    ANDROID_CONTROL_AF_MODE_EDOF,
} camera_metadata_enum_android_control_af_mode_t;

typedef enum camera_metadata_enum_android_control_awb_mode {
    ANDROID_CONTROL_AWB_MODE_OFF,
    ANDROID_CONTROL_AWB_MODE_AUTO,
    ANDROID_CONTROL_AWB_MODE_INCANDESCENT,
    ANDROID_CONTROL_AWB_MODE_FLUORESCENT,
    ANDROID_CONTROL_AWB_MODE_WARM_FLUORESCENT,
    ANDROID_CONTROL_AWB_MODE_DAYLIGHT,
    ANDROID_CONTROL_AWB_MODE_CLOUDY_DAYLIGHT,
    ANDROID_CONTROL_AWB_MODE_TWILIGHT,
    ANDROID_CONTROL_AWB_MODE_SHADE,
} camera_metadata_enum_android_control_awb_mode_t;

typedef enum camera_metadata_enum_android_control_capture_intent {
    ANDROID_CONTROL_CAPTURE_INTENT_CUSTOM,
    ANDROID_CONTROL_CAPTURE_INTENT_PREVIEW,
    ANDROID_CONTROL_CAPTURE_INTENT_STILL_CAPTURE,
    ANDROID_CONTROL_CAPTURE_INTENT_VIDEO_RECORD,
    ANDROID_CONTROL_CAPTURE_INTENT_VIDEO_SNAPSHOT,
    ANDROID_CONTROL_CAPTURE_INTENT_ZERO_SHUTTER_LAG,
    ANDROID_CONTROL_CAPTURE_INTENT_MANUAL,
    ANDROID_CONTROL_CAPTURE_INTENT_MOTION_TRACKING,
} camera_metadata_enum_android_control_capture_intent_t;

typedef enum camera_metadata_enum_android_control_mode {
    ANDROID_CONTROL_MODE_OFF,
    ANDROID_CONTROL_MODE_AUTO,
    ANDROID_CONTROL_MODE_USE_SCENE_MODE,
    ANDROID_CONTROL_MODE_OFF_KEEP_STATE,
} camera_metadata_enum_android_control_mode_t;

typedef enum camera_metadata_enum_android_flash_mode {
    ANDROID_FLASH_MODE_OFF,
    ANDROID_FLASH_MODE_SINGLE,
    ANDROID_FLASH_MODE_TORCH,
} camera_metadata_enum_android_flash_mode_t;

typedef enum camera_metadata_enum_android_lens_facing {
    ANDROID_LENS_FACING_FRONT,
    ANDROID_LENS_FACING_BACK,
    ANDROID_LENS_FACING_EXTERNAL,
} camera_metadata_enum_android_lens_facing_t;

typedef enum camera_metadata_enum_android_noise_reduction_mode {
    ANDROID_NOISE_REDUCTION_MODE_OFF,
    ANDROID_NOISE_REDUCTION_MODE_FAST,
    ANDROID_NOISE_REDUCTION_MODE_HIGH_QUALITY,
    ANDROID_NOISE_REDUCTION_MODE_MINIMAL,
    ANDROID_NOISE_REDUCTION_MODE_ZERO_SHUTTER_LAG,
} camera_metadata_enum_android_noise_reduction_mode_t;

typedef enum camera_metadata_enum_android_request_available_capabilities {
    ANDROID_REQUEST_AVAILABLE_CAPABILITIES_BACKWARD_COMPATIBLE,
    ANDROID_REQUEST_AVAILABLE_CAPABILITIES_MANUAL_SENSOR,
    ANDROID_REQUEST_AVAILABLE_CAPABILITIES_MANUAL_POST_PROCESSING,
    ANDROID_REQUEST_AVAILABLE_CAPABILITIES_RAW,
    ANDROID_REQUEST_AVAILABLE_CAPABILITIES_PRIVATE_REPROCESSING,
    ANDROID_REQUEST_AVAILABLE_CAPABILITIES_READ_SENSOR_SETTINGS,
    ANDROID_REQUEST_AVAILABLE_CAPABILITIES_BURST_CAPTURE,
    ANDROID_REQUEST_AVAILABLE_CAPABILITIES_YUV_REPROCESSING,
    ANDROID_REQUEST_AVAILABLE_CAPABILITIES_DEPTH_OUTPUT,
} camera_metadata_enum_android_request_available_capabilities_t;

typedef enum camera_metadata_enum_android_scaler_available_stream_configurations {
    ANDROID_SCALER_AVAILABLE_STREAM_CONFIGURATIONS_OUTPUT,
    ANDROID_SCALER_AVAILABLE_STREAM_CONFIGURATIONS_INPUT,
} camera_metadata_enum_android_scaler_available_stream_configurations_t;

typedef enum camera_metadata_enum_android_statistics_face_detect_mode {
    ANDROID_STATISTICS_FACE_DETECT_MODE_OFF,
    ANDROID_STATISTICS_FACE_DETECT_MODE_SIMPLE,
    ANDROID_STATISTICS_FACE_DETECT_MODE_FULL,
} camera_metadata_enum_android_statistics_face_detect_mode_t;

typedef enum camera_metadata_enum_android_statistics_scene_flicker {
    ANDROID_STATISTICS_SCENE_FLICKER_NONE,
    ANDROID_STATISTICS_SCENE_FLICKER_50HZ,
    ANDROID_STATISTICS_SCENE_FLICKER_60HZ,
} camera_metadata_enum_android_statistics_scene_flicker_t;

typedef enum camera_metadata_enum_android_info_supported_hardware_level {
    ANDROID_INFO_SUPPORTED_HARDWARE_LEVEL_LIMITED,
    ANDROID_INFO_SUPPORTED_HARDWARE_LEVEL_FULL,
    ANDROID_INFO_SUPPORTED_HARDWARE_LEVEL_LEGACY,
    ANDROID_INFO_SUPPORTED_HARDWARE_LEVEL_3,
    ANDROID_INFO_SUPPORTED_HARDWARE_LEVEL_EXTERNAL,
} camera_metadata_enum_android_info_supported_hardware_level_t;

#ifdef __cplusplus
}
#endif

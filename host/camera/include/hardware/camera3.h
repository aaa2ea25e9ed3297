/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for <hardware/camera3.h> as this vendor platform ships it (camera device HAL 3.6
 * records with the vendor's extensions).
 *
 * Differences from the AOSP header, both fixed by the platform:
 *  - camera3_stream carries vendor extension fields after the AOSP reserved block (152 bytes).
 *  - camera3_stream_buffer is 40 bytes: a vendor private pointer follows the release fence.
 * Only the records, enums and callback table that HAL-side code exchanges are declared here.
 */
#pragma once

#include <cutils/native_handle.h>
#include <stddef.h>
#include <stdint.h>
#include <system/camera_metadata.h>
#include <system/graphics.h>

#ifdef __cplusplus
extern "C" {
#endif

#define CAMERA_DEVICE_API_VERSION_3_6 0x306

typedef enum camera3_stream_type {
    CAMERA3_STREAM_OUTPUT = 0,
    CAMERA3_STREAM_INPUT = 1,
    CAMERA3_STREAM_BIDIRECTIONAL = 2,
    CAMERA3_NUM_STREAM_TYPES
} camera3_stream_type_t;

typedef enum camera3_stream_rotation {
    CAMERA3_STREAM_ROTATION_0 = 0,
    CAMERA3_STREAM_ROTATION_90 = 1,
    CAMERA3_STREAM_ROTATION_180 = 2,
    CAMERA3_STREAM_ROTATION_270 = 3
} camera3_stream_rotation_t;

typedef enum camera3_stream_configuration_mode {
    CAMERA3_STREAM_CONFIGURATION_NORMAL_MODE = 0,
    CAMERA3_STREAM_CONFIGURATION_CONSTRAINED_HIGH_SPEED_MODE = 1,
    CAMERA3_VENDOR_STREAM_CONFIGURATION_MODE_START = 0x8000
} camera3_stream_configuration_mode_t;

typedef struct camera3_stream {
    int stream_type;
    uint32_t width;
    uint32_t height;
    int format;
    uint32_t usage;
    uint32_t max_buffers;
    void* priv;
    android_dataspace_t data_space;
    int rotation;
    const char* physical_camera_id;
    void* reserved[6];

    /* Vendor extension. */
    int32_t group_id;
    uint32_t sensor_pixel_modes;
    int64_t dynamic_range_profile;
    int32_t color_space;
    uint32_t vendor_reserved0;
    int64_t use_case;
    uint64_t vendor_flags;
    const char* vendor_stream_tag;
    int32_t vendor_stream_hint;
    uint32_t vendor_reserved1;
} camera3_stream_t;

typedef struct camera3_stream_configuration {
    uint32_t num_streams;
    camera3_stream_t** streams;
    uint32_t operation_mode;
    const camera_metadata_t* session_parameters;
} camera3_stream_configuration_t;

typedef enum camera3_buffer_status {
    CAMERA3_BUFFER_STATUS_OK = 0,
    CAMERA3_BUFFER_STATUS_ERROR = 1
} camera3_buffer_status_t;

typedef struct camera3_stream_buffer {
    camera3_stream_t* stream;
    buffer_handle_t* buffer;
    int status;
    int acquire_fence;
    int release_fence;
    uint32_t vendor_reserved;
    void* vendor_priv;
} camera3_stream_buffer_t;

typedef enum camera3_buffer_request_status {
    CAMERA3_BUF_REQ_OK = 0,
    CAMERA3_BUF_REQ_FAILED_PARTIAL = 1,
    CAMERA3_BUF_REQ_FAILED_CONFIGURING = 2,
    CAMERA3_BUF_REQ_FAILED_ILLEGAL_ARGUMENTS = 3,
    CAMERA3_BUF_REQ_FAILED_UNKNOWN = 4,
    CAMERA3_BUF_REQ_NUM_STATUS
} camera3_buffer_request_status_t;

typedef enum camera3_stream_buffer_req_status {
    CAMERA3_PS_BUF_REQ_OK = 0,
    CAMERA3_PS_BUF_REQ_NO_BUFFER_AVAILABLE = 1,
    CAMERA3_PS_BUF_REQ_MAX_BUFFER_EXCEEDED = 2,
    CAMERA3_PS_BUF_REQ_STREAM_DISCONNECTED = 3,
    CAMERA3_PS_BUF_REQ_UNKNOWN_ERROR = 4,
    CAMERA3_PS_BUF_REQ_NUM_STATUS
} camera3_stream_buffer_req_status_t;

typedef struct camera3_buffer_request {
    camera3_stream_t* stream;
    uint32_t num_buffers_requested;
} camera3_buffer_request_t;

typedef struct camera3_stream_buffer_ret {
    camera3_stream_t* stream;
    camera3_stream_buffer_req_status_t status;
    uint32_t num_output_buffers;
    camera3_stream_buffer_t* output_buffers;
} camera3_stream_buffer_ret_t;

typedef enum camera3_request_template {
    CAMERA3_TEMPLATE_PREVIEW = 1,
    CAMERA3_TEMPLATE_STILL_CAPTURE = 2,
    CAMERA3_TEMPLATE_VIDEO_RECORD = 3,
    CAMERA3_TEMPLATE_VIDEO_SNAPSHOT = 4,
    CAMERA3_TEMPLATE_ZERO_SHUTTER_LAG = 5,
    CAMERA3_TEMPLATE_MANUAL = 6,
    CAMERA3_TEMPLATE_COUNT,
    CAMERA3_VENDOR_TEMPLATE_START = 0x40000000
} camera3_request_template_t;

typedef struct camera3_capture_request {
    uint32_t frame_number;
    const camera_metadata_t* settings;
    camera3_stream_buffer_t* input_buffer;
    uint32_t num_output_buffers;
    const camera3_stream_buffer_t* output_buffers;
    uint32_t num_physcam_settings;
    const char** physcam_id;
    const camera_metadata_t** physcam_settings;
} camera3_capture_request_t;

typedef struct camera3_capture_result {
    uint32_t frame_number;
    const camera_metadata_t* result;
    uint32_t num_output_buffers;
    const camera3_stream_buffer_t* output_buffers;
    const camera3_stream_buffer_t* input_buffer;
    uint32_t partial_result;
    uint32_t num_physcam_metadata;
    const char** physcam_ids;
    const camera_metadata_t** physcam_metadata;
} camera3_capture_result_t;

typedef enum camera3_msg_type {
    CAMERA3_MSG_ERROR = 1,
    CAMERA3_MSG_SHUTTER = 2,
    CAMERA3_NUM_MESSAGES
} camera3_msg_type_t;

typedef enum camera3_error_msg_code {
    CAMERA3_MSG_ERROR_DEVICE = 1,
    CAMERA3_MSG_ERROR_REQUEST = 2,
    CAMERA3_MSG_ERROR_RESULT = 3,
    CAMERA3_MSG_ERROR_BUFFER = 4,
    CAMERA3_MSG_NUM_ERRORS
} camera3_error_msg_code_t;

typedef struct camera3_error_msg {
    uint32_t frame_number;
    camera3_stream_t* error_stream;
    int error_code;
} camera3_error_msg_t;

typedef struct camera3_shutter_msg {
    uint32_t frame_number;
    uint64_t timestamp;
} camera3_shutter_msg_t;

typedef struct camera3_notify_msg {
    int type;
    union {
        camera3_error_msg_t error;
        camera3_shutter_msg_t shutter;
        uint8_t generic[32];
    } message;
} camera3_notify_msg_t;

typedef struct camera3_callback_ops {
    void (*process_capture_result)(const struct camera3_callback_ops*,
                                   const camera3_capture_result_t* result);
    void (*notify)(const struct camera3_callback_ops*, const camera3_notify_msg_t* msg);
    camera3_buffer_request_status_t (*request_stream_buffers)(
            const struct camera3_callback_ops*, uint32_t num_buffer_reqs,
            const camera3_buffer_request_t* buffer_reqs, uint32_t* num_returned_buf_reqs,
            camera3_stream_buffer_ret_t* returned_buf_reqs);
    void (*return_stream_buffers)(const struct camera3_callback_ops*, uint32_t num_buffers,
                                  const camera3_stream_buffer_t* const* buffers);
} camera3_callback_ops_t;

#ifdef __cplusplus
}
#define CAMERA3_LAYOUT_ASSERT(expr, what) static_assert(expr, what)
#else
#define CAMERA3_LAYOUT_ASSERT(expr, what) _Static_assert(expr, what)
#endif

#if defined(__LP64__)
CAMERA3_LAYOUT_ASSERT(sizeof(camera3_stream_t) == 152, "camera3_stream size");
CAMERA3_LAYOUT_ASSERT(offsetof(camera3_stream_t, physical_camera_id) == 40, "physical_camera_id");
CAMERA3_LAYOUT_ASSERT(offsetof(camera3_stream_t, dynamic_range_profile) == 104, "ext 104");
CAMERA3_LAYOUT_ASSERT(offsetof(camera3_stream_t, color_space) == 112, "ext 112");
CAMERA3_LAYOUT_ASSERT(offsetof(camera3_stream_t, vendor_stream_tag) == 136, "ext 136");
CAMERA3_LAYOUT_ASSERT(offsetof(camera3_stream_t, vendor_stream_hint) == 144, "ext 144");
CAMERA3_LAYOUT_ASSERT(sizeof(camera3_stream_buffer_t) == 40, "camera3_stream_buffer size");
CAMERA3_LAYOUT_ASSERT(offsetof(camera3_stream_buffer_t, release_fence) == 24, "release_fence");
CAMERA3_LAYOUT_ASSERT(sizeof(camera3_buffer_request_t) == 16, "camera3_buffer_request size");
CAMERA3_LAYOUT_ASSERT(sizeof(camera3_stream_buffer_ret_t) == 24, "camera3_stream_buffer_ret");
CAMERA3_LAYOUT_ASSERT(sizeof(camera3_capture_result_t) == 64, "camera3_capture_result size");
CAMERA3_LAYOUT_ASSERT(sizeof(camera3_notify_msg_t) == 40, "camera3_notify_msg size");
#endif

#undef CAMERA3_LAYOUT_ASSERT

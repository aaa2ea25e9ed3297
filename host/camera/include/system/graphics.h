/*
 * Host stand-in for <system/graphics.h>: the graphics enums and the YCbCr plane layout that the
 * camera HAL headers and the buffer mapper use.
 */
#pragma once

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum android_pixel_format {
    HAL_PIXEL_FORMAT_RGBA_8888 = 1,
    HAL_PIXEL_FORMAT_RGBX_8888 = 2,
    HAL_PIXEL_FORMAT_RGB_888 = 3,
    HAL_PIXEL_FORMAT_RGB_565 = 4,
    HAL_PIXEL_FORMAT_BGRA_8888 = 5,
    HAL_PIXEL_FORMAT_YCBCR_422_SP = 0x10,
    HAL_PIXEL_FORMAT_YCRCB_420_SP = 0x11,
    HAL_PIXEL_FORMAT_YCBCR_422_I = 0x14,
    HAL_PIXEL_FORMAT_RAW16 = 0x20,
    HAL_PIXEL_FORMAT_BLOB = 0x21,
    HAL_PIXEL_FORMAT_IMPLEMENTATION_DEFINED = 0x22,
    HAL_PIXEL_FORMAT_YCBCR_420_888 = 0x23,
    HAL_PIXEL_FORMAT_Y8 = 0x20203859,
    HAL_PIXEL_FORMAT_YV12 = 0x32315659,
} android_pixel_format_t;

typedef enum android_dataspace {
    HAL_DATASPACE_UNKNOWN = 0,
    HAL_DATASPACE_ARBITRARY = 1,
    HAL_DATASPACE_V0_JFIF = 146931712,
    HAL_DATASPACE_DEPTH = 4096,
} android_dataspace_t;

/* Plane layout of a locked YCbCr buffer. */
struct android_ycbcr {
    void* y;
    void* cb;
    void* cr;
    size_t ystride;
    size_t cstride;
    size_t chroma_step;
    uint32_t reserved[8];
};

#ifdef __cplusplus
}
#endif

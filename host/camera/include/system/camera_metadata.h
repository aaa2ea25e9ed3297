/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for <system/camera_metadata.h>: the packed camera metadata buffer of the Android
 * camera stack. Same functions, signatures and binary layout as the platform library; the tag
 * tables cover the tags that this tree uses (see camera_metadata_tags.h).
 */
#pragma once

#include <stddef.h>
#include <stdint.h>
#include <system/camera_metadata_tags.h>

#ifdef __cplusplus
extern "C" {
#endif

#ifndef ANDROID_API
#define ANDROID_API __attribute__((visibility("default")))
#endif

/* Entry payload types. */
enum {
    TYPE_BYTE = 0,
    TYPE_INT32 = 1,
    TYPE_FLOAT = 2,
    TYPE_INT64 = 3,
    TYPE_DOUBLE = 4,
    TYPE_RATIONAL = 5,
    NUM_TYPES
};

typedef struct camera_metadata_rational {
    int32_t numerator;
    int32_t denominator;
} camera_metadata_rational_t;

typedef uint64_t metadata_vendor_id_t;
#define CAMERA_METADATA_INVALID_VENDOR_ID UINT64_MAX

typedef struct camera_metadata_entry {
    size_t index;
    uint32_t tag;
    uint8_t type;
    size_t count;
    union {
        uint8_t* u8;
        int32_t* i32;
        float* f;
        int64_t* i64;
        double* d;
        camera_metadata_rational_t* r;
    } data;
} camera_metadata_entry_t;

typedef struct camera_metadata_ro_entry {
    size_t index;
    uint32_t tag;
    uint8_t type;
    size_t count;
    union {
        const uint8_t* u8;
        const int32_t* i32;
        const float* f;
        const int64_t* i64;
        const double* d;
        const camera_metadata_rational_t* r;
    } data;
} camera_metadata_ro_entry_t;

typedef struct camera_metadata camera_metadata_t;

/* Size in bytes of one element of each type. */
ANDROID_API extern const size_t camera_metadata_type_size[NUM_TYPES];
ANDROID_API extern const char* camera_metadata_type_names[NUM_TYPES];

ANDROID_API camera_metadata_t* allocate_camera_metadata(size_t entry_capacity, size_t data_capacity);
ANDROID_API camera_metadata_t* place_camera_metadata(void* dst, size_t dst_size,
                                                     size_t entry_capacity, size_t data_capacity);
ANDROID_API void free_camera_metadata(camera_metadata_t* metadata);
ANDROID_API size_t calculate_camera_metadata_size(size_t entry_count, size_t data_count);
ANDROID_API size_t get_camera_metadata_size(const camera_metadata_t* metadata);
ANDROID_API size_t get_camera_metadata_compact_size(const camera_metadata_t* metadata);
ANDROID_API size_t get_camera_metadata_entry_count(const camera_metadata_t* metadata);
ANDROID_API size_t get_camera_metadata_entry_capacity(const camera_metadata_t* metadata);
ANDROID_API size_t get_camera_metadata_data_count(const camera_metadata_t* metadata);
ANDROID_API size_t get_camera_metadata_data_capacity(const camera_metadata_t* metadata);
ANDROID_API size_t get_camera_metadata_alignment(void);
ANDROID_API camera_metadata_t* copy_camera_metadata(void* dst, size_t dst_size,
                                                    const camera_metadata_t* src);

#define CAMERA_METADATA_VALIDATION_ERROR 1
#define CAMERA_METADATA_VALIDATION_SHIFTED 2
ANDROID_API int validate_camera_metadata_structure(const camera_metadata_t* metadata,
                                                   const size_t* expected_size);

ANDROID_API int append_camera_metadata(camera_metadata_t* dst, const camera_metadata_t* src);
ANDROID_API camera_metadata_t* clone_camera_metadata(const camera_metadata_t* src);
ANDROID_API camera_metadata_t* allocate_copy_camera_metadata_checked(const camera_metadata_t* src,
                                                                     size_t src_size);

ANDROID_API size_t calculate_camera_metadata_entry_data_size(uint8_t type, size_t data_count);
ANDROID_API int add_camera_metadata_entry(camera_metadata_t* dst, uint32_t tag, const void* data,
                                          size_t data_count);
ANDROID_API int sort_camera_metadata(camera_metadata_t* dst);
ANDROID_API int get_camera_metadata_entry(camera_metadata_t* src, size_t index,
                                          camera_metadata_entry_t* entry);
ANDROID_API int get_camera_metadata_ro_entry(const camera_metadata_t* src, size_t index,
                                             camera_metadata_ro_entry_t* entry);
ANDROID_API int find_camera_metadata_entry(camera_metadata_t* src, uint32_t tag,
                                           camera_metadata_entry_t* entry);
ANDROID_API int find_camera_metadata_ro_entry(const camera_metadata_t* src, uint32_t tag,
                                              camera_metadata_ro_entry_t* entry);
ANDROID_API int delete_camera_metadata_entry(camera_metadata_t* dst, size_t index);
ANDROID_API int update_camera_metadata_entry(camera_metadata_t* dst, size_t index, const void* data,
                                             size_t data_count,
                                             camera_metadata_entry_t* updated_entry);

ANDROID_API const char* get_camera_metadata_section_name(uint32_t tag);
ANDROID_API const char* get_camera_metadata_tag_name(uint32_t tag);
ANDROID_API int get_camera_metadata_tag_type(uint32_t tag);

#ifdef __cplusplus
}
#endif

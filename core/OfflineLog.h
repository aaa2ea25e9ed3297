/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Logging of the library: every line goes to the Android log through __android_log_print, under
 * the tag of the part that writes it.
 *
 * Most lines begin "%d %s" with a line number and a function name. The numbers are written out at
 * each call instead of __LINE__: they are the numbers these lines have always carried, and log
 * triage in the field (scripts and bug templates that match "<line> <function>") depends on them
 * staying the same while the code around them moves.
 *
 * Kept on purpose: the spelling of tags and texts ("Sevice", "alredy", "returnd", "Destory"),
 * which the same filters match.
 */
#pragma once

#include <android/log.h>

#define OFFLINE_LOGV(tag, ...) __android_log_print(ANDROID_LOG_VERBOSE, tag, __VA_ARGS__)
#define OFFLINE_LOGI(tag, ...) __android_log_print(ANDROID_LOG_INFO, tag, __VA_ARGS__)
#define OFFLINE_LOGW(tag, ...) __android_log_print(ANDROID_LOG_WARN, tag, __VA_ARGS__)
#define OFFLINE_LOGE(tag, ...) __android_log_print(ANDROID_LOG_ERROR, tag, __VA_ARGS__)

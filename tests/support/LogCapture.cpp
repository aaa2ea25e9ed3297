/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "LogCapture.h"

#include <android/log.h>
#include <stdarg.h>
#include <stdio.h>

#include <mutex>

namespace offlinecamera::test {

namespace {

// Guards gLines and gPlatformErrors.
std::mutex gLock;
std::vector<LogLine> gLines;
// ERROR lines of everything but the library (the host platform, the reference backend), which
// Clear() keeps: a test takes those it provokes, and every other one is a failure.
std::vector<LogLine> gPlatformErrors;

bool IsLibraryTag(const std::string& tag) {
    static const char* const kLibraryTags[] = {"KivOfflineCameraSevice", "KivOfflineAIDLService",
                                               "KivOfflineAIDLSevice", "KivOfflineAIDLSession",
                                               "HandleImporter"};
    for (const char* libraryTag : kLibraryTags) {
        if (tag == libraryTag) return true;
    }
    return false;
}

void CaptureLogger(const struct __android_logger_data* data, const char* message) {
    LogLine line{data->priority, data->tag != nullptr ? data->tag : "", message};
    std::lock_guard<std::mutex> lock(gLock);
    if (line.priority >= ANDROID_LOG_ERROR && !IsLibraryTag(line.tag)) {
        gPlatformErrors.push_back(line);
    }
    gLines.push_back(std::move(line));
}

}  // namespace

std::string ToString(const LogLine& line) {
    static const char kPriorities[] = "??VDIWEFS";
    char priority = line.priority >= 0 && line.priority <= 8 ? kPriorities[line.priority] : '?';
    return std::string(1, priority) + " " + line.tag + ": " + line.message;
}

void LogCapture::Start() {
    static std::once_flag sInstalled;
    std::call_once(sInstalled, [] {
        __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
        __android_log_set_logger(CaptureLogger);
    });
    Clear();
    TakePlatformErrors();
}

void LogCapture::Clear() {
    std::lock_guard<std::mutex> lock(gLock);
    gLines.clear();
}

std::vector<LogLine> LogCapture::TakePlatformErrors() {
    std::lock_guard<std::mutex> lock(gLock);
    std::vector<LogLine> errors;
    errors.swap(gPlatformErrors);
    return errors;
}

std::vector<std::string> LogCapture::TakePlatformErrorTags() {
    std::vector<std::string> tags;
    for (const LogLine& line : TakePlatformErrors()) tags.push_back(line.tag);
    return tags;
}

std::string LogCapture::Dump(const std::vector<LogLine>& lines) {
    std::string text;
    for (const LogLine& line : lines) {
        text += "  " + ToString(line) + "\n";
    }
    return text;
}

std::vector<LogLine> LogCapture::Lines() {
    std::lock_guard<std::mutex> lock(gLock);
    return gLines;
}

std::vector<LogLine> LogCapture::Lines(const std::string& tag) {
    std::vector<LogLine> lines;
    for (const LogLine& line : Lines()) {
        if (line.tag == tag) lines.push_back(line);
    }
    return lines;
}

size_t LogCapture::Count(const LogLine& wanted) {
    size_t count = 0;
    for (const LogLine& line : Lines()) {
        if (line == wanted) count++;
    }
    return count;
}

std::string LogCapture::Dump() {
    return Dump(Lines());
}

std::string Format(const char* format, ...) {
    va_list args;
    va_start(args, format);
    char buffer[1024];
    vsnprintf(buffer, sizeof(buffer), format, args);
    va_end(args);
    return buffer;
}

}  // namespace offlinecamera::test

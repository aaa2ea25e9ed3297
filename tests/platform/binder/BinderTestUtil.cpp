#include "BinderTestUtil.h"

#include <android/log.h>
#include <hostplatform/BinderTesting.h>
#include <stdarg.h>
#include <stdio.h>

#include <mutex>

namespace binder_test {
namespace {

// Guards gLog and gEvents.
std::mutex gLock;
std::vector<LogLine> gLog;
std::vector<std::string> gEvents;

void captureLog(const struct __android_logger_data* data, const char* message) {
    std::lock_guard<std::mutex> lock(gLock);
    gLog.push_back({data->priority, data->tag != nullptr ? data->tag : "", message});
}

void* onCreate(void* args) {
    static_cast<Lifetime*>(args)->created++;
    return args;
}

void onDestroy(void* userData) {
    static_cast<Lifetime*>(userData)->destroyed++;
}

binder_status_t onTransact(AIBinder*, transaction_code_t, const AParcel*, AParcel*) {
    return STATUS_UNKNOWN_TRANSACTION;
}

void recordEvent(const std::string& event) {
    std::lock_guard<std::mutex> lock(gLock);
    gEvents.push_back(event);
}

}  // namespace

std::ostream& operator<<(std::ostream& os, const LogLine& line) {
    return os << line.priority << " " << line.tag << ": " << line.message;
}

std::vector<LogLine> binderLog() {
    std::lock_guard<std::mutex> lock(gLock);
    std::vector<LogLine> lines;
    for (const LogLine& line : gLog) {
        if (line.tag == "libbinder_ndk") lines.push_back(line);
    }
    return lines;
}

std::string format(const char* fmt, ...) {
    char text[512];
    va_list args;
    va_start(args, fmt);
    vsnprintf(text, sizeof(text), fmt, args);
    va_end(args);
    return text;
}

void* cookie(intptr_t n) {
    return reinterpret_cast<void*>(n);
}

void recordDied(void* cookie) {
    recordEvent("died:" + std::to_string(reinterpret_cast<intptr_t>(cookie)));
}

void recordUnlinked(void* cookie) {
    recordEvent("unlinked:" + std::to_string(reinterpret_cast<intptr_t>(cookie)));
}

std::vector<std::string> events() {
    std::lock_guard<std::mutex> lock(gLock);
    return gEvents;
}

AIBinder_Class* objectClass() {
    static AIBinder_Class* sClass =
            AIBinder_Class_define("host.test.IObject", onCreate, onDestroy, onTransact);
    return sClass;
}

void BinderTest::SetUp() {
    static std::once_flag sInstalled;
    std::call_once(sInstalled, [] { __android_log_set_logger(captureLog); });
    {
        std::lock_guard<std::mutex> lock(gLock);
        gLog.clear();
        gEvents.clear();
    }
    mBinders = ndk::host::liveBinderCount();
    mRecipients = ndk::host::deathRecipientCount();
}

void BinderTest::TearDown() {
    EXPECT_EQ(mBinders, ndk::host::liveBinderCount());
    EXPECT_EQ(mRecipients, ndk::host::deathRecipientCount());
    EXPECT_EQ(mLifetime.created, mLifetime.destroyed);
}

AIBinder* BinderTest::newRemote() {
    AIBinder* binder = AIBinder_new(objectClass(), &mLifetime);
    ndk::host::setRemote(binder, true);
    return binder;
}

}  // namespace binder_test

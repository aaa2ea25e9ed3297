/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Reference offline processing backend: the exported entry point, the context table and its
 * non-session slots, buffer translation, the registry of live objects and the host control API.
 */
#define LOG_TAG "KivReferenceBackend"

#include "ReferenceBackend.h"

#include <log/log.h>
#include <string.h>

#include "BackendMetadata.h"
#include "BackendSession.h"
#include "StreamBufferRecord.h"

namespace kivref {

// ---------------------------------------------------------------------------------------------
// Registry

Registry& Registry::Get() {
    // Never destroyed: slots may still run on session threads while the process exits.
    static Registry* registry = new Registry();
    return *registry;
}

Script Registry::ScriptSnapshot() {
    std::lock_guard<std::mutex> lock(mScriptLock);
    return mScript;
}

bool Registry::IsAbsent(Slot slot) {
    std::lock_guard<std::mutex> lock(mScriptLock);
    return mScript.absent.count(static_cast<uint32_t>(slot)) != 0;
}

bool Registry::IsFailing(Slot slot) {
    std::lock_guard<std::mutex> lock(mScriptLock);
    return mScript.failing.count(static_cast<uint32_t>(slot)) != 0;
}

void Registry::SetAbsent(Slot slot, bool absent) {
    std::lock_guard<std::mutex> lock(mScriptLock);
    if (absent) {
        mScript.absent.insert(static_cast<uint32_t>(slot));
    } else {
        mScript.absent.erase(static_cast<uint32_t>(slot));
    }
}

void Registry::SetFailing(Slot slot, bool fail) {
    std::lock_guard<std::mutex> lock(mScriptLock);
    if (fail) {
        mScript.failing.insert(static_cast<uint32_t>(slot));
    } else {
        mScript.failing.erase(static_cast<uint32_t>(slot));
    }
}

void Registry::SetStaticShape(size_t entries, size_t dataBytes) {
    std::lock_guard<std::mutex> lock(mScriptLock);
    mScript.customStatic = true;
    mScript.staticEntries = entries;
    mScript.staticDataBytes = dataBytes;
}

void Registry::SetFirstFrameNumber(uint32_t frameNumber) {
    std::lock_guard<std::mutex> lock(mScriptLock);
    mScript.firstFrameNumber = frameNumber;
}

bool Registry::AutoDeliver() {
    std::lock_guard<std::mutex> lock(mScriptLock);
    return mAutoDeliver;
}

void Registry::SetAutoDeliver(bool autoDeliver) {
    {
        std::lock_guard<std::mutex> lock(mScriptLock);
        mAutoDeliver = autoDeliver;
    }
    for (const std::shared_ptr<BackendSession>& session : AllSessions()) session->Wake();
}

bool Registry::ResetScript() {
    if (SessionCount() != 0) return false;
    {
        std::lock_guard<std::mutex> lock(mScriptLock);
        mScript = Script();
        mAutoDeliver = true;
    }
    ClearCalls();
    return true;
}

void Registry::Record(CallRecord record) {
    std::lock_guard<std::mutex> lock(mCallLock);
    mCalls.push_back(std::move(record));
}

std::vector<CallRecord> Registry::Calls() {
    std::lock_guard<std::mutex> lock(mCallLock);
    return mCalls;
}

void Registry::ClearCalls() {
    std::lock_guard<std::mutex> lock(mCallLock);
    mCalls.clear();
}

const KivOfflineIntfCbs* Registry::AddContext(std::unique_ptr<Context> context) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    const KivOfflineIntfCbs* table = &context->table;
    mContexts.emplace(table, std::move(context));
    return table;
}

std::shared_ptr<Context> Registry::FindContext(const KivOfflineIntfCbs* table) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    auto it = mContexts.find(table);
    return it == mContexts.end() ? nullptr : it->second;
}

std::shared_ptr<Context> Registry::RemoveContext(const KivOfflineIntfCbs* table) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    auto it = mContexts.find(table);
    if (it == mContexts.end()) return nullptr;
    std::shared_ptr<Context> context = std::move(it->second);
    mContexts.erase(it);
    return context;
}

const KivMetadataOps* Registry::AddMetadataOps(std::unique_ptr<MetadataOpsTable> table) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    const KivMetadataOps* ops = &table->ops;
    mMetadataOps.emplace(ops, std::move(table));
    return ops;
}

bool Registry::FindMetadataOps(const KivMetadataOps* ops, uint32_t* cameraId) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    auto it = mMetadataOps.find(ops);
    if (it == mMetadataOps.end()) return false;
    *cameraId = it->second->cameraId;
    return true;
}

bool Registry::RemoveMetadataOps(const KivMetadataOps* ops, uint32_t* cameraId) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    auto it = mMetadataOps.find(ops);
    if (it == mMetadataOps.end()) return false;
    *cameraId = it->second->cameraId;
    mMetadataOps.erase(it);
    // Metadata made for a camera ends with the camera's last table, except what a queued
    // request still holds (it ends with the request).
    for (const auto& table : mMetadataOps) {
        if (table.second->cameraId == *cameraId) return true;
    }
    for (auto entry = mMetadata.begin(); entry != mMetadata.end();) {
        const std::shared_ptr<BackendMetadata>& metadata = entry->second;
        if (metadata->CameraId() == *cameraId && !metadata->OwnedByContext() && !metadata->Held()) {
            entry = mMetadata.erase(entry);
        } else {
            ++entry;
        }
    }
    return true;
}

const KivOfflineBufferOps* Registry::AddBufferOps(std::unique_ptr<BufferOpsTable> table) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    const KivOfflineBufferOps* ops = &table->ops;
    mBufferOps.emplace(ops, std::move(table));
    return ops;
}

bool Registry::RemoveBufferOps(const KivOfflineBufferOps* ops) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    return mBufferOps.erase(ops) != 0;
}

size_t Registry::RemoveTablesOf(const KivOfflineIntfCbs* context) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    size_t removed = 0;
    for (auto it = mMetadataOps.begin(); it != mMetadataOps.end();) {
        if (it->second->context == context) {
            it = mMetadataOps.erase(it);
            removed++;
        } else {
            ++it;
        }
    }
    for (auto it = mBufferOps.begin(); it != mBufferOps.end();) {
        if (it->second->context == context) {
            it = mBufferOps.erase(it);
            removed++;
        } else {
            ++it;
        }
    }
    return removed;
}

void* Registry::AddMetadata(std::shared_ptr<BackendMetadata> metadata) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    void* handle = metadata.get();
    mMetadata.emplace(handle, std::move(metadata));
    return handle;
}

std::shared_ptr<BackendMetadata> Registry::FindMetadata(const void* handle) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    auto it = mMetadata.find(handle);
    return it == mMetadata.end() ? nullptr : it->second;
}

std::shared_ptr<BackendMetadata> Registry::RemoveMetadata(const void* handle) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    auto it = mMetadata.find(handle);
    if (it == mMetadata.end()) return nullptr;
    std::shared_ptr<BackendMetadata> metadata = std::move(it->second);
    mMetadata.erase(it);
    return metadata;
}

void Registry::AddAndroidMetadata(camera_metadata_t* metadata) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    mAndroidMetadata.insert(metadata);
}

bool Registry::RemoveAndroidMetadata(camera_metadata_t* metadata) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    return mAndroidMetadata.erase(metadata) != 0;
}

uint64_t Registry::NextSessionHandle() {
    std::lock_guard<std::mutex> lock(mObjectLock);
    return mNextSession++;
}

void Registry::AddSession(uint64_t handle, std::shared_ptr<BackendSession> session) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    mSessions.emplace(handle, std::move(session));
}

std::shared_ptr<BackendSession> Registry::FindSession(uint64_t handle) {
    std::lock_guard<std::mutex> lock(mObjectLock);
    auto it = mSessions.find(handle);
    return it == mSessions.end() ? nullptr : it->second;
}

void Registry::RemoveSession(uint64_t handle) {
    std::shared_ptr<BackendSession> session;
    {
        std::lock_guard<std::mutex> lock(mObjectLock);
        auto it = mSessions.find(handle);
        if (it == mSessions.end()) return;
        session = std::move(it->second);
        mSessions.erase(it);
    }
    // The session is destroyed here, outside the lock.
}

std::vector<std::shared_ptr<BackendSession>> Registry::AllSessions() {
    std::lock_guard<std::mutex> lock(mObjectLock);
    std::vector<std::shared_ptr<BackendSession>> sessions;
    for (const auto& entry : mSessions) sessions.push_back(entry.second);
    return sessions;
}

size_t Registry::ContextCount() {
    std::lock_guard<std::mutex> lock(mObjectLock);
    return mContexts.size();
}

size_t Registry::SessionCount() {
    std::lock_guard<std::mutex> lock(mObjectLock);
    return mSessions.size();
}

size_t Registry::MetadataCount() {
    std::lock_guard<std::mutex> lock(mObjectLock);
    return mMetadata.size();
}

size_t Registry::AndroidMetadataCount() {
    std::lock_guard<std::mutex> lock(mObjectLock);
    return mAndroidMetadata.size();
}

size_t Registry::MetadataOpsCount() {
    std::lock_guard<std::mutex> lock(mObjectLock);
    return mMetadataOps.size();
}

size_t Registry::BufferOpsCount() {
    std::lock_guard<std::mutex> lock(mObjectLock);
    return mBufferOps.size();
}

// ---------------------------------------------------------------------------------------------
// Context slots

namespace {

Registry& Reg() {
    return Registry::Get();
}

int32_t CloseContext(const KivOfflineIntfCbs* cbs) {
    CallRecord record;
    record.slot = Slot::CloseContext;
    record.table = cbs;
    int32_t status = 0;
    std::shared_ptr<Context> context = Reg().RemoveContext(cbs);
    if (context == nullptr) {
        ALOGE("%s: %p is not an open context", __func__, cbs);
        status = -1;
    } else {
        size_t tables = Reg().RemoveTablesOf(cbs);
        if (tables != 0) ALOGW("%s: closed %zu tables left open by the caller", __func__, tables);
        FreeStaticMetadata(context->staticHandle);
        ALOGI("%s: context %p closed", __func__, cbs);
        if (Reg().IsFailing(Slot::CloseContext)) status = -1;
    }
    record.status = status;
    Reg().Record(std::move(record));
    return status;
}

KivOfflineStaticInfo GetStaticInfo(const KivOfflineIntfCbs* cbs) {
    CallRecord record;
    record.slot = Slot::GetStaticInfo;
    record.table = cbs;
    KivOfflineStaticInfo info;
    memset(&info, 0, sizeof(info));
    std::shared_ptr<Context> context = Reg().FindContext(cbs);
    if (context == nullptr) {
        ALOGE("%s: %p is not an open context", __func__, cbs);
    } else if (!Reg().IsFailing(Slot::GetStaticInfo)) {
        info.pStaticMetadata = context->staticHandle;
    }
    record.result = info.pStaticMetadata;
    Reg().Record(std::move(record));
    return info;
}

const KivMetadataOps* OpenMetadataOps(const KivOfflineIntfCbs* cbs,
                                      const KivMetadataOpsOpenInfo* info) {
    CallRecord record;
    record.slot = Slot::OpenMetadataOps;
    record.table = cbs;
    const KivMetadataOps* ops = nullptr;
    if (info != nullptr) record.cameraId = info->cameraId;
    if (info == nullptr || Reg().FindContext(cbs) == nullptr || info->reserved0 != 0 ||
        info->reserved1 != 0) {
        ALOGE("%s: bad arguments (context %p, info %p)", __func__, cbs, info);
    } else if (!Reg().IsFailing(Slot::OpenMetadataOps)) {
        auto table = std::make_unique<MetadataOpsTable>();
        table->ops = MakeMetadataOps(Reg().ScriptSnapshot());
        table->cameraId = info->cameraId;
        table->context = cbs;
        ops = Reg().AddMetadataOps(std::move(table));
        ALOGI("%s: camera %u table %p", __func__, info->cameraId, ops);
    }
    record.result = ops;
    Reg().Record(std::move(record));
    return ops;
}

int32_t BufferOpsClose(const KivOfflineBufferOps* ops) {
    CallRecord record;
    record.slot = Slot::BufferOpsClose;
    record.table = ops;
    int32_t status = 0;
    if (!Reg().RemoveBufferOps(ops)) {
        ALOGE("%s: %p is not an open buffer table", __func__, ops);
        status = -1;
    } else if (Reg().IsFailing(Slot::BufferOpsClose)) {
        status = -1;
    }
    record.status = status;
    Reg().Record(std::move(record));
    return status;
}

const KivOfflineBufferOps* GetBufferOps(const KivOfflineIntfCbs* cbs) {
    CallRecord record;
    record.slot = Slot::GetBufferOps;
    record.table = cbs;
    const KivOfflineBufferOps* ops = nullptr;
    if (Reg().FindContext(cbs) == nullptr) {
        ALOGE("%s: %p is not an open context", __func__, cbs);
    } else if (!Reg().IsFailing(Slot::GetBufferOps)) {
        auto table = std::make_unique<BufferOpsTable>();
        table->ops.pfnClose = Reg().IsAbsent(Slot::BufferOpsClose) ? nullptr : BufferOpsClose;
        table->context = cbs;
        ops = Reg().AddBufferOps(std::move(table));
    }
    record.result = ops;
    Reg().Record(std::move(record));
    return ops;
}

int32_t TranslateToKivBuffer(const camera3_stream_buffer_t* halBuffer, KivStreamBuffer* kivBuffer) {
    WaitIfHeld(Slot::TranslateToKivBuffer);
    CallRecord record;
    record.slot = Slot::TranslateToKivBuffer;
    record.pointer = halBuffer;
    record.result = kivBuffer;
    if (halBuffer != nullptr) {
        record.handle = halBuffer->buffer != nullptr ? *halBuffer->buffer : nullptr;
        record.streams.push_back(halBuffer->stream);
        record.ints[0] = halBuffer->status;
        record.ints[1] = halBuffer->acquire_fence;
        record.ints[2] = halBuffer->release_fence;
    }
    int32_t status = 0;
    if (halBuffer == nullptr || kivBuffer == nullptr || Reg().IsFailing(record.slot)) {
        status = -1;
    } else {
        StreamBufferRecord out;
        memset(&out, 0, sizeof(out));
        out.magic = kStreamBufferMagic;
        out.version = kStreamBufferVersion;
        out.stream = halBuffer->stream;
        out.source = halBuffer->buffer;
        out.handle = halBuffer->buffer != nullptr ? *halBuffer->buffer : nullptr;
        out.status = halBuffer->status;
        out.acquireFence = halBuffer->acquire_fence;
        out.releaseFence = halBuffer->release_fence;
        out.vendorReserved = halBuffer->vendor_reserved;
        out.vendorPriv = halBuffer->vendor_priv;
        if (halBuffer->stream != nullptr) {
            out.width = halBuffer->stream->width;
            out.height = halBuffer->stream->height;
            out.format = halBuffer->stream->format;
            out.usage = halBuffer->stream->usage;
            out.streamType = halBuffer->stream->stream_type;
            out.dataSpace = static_cast<uint32_t>(halBuffer->stream->data_space);
        }
        WriteStreamBuffer(out, kivBuffer);
    }
    record.status = status;
    Reg().Record(std::move(record));
    return status;
}

int32_t TranslateFromKivBuffer(const KivStreamBuffer* kivBuffer,
                               camera3_stream_buffer_t* halBuffer) {
    CallRecord record;
    record.slot = Slot::TranslateFromKivBuffer;
    record.pointer = kivBuffer;
    record.result = halBuffer;
    int32_t status = 0;
    StreamBufferRecord in;
    if (kivBuffer == nullptr || halBuffer == nullptr || Reg().IsFailing(record.slot)) {
        status = -1;
    } else if (!ReadStreamBuffer(*kivBuffer, &in)) {
        ALOGE("%s: %p was not filled by this backend", __func__, kivBuffer);
        status = -1;
    } else {
        // The handle is given back by address inside the caller's KivStreamBuffer, which
        // therefore has to outlive the camera3 buffer.
        const uint8_t* base = reinterpret_cast<const uint8_t*>(kivBuffer);
        halBuffer->stream = in.stream;
        halBuffer->buffer = const_cast<buffer_handle_t*>(reinterpret_cast<const buffer_handle_t*>(
                base + offsetof(StreamBufferRecord, handle)));
        halBuffer->status = in.status;
        halBuffer->acquire_fence = in.acquireFence;
        halBuffer->release_fence = in.releaseFence;
        halBuffer->vendor_reserved = in.vendorReserved;
        halBuffer->vendor_priv = in.vendorPriv;
    }
    record.status = status;
    Reg().Record(std::move(record));
    return status;
}

KivOfflineIntfCbs MakeContextTable(const Script& script) {
    auto present = [&script](Slot slot) {
        return script.absent.count(static_cast<uint32_t>(slot)) == 0;
    };
    KivOfflineIntfCbs table = {};
    if (present(Slot::CloseContext)) table.pfnCloseContext = CloseContext;
    if (present(Slot::GetStaticInfo)) table.pfnGetStaticInfo = GetStaticInfo;
    if (present(Slot::OpenSession)) table.pfnOpenSession = SlotOpenSession;
    if (present(Slot::CloseSession)) table.pfnCloseSession = SlotCloseSession;
    if (present(Slot::ConfigureSession)) table.pfnConfigureSession = SlotConfigureSession;
    if (present(Slot::ExecuteRequest)) table.pfnExecuteRequest = SlotExecuteRequest;
    if (present(Slot::Flush)) table.pfnFlush = SlotFlush;
    if (present(Slot::Dump)) table.pfnDump = SlotDump;
    if (present(Slot::OpenMetadataOps)) table.pfnOpenMetadataOps = OpenMetadataOps;
    if (present(Slot::GetBufferOps)) table.pfnGetBufferOps = GetBufferOps;
    if (present(Slot::TranslateToKivBuffer)) table.pfnTranslateToKivBuffer = TranslateToKivBuffer;
    if (present(Slot::TranslateFromKivBuffer)) {
        table.pfnTranslateFromKivBuffer = TranslateFromKivBuffer;
    }
    return table;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Control API

namespace {

// One call held on entry, for tests that line up a call with others.
struct CallHold {
    std::mutex lock;
    std::condition_variable changed;
    Slot slot = Slot::OpenContext;
    bool armed = false;    // the next call of slot is held
    bool waiting = false;  // a call is held now
    bool released = false;
};

CallHold& Hold() {
    static CallHold* sHold = new CallHold;
    return *sHold;
}

}  // namespace

void WaitIfHeld(Slot slot) {
    CallHold& hold = Hold();
    std::unique_lock<std::mutex> lock(hold.lock);
    if (!hold.armed || hold.slot != slot) return;
    hold.armed = false;
    hold.waiting = true;
    hold.changed.notify_all();
    hold.changed.wait(lock, [&hold] { return hold.released; });
    hold.waiting = false;
    hold.changed.notify_all();
}

void HoldNextCall(Slot slot) {
    std::lock_guard<std::mutex> lock(Hold().lock);
    Hold().slot = slot;
    Hold().armed = true;
    Hold().released = false;
}

void WaitForHeldCall() {
    std::unique_lock<std::mutex> lock(Hold().lock);
    Hold().changed.wait(lock, [] { return Hold().waiting; });
}

void ReleaseHeldCall() {
    std::unique_lock<std::mutex> lock(Hold().lock);
    Hold().released = true;
    Hold().changed.notify_all();
    Hold().changed.wait(lock, [] { return !Hold().waiting; });
}

void SetSlotAbsent(Slot slot, bool absent) {
    Reg().SetAbsent(slot, absent);
}

void SetSlotFailure(Slot slot, bool fail) {
    Reg().SetFailing(slot, fail);
}

void SetStaticMetadata(size_t entries, size_t dataBytes) {
    Reg().SetStaticShape(entries, dataBytes);
}

size_t DefaultStaticEntryCount() {
    return DefaultStaticEntries();
}

void SetFirstFrameNumber(uint32_t frameNumber) {
    Reg().SetFirstFrameNumber(frameNumber);
}

void SetAutoDeliver(bool autoDeliver) {
    Reg().SetAutoDeliver(autoDeliver);
}

bool Reset() {
    return Reg().ResetScript();
}

std::vector<CallRecord> Calls() {
    return Reg().Calls();
}

void ClearCalls() {
    Reg().ClearCalls();
}

size_t LiveContexts() {
    return Reg().ContextCount();
}

size_t LiveSessions() {
    return Reg().SessionCount();
}

size_t LiveKivMetadata() {
    return Reg().MetadataCount();
}

size_t LiveAndroidMetadata() {
    return Reg().AndroidMetadataCount();
}

size_t OpenMetadataOps() {
    return Reg().MetadataOpsCount();
}

size_t LiveBufferOps() {
    return Reg().BufferOpsCount();
}

int32_t PendingRequests(uint64_t session) {
    std::shared_ptr<BackendSession> found = Reg().FindSession(session);
    return found == nullptr ? -1 : found->Pending();
}

int32_t DeliverResults(uint64_t session, const std::vector<KivOfflineCaptureResult>& results) {
    std::shared_ptr<BackendSession> found = Reg().FindSession(session);
    return found == nullptr ? -1 : found->DeliverResults(results);
}

int32_t DeliverMessages(uint64_t session, const std::vector<camera3_notify_msg_t>& messages) {
    std::shared_ptr<BackendSession> found = Reg().FindSession(session);
    return found == nullptr ? -1 : found->DeliverMessages(messages);
}

bool WaitIdle(uint64_t session) {
    std::shared_ptr<BackendSession> found = Reg().FindSession(session);
    if (found == nullptr) return false;
    found->WaitIdle();
    return true;
}

}  // namespace kivref

// ---------------------------------------------------------------------------------------------
// Entry point

extern "C" const KivOfflineIntfCbs* KivOfflineOpenContext(const char* pName, uint32_t version) {
    using namespace kivref;
    CallRecord record;
    record.slot = Slot::OpenContext;
    record.ints[0] = version;
    record.text = pName != nullptr ? pName : "";
    const KivOfflineIntfCbs* table = nullptr;
    if (pName == nullptr || strcmp(pName, KIV_OFFLINE_CONTEXT_NAME) != 0 ||
        version != KIV_OFFLINE_CONTEXT_VERSION) {
        ALOGE("%s: refused \"%s\" version 0x%x", __func__, record.text.c_str(), version);
    } else {
        Script script = Reg().ScriptSnapshot();
        auto context = std::make_unique<Context>();
        context->table = MakeContextTable(script);
        context->name = pName;
        context->version = version;
        context->staticHandle = MakeStaticMetadata(script);
        table = Reg().AddContext(std::move(context));
        ALOGI("%s: context %p (\"%s\", version 0x%x)", __func__, table, pName, version);
    }
    record.result = table;
    Reg().Record(std::move(record));
    return table;
}

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Internal state of the reference offline backend: the script that tests set, the record of
 * calls, and the registry of every object the backend has handed out. Table slots look their
 * objects up here, so a table, handle or session that was closed (or never made by this
 * backend) is refused instead of being used.
 */
#pragma once

#include <hostplatform/KivReferenceBackend.h>
#include <stddef.h>
#include <stdint.h>

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <unordered_map>

#include "KivOfflineInterface.h"

namespace kivref {

class BackendMetadata;
class BackendSession;

// One open context. The main table is the first member, so the table pointer handed out is the
// context's own address.
struct Context {
    KivOfflineIntfCbs table;
    std::string name;
    uint32_t version = 0;
    // Static characteristics; owned by the context and freed when it closes.
    void* staticHandle = nullptr;
};

// One metadata operations table, opened for one camera.
struct MetadataOpsTable {
    KivMetadataOps ops;
    uint32_t cameraId = KIV_CAMERA_ID_ANY;
    const KivOfflineIntfCbs* context = nullptr;
};

struct BufferOpsTable {
    KivOfflineBufferOps ops;
    const KivOfflineIntfCbs* context = nullptr;
};

// What tests have scripted, as read by the slots.
struct Script {
    // Slots as their numeric value (kept off the exported Slot type's templates).
    std::set<uint32_t> absent;
    std::set<uint32_t> failing;
    bool customStatic = false;
    size_t staticEntries = 0;
    size_t staticDataBytes = 0;
    uint32_t firstFrameNumber = 1000;
};

class Registry {
  public:
    static Registry& Get();

    // Script.
    Script ScriptSnapshot();
    bool IsAbsent(Slot slot);
    bool IsFailing(Slot slot);
    void SetAbsent(Slot slot, bool absent);
    void SetFailing(Slot slot, bool fail);
    void SetStaticShape(size_t entries, size_t dataBytes);
    void SetFirstFrameNumber(uint32_t frameNumber);
    bool AutoDeliver();
    void SetAutoDeliver(bool autoDeliver);
    bool ResetScript();

    // Call records.
    void Record(CallRecord record);
    std::vector<CallRecord> Calls();
    void ClearCalls();

    // Contexts and tables.
    const KivOfflineIntfCbs* AddContext(std::unique_ptr<Context> context);
    std::shared_ptr<Context> FindContext(const KivOfflineIntfCbs* table);
    std::shared_ptr<Context> RemoveContext(const KivOfflineIntfCbs* table);
    const KivMetadataOps* AddMetadataOps(std::unique_ptr<MetadataOpsTable> table);
    // The table's camera id, or false when the table is not open.
    bool FindMetadataOps(const KivMetadataOps* ops, uint32_t* cameraId);
    bool RemoveMetadataOps(const KivMetadataOps* ops, uint32_t* cameraId);
    const KivOfflineBufferOps* AddBufferOps(std::unique_ptr<BufferOpsTable> table);
    bool RemoveBufferOps(const KivOfflineBufferOps* ops);
    // Closes the tables that a closing context still has open; returns how many.
    size_t RemoveTablesOf(const KivOfflineIntfCbs* context);

    // Metadata handles and the platform metadata lent out from them.
    void* AddMetadata(std::shared_ptr<BackendMetadata> metadata);
    std::shared_ptr<BackendMetadata> FindMetadata(const void* handle);
    std::shared_ptr<BackendMetadata> RemoveMetadata(const void* handle);
    void AddAndroidMetadata(camera_metadata_t* metadata);
    bool RemoveAndroidMetadata(camera_metadata_t* metadata);

    // Sessions.
    uint64_t NextSessionHandle();
    void AddSession(uint64_t handle, std::shared_ptr<BackendSession> session);
    std::shared_ptr<BackendSession> FindSession(uint64_t handle);
    void RemoveSession(uint64_t handle);
    std::vector<std::shared_ptr<BackendSession>> AllSessions();

    size_t ContextCount();
    size_t SessionCount();
    size_t MetadataCount();
    size_t AndroidMetadataCount();
    size_t MetadataOpsCount();
    size_t BufferOpsCount();

  private:
    Registry() = default;

    // Guards mScript and mAutoDeliver.
    std::mutex mScriptLock;
    Script mScript;
    bool mAutoDeliver = true;

    // Guards mCalls.
    std::mutex mCallLock;
    std::vector<CallRecord> mCalls;

    // Guards every map and set below and mNextSession.
    std::mutex mObjectLock;
    std::unordered_map<const KivOfflineIntfCbs*, std::shared_ptr<Context>> mContexts;
    std::unordered_map<const KivMetadataOps*, std::unique_ptr<MetadataOpsTable>> mMetadataOps;
    std::unordered_map<const KivOfflineBufferOps*, std::unique_ptr<BufferOpsTable>> mBufferOps;
    std::unordered_map<const void*, std::shared_ptr<BackendMetadata>> mMetadata;
    std::set<camera_metadata_t*> mAndroidMetadata;
    std::map<uint64_t, std::shared_ptr<BackendSession>> mSessions;
    uint64_t mNextSession = 1;
};

// Slot entry points, grouped by the file that implements them.

// BackendMetadata.cpp
KivMetadataOps MakeMetadataOps(const Script& script);
void* MakeStaticMetadata(const Script& script);
void FreeStaticMetadata(void* handle);
size_t DefaultStaticEntries();

// BackendSession.cpp
uint64_t SlotOpenSession(const KivOfflineIntfCbs* cbs, const KivOfflineSessionInfo* info);
int32_t SlotCloseSession(uint64_t session);
// Waits while a test holds the next call of this slot (HoldNextCall).
void WaitIfHeld(Slot slot);
int32_t SlotConfigureSession(uint64_t session, KivOfflineSessionConfigInfo* info);
int32_t SlotExecuteRequest(uint64_t session, KivOfflineCaptureRequestInfo* request);
int32_t SlotFlush(uint64_t session, KivOfflineFlushInfo* info);
int32_t SlotDump(uint64_t session);

}  // namespace kivref

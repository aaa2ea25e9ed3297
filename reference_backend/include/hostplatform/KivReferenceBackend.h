/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host-only control of the reference offline backend (com.oru.kiv.offline.so).
 *
 * Tests link the backend directly and use these functions to script it (absent or failing
 * slots, the size of the static characteristics, automatic delivery), to read back every call
 * that reached its tables, to count the objects it holds, and to make it deliver arbitrary
 * results and notify messages from a session's own thread. The offline camera library never
 * includes this header: it reaches the backend only through KivOfflineInterface.h.
 *
 * Scripting takes effect for objects made after the call: absent slots for contexts and
 * metadata operation tables opened later, static characteristics for contexts opened later,
 * the first frame number for sessions opened later. Failures and automatic delivery are read at
 * every call.
 */
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "KivOfflineInterface.h"

#define KIVREF_EXPORT __attribute__((visibility("default")))

// The backend's entry point, for tests that link the backend instead of loading it.
extern "C" KIVREF_EXPORT const KivOfflineIntfCbs* KivOfflineOpenContext(const char* pName,
                                                                        uint32_t version);

namespace kivref {

// Every slot that the backend fills. Main table slots carry their position in
// KivOfflineIntfCbs, metadata table slots 0x100 plus their position in KivMetadataOps, the
// buffer operations slot 0x200 plus its position. OpenContext is the exported entry point; it
// is recorded but cannot be made absent or failing.
enum class Slot : uint32_t {
    CloseContext = 3,
    GetStaticInfo = 4,
    OpenSession = 5,
    CloseSession = 6,
    ConfigureSession = 7,
    ExecuteRequest = 8,
    Flush = 9,
    Dump = 10,
    OpenMetadataOps = 11,
    GetBufferOps = 12,
    TranslateToKivBuffer = 13,
    TranslateFromKivBuffer = 14,

    MetaClose = 0x100,
    CreateKivMetadata = 0x102,
    DestroyKivMetadata = 0x104,
    CreateByAndroidMetadata = 0x106,
    CreateAndroidMetadata = 0x107,
    ReleaseAndroidMetadata = 0x108,

    BufferOpsClose = 0x200,

    OpenContext = 0x300,
};

// One call that reached the backend, recorded when the slot returns (ExecuteRequest, Flush and
// CloseSession: before the session reports anything of the call). Fields a slot does not use
// keep their defaults; `status` is what a status slot returned. Per slot:
//   OpenContext             ints[0] version, text name, result the main table (null: refused)
//   CloseContext            table
//   GetStaticInfo           table, result pStaticMetadata
//   OpenSession             table, session the new handle, pointer pCallbacks, text name
//   CloseSession, Dump      session
//   ConfigureSession        session, text pCameraId, cameraId its decimal value,
//                           ints numStreams and operationMode, pointer pSessionParameters,
//                           streams the stream pointers and streamRecords their contents
//   ExecuteRequest          session, pointer the request record, ints numInputs, the number
//                           of output buffers and the frame number given to the request
//   Flush                   session, ints[0] flushFlags
//   OpenMetadataOps         table, cameraId, result the metadata table
//   GetBufferOps            table, result the buffer table
//   TranslateToKivBuffer    pointer the camera3 buffer, result the KivStreamBuffer, handle
//                           the buffer's handle value, streams its stream pointer, ints its
//                           status, acquire fence and release fence
//   TranslateFromKivBuffer  pointer the KivStreamBuffer, result the camera3 buffer
//   MetaClose               table, cameraId
//   CreateKivMetadata       table, cameraId, ints[0] count, pointer pTags, handle = result
//   DestroyKivMetadata      handle, cameraId of the handle's table
//   CreateByAndroidMetadata table, cameraId, ints the three integers, pointer the metadata,
//                           handle = result
//   CreateAndroidMetadata   table, cameraId, ints the three integers, handle, pointer pOut,
//                           result the camera_metadata
//   ReleaseAndroidMetadata  table, cameraId, pointer the camera_metadata
//   BufferOpsClose          table
// `cameraId` is KIV_CAMERA_ID_ANY where it does not apply.
struct CallRecord {
    Slot slot = Slot::OpenContext;
    const void* table = nullptr;
    uint64_t session = 0;
    uint32_t cameraId = KIV_CAMERA_ID_ANY;
    int64_t ints[3] = {0, 0, 0};
    const void* pointer = nullptr;
    const void* handle = nullptr;
    const void* result = nullptr;
    int32_t status = 0;
    std::string text;
    std::vector<const camera3_stream_t*> streams;
    std::vector<camera3_stream_t> streamRecords;
};

// Scripting. Absent slots are null in tables opened after the call. A failing slot returns -1
// (status slots), null (pointer slots, and the static info's handle) or 0 (OpenSession); failing
// close and release slots still close or release what they are given and only report -1.
KIVREF_EXPORT void SetSlotAbsent(Slot slot, bool absent);
KIVREF_EXPORT void SetSlotFailure(Slot slot, bool fail);

// Makes the static characteristics of contexts opened later exactly `entries` entries, one of
// them (when dataBytes > 0) a byte array of dataBytes rounded up to a multiple of 8 bytes, so
// that the metadata's data count is that many bytes; the other entries are inline values.
// The default characteristics are 8 entries with 24 data bytes.
KIVREF_EXPORT void SetStaticMetadata(size_t entries, size_t dataBytes);
// Entry count of the default static characteristics.
KIVREF_EXPORT size_t DefaultStaticEntryCount();

// Frame number of the first request of sessions opened later (default 1000).
KIVREF_EXPORT void SetFirstFrameNumber(uint32_t frameNumber);

// When off, session workers hold executed requests instead of delivering them; flushing still
// returns them and closing a session releases them without callbacks. Turning it on delivers
// what was held. Default on.
KIVREF_EXPORT void SetAutoDeliver(bool autoDeliver);

// Restores the default script and clears the call records. Refused (false) while a session is
// live.
KIVREF_EXPORT bool Reset();

// Call records in call order.
KIVREF_EXPORT std::vector<CallRecord> Calls();
KIVREF_EXPORT void ClearCalls();

// Objects the backend holds now.
KIVREF_EXPORT size_t LiveContexts();
KIVREF_EXPORT size_t LiveSessions();
// Closing the last metadata table of a camera ends the metadata made for that camera, except
// what a queued request holds.
KIVREF_EXPORT size_t LiveKivMetadata();  // includes each open context's static handle
KIVREF_EXPORT size_t LiveAndroidMetadata();
KIVREF_EXPORT size_t OpenMetadataOps();
KIVREF_EXPORT size_t LiveBufferOps();

// Number of requests a session holds (queued, not yet delivered); -1 for an unknown session.
KIVREF_EXPORT int32_t PendingRequests(uint64_t session);

// Calls the session's pfnProcessResult / pfnProcessMessage with these records from the session's
// own thread and returns what the callback returned; -1 for an unknown or closing session. The
// records must not reference memory that the backend owns.
KIVREF_EXPORT int32_t DeliverResults(uint64_t session,
                                     const std::vector<KivOfflineCaptureResult>& results);
KIVREF_EXPORT int32_t DeliverMessages(uint64_t session,
                                      const std::vector<camera3_notify_msg_t>& messages);

// The next call of `slot` (ExecuteRequest or TranslateToKivBuffer) waits on entry, before it
// reads its arguments, until ReleaseHeldCall(); calls after it go on. WaitForHeldCall waits until
// that call is held; ReleaseHeldCall lets it go on and waits until it has.
KIVREF_EXPORT void HoldNextCall(Slot slot);
KIVREF_EXPORT void WaitForHeldCall();
KIVREF_EXPORT void ReleaseHeldCall();

// Waits until the session's worker has delivered everything it may deliver now (with automatic
// delivery off, held requests do not count). False for an unknown session.
KIVREF_EXPORT bool WaitIdle(uint64_t session);

}  // namespace kivref

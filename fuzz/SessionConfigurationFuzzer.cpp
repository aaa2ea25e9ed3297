/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Session configurations as a remote client sends them: arbitrary stream lists (ids repeated or
 * negative, any type, size, format, usage, data space, rotation and text ids), camera id texts
 * that are numbers or not, any operation mode and backend operation mode, and session
 * parameters that are valid, empty, truncated or garbage. A session is configured several times,
 * flushed or dumped in between, and ended; then every descriptor, vendor allocation, backend
 * metadata, metadata operation table, backend session and binder must be given back.
 *
 * The encoding is in SessionPrograms.h.
 */
#include <hostplatform/KivReferenceBackend.h>
#include <stddef.h>
#include <stdint.h>

#include <vector>

#include "FuzzSupport.h"
#include "SessionFuzzSupport.h"
#include "SessionPrograms.h"

namespace {

using namespace ::offlinecamera::fuzz;
using ::aidl::android::hardware::camera::device::StreamConfigurationMode;
using ::aidl::android::hardware::camera::device::StreamRotation;
using ::aidl::android::hardware::camera::device::StreamType;
using ::aidl::android::hardware::camera::metadata::RequestAvailableDynamicRangeProfilesMap;
using ::aidl::android::hardware::camera::metadata::ScalerAvailableStreamUseCases;
using ::aidl::android::hardware::graphics::common::BufferUsage;
using ::aidl::android::hardware::graphics::common::Dataspace;
using ::aidl::android::hardware::graphics::common::PixelFormat;

Stream ReadStream(ByteReader& input) {
    Stream stream;
    const size_t idChoice = input.Below(8);
    stream.id = idChoice < 6 ? static_cast<int32_t>(idChoice) : idChoice == 6 ? -1 : input.I32();
    stream.streamType = static_cast<StreamType>(static_cast<int8_t>(input.Next()));
    stream.width = static_cast<int32_t>(input.Bits(2));
    stream.height = static_cast<int32_t>(input.Bits(2));
    stream.format = static_cast<PixelFormat>(input.I32());
    stream.usage = static_cast<BufferUsage>(input.I64());
    stream.dataSpace = static_cast<Dataspace>(input.I32());
    stream.rotation = static_cast<StreamRotation>(static_cast<int8_t>(input.Next()));
    stream.physicalCameraId = input.Text(8);
    stream.bufferSize = input.I32();
    stream.groupId = static_cast<int8_t>(input.Next());
    stream.dynamicRangeProfile = static_cast<RequestAvailableDynamicRangeProfilesMap>(input.I64());
    stream.useCase = static_cast<ScalerAvailableStreamUseCases>(input.Next());
    stream.colorSpace = static_cast<int8_t>(input.Next());
    return stream;
}

OfflineSessionConfiguration ReadConfiguration(ByteReader& input) {
    OfflineSessionConfiguration config;
    config.cameraId = input.Text(12);
    config.streams.resize(input.Below(6));
    for (Stream& stream : config.streams) stream = ReadStream(input);
    config.operationMode = static_cast<StreamConfigurationMode>(input.I32());
    config.backendOperationMode = input.Next() < 0xc0 ? 0 : input.I32();
    config.sessionParams.metadata = ReadMetadataBytes(input);
    return config;
}

void Run(const uint8_t* data, size_t size) {
    ByteReader input(data, size);
    ClientSession client("fuzz-configuration");
    for (size_t i = 0; i < kMaxConfigurations && !input.Done(); i++) {
        client.Configure(ReadConfiguration(input));
        switch (static_cast<AfterOp>(input.Below(static_cast<size_t>(AfterOp::kCount)))) {
            case AfterOp::kNothing:
            case AfterOp::kCount:
                break;
            case AfterOp::kFlush:
                Check(client.Session().flushOfflineSession(OfflineFlushInfo()).isOk());
                break;
            case AfterOp::kDump:
                Check(client.Session().dumpOfflineSession().isOk());
                break;
        }
    }
    // Nothing was requested: nothing can have come back.
    Check(client.Callback().mResults == 0);
    client.End(true);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    SetUpSessionProcess();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto start = ::offlinecamera::test::ProcessCounts::Take();
    Run(data, size);
    kivref::ClearCalls();
    CheckGivenBack(start);
    return 0;
}

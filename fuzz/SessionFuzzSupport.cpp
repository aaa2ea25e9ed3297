/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "SessionFuzzSupport.h"

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <android/binder_manager.h>
#include <hostplatform/BinderTesting.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <hostplatform/VornTesting.h>
#include <stdio.h>
#include <stdlib.h>
#include <system/graphics.h>

#include "OfflineCameraAIDLService.h"
#include "OfflineCameraService.h"
#include "SessionPrograms.h"

namespace offlinecamera::fuzz {

using ::aidl::android::hardware::camera::device::StreamConfigurationMode;
using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;

namespace {

// Set once by SetUpSessionProcess().
std::shared_ptr<IOfflineCameraService> gService;

template <typename Interface>
std::shared_ptr<Interface> AsRemote(const ::ndk::SpAIBinder& binder) {
    ::ndk::host::setRemote(binder.get(), true);
    return Interface::fromBinder(binder);
}

}  // namespace

void SetUpSessionProcess() {
    SilenceLog();
    Vorn::Host::SetVendorRoot(FUZZ_SESSION_VENDOR_ROOT);
    RegisterOfflineCameraAIDLService();
    Check(OfflineCameraService::GetInstance()->GetOfflineStaticCaps() != nullptr);
    const std::string instance = std::string(IOfflineCameraService::descriptor) + "/default";
    gService = AsRemote<IOfflineCameraService>(
            ::ndk::SpAIBinder(AServiceManager_waitForService(instance.c_str())));
    Check(gService != nullptr);
}

void CheckGivenBack(const ::offlinecamera::test::ProcessCounts& start) {
    const ::offlinecamera::test::ProcessCounts end =
            ::offlinecamera::test::ProcessCounts::Settled(start, 1000);
    if (end == start) return;
    fprintf(stderr, "start: %s\nend:   %s\n", start.ToString().c_str(), end.ToString().c_str());
    Check(false);
}

ClientSession::ClientSession(const std::string& name) {
    mCallback = ::ndk::SharedRefBase::make<CountingSessionCallback>();
    mCallbackBinder = mCallback->asBinder();
    ::ndk::host::setRemote(mCallbackBinder.get(), true);
    std::shared_ptr<IOfflineCameraSession> local;
    Check(gService->openOfflineSeesion(name, mCallback, &local).isOk() && local != nullptr);
    mSession = AsRemote<IOfflineCameraSession>(local->asBinder());
    mHandle = LastBackendSession();
    Check(mHandle != 0);
}

void ClientSession::Configure(const OfflineSessionConfiguration& config) {
    Check(mSession->configureOfflineSession(config).isOk());
}

int32_t ClientSession::Process(const std::vector<OfflineCaptureRequest>& requests) {
    int32_t frameNumber = -1;
    Check(mSession->processOfflineRequest(requests, &frameNumber).isOk());
    return frameNumber;
}

void ClientSession::ClientDies() {
    ::ndk::host::kill(mCallbackBinder.get());
}

void ClientSession::End(bool close) {
    if (close) Check(mSession->closeOfflineSession().isOk());
    mSession.reset();
    // A delivery under way holds the session until it ends, on the backend's thread.
    Check(::offlinecamera::test::WaitUntil([] { return kivref::LiveSessions() == 0; }));
}

MetadataOpsHold::MetadataOpsHold(std::vector<uint32_t> cameraIds)
    : mCameraIds(std::move(cameraIds)) {
    for (uint32_t cameraId : mCameraIds) OfflineCameraService::GetInstance()->InitMetaOps(cameraId);
}

MetadataOpsHold::~MetadataOpsHold() {
    for (uint32_t cameraId : mCameraIds) {
        OfflineCameraService::GetInstance()->DeInitMetaOps(cameraId);
    }
}

NativeHandle MakeHandle(HandleKind kind) {
    NativeHandle aidl;
    if (kind == HandleKind::kEmpty) return aidl;
    if (kind == HandleKind::kIntsOnly) {
        aidl.ints = {::android::hostgralloc::kHandleMagic, kWidth, kHeight, HAL_PIXEL_FORMAT_Y8};
        return aidl;
    }
    aidl = std::move(ClientBuffer(0, 0, kWidth, kHeight, HAL_PIXEL_FORMAT_Y8).buffer);
    Check(!aidl.fds.empty());
    if (kind == HandleKind::kForeign) aidl.ints[0] = 0;
    return aidl;
}

StreamBuffer MakeBuffer(int32_t streamId, int64_t bufferId, HandleKind kind, BufferStatus status) {
    StreamBuffer buffer;
    buffer.streamId = streamId;
    buffer.bufferId = bufferId;
    buffer.buffer = MakeHandle(kind);
    buffer.status = status;
    return buffer;
}

OfflineSessionConfiguration StandardConfiguration() {
    OfflineSessionConfiguration config;
    config.cameraId = "0";
    config.streams = {
            OfflineStream(kInputStream, StreamType::INPUT, kWidth, kHeight, PixelFormat::Y8),
            OfflineStream(kOutputStream, StreamType::OUTPUT, kWidth, kHeight, PixelFormat::Y8),
            OfflineStream(kSecondOutputStream, StreamType::OUTPUT, kWidth, kHeight,
                          PixelFormat::Y8)};
    config.operationMode = StreamConfigurationMode::NORMAL_MODE;
    return config;
}

std::vector<uint8_t> SettingsBytes() {
    return CaptureSettings(8000000, 200);
}

std::vector<uint8_t> ReadMetadataBytes(ByteReader& input) {
    switch (static_cast<SettingsChoice>(input.Below(static_cast<size_t>(SettingsChoice::kCount)))) {
        case SettingsChoice::kEmpty:
        case SettingsChoice::kCount:
            return {};
        case SettingsChoice::kValid:
            return SettingsBytes();
        case SettingsChoice::kGarbage:
            return input.Bytes(32);
        case SettingsChoice::kTruncated: {
            std::vector<uint8_t> bytes = SettingsBytes();
            bytes.resize(bytes.size() - 1 - input.Below(bytes.size()));
            return bytes;
        }
    }
    return {};
}

}  // namespace offlinecamera::fuzz

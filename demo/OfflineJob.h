/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The host demo's main act: a vendor client runs a multi-frame noise reduction job through an
 * offline session of the published service.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <stddef.h>
#include <stdint.h>

#include <memory>
#include <string>
#include <vector>

namespace demo {

struct OfflineJobReport {
    // Per request, in sending order.
    std::vector<int32_t> clientFrameNumbers;
    std::vector<int32_t> assignedFrameNumbers;  // what processOfflineRequest answered
    // In arrival order.
    std::vector<int32_t> resultFrameNumbers;
    std::vector<int32_t> shutterFrameNumbers;
    size_t inputBuffersSent = 0;
    size_t outputBuffersSent = 0;
    size_t outputBuffersBack = 0;  // with the right stream id, buffer id and status OK
    // Service imports held after the last result arrived, before the session closed.
    size_t importsAfterResults = 0;
    size_t importsBefore = 0;
    bool exposureEchoed = false;  // every result carries its request's exposure time
    double bestInputPsnr = 0;     // the best single noisy frame against the clean scene
    std::vector<double> fusedPsnr;
    std::string noisyPng;
    std::string fusedPng;
    std::string failure;  // empty when every step worked
};

// Opens a session on `service`, configures one Y8 input stream and one output stream, sends
// requests of noisy frames, collects their results and closes the session. Writes a noisy
// input and the first fused output as PNG files below `outputDir`.
OfflineJobReport RunOfflineJob(
        const std::shared_ptr<
                ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService>& service,
        const std::string& outputDir);

}  // namespace demo

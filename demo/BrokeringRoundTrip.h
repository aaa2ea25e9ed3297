/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * The host demo's second act: one capture's worth of buffer brokering. A vendor client registers
 * as a buffer consumer and lends the camera HAL buffers, which the HAL draws into and hands back
 * with a result; then the client's process dies.
 */
#pragma once

#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>

#include <memory>

#include "OfflineCameraService.h"

namespace demo {

// Plays the round trip and prints its summary line; false when a step failed.
bool PlayBrokeringRoundTrip(
        OfflineCameraService* core,
        const std::shared_ptr<
                ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService>& service);

}  // namespace demo

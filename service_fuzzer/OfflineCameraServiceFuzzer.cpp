/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Service fuzzer of IOfflineCameraService: fuzzService sends random parcels to every transaction
 * of the service and to the binders that it hands back (sessions).
 */
#include <fuzzbinder/libbinder_ndk_driver.h>
#include <fuzzer/FuzzedDataProvider.h>

#include <memory>

#include "OfflineCameraAIDLService.h"

using ::aidl::vendor::oru::hardware::camera::offlinecamera::implementation::OfflineCameraAIDLService;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // One service object for the process, as the camera HAL publishes one: the core that it
    // registers consumers with lives as long as the process.
    static const std::shared_ptr<OfflineCameraAIDLService> service =
            ::ndk::SharedRefBase::make<OfflineCameraAIDLService>();
    ::android::fuzzService(service->asBinder().get(), FuzzedDataProvider(data, size));
    return 0;
}

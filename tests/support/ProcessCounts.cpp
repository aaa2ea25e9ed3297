/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

#include "ProcessCounts.h"

#include <hostplatform/BinderTesting.h>
#include <hostplatform/CameraMetadataTesting.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <hostplatform/VornTesting.h>

namespace offlinecamera::test {

ResourceCounts ResourceCounts::Take() {
    ResourceCounts counts;
    counts.openFds = CountOpenFds();
    counts.liveImports = android::hostgralloc::liveImportCount();
    counts.vornAllocations = Vorn::Host::LiveAllocations();
    counts.kivMetadata = kivref::LiveKivMetadata();
    counts.androidMetadata = kivref::LiveAndroidMetadata();
    counts.metadataOps = kivref::OpenMetadataOps();
    counts.cameraMetadata = android::hostmetadata::liveCount();
    return counts;
}

bool ResourceCounts::operator==(const ResourceCounts& o) const {
    return openFds == o.openFds && liveImports == o.liveImports &&
           vornAllocations == o.vornAllocations && kivMetadata == o.kivMetadata &&
           androidMetadata == o.androidMetadata && metadataOps == o.metadataOps &&
           cameraMetadata == o.cameraMetadata;
}

std::string ResourceCounts::ToString() const {
    return "fds=" + std::to_string(openFds) + " imports=" + std::to_string(liveImports) +
           " vorn=" + std::to_string(vornAllocations) + " kivMeta=" + std::to_string(kivMetadata) +
           " androidMeta=" + std::to_string(androidMetadata) +
           " metaOps=" + std::to_string(metadataOps) +
           " cameraMeta=" + std::to_string(cameraMetadata);
}

ProcessCounts ProcessCounts::Take() {
    ProcessCounts counts;
    counts.resources = ResourceCounts::Take();
    counts.sessions = kivref::LiveSessions();
    counts.binders = ::ndk::host::liveBinderCount();
    counts.recipients = ::ndk::host::deathRecipientCount();
    return counts;
}

bool ProcessCounts::operator==(const ProcessCounts& o) const {
    return resources == o.resources && sessions == o.sessions && binders == o.binders &&
           recipients == o.recipients;
}

std::string ProcessCounts::ToString() const {
    return resources.ToString() + " sessions=" + std::to_string(sessions) +
           " binders=" + std::to_string(binders) + " recipients=" + std::to_string(recipients);
}

}  // namespace offlinecamera::test

#include "ResourceBalance.h"

#include <dirent.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <hostplatform/VornTesting.h>
#include <stdio.h>

#include "LogCapture.h"

namespace offlinecamera::test {

size_t CountOpenFds() {
    size_t count = 0;
    DIR* dir = opendir("/proc/self/fd");
    if (dir == nullptr) return 0;
    while (struct dirent* entry = readdir(dir)) {
        if (entry->d_name[0] != '.') count++;
    }
    closedir(dir);
    return count - 1;  // the directory's own descriptor
}

ResourceCounts ResourceCounts::Take() {
    ResourceCounts counts;
    counts.openFds = CountOpenFds();
    counts.liveImports = android::hostgralloc::liveImportCount();
    counts.vornAllocations = Vorn::Host::LiveAllocations();
    counts.kivMetadata = kivref::LiveKivMetadata();
    counts.androidMetadata = kivref::LiveAndroidMetadata();
    counts.metadataOps = kivref::OpenMetadataOps();
    return counts;
}

bool ResourceCounts::operator==(const ResourceCounts& o) const {
    return openFds == o.openFds && liveImports == o.liveImports &&
           vornAllocations == o.vornAllocations && kivMetadata == o.kivMetadata &&
           androidMetadata == o.androidMetadata && metadataOps == o.metadataOps;
}

std::string ResourceCounts::ToString() const {
    return "fds=" + std::to_string(openFds) + " imports=" + std::to_string(liveImports) +
           " vorn=" + std::to_string(vornAllocations) + " kivMeta=" + std::to_string(kivMetadata) +
           " androidMeta=" + std::to_string(androidMetadata) +
           " metaOps=" + std::to_string(metadataOps);
}

void BalancedTest::SetUp() {
    LogCapture::Start();
    mStart = ResourceCounts::Take();
}

void BalancedTest::TearDown() {
    if (!mKeepResources) {
        ResourceCounts end = ResourceCounts::Take();
        EXPECT_TRUE(end == mStart)
                << "before: " << mStart.ToString() << "\nafter:  " << end.ToString();
    }
    if (HasFailure()) {
        fprintf(stderr, "captured log:\n%s", LogCapture::Dump().c_str());
    }
}

}  // namespace offlinecamera::test

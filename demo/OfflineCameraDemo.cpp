/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host demo: plays the camera HAL process that loads the offline camera library, and vendor
 * clients of the published service. The main act is an offline multi-frame noise reduction job;
 * a short second act brokers buffers between a consumer client and the HAL. At the end every
 * descriptor, imported buffer, vendor allocation and backend metadata object must be back where
 * it was before the acts.
 *
 * Usage: offline_camera_demo [library] [output-dir]
 */
#include <android/log.h>
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <hostplatform/GrallocTesting.h>
#include <hostplatform/KivReferenceBackend.h>
#include <hostplatform/VornTesting.h>
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "BrokeringRoundTrip.h"
#include "ClientSide.h"
#include "OfflineCameraService.h"
#include "OfflineJob.h"

namespace {

using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;

void PrintStaticCaps(const camera_metadata_t* caps) {
    if (caps == nullptr) {
        printf("  static metadata: none (is the backend installed?)\n");
        return;
    }
    size_t count = get_camera_metadata_entry_count(caps);
    printf("  static metadata: %zu entries, %zu bytes:", count, get_camera_metadata_size(caps));
    for (size_t i = 0; i < count; i++) {
        camera_metadata_ro_entry_t entry;
        if (get_camera_metadata_ro_entry(caps, i, &entry) != 0) continue;
        const char* name = get_camera_metadata_tag_name(entry.tag);
        printf(" %s", name != nullptr ? name : "?");
    }
    printf("\n");
}

// What must come back once every session is closed and every client is gone.
struct Holdings {
    size_t fds = 0;
    size_t imports = 0;
    size_t vornAllocations = 0;
    size_t kivMetadata = 0;
    size_t androidMetadata = 0;
    size_t metadataOps = 0;

    static size_t OpenFds() {
        size_t count = 0;
        DIR* dir = opendir("/proc/self/fd");
        if (dir == nullptr) return 0;
        while (struct dirent* entry = readdir(dir)) count += entry->d_name[0] != '.';
        closedir(dir);
        return count - 1;  // the directory's own descriptor
    }

    static Holdings Now() {
        return {OpenFds(),
                android::hostgralloc::liveImportCount(),
                Vorn::Host::LiveAllocations(),
                kivref::LiveKivMetadata(),
                kivref::LiveAndroidMetadata(),
                kivref::OpenMetadataOps()};
    }

    // Prints each count before and after; true when all are back.
    static bool Compare(const Holdings& before, const Holdings& after) {
        const struct {
            const char* name;
            size_t before;
            size_t after;
        } rows[] = {{"descriptors", before.fds, after.fds},
                    {"imported buffers", before.imports, after.imports},
                    {"Vorn allocations", before.vornAllocations, after.vornAllocations},
                    {"backend metadata", before.kivMetadata, after.kivMetadata},
                    {"lent camera metadata", before.androidMetadata, after.androidMetadata},
                    {"metadata operations", before.metadataOps, after.metadataOps}};
        bool balanced = true;
        printf("  resources before -> after:");
        for (const auto& row : rows) {
            printf("%s %s %zu -> %zu%s", &row == rows ? "" : ",", row.name, row.before, row.after,
                   row.before == row.after ? "" : " (NOT BACK)");
            balanced = balanced && row.before == row.after;
        }
        printf("\n");
        return balanced;
    }
};

// Creates the directory and its parents.
bool MakeDirectories(const std::string& path) {
    for (size_t slash = path.find('/', 1);; slash = path.find('/', slash + 1)) {
        const std::string prefix = path.substr(0, slash);
        if (!prefix.empty() && mkdir(prefix.c_str(), 0755) != 0 && errno != EEXIST) return false;
        if (slash == std::string::npos) return true;
    }
}

std::string Join(const std::vector<int32_t>& numbers) {
    std::string text;
    for (int32_t number : numbers) text += (text.empty() ? "" : " ") + std::to_string(number);
    return text.empty() ? "none" : text;
}

// Prints the offline job's figures; true when it did what it should.
bool Summarise(const demo::OfflineJobReport& job) {
    printf("  requests sent: %zu, each of %zu noisy frames and 1 output buffer\n",
           job.clientFrameNumbers.size(),
           job.clientFrameNumbers.empty() ? 0
                                          : job.inputBuffersSent / job.clientFrameNumbers.size());
    printf("  frame numbers: client %s; processOfflineRequest answered %s; results %s; "
           "shutters %s\n",
           Join(job.clientFrameNumbers).c_str(), Join(job.assignedFrameNumbers).c_str(),
           Join(job.resultFrameNumbers).c_str(), Join(job.shutterFrameNumbers).c_str());
    printf("  buffers: %zu of %zu output buffers came back by id with status OK; the %zu input "
           "buffers are not reported to the client, the service freed them (%zu imported after "
           "the last result, %zu before)\n",
           job.outputBuffersBack, job.outputBuffersSent, job.inputBuffersSent,
           job.importsAfterResults, job.importsBefore);
    double worstFused = INFINITY;
    printf("  quality: best single noisy frame %.2f dB PSNR; fused outputs", job.bestInputPsnr);
    for (double psnr : job.fusedPsnr) {
        printf(" %.2f", psnr);
        worstFused = std::min(worstFused, psnr);
    }
    printf(" dB\n  images: %s\n          %s\n", job.noisyPng.c_str(), job.fusedPng.c_str());

    bool ok = job.failure.empty();
    if (!ok) printf("  FAILED: %s\n", job.failure.c_str());
    const auto check = [&ok](bool good, const char* what) {
        if (!good) printf("  FAILED: %s\n", what);
        ok = ok && good;
    };
    check(job.resultFrameNumbers == job.assignedFrameNumbers &&
                  job.shutterFrameNumbers == job.assignedFrameNumbers,
          "the results and shutters do not carry the frame numbers processOfflineRequest gave");
    check(job.outputBuffersBack == job.outputBuffersSent, "output buffers missing");
    check(job.importsAfterResults == job.importsBefore, "the service still holds buffers");
    check(job.exposureEchoed, "the results do not carry their requests' exposure times");
    check(!job.fusedPsnr.empty() && worstFused > job.bestInputPsnr,
          "the fused outputs are not better than the best noisy frame");
    return ok;
}

}  // namespace

int main(int argc, char** argv) {
    setvbuf(stdout, nullptr, _IOLBF, 0);
    // Show every priority, as logcat would with log.tag set to VERBOSE.
    __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
    const char* library = argc > 1 ? argv[1] : "vendor.oru.hardware.camera.offlinecamera-impl.so";
    const std::string outputDir = argc > 2 ? argv[2] : DEMO_OUTPUT_DIR;
    if (!MakeDirectories(outputDir)) {
        fprintf(stderr, "cannot create %s: %s\n", outputDir.c_str(), strerror(errno));
        return 1;
    }

    printf("== camera HAL process: loading %s\n", library);
    void* handle = dlopen(library, RTLD_NOW | RTLD_GLOBAL);
    if (handle == nullptr) {
        fprintf(stderr, "cannot load the library: %s\n", dlerror());
        return 1;
    }
    auto registerService =
            reinterpret_cast<void (*)()>(dlsym(handle, "RegisterOfflineCameraAIDLService"));
    if (registerService == nullptr) {
        fprintf(stderr, "RegisterOfflineCameraAIDLService is not exported\n");
        return 1;
    }
    registerService();

    printf("== camera HAL process: binding the offline backend\n");
    OfflineCameraService* core = OfflineCameraService::GetInstance();
    PrintStaticCaps(core->GetOfflineStaticCaps());

    printf("== vendor client: looking up %s/default\n", IOfflineCameraService::descriptor);
    std::shared_ptr<IOfflineCameraService> service = offlinecamera::clientside::ConnectToService();
    int32_t version = 0;
    std::string hash;
    if (service == nullptr || !service->getInterfaceVersion(&version).isOk() ||
        !service->getInterfaceHash(&hash).isOk()) {
        fprintf(stderr, "the service is not published or does not answer\n");
        return 1;
    }
    printf("  interface version %d, hash %s\n", version, hash.c_str());

    const Holdings before = Holdings::Now();
    demo::OfflineJobReport job = demo::RunOfflineJob(service, outputDir);
    printf("== offline job summary\n");
    const bool jobOk = Summarise(job);
    const bool jobBalanced = Holdings::Compare(before, Holdings::Now());

    const bool brokeringOk = demo::PlayBrokeringRoundTrip(core, service);
    service = nullptr;
    printf("== at the end\n");
    const bool balanced = Holdings::Compare(before, Holdings::Now());

    const bool ok = jobOk && jobBalanced && brokeringOk && balanced;
    printf("== %s\n", ok ? "done" : "FAILED");
    return ok ? 0 : 1;
}

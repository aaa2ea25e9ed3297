/*
 * Host demo: plays the camera HAL process that loads the offline camera library, and a vendor
 * client that finds the published service.
 */
#include <aidl/vendor/oru/hardware/camera/offlinecamera/IOfflineCameraService.h>
#include <android/binder_manager.h>
#include <android/log.h>
#include <dlfcn.h>
#include <stdio.h>

#include <memory>
#include <string>

#include "OfflineCameraService.h"

using ::aidl::vendor::oru::hardware::camera::offlinecamera::IOfflineCameraService;

namespace {

void PrintStaticCaps(const camera_metadata_t* caps) {
    if (caps == nullptr) {
        printf("  static metadata: none (is the backend installed?)\n");
        return;
    }
    size_t count = get_camera_metadata_entry_count(caps);
    printf("  static metadata: %zu entries, %zu bytes\n", count, get_camera_metadata_size(caps));
    for (size_t i = 0; i < count; i++) {
        camera_metadata_ro_entry_t entry;
        if (get_camera_metadata_ro_entry(caps, i, &entry) != 0) continue;
        const char* section = get_camera_metadata_section_name(entry.tag);
        const char* name = get_camera_metadata_tag_name(entry.tag);
        printf("    %s.%s (%zu values)\n", section ? section : "?", name ? name : "?", entry.count);
    }
}

}  // namespace

int main(int argc, char** argv) {
    setvbuf(stdout, nullptr, _IOLBF, 0);
    // Show every priority, as logcat would with log.tag set to VERBOSE.
    __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
    const char* library = argc > 1 ? argv[1] : "vendor.oru.hardware.camera.offlinecamera-impl.so";

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
    fflush(stderr);

    printf("== camera HAL process: binding the offline backend\n");
    OfflineCameraService* core = OfflineCameraService::GetInstance();
    fflush(stderr);
    PrintStaticCaps(core->GetOfflineStaticCaps());

    const std::string instance = std::string(IOfflineCameraService::descriptor) + "/default";
    printf("== vendor client: looking up %s\n", instance.c_str());
    ::ndk::SpAIBinder binder(AServiceManager_waitForService(instance.c_str()));
    std::shared_ptr<IOfflineCameraService> service = IOfflineCameraService::fromBinder(binder);
    if (service == nullptr) {
        fprintf(stderr, "the service is not published\n");
        return 1;
    }
    int32_t version = 0;
    std::string hash;
    if (!service->getInterfaceVersion(&version).isOk() || !service->getInterfaceHash(&hash).isOk()) {
        fprintf(stderr, "the service does not answer\n");
        return 1;
    }
    printf("  published: %s\n  interface version %d, hash %s\n", instance.c_str(), version,
           hash.c_str());

    printf("== camera HAL process: a second registration only logs\n");
    fflush(stdout);
    registerService();
    fflush(stderr);
    printf("== done\n");
    return 0;
}

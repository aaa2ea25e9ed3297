/*
 * Writes the seed corpora of the fuzz targets into the folder given on the command line, one
 * sub-folder per target. Seeds are made with the platform's own metadata functions so that they
 * follow the buffer format of the build they are used with.
 */
#include <stdint.h>
#include <stdio.h>
#include <sys/stat.h>
#include <system/camera_metadata.h>
#include <system/camera_metadata_tags.h>

#include <string>
#include <vector>

namespace {

bool WriteFile(const std::string& path, const void* data, size_t size) {
    FILE* file = fopen(path.c_str(), "wb");
    if (file == nullptr) return false;
    const bool ok = fwrite(data, 1, size, file) == size;
    return fclose(file) == 0 && ok;
}

bool WriteMetadata(const std::string& path, const camera_metadata_t* metadata) {
    return WriteFile(path, metadata, get_camera_metadata_size(metadata));
}

bool MetadataSeeds(const std::string& dir) {
    bool ok = true;
    camera_metadata_t* empty = allocate_camera_metadata(0, 0);
    ok &= WriteMetadata(dir + "/empty", empty);
    free_camera_metadata(empty);

    camera_metadata_t* settings = allocate_camera_metadata(8, 128);
    const uint8_t mode = ANDROID_CONTROL_MODE_AUTO;
    const int32_t sensitivity = 400;
    const int64_t exposure = 33'000'000;
    const float gains[4] = {1.5f, 1.0f, 1.0f, 2.0f};
    const int32_t region[5] = {0, 0, 640, 480, 1};
    ok &= add_camera_metadata_entry(settings, ANDROID_CONTROL_MODE, &mode, 1) == 0;
    ok &= add_camera_metadata_entry(settings, ANDROID_SENSOR_SENSITIVITY, &sensitivity, 1) == 0;
    ok &= add_camera_metadata_entry(settings, ANDROID_SENSOR_EXPOSURE_TIME, &exposure, 1) == 0;
    ok &= add_camera_metadata_entry(settings, ANDROID_COLOR_CORRECTION_GAINS, gains, 4) == 0;
    ok &= add_camera_metadata_entry(settings, ANDROID_CONTROL_AE_REGIONS, region, 5) == 0;
    ok &= WriteMetadata(dir + "/settings", settings);
    sort_camera_metadata(settings);
    ok &= WriteMetadata(dir + "/settings-sorted", settings);
    free_camera_metadata(settings);
    return ok;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: %s <corpus-root>\n", argv[0]);
        return 2;
    }
    const std::string root = argv[1];
    mkdir(root.c_str(), 0755);
    const std::string metadataDir = root + "/camera_metadata";
    mkdir(metadataDir.c_str(), 0755);
    if (!MetadataSeeds(metadataDir)) {
        fprintf(stderr, "could not write the camera metadata seeds\n");
        return 1;
    }
    return 0;
}

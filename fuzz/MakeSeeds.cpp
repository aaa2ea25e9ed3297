/*
 * Writes the seed corpora of the fuzz targets into the folder given on the command line, one
 * sub-folder per target. Metadata seeds are made with the platform's own metadata functions so
 * that they follow the buffer format of the build they are used with; registration seeds are
 * programs in the encoding of RegistrationProgram.h.
 */
#include <stdint.h>
#include <stdio.h>
#include <sys/stat.h>
#include <system/camera_metadata.h>
#include <system/camera_metadata_tags.h>

#include <string>
#include <vector>

#include "RegistrationProgram.h"

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

using namespace ::offlinecamera::fuzz;

// Index of a client id in kClientIds.
constexpr uint8_t kId7 = 8;
constexpr uint8_t kIdMinusOne = 1;

uint8_t ReplyByte(Reply reply) {
    return static_cast<uint8_t>(reply);
}

bool RegistrationSeeds(const std::string& dir) {
    bool ok = true;
    // One round trip: register, two streams of two buffers, results with and without metadata.
    const std::vector<uint8_t> roundTrip = {
            kRegister,   kId7,    0,    kProducer, kId7,    1,    kRequest,
            kId7,        2,       2,    0,         2,       1,    ReplyByte(Reply::kLend),
            0,           kResult, kId7, 0x06,      kResult, kId7, 0x12,
            kUnregister, kId7};
    ok &= WriteFile(dir + "/round-trip", roundTrip.data(), roundTrip.size());

    // The client dies with buffers lent; the HAL's result then finds no consumer.
    const std::vector<uint8_t> death = {kRegister,
                                        kIdMinusOne,
                                        1,
                                        kRequest,
                                        kIdMinusOne,
                                        1,
                                        3,
                                        1,
                                        0,
                                        0,
                                        ReplyByte(Reply::kLend),
                                        0,
                                        kKill,
                                        1,
                                        kResult,
                                        kIdMinusOne,
                                        0x01};
    ok &= WriteFile(dir + "/death-with-buffers", death.data(), death.size());

    // Eleven clients: the eleventh is refused until one leaves; one registers without a death
    // link.
    std::vector<uint8_t> eleven;
    for (uint8_t i = 0; i < 11; i++) {
        if (i == 3) eleven.insert(eleven.end(), {kFailLink, 0});
        eleven.insert(eleven.end(), {kRegister, i, static_cast<uint8_t>(0x10 | i)});
    }
    eleven.insert(eleven.end(), {kRegister, 11, 11, kUnregister, 0, kRegister, 11, 11});
    ok &= WriteFile(dir + "/eleven-clients", eleven.data(), eleven.size());

    // Every kind of client reply, each followed by a result that names a buffer never lent.
    std::vector<uint8_t> replies = {kRegister, 2, 2};
    for (uint8_t reply = 0; reply < static_cast<uint8_t>(Reply::kCount); reply++) {
        replies.insert(replies.end(), {kRequest, 2, 2, 2, 1, 1, 3, reply, 1, kResult, 2, 0x0b, 1});
    }
    ok &= WriteFile(dir + "/replies", replies.data(), replies.size());
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
    const std::string registrationDir = root + "/registration";
    mkdir(registrationDir.c_str(), 0755);
    if (!RegistrationSeeds(registrationDir)) {
        fprintf(stderr, "could not write the registration seeds\n");
        return 1;
    }
    return 0;
}

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Writes the seed corpora of the fuzz targets into the folder given on the command line, one
 * sub-folder per target. Metadata seeds are made with the platform's own metadata functions so
 * that they follow the buffer format of the build they are used with; registration seeds are
 * programs in the encoding of RegistrationProgram.h, session seeds inputs in the encodings of
 * SessionPrograms.h.
 */
#include <stdint.h>
#include <stdio.h>
#include <sys/stat.h>
#include <system/camera_metadata.h>
#include <system/camera_metadata_tags.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "RegistrationProgram.h"
#include "SessionPrograms.h"

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
    // One round trip: register, two streams of two buffers, results with and without metadata,
    // each giving back two buffers in another order.
    const std::vector<uint8_t> roundTrip = {
            kRegister, kId7,    0,    kProducer, kId7,        1,   kRequest,
            kId7,      2,       2,    0,         2,           1,   ReplyByte(Reply::kLend),
            0,         kResult, kId7, 0x06,      1,           0,   kResult,
            kId7,      0x12,    0,    0,         kUnregister, kId7};
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
                                        0x01,
                                        0};
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
        replies.insert(replies.end(),
                       {kRequest, 2, 2, 2, 1, 1, 3, reply, 1, kResult, 2, 0x0b, 2, 0, 1, 1});
    }
    ok &= WriteFile(dir + "/replies", replies.data(), replies.size());
    return ok;
}

/* An input being written: bytes and little-endian values. */
class Seed {
  public:
    Seed& Bytes(std::initializer_list<uint8_t> bytes) {
        mBytes.insert(mBytes.end(), bytes);
        return *this;
    }
    Seed& Value(uint64_t value, int bytes) {
        for (int i = 0; i < bytes; i++) mBytes.push_back(static_cast<uint8_t>(value >> (8 * i)));
        return *this;
    }
    Seed& Text(const std::string& text) {
        mBytes.push_back(static_cast<uint8_t>(text.size()));
        mBytes.insert(mBytes.end(), text.begin(), text.end());
        return *this;
    }
    bool Write(const std::string& path) const {
        return WriteFile(path, mBytes.data(), mBytes.size());
    }

  private:
    std::vector<uint8_t> mBytes;
};

template <typename Enum>
uint8_t B(Enum value) {
    return static_cast<uint8_t>(value);
}

// Stream choices by index: kStreamChoices of SessionPrograms.h.
constexpr uint8_t kInput = 0;
constexpr uint8_t kOutput = 1;
constexpr uint8_t kInvalidStream = 3;
constexpr uint8_t kUnconfigured = 4;
// Handle choices: 0 valid, 5 empty, 7 foreign.
constexpr uint8_t kValidHandle = 0;
constexpr uint8_t kEmptyHandle = 5;
constexpr uint8_t kForeignHandle = 7;

bool RequestSeeds(const std::string& dir) {
    bool ok = true;
    // One request of two input frames (settings in the first) and one output, delivered.
    Seed burst;
    burst.Bytes({B(ConfigurationChoice::kStandard), B(RequestOp::kRequests), 1})
            .Value(7, 4)
            .Bytes({2, 1, kInput, 1, kValidHandle, 0, B(SettingsChoice::kValid)})
            .Bytes({1, kInput, 2, kValidHandle, 0, B(SettingsChoice::kEmpty)})
            .Bytes({1, kOutput, 3, kValidHandle, 0, B(RequestOp::kWaitIdle)});
    ok &= burst.Write(dir + "/burst");

    // Held by the backend: an invalid buffer before a good one, an output used again before it
    // came back, an empty handle and a foreign one, garbage settings; the client dies first.
    Seed faults;
    faults.Bytes({static_cast<uint8_t>(B(ConfigurationChoice::kStandardTwice) | 0x04 |
                                       (B(SessionEnd::kDieThenClose) << 3)),
                  B(RequestOp::kRequests), 2})
            .Value(1, 4)
            .Bytes({1, 2, kInvalidStream, 0, kValidHandle, 0, kInput, 4, kValidHandle, 1,
                    B(SettingsChoice::kGarbage), 3, 1, 2, 3})
            .Bytes({2, kOutput, 5, kValidHandle, 0, kUnconfigured, 6, kEmptyHandle, 0})
            .Value(2, 4)
            .Bytes({1, 1, kInput, 7, kForeignHandle, 0, B(SettingsChoice::kTruncated), 9})
            .Bytes({1, kOutput, 5, kValidHandle, 0})
            .Bytes({B(RequestOp::kFlush), B(RequestOp::kToggleDelivery)});
    ok &= faults.Write(dir + "/faults");

    // Never configured, delivery off, dropped without closing.
    Seed dropped;
    dropped.Bytes({static_cast<uint8_t>(B(ConfigurationChoice::kNone) | 0x04 |
                                        (B(SessionEnd::kDrop) << 3)),
                   B(RequestOp::kRequests), 1})
            .Value(3, 4)
            .Bytes({1, 1, kInput, 1, kValidHandle, 0, B(SettingsChoice::kValid)})
            .Bytes({1, kOutput, 2, kValidHandle, 0});
    ok &= dropped.Write(dir + "/dropped");
    return ok;
}

// One stream of a configuration.
void ConfiguredStream(Seed& seed, uint8_t id, uint8_t type, uint16_t width, uint16_t height) {
    seed.Bytes({id, type}).Value(width, 2).Value(height, 2);
    seed.Value(0x20203859, 4)  // Y8
            .Value(0x3, 8)
            .Value(0, 4)
            .Bytes({0})
            .Text("")
            .Value(0, 4)
            .Bytes({0})
            .Value(1, 8)
            .Bytes({0, 0});
}

bool ConfigurationSeeds(const std::string& dir) {
    bool ok = true;
    // An input and an output stream with session parameters, then the output alone on camera
    // "1" in the high-speed mode, then no streams with garbage parameters.
    Seed again;
    again.Text("0").Bytes({2});
    ConfiguredStream(again, 1, 1, 8, 4);
    ConfiguredStream(again, 2, 0, 8, 4);
    again.Value(0, 4).Bytes({0, B(SettingsChoice::kValid), B(AfterOp::kFlush)});
    again.Text("1").Bytes({1});
    ConfiguredStream(again, 2, 0, 16, 8);
    again.Value(1, 4).Bytes({0, B(SettingsChoice::kEmpty), B(AfterOp::kDump)});
    again.Text("front").Bytes({0}).Value(0xffffffff, 4).Bytes({0xc0}).Value(0x77, 4);
    again.Bytes({B(SettingsChoice::kGarbage), 4, 1, 2, 3, 4, B(AfterOp::kNothing)});
    ok &= again.Write(dir + "/reconfigure");
    return ok;
}

void CachedBuffer(Seed& seed, uint8_t index) {
    seed.Bytes({B(BufferChoice::kCached), index, 0});
}

bool RecordSeeds(const std::string& dir) {
    bool ok = true;
    // The first request's inputs come back alone, then its outputs with live metadata, then
    // the backend delivers what it holds (the first request again, found no more).
    Seed inOrder;
    inOrder.Bytes({B(RecordOp::kResults), 1, B(PartChoice::kInput)}).Value(1000, 4).Bytes({2});
    CachedBuffer(inOrder, 0);
    CachedBuffer(inOrder, 1);
    inOrder.Value(0, 4).Bytes({B(MetadataChoice::kNone)});
    inOrder.Bytes({B(RecordOp::kResults), 1, B(PartChoice::kOutput)}).Value(1000, 4).Bytes({2});
    CachedBuffer(inOrder, 2);
    CachedBuffer(inOrder, 3);
    inOrder.Value(1, 4).Bytes({B(MetadataChoice::kLive)});
    inOrder.Bytes({B(RecordOp::kMessages), 2, 0}).Value(1001, 4).Bytes({3, 1});
    inOrder.Bytes({1}).Value(1001, 4).Value(123456, 8);
    inOrder.Bytes({B(RecordOp::kDeliverHeld)});
    ok &= inOrder.Write(dir + "/in-order");

    // A buffer the session never saw withholds the call's results; arbitrary bytes, a
    // buffer without a stream, garbage metadata; an input return ends the call early.
    Seed faults;
    faults.Bytes({B(RecordOp::kResults), 3, B(PartChoice::kOutput)}).Value(5, 4).Bytes({2});
    CachedBuffer(faults, 2);
    faults.Bytes({B(BufferChoice::kUnknownHandle), 1, 0}).Value(1, 4);
    faults.Bytes({B(MetadataChoice::kLive), B(PartChoice::kInput)}).Value(6, 4).Bytes({1});
    faults.Bytes({B(BufferChoice::kNoStream), 0, 0}).Value(0, 4);
    faults.Bytes({B(MetadataChoice::kGarbage), B(PartChoice::kBoth)}).Value(7, 4).Bytes({1});
    faults.Bytes({B(BufferChoice::kArbitrary)});
    for (size_t i = 0; i < kKivStreamBufferBytes; i++) faults.Bytes({static_cast<uint8_t>(i)});
    faults.Value(1, 4).Bytes({B(MetadataChoice::kLive), 0x80, 0}).Value(0, 4);
    faults.Bytes({B(MetadataChoice::kNone), B(RecordOp::kFlush), B(RecordOp::kRequest),
                  B(RecordOp::kResults), 0x80, B(RecordOp::kMessages), 0x80});
    ok &= faults.Write(dir + "/faults");
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
    struct {
        const char* target;
        bool (*write)(const std::string& dir);
    } const sessionSeeds[] = {{"session_requests", RequestSeeds},
                              {"session_configuration", ConfigurationSeeds},
                              {"backend_records", RecordSeeds}};
    for (const auto& seeds : sessionSeeds) {
        const std::string dir = root + "/" + seeds.target;
        mkdir(dir.c_str(), 0755);
        if (!seeds.write(dir)) {
            fprintf(stderr, "could not write the %s seeds\n", seeds.target);
            return 1;
        }
    }
    return 0;
}

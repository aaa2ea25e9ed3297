/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Names and payload types of the metadata sections and tags listed in camera_metadata_tags.h.
 */
#include <stdint.h>
#include <system/camera_metadata.h>

namespace {

struct TagInfo {
    const char* name;
    int type;
};

template <size_t N>
constexpr bool allTagsDescribed(const TagInfo (&tags)[N]) {
    for (size_t i = 0; i < N; ++i) {
        if (tags[i].name == nullptr || tags[i].type < TYPE_BYTE || tags[i].type >= NUM_TYPES) {
            return false;
        }
    }
    return true;
}

#define SECTION_TAG_COUNT(section) (section##_END - section##_START)

constexpr TagInfo kColorCorrection[SECTION_TAG_COUNT(ANDROID_COLOR_CORRECTION)] = {
        {"mode", TYPE_BYTE},
        {"transform", TYPE_RATIONAL},
        {"gains", TYPE_FLOAT},
        {"aberrationMode", TYPE_BYTE},
        {"availableAberrationModes", TYPE_BYTE},
};

constexpr TagInfo kControl[SECTION_TAG_COUNT(ANDROID_CONTROL)] = {
        {"aeAntibandingMode", TYPE_BYTE},
        {"aeExposureCompensation", TYPE_INT32},
        {"aeLock", TYPE_BYTE},
        {"aeMode", TYPE_BYTE},
        {"aeRegions", TYPE_INT32},
        {"aeTargetFpsRange", TYPE_INT32},
        {"aePrecaptureTrigger", TYPE_BYTE},
        {"afMode", TYPE_BYTE},
        {"afRegions", TYPE_INT32},
        {"afTrigger", TYPE_BYTE},
        {"awbLock", TYPE_BYTE},
        {"awbMode", TYPE_BYTE},
        {"awbRegions", TYPE_INT32},
        {"captureIntent", TYPE_BYTE},
        {"effectMode", TYPE_BYTE},
        {"mode", TYPE_BYTE},
        {"sceneMode", TYPE_BYTE},
        {"videoStabilizationMode", TYPE_BYTE},
        {"aeAvailableAntibandingModes", TYPE_BYTE},
        {"aeAvailableModes", TYPE_BYTE},
        {"aeAvailableTargetFpsRanges", TYPE_INT32},
        {"aeCompensationRange", TYPE_INT32},
        {"aeCompensationStep", TYPE_RATIONAL},
        {"afAvailableModes", TYPE_BYTE},
        {"availableEffects", TYPE_BYTE},
        {"availableSceneModes", TYPE_BYTE},
        {"availableVideoStabilizationModes", TYPE_BYTE},
        {"awbAvailableModes", TYPE_BYTE},
        {"maxRegions", TYPE_INT32},
        {"sceneModeOverrides", TYPE_BYTE},
        {"aePrecaptureId", TYPE_INT32},
        {"aeState", TYPE_BYTE},
        {"afState", TYPE_BYTE},
        {"afTriggerId", TYPE_INT32},
        {"awbState", TYPE_BYTE},
};

constexpr TagInfo kDemosaic[SECTION_TAG_COUNT(ANDROID_DEMOSAIC)] = {
        {"mode", TYPE_BYTE},
};

constexpr TagInfo kEdge[SECTION_TAG_COUNT(ANDROID_EDGE)] = {
        {"mode", TYPE_BYTE},
        {"strength", TYPE_BYTE},
        {"availableEdgeModes", TYPE_BYTE},
};

constexpr TagInfo kFlash[SECTION_TAG_COUNT(ANDROID_FLASH)] = {
        {"firingPower", TYPE_BYTE},      {"firingTime", TYPE_INT64}, {"mode", TYPE_BYTE},
        {"colorTemperature", TYPE_BYTE}, {"maxEnergy", TYPE_BYTE},   {"state", TYPE_BYTE},
};

constexpr TagInfo kFlashInfo[SECTION_TAG_COUNT(ANDROID_FLASH_INFO)] = {
        {"available", TYPE_BYTE},
        {"chargeDuration", TYPE_INT64},
};

constexpr TagInfo kHotPixel[SECTION_TAG_COUNT(ANDROID_HOT_PIXEL)] = {
        {"mode", TYPE_BYTE},
};

constexpr TagInfo kJpeg[SECTION_TAG_COUNT(ANDROID_JPEG)] = {
        {"gpsCoordinates", TYPE_DOUBLE}, {"gpsProcessingMethod", TYPE_BYTE},
        {"gpsTimestamp", TYPE_INT64},    {"orientation", TYPE_INT32},
        {"quality", TYPE_BYTE},          {"thumbnailQuality", TYPE_BYTE},
        {"thumbnailSize", TYPE_INT32},   {"availableThumbnailSizes", TYPE_INT32},
        {"maxSize", TYPE_INT32},         {"size", TYPE_INT32},
};

constexpr TagInfo kLens[SECTION_TAG_COUNT(ANDROID_LENS)] = {
        {"aperture", TYPE_FLOAT},
        {"filterDensity", TYPE_FLOAT},
        {"focalLength", TYPE_FLOAT},
        {"focusDistance", TYPE_FLOAT},
        {"opticalStabilizationMode", TYPE_BYTE},
        {"facing", TYPE_BYTE},
        {"poseRotation", TYPE_FLOAT},
        {"poseTranslation", TYPE_FLOAT},
        {"focusRange", TYPE_FLOAT},
        {"state", TYPE_BYTE},
};

constexpr TagInfo kLensInfo[SECTION_TAG_COUNT(ANDROID_LENS_INFO)] = {
        {"availableApertures", TYPE_FLOAT},    {"availableFilterDensities", TYPE_FLOAT},
        {"availableFocalLengths", TYPE_FLOAT}, {"availableOpticalStabilization", TYPE_BYTE},
        {"hyperfocalDistance", TYPE_FLOAT},    {"minimumFocusDistance", TYPE_FLOAT},
        {"shadingMapSize", TYPE_INT32},        {"focusDistanceCalibration", TYPE_BYTE},
};

constexpr TagInfo kNoiseReduction[SECTION_TAG_COUNT(ANDROID_NOISE_REDUCTION)] = {
        {"mode", TYPE_BYTE},
        {"strength", TYPE_BYTE},
        {"availableNoiseReductionModes", TYPE_BYTE},
};

constexpr TagInfo kQuirks[SECTION_TAG_COUNT(ANDROID_QUIRKS)] = {
        {"meteringCropRegion", TYPE_BYTE},
};

constexpr TagInfo kRequest[SECTION_TAG_COUNT(ANDROID_REQUEST)] = {
        {"frameCount", TYPE_INT32},           {"id", TYPE_INT32},
        {"inputStreams", TYPE_INT32},         {"metadataMode", TYPE_BYTE},
        {"outputStreams", TYPE_INT32},        {"type", TYPE_BYTE},
        {"maxNumOutputStreams", TYPE_INT32},  {"maxNumReprocessStreams", TYPE_INT32},
        {"maxNumInputStreams", TYPE_INT32},   {"pipelineDepth", TYPE_BYTE},
        {"pipelineMaxDepth", TYPE_BYTE},      {"partialResultCount", TYPE_INT32},
        {"availableCapabilities", TYPE_BYTE}, {"availableRequestKeys", TYPE_INT32},
        {"availableResultKeys", TYPE_INT32},  {"availableCharacteristicsKeys", TYPE_INT32},
        {"availableSessionKeys", TYPE_INT32},
};

constexpr TagInfo kScaler[SECTION_TAG_COUNT(ANDROID_SCALER)] = {
        {"cropRegion", TYPE_INT32},
        {"availableFormats", TYPE_INT32},
        {"availableJpegMinDurations", TYPE_INT64},
        {"availableJpegSizes", TYPE_INT32},
        {"availableMaxDigitalZoom", TYPE_FLOAT},
        {"availableProcessedMinDurations", TYPE_INT64},
        {"availableProcessedSizes", TYPE_INT32},
        {"availableRawMinDurations", TYPE_INT64},
        {"availableRawSizes", TYPE_INT32},
        {"availableInputOutputFormatsMap", TYPE_INT32},
        {"availableStreamConfigurations", TYPE_INT32},
        {"availableMinFrameDurations", TYPE_INT64},
        {"availableStallDurations", TYPE_INT64},
        {"croppingType", TYPE_BYTE},
};

constexpr TagInfo kSensor[SECTION_TAG_COUNT(ANDROID_SENSOR)] = {
        {"exposureTime", TYPE_INT64},
        {"frameDuration", TYPE_INT64},
        {"sensitivity", TYPE_INT32},
        {"referenceIlluminant1", TYPE_BYTE},
        {"referenceIlluminant2", TYPE_BYTE},
        {"calibrationTransform1", TYPE_RATIONAL},
        {"calibrationTransform2", TYPE_RATIONAL},
        {"colorTransform1", TYPE_RATIONAL},
        {"colorTransform2", TYPE_RATIONAL},
        {"forwardMatrix1", TYPE_RATIONAL},
        {"forwardMatrix2", TYPE_RATIONAL},
        {"baseGainFactor", TYPE_RATIONAL},
        {"blackLevelPattern", TYPE_INT32},
        {"maxAnalogSensitivity", TYPE_INT32},
        {"orientation", TYPE_INT32},
        {"profileHueSatMapDimensions", TYPE_INT32},
        {"timestamp", TYPE_INT64},
        {"temperature", TYPE_FLOAT},
        {"neutralColorPoint", TYPE_RATIONAL},
        {"noiseProfile", TYPE_DOUBLE},
        {"profileHueSatMap", TYPE_FLOAT},
        {"profileToneCurve", TYPE_FLOAT},
        {"greenSplit", TYPE_FLOAT},
        {"testPatternData", TYPE_INT32},
        {"testPatternMode", TYPE_INT32},
        {"availableTestPatternModes", TYPE_INT32},
        {"rollingShutterSkew", TYPE_INT64},
};

constexpr TagInfo kSensorInfo[SECTION_TAG_COUNT(ANDROID_SENSOR_INFO)] = {
        {"activeArraySize", TYPE_INT32},
        {"sensitivityRange", TYPE_INT32},
        {"colorFilterArrangement", TYPE_BYTE},
        {"exposureTimeRange", TYPE_INT64},
        {"maxFrameDuration", TYPE_INT64},
        {"physicalSize", TYPE_FLOAT},
        {"pixelArraySize", TYPE_INT32},
        {"whiteLevel", TYPE_INT32},
        {"timestampSource", TYPE_BYTE},
        {"lensShadingApplied", TYPE_BYTE},
        {"preCorrectionActiveArraySize", TYPE_INT32},
};

constexpr TagInfo kShading[SECTION_TAG_COUNT(ANDROID_SHADING)] = {
        {"mode", TYPE_BYTE},
        {"strength", TYPE_BYTE},
        {"availableModes", TYPE_BYTE},
};

constexpr TagInfo kStatistics[SECTION_TAG_COUNT(ANDROID_STATISTICS)] = {
        {"faceDetectMode", TYPE_BYTE},
        {"histogramMode", TYPE_BYTE},
        {"sharpnessMapMode", TYPE_BYTE},
        {"hotPixelMapMode", TYPE_BYTE},
        {"faceIds", TYPE_INT32},
        {"faceLandmarks", TYPE_INT32},
        {"faceRectangles", TYPE_INT32},
        {"faceScores", TYPE_BYTE},
        {"histogram", TYPE_INT32},
        {"sharpnessMap", TYPE_INT32},
        {"lensShadingCorrectionMap", TYPE_BYTE},
        {"lensShadingMap", TYPE_FLOAT},
        {"predictedColorGains", TYPE_FLOAT},
        {"predictedColorTransform", TYPE_RATIONAL},
        {"sceneFlicker", TYPE_BYTE},
        {"hotPixelMap", TYPE_INT32},
        {"lensShadingMapMode", TYPE_BYTE},
};

constexpr TagInfo kStatisticsInfo[SECTION_TAG_COUNT(ANDROID_STATISTICS_INFO)] = {
        {"availableFaceDetectModes", TYPE_BYTE},
        {"histogramBucketCount", TYPE_INT32},
        {"maxFaceCount", TYPE_INT32},
        {"maxHistogramCount", TYPE_INT32},
        {"maxSharpnessMapValue", TYPE_INT32},
        {"sharpnessMapSize", TYPE_INT32},
        {"availableHotPixelMapModes", TYPE_BYTE},
        {"availableLensShadingMapModes", TYPE_BYTE},
};

constexpr TagInfo kTonemap[SECTION_TAG_COUNT(ANDROID_TONEMAP)] = {
        {"curveBlue", TYPE_FLOAT},      {"curveGreen", TYPE_FLOAT},
        {"curveRed", TYPE_FLOAT},       {"mode", TYPE_BYTE},
        {"maxCurvePoints", TYPE_INT32}, {"availableToneMapModes", TYPE_BYTE},
        {"gamma", TYPE_FLOAT},          {"presetCurve", TYPE_BYTE},
};

constexpr TagInfo kLed[SECTION_TAG_COUNT(ANDROID_LED)] = {
        {"transmit", TYPE_BYTE},
        {"availableLeds", TYPE_BYTE},
};

constexpr TagInfo kInfo[SECTION_TAG_COUNT(ANDROID_INFO)] = {
        {"supportedHardwareLevel", TYPE_BYTE},
        {"version", TYPE_BYTE},
};

constexpr TagInfo kBlackLevel[SECTION_TAG_COUNT(ANDROID_BLACK_LEVEL)] = {
        {"lock", TYPE_BYTE},
};

constexpr TagInfo kSync[SECTION_TAG_COUNT(ANDROID_SYNC)] = {
        {"frameNumber", TYPE_INT64},
        {"maxLatency", TYPE_INT32},
};

constexpr TagInfo kReprocess[SECTION_TAG_COUNT(ANDROID_REPROCESS)] = {
        {"effectiveExposureFactor", TYPE_FLOAT},
        {"maxCaptureStall", TYPE_INT32},
};

constexpr TagInfo kDepth[SECTION_TAG_COUNT(ANDROID_DEPTH)] = {
        {"maxDepthSamples", TYPE_INT32},
        {"availableDepthStreamConfigurations", TYPE_INT32},
        {"availableDepthMinFrameDurations", TYPE_INT64},
        {"availableDepthStallDurations", TYPE_INT64},
        {"depthIsExclusive", TYPE_BYTE},
};

constexpr TagInfo kLogicalMultiCamera[SECTION_TAG_COUNT(ANDROID_LOGICAL_MULTI_CAMERA)] = {
        {"physicalIds", TYPE_BYTE},
        {"sensorSyncType", TYPE_BYTE},
};

constexpr TagInfo kDistortionCorrection[SECTION_TAG_COUNT(ANDROID_DISTORTION_CORRECTION)] = {
        {"mode", TYPE_BYTE},
        {"availableModes", TYPE_BYTE},
};

static_assert(allTagsDescribed(kColorCorrection) && allTagsDescribed(kControl) &&
                      allTagsDescribed(kDemosaic) && allTagsDescribed(kEdge) &&
                      allTagsDescribed(kFlash) && allTagsDescribed(kFlashInfo) &&
                      allTagsDescribed(kHotPixel) && allTagsDescribed(kJpeg) &&
                      allTagsDescribed(kLens) && allTagsDescribed(kLensInfo) &&
                      allTagsDescribed(kNoiseReduction) && allTagsDescribed(kQuirks) &&
                      allTagsDescribed(kRequest) && allTagsDescribed(kScaler) &&
                      allTagsDescribed(kSensor) && allTagsDescribed(kSensorInfo) &&
                      allTagsDescribed(kShading) && allTagsDescribed(kStatistics) &&
                      allTagsDescribed(kStatisticsInfo) && allTagsDescribed(kTonemap) &&
                      allTagsDescribed(kLed) && allTagsDescribed(kInfo) &&
                      allTagsDescribed(kBlackLevel) && allTagsDescribed(kSync) &&
                      allTagsDescribed(kReprocess) && allTagsDescribed(kDepth) &&
                      allTagsDescribed(kLogicalMultiCamera) &&
                      allTagsDescribed(kDistortionCorrection),
              "every tag of camera_metadata_tags.h needs a name and a type here");

struct SectionInfo {
    const char* name;
    const TagInfo* tags;
    uint32_t tagCount;
};

#define SECTION(name, section, table) \
    { name, table, SECTION_TAG_COUNT(section) }
#define EMPTY_SECTION(name) \
    { name, nullptr, 0 }

constexpr SectionInfo kSections[ANDROID_SECTION_COUNT] = {
        SECTION("android.colorCorrection", ANDROID_COLOR_CORRECTION, kColorCorrection),
        SECTION("android.control", ANDROID_CONTROL, kControl),
        SECTION("android.demosaic", ANDROID_DEMOSAIC, kDemosaic),
        SECTION("android.edge", ANDROID_EDGE, kEdge),
        SECTION("android.flash", ANDROID_FLASH, kFlash),
        SECTION("android.flash.info", ANDROID_FLASH_INFO, kFlashInfo),
        SECTION("android.hotPixel", ANDROID_HOT_PIXEL, kHotPixel),
        SECTION("android.jpeg", ANDROID_JPEG, kJpeg),
        SECTION("android.lens", ANDROID_LENS, kLens),
        SECTION("android.lens.info", ANDROID_LENS_INFO, kLensInfo),
        SECTION("android.noiseReduction", ANDROID_NOISE_REDUCTION, kNoiseReduction),
        SECTION("android.quirks", ANDROID_QUIRKS, kQuirks),
        SECTION("android.request", ANDROID_REQUEST, kRequest),
        SECTION("android.scaler", ANDROID_SCALER, kScaler),
        SECTION("android.sensor", ANDROID_SENSOR, kSensor),
        SECTION("android.sensor.info", ANDROID_SENSOR_INFO, kSensorInfo),
        SECTION("android.shading", ANDROID_SHADING, kShading),
        SECTION("android.statistics", ANDROID_STATISTICS, kStatistics),
        SECTION("android.statistics.info", ANDROID_STATISTICS_INFO, kStatisticsInfo),
        SECTION("android.tonemap", ANDROID_TONEMAP, kTonemap),
        SECTION("android.led", ANDROID_LED, kLed),
        SECTION("android.info", ANDROID_INFO, kInfo),
        SECTION("android.blackLevel", ANDROID_BLACK_LEVEL, kBlackLevel),
        SECTION("android.sync", ANDROID_SYNC, kSync),
        SECTION("android.reprocess", ANDROID_REPROCESS, kReprocess),
        SECTION("android.depth", ANDROID_DEPTH, kDepth),
        SECTION("android.logicalMultiCamera", ANDROID_LOGICAL_MULTI_CAMERA, kLogicalMultiCamera),
        SECTION("android.distortionCorrection", ANDROID_DISTORTION_CORRECTION,
                kDistortionCorrection),
        EMPTY_SECTION("android.heic"),
        EMPTY_SECTION("android.heic.info"),
        EMPTY_SECTION("android.automotive"),
        EMPTY_SECTION("android.automotive.lens"),
        EMPTY_SECTION("android.extension"),
        EMPTY_SECTION("android.jpegr"),
};

const TagInfo* findTag(uint32_t tag) {
    const uint32_t section = tag >> 16;
    const uint32_t index = tag & 0xFFFF;
    if (section >= ANDROID_SECTION_COUNT || index >= kSections[section].tagCount) {
        return nullptr;
    }
    return &kSections[section].tags[index];
}

}  // namespace

extern "C" {

const char* get_camera_metadata_section_name(uint32_t tag) {
    const uint32_t section = tag >> 16;
    return section < ANDROID_SECTION_COUNT ? kSections[section].name : nullptr;
}

const char* get_camera_metadata_tag_name(uint32_t tag) {
    const TagInfo* info = findTag(tag);
    return info != nullptr ? info->name : nullptr;
}

int get_camera_metadata_tag_type(uint32_t tag) {
    const TagInfo* info = findTag(tag);
    return info != nullptr ? info->type : -1;
}

}  // extern "C"

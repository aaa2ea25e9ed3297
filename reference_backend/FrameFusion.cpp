/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Multi-frame fusion: every buffer is mapped through the graphics buffer mapper and described as
 * planes of samples, so that one averaging loop serves packed and planar formats alike.
 */
#define LOG_TAG "KivReferenceBackend"

#include "FrameFusion.h"

#include <log/log.h>
#include <string.h>
#include <system/graphics.h>
#include <ui/GraphicBufferMapper.h>

#include <memory>

namespace kivref {

namespace {

// Gralloc CPU usage bits (GRALLOC_USAGE_SW_READ_OFTEN, GRALLOC_USAGE_SW_WRITE_OFTEN).
constexpr uint32_t kUsageCpuRead = 0x3;
constexpr uint32_t kUsageCpuWrite = 0x30;

constexpr size_t kMaxPlanes = 3;

// Bytes per pixel of the packed formats; 0 for the others.
size_t PackedBytesPerPixel(int32_t format) {
    switch (format) {
        case HAL_PIXEL_FORMAT_Y8:
            return 1;
        case HAL_PIXEL_FORMAT_RAW16:
        case HAL_PIXEL_FORMAT_Y16:
            return 2;
        case HAL_PIXEL_FORMAT_RGB_888:
            return 3;
        case HAL_PIXEL_FORMAT_RGBA_8888:
        case HAL_PIXEL_FORMAT_RGBX_8888:
        case HAL_PIXEL_FORMAT_BGRA_8888:
            return 4;
        default:
            return 0;
    }
}

size_t SampleBytes(int32_t format) {
    return format == HAL_PIXEL_FORMAT_RAW16 || format == HAL_PIXEL_FORMAT_Y16 ? 2 : 1;
}

// Samples of one plane: `samplesPerRow` samples `sampleStep` bytes apart in each of `rows` rows
// `rowStride` bytes apart.
struct Plane {
    uint8_t* base = nullptr;
    size_t samplesPerRow = 0;
    size_t rows = 0;
    size_t rowStride = 0;
    size_t sampleStep = 0;
};

// A buffer locked for CPU access for as long as the object lives. Packed buffers are mapped with
// rows of width pixels one after another.
class MappedImage {
  public:
    MappedImage() = default;
    MappedImage(const MappedImage&) = delete;
    MappedImage& operator=(const MappedImage&) = delete;

    ~MappedImage() {
        if (mHandle == nullptr) return;
        android::status_t status = android::GraphicBufferMapper::get().unlock(mHandle);
        if (status != android::OK) ALOGE("unlock of %p failed: %d", mHandle, status);
    }

    bool Map(const StreamBufferRecord& record, uint32_t usage) {
        android::GraphicBufferMapper& mapper = android::GraphicBufferMapper::get();
        const android::Rect bounds(record.width, record.height);
        android::status_t status;
        if (record.format == HAL_PIXEL_FORMAT_YCBCR_420_888) {
            android_ycbcr ycbcr;
            status = mapper.lockYCbCr(record.handle, usage, bounds, &ycbcr);
            if (status == android::OK) {
                const size_t chromaWidth = (record.width + 1) / 2;
                const size_t chromaRows = (record.height + 1) / 2;
                mPlanes[0] = {static_cast<uint8_t*>(ycbcr.y), record.width, record.height,
                              ycbcr.ystride, 1};
                mPlanes[1] = {static_cast<uint8_t*>(ycbcr.cb), chromaWidth, chromaRows,
                              ycbcr.cstride, ycbcr.chroma_step};
                mPlanes[2] = {static_cast<uint8_t*>(ycbcr.cr), chromaWidth, chromaRows,
                              ycbcr.cstride, ycbcr.chroma_step};
                mPlaneCount = 3;
            }
        } else {
            void* address = nullptr;
            status = mapper.lock(record.handle, usage, bounds, &address);
            if (status == android::OK) {
                const size_t rowBytes = size_t{record.width} * PackedBytesPerPixel(record.format);
                const size_t sampleBytes = SampleBytes(record.format);
                mPlanes[0] = {static_cast<uint8_t*>(address), rowBytes / sampleBytes, record.height,
                              rowBytes, sampleBytes};
                mPlaneCount = 1;
            }
        }
        if (status != android::OK) {
            ALOGE("cannot lock buffer %p (%ux%u format 0x%x): %d", record.handle, record.width,
                  record.height, record.format, status);
            return false;
        }
        mHandle = record.handle;
        return true;
    }

    const Plane& plane(size_t index) const { return mPlanes[index]; }
    size_t planeCount() const { return mPlaneCount; }

  private:
    buffer_handle_t mHandle = nullptr;
    Plane mPlanes[kMaxPlanes];
    size_t mPlaneCount = 0;
};

template <typename Sample>
Sample LoadSample(const uint8_t* address) {
    Sample value;
    memcpy(&value, address, sizeof(value));
    return value;
}

template <typename Sample>
void StoreSample(uint8_t* address, Sample value) {
    memcpy(address, &value, sizeof(value));
}

// Writes the rounded mean of the inputs' samples into the output, row by row.
template <typename Sample>
void Average(const MappedImage* inputs, size_t count, const MappedImage& output) {
    std::vector<uint64_t> sums;
    for (size_t p = 0; p < output.planeCount(); p++) {
        const Plane& out = output.plane(p);
        for (size_t row = 0; row < out.rows; row++) {
            sums.assign(out.samplesPerRow, 0);
            for (size_t i = 0; i < count; i++) {
                const Plane& in = inputs[i].plane(p);
                const uint8_t* source = in.base + row * in.rowStride;
                for (size_t s = 0; s < out.samplesPerRow; s++) {
                    sums[s] += LoadSample<Sample>(source + s * in.sampleStep);
                }
            }
            uint8_t* target = out.base + row * out.rowStride;
            for (size_t s = 0; s < out.samplesPerRow; s++) {
                StoreSample<Sample>(target + s * out.sampleStep,
                                    static_cast<Sample>((sums[s] + count / 2) / count));
            }
        }
    }
}

}  // namespace

bool IsFusableFormat(int32_t format) {
    return format == HAL_PIXEL_FORMAT_YCBCR_420_888 || PackedBytesPerPixel(format) != 0;
}

FuseStatus FuseFrames(const std::vector<StreamBufferRecord>& inputs,
                      const StreamBufferRecord& output, size_t* fused) {
    *fused = 0;
    std::vector<const StreamBufferRecord*> matching;
    for (size_t i = 0; i < inputs.size(); i++) {
        const StreamBufferRecord& input = inputs[i];
        if (input.handle == nullptr || input.width != output.width ||
            input.height != output.height || input.format != output.format) {
            ALOGW("input buffer %zu (%ux%u 0x%x) skipped: the output is %ux%u 0x%x", i, input.width,
                  input.height, input.format, output.width, output.height, output.format);
            continue;
        }
        matching.push_back(&input);
    }
    if (matching.empty()) return FuseStatus::NoInputs;

    MappedImage target;
    if (!target.Map(output, kUsageCpuWrite)) return FuseStatus::LockFailed;
    std::unique_ptr<MappedImage[]> sources(new MappedImage[matching.size()]);
    for (size_t i = 0; i < matching.size(); i++) {
        if (!sources[i].Map(*matching[i], kUsageCpuRead)) return FuseStatus::LockFailed;
    }
    if (SampleBytes(output.format) == 2) {
        Average<uint16_t>(sources.get(), matching.size(), target);
    } else {
        Average<uint8_t>(sources.get(), matching.size(), target);
    }
    *fused = matching.size();
    return FuseStatus::Fused;
}

}  // namespace kivref

/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Scene synthesis, noise and quality figure of the host demo, and PNG output through libpng's
 * simplified API.
 */
#include "DemoImage.h"

#include <math.h>
#include <png.h>
#include <string.h>

#include <algorithm>

namespace demo {

namespace {

void FillRect(GreyImage* image, uint32_t left, uint32_t top, uint32_t right, uint32_t bottom,
              uint8_t value) {
    right = std::min(right, image->width);
    bottom = std::min(bottom, image->height);
    for (uint32_t y = top; y < bottom; y++) {
        for (uint32_t x = left; x < right; x++) image->at(x, y) = value;
    }
}

}  // namespace

GreyImage MakeScene(uint32_t width, uint32_t height) {
    GreyImage scene(width, height);
    for (uint32_t y = 0; y < height; y++) {
        for (uint32_t x = 0; x < width; x++) {
            scene.at(x, y) = static_cast<uint8_t>(40 + 150 * (x + y) / (width + height));
        }
    }
    // A bright disc in the upper right.
    const double cx = width * 0.75, cy = height * 0.3, radius = height * 0.17;
    for (uint32_t y = 0; y < height; y++) {
        for (uint32_t x = 0; x < width; x++) {
            if (hypot(x - cx, y - cy) <= radius) scene.at(x, y) = 235;
        }
    }
    // A framed box in the lower left.
    FillRect(&scene, width / 10, height * 11 / 20, width * 2 / 5, height * 9 / 10, 25);
    FillRect(&scene, width / 10 + 8, height * 11 / 20 + 8, width * 2 / 5 - 8, height * 9 / 10 - 8,
             200);
    // Three lines of "words" in the upper left.
    static const uint32_t kWords[] = {22, 9, 31, 14, 18, 7, 26, 12, 20, 16, 11, 28};
    for (uint32_t line = 0; line < 3; line++) {
        uint32_t x = width / 16;
        const uint32_t y = height / 10 + line * 16;
        for (size_t w = line; w < line + 6 && x < width / 2; w++) {
            const uint32_t length = kWords[w % (sizeof(kWords) / sizeof(kWords[0]))];
            FillRect(&scene, x, y, std::min(x + length, width / 2), y + 7, 10);
            x += length + 6;
        }
    }
    // Bars of decreasing width in the lower right.
    uint32_t x = width / 2;
    for (uint32_t bar = 8; bar >= 1 && x < width - 10; bar--) {
        for (int pair = 0; pair < 2; pair++) {
            FillRect(&scene, x, height * 3 / 5, x + bar, height * 9 / 10, 250);
            FillRect(&scene, x + bar, height * 3 / 5, x + 2 * bar, height * 9 / 10, 5);
            x += 2 * bar;
        }
    }
    return scene;
}

GreyImage AddNoise(const GreyImage& clean, double sigma, std::mt19937* random) {
    std::normal_distribution<double> noise(0.0, sigma);
    GreyImage noisy(clean.width, clean.height);
    for (size_t i = 0; i < clean.pixels.size(); i++) {
        const long value = lround(clean.pixels[i] + noise(*random));
        noisy.pixels[i] = static_cast<uint8_t>(std::clamp(value, 0L, 255L));
    }
    return noisy;
}

double Psnr(const GreyImage& image, const GreyImage& reference) {
    double squares = 0;
    for (size_t i = 0; i < image.pixels.size(); i++) {
        const double difference = static_cast<double>(image.pixels[i]) - reference.pixels[i];
        squares += difference * difference;
    }
    if (squares == 0) return INFINITY;
    const double mse = squares / static_cast<double>(image.pixels.size());
    return 10.0 * log10(255.0 * 255.0 / mse);
}

bool WritePng(const GreyImage& image, const std::string& path, std::string* error) {
    png_image png;
    memset(&png, 0, sizeof(png));
    png.version = PNG_IMAGE_VERSION;
    png.width = image.width;
    png.height = image.height;
    png.format = PNG_FORMAT_GRAY;
    if (png_image_write_to_file(&png, path.c_str(), 0, image.pixels.data(),
                                static_cast<png_int_32>(image.width), nullptr) == 0) {
        *error = png.message;
        return false;
    }
    return true;
}

}  // namespace demo

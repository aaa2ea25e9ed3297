/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * 8-bit grey images for the host demo: a synthetic scene, its noisy exposures, the quality
 * figure between two images, and PNG output.
 */
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <random>
#include <string>
#include <vector>

namespace demo {

struct GreyImage {
    uint32_t width = 0;
    uint32_t height = 0;
    std::vector<uint8_t> pixels;  // rows of `width` bytes, top row first

    GreyImage() = default;
    GreyImage(uint32_t w, uint32_t h) : width(w), height(h), pixels(size_t{w} * h) {}
    uint8_t& at(uint32_t x, uint32_t y) { return pixels[size_t{y} * width + x]; }
};

// A clean test scene: a diagonal gradient, a bright disc, a framed box, lines of text-like
// dashes and bars of decreasing width.
GreyImage MakeScene(uint32_t width, uint32_t height);

// One exposure of the scene with Gaussian noise of the given standard deviation, clipped to
// 0..255.
GreyImage AddNoise(const GreyImage& clean, double sigma, std::mt19937* random);

// Peak signal-to-noise ratio of `image` against `reference` in dB (infinite when they match).
double Psnr(const GreyImage& image, const GreyImage& reference);

// Writes the image as an 8-bit grey PNG; false (with the reason in *error) on failure.
bool WritePng(const GreyImage& image, const std::string& path, std::string* error);

}  // namespace demo

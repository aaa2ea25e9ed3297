/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for libui's <ui/Rect.h>: the rectangle type of the graphics buffer mapper.
 */
#pragma once

#include <android/rect.h>
#include <stdint.h>

#include <type_traits>

namespace android {

class Rect : public ARect {
  public:
    typedef ARect::value_type value_type;

    static const Rect INVALID_RECT;
    static const Rect EMPTY_RECT;

    // An invalid rectangle: {0, 0, -1, -1}.
    Rect() : ARect{0, 0, -1, -1} {}

    // {0, 0, w, h}, with sizes above INT32_MAX clamped to it.
    template <typename T>
    Rect(T w, T h) : ARect{0, 0, clampToInt32(w), clampToInt32(h)} {}

    Rect(int32_t l, int32_t t, int32_t r, int32_t b) : ARect{l, t, r, b} {}

    int32_t getWidth() const { return right - left; }
    int32_t getHeight() const { return bottom - top; }
    int32_t width() const { return getWidth(); }
    int32_t height() const { return getHeight(); }

    bool isValid() const { return left <= right && top <= bottom; }
    bool isEmpty() const { return left >= right || top >= bottom; }

    bool operator==(const Rect& rhs) const {
        return left == rhs.left && top == rhs.top && right == rhs.right && bottom == rhs.bottom;
    }
    bool operator!=(const Rect& rhs) const { return !(*this == rhs); }

  private:
    template <typename T>
    static int32_t clampToInt32(T value) {
        using Wide = std::conditional_t<std::is_signed_v<T>, int64_t, uint64_t>;
        const Wide wide = static_cast<Wide>(value);
        if (wide > static_cast<Wide>(INT32_MAX)) {
            return INT32_MAX;
        }
        return static_cast<int32_t>(wide);
    }
};

}  // namespace android

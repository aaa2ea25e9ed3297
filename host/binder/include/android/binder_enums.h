/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Host stand-in for the NDK binder <android/binder_enums.h>: iteration over the values of an
 * AIDL enum. Generated code specialises ndk::internal::enum_values for each enum type.
 */
#pragma once

#include <array>
#include <iterator>

namespace ndk {

namespace internal {

/* The declared values of EnumType, in declaration order (specialised per enum). */
template <typename EnumType>
extern std::array<EnumType, 0> enum_values;

}  // namespace internal

/* for (auto value : ndk::enum_range<E>()) visits the declared values of E. */
template <typename EnumType>
struct enum_range {
    constexpr auto begin() const { return std::begin(internal::enum_values<EnumType>); }
    constexpr auto end() const { return std::end(internal::enum_values<EnumType>); }
};

}  // namespace ndk

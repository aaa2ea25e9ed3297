/*
 * Copyright (C) 2026 Oru Camera. All rights reserved.
 *
 * Proprietary and confidential: use, copying and distribution only under a written
 * license agreement with Oru Camera. See the NOTICE file at the top of this tree.
 */

/*
 * Text form of AIDL values, used by the toString() members of the generated parcelables and
 * unions: numbers in decimal, enums by enumerator name, lists as "[a, b]", parcelables and
 * unions through their own toString().
 */
#pragma once

#include <android/binder_auto_utils.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace aidl {
namespace internal {

template <typename T>
struct IsVector : std::false_type {};
template <typename T>
struct IsVector<std::vector<T>> : std::true_type {};

template <typename T, typename = void>
struct HasToStringMember : std::false_type {};
template <typename T>
struct HasToStringMember<T, std::void_t<decltype(std::declval<const T&>().toString())>>
    : std::true_type {};

template <typename T>
std::string ToString(const T& value) {
    if constexpr (std::is_same_v<T, bool>) {
        return value ? "true" : "false";
    } else if constexpr (std::is_same_v<T, std::string>) {
        return value;
    } else if constexpr (std::is_same_v<T, ::ndk::ScopedFileDescriptor>) {
        return "fd:" + std::to_string(value.get());
    } else if constexpr (std::is_enum_v<T>) {
        return toString(value);  // the enum's generated toString, found by argument lookup
    } else if constexpr (std::is_arithmetic_v<T>) {
        return std::to_string(value);
    } else if constexpr (IsVector<T>::value) {
        std::string text = "[";
        bool first = true;
        for (const auto& element : value) {
            if (!first) text += ", ";
            first = false;
            text += ToString(element);
        }
        return text + "]";
    } else {
        static_assert(HasToStringMember<T>::value, "no text form for this AIDL type");
        return value.toString();
    }
}

}  // namespace internal
}  // namespace aidl

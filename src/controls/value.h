#pragma once
// The value of a property as scripts and tests see it, whatever its type in the code.

#include "base/text.h"

#include <concepts>
#include <cstdint>
#include <optional>
#include <type_traits>
#include <variant>
#include <vector>

using Value = std::variant<bool, std::int64_t, float, Text, std::vector<Text>>;

/// The value of something of a property's type.
template <class T> Value ToValue(T const& value)
{
    if constexpr (std::is_enum_v<T>)
        return static_cast<std::int64_t>(value);
    else if constexpr (std::integral<T> && !std::same_as<T, bool>)
        return static_cast<std::int64_t>(value);
    else
        return value;
}

/// The value as a property's type. Integers convert to float; nothing if an integer doesn't fit or
/// the kind is another.
template <class T> std::optional<T> FromValue(Value const& value)
{
    if constexpr (std::is_enum_v<T> || (std::integral<T> && !std::same_as<T, bool>)) {
        auto const* integer = std::get_if<std::int64_t>(&value);
        if (!integer || static_cast<std::int64_t>(static_cast<T>(*integer)) != *integer)
            return std::nullopt;
        return static_cast<T>(*integer);
    } else {
        if constexpr (std::same_as<T, float>)
            if (auto const* integer = std::get_if<std::int64_t>(&value))
                return static_cast<float>(*integer);
        auto const* held = std::get_if<T>(&value);
        return held ? std::optional<T>(*held) : std::nullopt;
    }
}

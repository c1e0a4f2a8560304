#pragma once
// Conversions of numbers as the screens use them: rounded to the nearest integer, an exact half to
// the even neighbour, and clamped to the 16-bit signed range of scroll bars and page numbers.

#include "base/text.h"

#include <cstdint>

/// The nearest integer, an exact half to the even neighbour.
std::int64_t RoundToEven(double value);

/// The nearest 16-bit signed integer, an exact half to the even neighbour, clamped to the range; 0
/// for what isn't a number.
std::int16_t RoundToInt16(double value);

#pragma once
// Conversions of numbers as the screens use them: rounded to the nearest integer, an exact half to
// the even neighbour, and held within the 16-bit signed range that scroll bars and page numbers
// have.

#include "base/text.h"

#include <cstdint>

/// The nearest integer, an exact half to the even neighbour.
std::int64_t RoundToEven(double value);

/// The nearest 16-bit signed integer, an exact half to the even neighbour; what lies outside the
/// range is held at its ends, and what isn't a number is 0.
std::int16_t RoundToInt16(double value);

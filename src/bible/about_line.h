#pragma once
// The line with which a disc tells the reader what text stands in the place of a translation: the
// file bible<translation>.about beside the index (docs/formats/bible-files.md).

#include "base/text.h"

#include <string_view>

/// In characters.
inline constexpr std::size_t longestAboutLine = 200;

/// The first line of the file's bytes, which are code page 1252, without blanks at its ends;
/// control characters are left out, and what goes beyond the greatest length is cut off.
Text AboutLine(std::string_view bytes);

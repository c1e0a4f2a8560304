#pragma once
// The line by which a disc names the text that it has in place of a translation, from the file
// bible<translation>.about beside the index (docs/formats/bible-files.md).

#include "base/text.h"

#include <string_view>

/// In characters.
inline constexpr std::size_t longestAboutLine = 200;

/// The first line of the file's bytes (code page 1252), trimmed, without control characters and cut
/// off at the greatest length.
Text AboutLine(std::string_view bytes);

#pragma once
// The nearest form of a text in code page 1252, for files that can hold nothing else. The exact
// conversions are code_page.h's work.

#include "base/text.h"

#include <cstddef>
#include <string>

struct NearestBytes {
    std::string bytes; ///< code page 1252
    /// characters of the text that the code page lacks; a surrogate pair is one
    std::size_t replaced = 0;
};

/// Characters of the code page stand for themselves. A letter with a mark that the code page lacks
/// loses the mark; dashes, blanks, quotation marks and ligatures become those that there are; marks
/// that combine with a letter, Hebrew points among them, and characters without a width go; Greek
/// and Hebrew letters are written in Latin ones. For anything else stands U+00A4.
NearestBytes ToNearestCodePage(TextView text);

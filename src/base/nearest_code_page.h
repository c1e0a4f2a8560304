#pragma once
// The nearest equivalent of a text in code page 1252, for files that can hold nothing else.
// code_page.h has the exact conversions.

#include "base/text.h"

#include <cstddef>
#include <string>

struct NearestBytes {
    std::string bytes; ///< code page 1252
    /// characters of the text that the code page lacks; a surrogate pair is one
    std::size_t replaced = 0;
};

/// Characters of the code page are copied. An accented letter that the code page lacks loses its
/// accent; dashes, blanks, quotation marks and ligatures are replaced by those that the code page
/// has; combining marks (Hebrew points too) and characters without a width are dropped; Greek and
/// Hebrew letters are transliterated. Anything else becomes U+00A4.
NearestBytes ToNearestCodePage(TextView text);

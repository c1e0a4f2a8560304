#pragma once
// The short names of Bible books that the program writes out anywhere in a text, even at the end of
// a sentence ("from Beersheba to Dan.").

#include "base/text.h"

#include <cstddef>

/// A place in a text, in 16-bit characters.
struct ShortName {
    std::size_t start = 0;
    std::size_t length = 0; ///< its full stop included; 0 for none
};

/// The first short name that ends after this place.
ShortName FindShortName(TextView text, std::size_t from);

/// The text with a soft hyphen (U+00AD, not seen within a line) in front of the full stop of each
/// short name, which thus stays as it is.
Text EscapeShortNames(TextView text);

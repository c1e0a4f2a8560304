#pragma once
// Texts of 16-bit characters, readable in the messages of failing tests.

#include "base/text.h"

#include <ostream>

namespace std { // NOLINT: where the printer of a type of std is looked for
inline void PrintTo(Text const& text, ostream* out)
{
    *out << '"' << ToUtf8(text) << '"';
}
}

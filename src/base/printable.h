#pragma once
// Makes texts from files safe to print on a terminal, on one line.

#include "base/text.h"

/// The text with U+FFFD in place of each character that could control a terminal or disguise the
/// text: control characters (C0, DEL and C1, line ends included), line and paragraph separators,
/// marks that change the direction of writing, invisible tags, and unpaired surrogates. A tab
/// becomes a blank.
Text Printable(TextView text);

/// The same for UTF-8; bytes that are not UTF-8 become U+FFFD too.
std::string Printable(std::string_view text);

#pragma once
// Texts that come from files, made fit for a line on a terminal.

#include "base/text.h"

/// The text with U+FFFD for each character that could steer a terminal or disguise what the line
/// says: control characters (C0, DEL and C1, line ends included), line and paragraph separators,
/// marks that change the direction of writing, invisible tags, and unpaired surrogates. A tab
/// becomes a blank.
Text Printable(TextView text);

/// The same for UTF-8; bytes that are no UTF-8 become U+FFFD too.
std::string Printable(std::string_view text);

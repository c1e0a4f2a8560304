#pragma once
// The index of a translation: the books in the order of their numbers. Its form stands in
// docs/formats/bible-files.md. The text of the books is book_file.h's work.

#include "base/text.h"

#include <optional>

struct BookEntry {
    Text name; ///< in its display spelling
    Text chapterCount; ///< as the index gives it: decimal digits in a well-formed line
};

/// One line of the index, without its line end: the name, "|" and the number of chapters. Nothing for a line of
/// another number of fields.
std::optional<BookEntry> ParseIndexLine(TextView line);

#pragma once
// The text export ("imp") that SWORD's mod2imp writes of a Bible module: a line "$$$Genesis 1:1",
// then the lines of that verse until the next such line. What the markup of a verse means is
// osis_text.h's work.

#include "kit/common/faults.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

struct ExportEntry {
    std::string_view book; ///< as the export spells it
    int chapter = 0; ///< 0 for what comes before the first chapter
    int verse = 0; ///< 0 for what comes before the first verse
    std::string_view text; ///< the lines of the entry, line ends between them
    int line = 0; ///< of the key
    int lastLine = 0; ///< the last line of the text, or the key's where there is none
};

/// Calls the listener with the entries of an export in their order, and with the number of bytes
/// read so far. Headings of the module and of its testaments are left out. The views point into
/// `bytes`. Reports what is malformed: other text at the start, keys that can't be read, lines that
/// aren't UTF-8, a last line without an end.
void ReadSwordExport(std::string_view bytes, std::string const& file, Faults& faults,
    std::function<void(ExportEntry const&, std::uint64_t)> const& listener);

#pragma once
// The import of a whole Bible: from the export of a SWORD module to an index and 66 book files
// (docs/formats/bible-files.md). The form of the export is sword_export.h's work, its markup
// osis_text.h's.

#include "kit/common/faults.h"
#include "kit/common/files.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct BibleImport {
    OutputFiles files; ///< relative to the folder of the disc
    std::size_t chapters = 0;
    std::size_t verses = 0;
    std::size_t paragraphs = 0; ///< verses with a paragraph mark
    /// paragraphs that begin inside of a verse, where the form has no mark for them
    std::size_t innerParagraphs = 0;
    std::size_t replaced = 0; ///< characters replaced by their nearest form in code page 1252
    std::vector<std::string> absent; ///< verses that translations often leave out and this one does
    std::vector<std::string> furtherBooks; ///< books other than the 66, left out
};

/// True if the reader can show this UTF-8 about a text: one line, not longer than it shows.
bool IsAboutText(std::string const& utf8);

/// `translation` is "kjv" or "nasb", the place that the texts take on the disc. `file` is the name
/// of the export in faults. Nothing if there are faults: each of the 66 books has to be there once,
/// with all its chapters, and all verses but those that translations often leave out. Romans
/// 16:25-27, which some exports glue to 14:23, are parted.
std::optional<BibleImport> ImportBible(std::string_view bytes, std::string const& file,
    std::string const& translation, Faults& faults);

#pragma once
// Checks for what a text of a source must not have, because the program would show it as something
// else (docs/formats/study-files.md describes how it reads a line).

#include "kit/common/faults.h"
#include "kit/study/source_entries.h"

#include <string>

/// Reports characters that the code page lacks, "/" inside of a text, and short names of books that
/// would be written out where no number follows.
void CheckTexts(SourceEntry const& entry, std::string const& file, Faults& faults);

/// Reports an entry without text.
void CheckHasText(SourceEntry const& entry, std::string const& file, Faults& faults);

/// Reports an entry without text, and one with several paragraphs.
void CheckOneParagraph(SourceEntry const& entry, std::string const& file, Faults& faults);

/// Reports a text that begins with one of these characters; `meaning` says what the program would
/// take it for.
void CheckBeginning(SourceEntry const& entry, TextView characters, std::string const& meaning,
    std::string const& file, Faults& faults);

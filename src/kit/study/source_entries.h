#pragma once
// The entries of a readable source: a key in the first column, its text after it and on indented
// lines below (docs/formats/study-source.md). study_source.h knows what the keys mean.

#include "base/text.h"
#include "kit/common/faults.h"

#include <string>
#include <string_view>
#include <vector>

struct SourceLine {
    Text text; ///< without blanks at its ends
    int line = 0; ///< counted from 1
};

/// Lines in a row, to be joined by blanks; at least one.
struct SourceParagraph {
    std::vector<SourceLine> lines;

    Text Joined() const;
    /// The line of the source that has the character at this place of the joined text.
    int LineAt(std::size_t place) const;
};

struct SourceEntry {
    Text key; ///< the words before the colon, without a label
    Text label; ///< what comes after the first word of "question 3a:"; else empty
    int line = 0;
    std::vector<SourceParagraph> paragraphs;

    /// All paragraphs, "/" between them.
    Text Joined() const;
};

/// Reads the entries of a source. Lines that belong to none and bytes that aren't UTF-8 are faults,
/// after which the reading continues.
std::vector<SourceEntry> ReadEntries(
    std::string_view bytes, std::string const& file, Faults& faults);

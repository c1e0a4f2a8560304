#pragma once
// The text file of one book: verse records, each a verse line, any continuation lines and an empty
// line. Its form and what a bad file gets stand in docs/formats/bible-files.md.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// In bytes. A book of more counts as unreadable; the longest of the King James Version has 0.3
/// million.
inline constexpr std::uint64_t largestBook = std::uint64_t { 8 } << 20;

/// In code page 1252, as all texts of a book file.
constexpr char paragraphMark = '\xB6';

struct VerseRecord {
    int chapter = 0;
    int verse = 0;
    bool startsParagraph = false; ///< its verse line carries the paragraph mark
    /// the lines without blanks at their ends, joined by one blank; what stands in the file, HTML
    /// entities included
    std::string text;
};

/// The text without blanks at its ends.
std::string_view TrimBlanks(std::string_view text);

/// The number in the three columns of a verse line from `column` (0: the first), blanks around it
/// allowed; nothing if there is none.
std::optional<int> ColumnNumber(std::string_view line, std::size_t column);

/// All records of a book file in file order. The first line of the file is no record's; a verse
/// line whose columns are no numbers is passed over with its continuation lines.
std::vector<VerseRecord> ReadVerseRecords(std::string_view bytes);

/// A record as lines of a book file, the empty one at its end included; lines end in CR LF. Lines
/// are broken at blanks so that none is longer than `width` characters where its words allow it.
/// Chapter and verse lie between 1 and 999; the text has single blanks alone, none at its ends, and
/// neither paragraph marks nor asterisks.
std::string WriteVerseRecord(VerseRecord const& record, std::size_t width);

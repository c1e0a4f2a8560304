#pragma once
// Reads and writes the text file of one book: verse records, each with a verse line, any number of
// continuation lines and an empty line (docs/formats/bible-files.md).

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// In bytes. A larger book counts as unreadable. The longest book of the King James Version has 0.3
/// million.
inline constexpr std::uint64_t largestBook = std::uint64_t { 8 } << 20;

// The marks of a verse line, in code page 1252 like all texts of a book file.
constexpr char paragraphMark = '\xB6';
constexpr char droppedMark = '*'; ///< no meaning; not shown

struct VerseRecord {
    int chapter = 0;
    int verse = 0;
    bool startsParagraph = false; ///< its verse line has the paragraph mark
    /// the lines, trimmed and joined by one blank, as the file has them, HTML entities included
    std::string text;
};

/// The text without blanks at its ends.
std::string_view TrimBlanks(std::string_view text);

/// A verse line, without its marks.
struct VerseLine {
    int chapter = 0;
    int verse = 0;
    std::string_view text; ///< may have blanks at its ends
};

/// Nothing for any other line (an empty one, one that begins with a blank), and for a verse line
/// whose columns hold no numbers.
std::optional<VerseLine> ParseVerseLine(std::string_view line);

/// All records of a book file in file order. The first line of the file belongs to no record. A
/// verse line whose columns hold no numbers is skipped with its continuation lines.
std::vector<VerseRecord> ReadVerseRecords(std::string_view bytes);

/// A record as lines of a book file, with the empty one at its end; lines end in CR LF. They are
/// broken at blanks, and none is longer than `width` characters unless a single word is. Chapter
/// and verse are between 1 and 999. The text is trimmed and has only single blanks and no marks.
std::string WriteVerseRecord(VerseRecord const& record, std::size_t width);

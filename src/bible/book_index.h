#pragma once
// The index of a translation: the books in the order of their numbers. Its form stands in
// docs/formats/bible-files.md. The text of the books is book_file.h's work.

#include "base/text.h"

#include <cstdint>
#include <optional>

/// In bytes. An index of more counts as unreadable.
inline constexpr std::uint64_t largestIndex = std::uint64_t { 16 } << 20;

struct BookEntry {
    Text name; ///< in its display spelling
    Text chapterCount; ///< as the index gives it: decimal digits in a well-formed line
};

/// One line of the index, without its line end: the name, "|" and the number of chapters. Nothing
/// for a line of another number of fields.
std::optional<BookEntry> ParseIndexLine(TextView line);

/// The number of chapters, 0 or more; nothing for a line that is against the form of the index:
/// without a name, or with a count that is no such number. Such a line is no book, but counts in
/// the numbering.
std::optional<std::int64_t> ChaptersOf(BookEntry const& book);

/// The search of a book by the beginning of its name, in any letter case, line by line of the
/// index. The first book that fits wins; its whole name then takes the place of what was searched
/// for.
class BookSearch {
public:
    explicit BookSearch(TextView beginning);

    /// Looks at the next line of the index, without its line end.
    void Take(TextView line);
    /// The number of the book, from 1; 0 if none fits.
    int Number() const { return m_number; }
    BookEntry const& Found() const { return m_found; }

private:
    Text m_sought; // in small letters
    BookEntry m_found;
    int m_line = 0;
    int m_number = 0;
};

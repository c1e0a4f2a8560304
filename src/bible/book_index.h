#pragma once
// The index of a translation: the books in the order of their numbers
// (docs/formats/bible-files.md). book_file.h reads the text of the books.

#include "base/text.h"

#include <cstdint>
#include <optional>

/// In bytes. A larger index counts as unreadable.
inline constexpr std::uint64_t largestIndex = std::uint64_t { 16 } << 20;

struct BookEntry {
    Text name; ///< in its display spelling
    Text chapterCount; ///< as the index gives it: decimal digits in a well-formed line
};

/// One line of the index, without its line end: the name, "|" and the number of chapters. Nothing
/// for a line with another number of fields.
std::optional<BookEntry> ParseIndexLine(TextView line);

/// The number of chapters, 0 or more. Nothing for a malformed line, without a name or with a count
/// that isn't such a number. It isn't a book, but counts in the numbering.
std::optional<std::int64_t> ChaptersOf(BookEntry const& book);

/// Searches the index, line by line, for a book by the beginning of its name, in any letter case.
/// Once a book has been found, only a later one whose name begins with its whole name replaces it.
class BookSearch {
public:
    explicit BookSearch(TextView beginning);

    /// Takes the next line of the index, without its line end.
    void Take(TextView line);
    /// The number of the book, from 1; 0 if none has been found.
    int Number() const { return m_number; }
    BookEntry const& Found() const { return m_found; }

private:
    Text m_sought; // in lower case
    BookEntry m_found;
    int m_line = 0;
    int m_number = 0;
};

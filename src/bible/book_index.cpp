#include "bible/book_index.h"

std::optional<BookEntry> ParseIndexLine(TextView line)
{
    auto const fields = Split(line, u'|');
    if (fields.size() != 2)
        return std::nullopt;
    return BookEntry { Text(fields[0]), Text(fields[1]) };
}

std::optional<std::int64_t> ChaptersOf(BookEntry const& book)
{
    auto const count = ToInteger(book.chapterCount);
    if (book.name.empty() || !count || *count < 0)
        return std::nullopt;
    return count;
}

BookSearch::BookSearch(TextView beginning)
    : m_sought(ToLower(beginning))
{
}

void BookSearch::Take(TextView line)
{
    ++m_line;
    auto book = ParseIndexLine(line);
    if (!book || !ChaptersOf(*book))
        return;
    Text name = ToLower(book->name);
    if (!name.starts_with(m_sought))
        return;
    m_sought = std::move(name);
    m_found = std::move(*book);
    m_number = m_line;
}

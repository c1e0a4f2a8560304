#include "bible/book_index.h"

std::optional<BookEntry> ParseIndexLine(TextView line)
{
    auto const fields = Split(line, u'|');
    if (fields.size() != 2)
        return std::nullopt;
    return BookEntry { Text(fields[0]), Text(fields[1]) };
}

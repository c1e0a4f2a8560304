// Any index and any beginning of a name: a line is two fields or no book, and the search ends at a
// book that fits, or there is none.

#include "base/code_page.h"
#include "bible/book_index.h"
#include "check.h"

#include <algorithm>

static bool IsBook(std::optional<BookEntry> const& entry)
{
    auto const chapters = entry ? ChaptersOf(*entry) : std::nullopt;
    CHECK(!chapters || (*chapters >= 0 && !entry->name.empty()));
    return chapters.has_value();
}

static void CheckLine(TextView line, std::optional<BookEntry> const& entry)
{
    CHECK(entry.has_value() == (std::count(line.begin(), line.end(), u'|') == 1));
    if (entry)
        CHECK(entry->name + u"|" + entry->chapterCount == line);
}

/// The first line is the beginning, the others are the index.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    Text const text = FromCodePage({ reinterpret_cast<char const*>(data), size });
    auto const lines = Split(text, u'\n');
    Text const beginning = ToLower(lines[0]);
    BookSearch search(lines[0]);
    Text sought = beginning;
    int number = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        auto const entry = ParseIndexLine(lines[i]);
        CheckLine(lines[i], entry);
        search.Take(lines[i]);
        if (!IsBook(entry) || !ToLower(entry->name).starts_with(sought))
            continue;
        sought = ToLower(entry->name);
        number = static_cast<int>(i);
    }
    CHECK(search.Number() == number);
    if (number == 0)
        return 0;
    auto const& found = search.Found();
    CHECK(found.name + u"|" + found.chapterCount == lines[static_cast<std::size_t>(number)]);
    CHECK(ToLower(found.name).starts_with(beginning));
    return 0;
}

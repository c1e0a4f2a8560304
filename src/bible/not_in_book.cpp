#include "bible/not_in_book.h"

#include "bible/book_file.h"
#include "bible/book_lines.h"

#include <algorithm>

/// The lowest and the highest number of a verse of the chapter; nothing if it has no verses.
static std::optional<std::pair<int, int>> VersesOf(std::string_view bookFile, int chapter)
{
    std::optional<std::pair<int, int>> verses;
    BookLines lines(bookFile);
    lines.Next(); // the first line is not a verse
    while (lines.HasNext()) {
        auto const line = ParseVerseLine(lines.WithoutMarks(lines.Next()).line);
        if (line && line->chapter == chapter)
            verses = verses ? std::pair(std::min(verses->first, line->verse),
                         std::max(verses->second, line->verse))
                            : std::pair(line->verse, line->verse);
    }
    return verses;
}

static Text HasSo(TextView what, std::int64_t many, TextView unit)
{
    return Text(what) + u" has " + FromNumber(many) + u" " + Text(unit) + (many == 1 ? u"" : u"s");
}

Text NotInBook(BookEntry const& book, WantedVerses const& wanted, std::string_view bookFile)
{
    auto const chapters = ChaptersOf(book);
    if (wanted.chapter.empty() || !chapters)
        return {};
    int const chapter = wanted.chapterNumber;
    bool const isOutside = chapter < 1 || chapter > *chapters;
    if (!isOutside && wanted.verses.empty())
        return {};
    auto const verses = VersesOf(bookFile, chapter);
    if (isOutside && !verses) {
        bool const mayBeVerse = *chapters == 1 && chapter > 1 && wanted.verse.empty();
        return HasSo(book.name, *chapters, u"chapter")
            + (mayBeVerse ? u". For the verse type " + book.name + u" 1:" + FromNumber(chapter)
                          : Text());
    }
    bool const isBeyond
        = verses && std::any_of(wanted.verses.begin(), wanted.verses.end(), [&](auto const& range) {
              return std::min(range.first, range.second) < verses->first
                  || std::max(range.first, range.second) > verses->second;
          });
    return isBeyond ? HasSo(book.name + u" " + FromNumber(chapter), verses->second, u"verse")
                    : Text();
}

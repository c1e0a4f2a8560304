// Any reference: the cleaning takes blanks alone, the book is what stands in front of the last one,
// and a verse is wanted exactly when its numbers are.

#include "base/code_page.h"
#include "bible/reference.h"
#include "check.h"

#include <algorithm>

static Text WithoutBlanks(Text text)
{
    std::erase(text, u' ');
    return text;
}

static void CheckCleaning(Text const& reference, Text const& clean)
{
    CHECK(WithoutBlanks(clean) == WithoutBlanks(reference));
    CHECK(!clean.starts_with(u' ') && !clean.ends_with(u' '));
    if (reference.find(u"  ") != Text::npos)
        return;
    CHECK(CleanReference(clean) == clean);
    CHECK(clean.find(u" :") == Text::npos && clean.find(u": ") == Text::npos);
}

static bool IsInRange(int number)
{
    return number >= INT16_MIN && number <= INT16_MAX;
}

/// The verse of a reference to a single one, else 0.
static int SingleVerse(WantedVerses const& wanted)
{
    bool const isNumber = !wanted.verse.empty() && wanted.verse.size() < 5
        && std::all_of(wanted.verse.begin(), wanted.verse.end(),
            [](char16_t digit) { return digit >= u'0' && digit <= u'9'; });
    int verse = 0;
    for (char16_t const digit : isNumber ? wanted.verse : Text())
        verse = verse * 10 + (digit - u'0');
    return verse;
}

static void CheckVerses(WantedVerses const& wanted)
{
    CHECK(IsInRange(wanted.chapterNumber));
    for (auto const& [from, to] : wanted.verses)
        CHECK(IsInRange(from) && IsInRange(to));
    int const single = SingleVerse(wanted);
    for (int chapter = -1; chapter < 4; ++chapter)
        for (int verse : { -1, 0, 1, 2, 16, 999, single, single + 1 }) {
            bool const isWanted = VerseWanted(wanted, chapter, verse);
            bool const isChapter = wanted.chapter.empty() || wanted.chapterNumber == chapter;
            CHECK(!isWanted || (wanted.isReadable && isChapter));
            if (wanted.isReadable && wanted.verse.empty())
                CHECK(isWanted == isChapter);
            if (wanted.isReadable && single > 0)
                CHECK(isWanted == (isChapter && verse == single));
        }
}

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    Text const reference = FromCodePage({ reinterpret_cast<char const*>(data), size });
    Text const clean = CleanReference(reference);
    CheckCleaning(reference, clean);

    Text const book = GetBookName(reference);
    auto const wanted = ReadWantedVerses(reference);
    CHECK(clean.starts_with(book));
    if (book == clean) {
        CHECK(wanted.isReadable && wanted.chapter.empty() && wanted.verse.empty());
    } else {
        Text const numbers = clean.substr(book.size());
        CHECK(numbers.rfind(u' ') == 0);
        CHECK(numbers.substr(1).starts_with(
            wanted.verse.empty() ? wanted.chapter : wanted.chapter + u":" + wanted.verse));
    }
    CheckVerses(wanted);
    return 0;
}

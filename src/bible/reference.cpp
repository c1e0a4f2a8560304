// A reference is read from its end. The last blank separates the book from the numbers, but only if
// the reference ends in a digit: "Song of Solomon" is a whole book, "1 Samuel" too. The numbers are
// split at ":" into chapter and verses, the verses at "," into ranges, a range at "-":
//
//     " 1  John 3 : 16 - 18, 20"
//     "1 John 3:16-18,20"            CleanReference
//     "1 John"                       GetBookName
//     3 and {16, 18}, {20, 20}       ReadWantedVerses
//
// Each number has to fit 16 bits. A number that doesn't, or isn't one, makes the whole reference
// unreadable; then no verse is wanted.

#include "bible/reference.h"

#include <algorithm>
#include <cstdint>
#include <optional>

static bool EndsInDigit(TextView text)
{
    return !text.empty() && IsDigit(text.back());
}

/// Removes the blanks around the commas and dashes of the verses, which come after the last colon.
static void CloseUpVerses(Text& reference)
{
    auto const colon = reference.rfind(u':');
    if (colon == Text::npos)
        return;
    Text verses = reference.substr(colon);
    for (TextView const mark : { u",", u"-" }) {
        ReplaceAll(verses, u" " + Text(mark), mark);
        ReplaceAll(verses, Text(mark) + u" ", mark);
    }
    reference.replace(colon, Text::npos, verses);
}

Text CleanReference(TextView reference)
{
    Text clean(Trim(reference));
    ReplaceAll(clean, u"  ", u" ");
    ReplaceAll(clean, u": ", u":");
    ReplaceAll(clean, u" :", u":");
    CloseUpVerses(clean);
    return clean;
}

Text GetBookName(TextView reference)
{
    Text const clean = CleanReference(reference);
    auto const blank = clean.rfind(u' ');
    return blank != Text::npos && EndsInDigit(clean) ? clean.substr(0, blank) : clean;
}

static std::optional<int> Number(TextView digits)
{
    auto const number = ToInteger(digits);
    if (!number || *number < INT16_MIN || *number > INT16_MAX)
        return std::nullopt;
    return static_cast<int>(*number);
}

/// "16-18,20" as pairs of numbers; nothing for any other text.
static std::optional<std::vector<std::pair<int, int>>> ReadRanges(TextView text)
{
    std::vector<std::pair<int, int>> ranges;
    for (TextView const range : Split(text, u',')) {
        auto const dash = range.find(u'-', 1); // one at the start is a sign
        auto const from = Number(range.substr(0, dash));
        auto const to = dash == TextView::npos ? from : Number(range.substr(dash + 1));
        if (!from || !to)
            return std::nullopt;
        ranges.emplace_back(*from, *to);
    }
    return ranges;
}

WantedVerses ReadWantedVerses(TextView reference)
{
    WantedVerses wanted;
    Text const clean = CleanReference(reference);
    auto const blank = clean.rfind(u' ');
    if (blank == Text::npos || !EndsInDigit(clean))
        return wanted;
    auto const fields = Split(TextView(clean).substr(blank + 1), u':');
    wanted.chapter = fields[0];
    if (fields.size() > 1)
        wanted.verse = fields[1];
    if (!wanted.chapter.empty()) {
        auto const number = Number(wanted.chapter);
        wanted.isReadable = number.has_value();
        wanted.chapterNumber = number.value_or(0);
    }
    if (!wanted.verse.empty()) {
        auto ranges = ReadRanges(wanted.verse);
        wanted.isReadable = wanted.isReadable && ranges;
        wanted.verses = std::move(ranges).value_or(std::vector<std::pair<int, int>>());
    }
    return wanted;
}

bool VerseWanted(WantedVerses const& wanted, int thisChapter, int thisVerse)
{
    if (!wanted.isReadable || (!wanted.chapter.empty() && wanted.chapterNumber != thisChapter))
        return false;
    return wanted.verses.empty()
        || std::any_of(wanted.verses.begin(), wanted.verses.end(), [=](auto const& range) {
               return range.first <= thisVerse && thisVerse <= range.second;
           });
}

// The expansion of abbreviated book names, declared in codec.h.

#include "study/codec.h"

#include <iterator>

namespace {

struct BookName {
    TextView abbreviation, name;
};

constexpr BookName bookNames[] = {
    { u"Pro.", u"Proverbs" },
    { u"Prov.", u"Proverbs" },
    { u"Jn.", u"John" },
    { u"Ps.", u"Psalms" },
    { u"Gen.", u"Genesis" },
    { u"Sam.", u"Samuel" },
    { u"Ro.", u"Romans" },
    { u"Zech.", u"Zechariah" },
    { u"Ecc.", u"Ecclesiastes" },
    { u"Eccl.", u"Ecclesiastes" },
    { u"Cor.", u"Corinthians" },
    { u"Eph.", u"Ephesians" },
    { u"Ja.", u"James" },
    { u"Pe.", u"Peter" },
    { u"Mal.", u"Malachi" },
    { u"Matt.", u"Matthew" },
    { u"Gal.", u"Galatians" },
    { u"Tim.", u"Timothy" },
    { u"Ex.", u"Exodus" },
    { u"Nu.", u"Numbers" },
    { u"De.", u"Deuteronomy" },
    { u"Dt.", u"Deuteronomy" },
    { u"Deut.", u"Deuteronomy" },
    { u"Ju.", u"Judges" },
    { u"Heb.", u"Hebrews" },
    { u"Jos.", u"Joshua" },
    { u"Is.", u"Isaiah" },
    { u"Thess.", u"Thessalonians" },
    { u"Chr.", u"Chronicles" },
    { u"Ne.", u"Nehemiah" },
    { u"Ti.", u"Timothy" },
    { u"Rev.", u"Revelation" },
    { u"Phil.", u"Philippians" },
    { u"Ru.", u"Ruth" },
    { u"Pet.", u"Peter" },
    { u"Mk.", u"Mark" },
    { u"Lu.", u"Luke" },
    { u"Rom.", u"Romans" },
    { u"Jer.", u"Jeremiah" },
    { u"Ph.", u"Philippians" },
    { u"Dan.", u"Daniel" },
    { u"Col.", u"Colossians" },
    { u"Jon.", u"Jonah" },
};

constexpr std::size_t longestAbbreviation = 6;

/// The book whose abbreviation ends with the full stop at `stop`, or null. An abbreviation is one
/// capital, a few lower-case letters and the full stop, so at most one can end there.
BookName const* FindBook(TextView text, std::size_t stop)
{
    auto start = stop;
    while (start > 0 && stop - start < longestAbbreviation - 1 && IsLowerLetter(text[start - 1]))
        --start;
    if (start == stop || start == 0 || text[start - 1] < u'A' || text[start - 1] > u'Z')
        return nullptr;
    auto const abbreviation = text.substr(start - 1, stop - start + 2);
    for (auto const& book : bookNames)
        if (book.abbreviation == abbreviation)
            return &book;
    return nullptr;
}

/// Where the next full stop is, or the end of the text.
std::size_t NextStop(TextView text, std::size_t from)
{
    auto const found = text.find(u'.', from);
    return found == TextView::npos ? text.size() : found;
}

} // namespace

void ExpandBookNames(Text& text)
{
    // One pass is enough: a full name contains no full stop and can't begin an abbreviation.
    Text expanded;
    std::size_t copied = 0;
    for (auto stop = NextStop(text, 0); stop < text.size(); stop = NextStop(text, stop + 1)) {
        auto const book = FindBook(text, stop);
        if (!book)
            continue;
        auto const start = stop + 1 - book->abbreviation.size();
        expanded.append(text, copied, start - copied).append(book->name);
        copied = stop + 1;
    }
    if (copied > 0)
        text = std::move(expanded.append(text, copied));
    // Last, since a name that was just inserted may be part of it ("Rev.s").
    ReplaceAll(text, u"Revelations", u"Revelation");
}

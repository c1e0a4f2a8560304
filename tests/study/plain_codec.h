#pragma once
// Decoding and the expansion of book names in their plain form: one replacement after the other
// over the whole text. Slow, and right at a glance; what the fast ones are held against.

#include "base/code_page.h"
#include "study/codec.h"

inline Text Decoded(std::string_view raw, Turns& turns)
{
    Text line;
    DecodeLine(raw, turns, line);
    return line;
}

inline Text DecodedForTheCatalogue(std::string_view raw)
{
    Text line;
    DecodeCatalogueLine(raw, line);
    return line;
}

inline Text PlainlyExpanded(Text text)
{
    static constexpr char16_t const* names[][2] = { { u"Pro.", u"Proverbs" },
        { u"Prov.", u"Proverbs" }, { u"Jn.", u"John" }, { u"Ps.", u"Psalms" },
        { u"Gen.", u"Genesis" }, { u"Sam.", u"Samuel" }, { u"Ro.", u"Romans" },
        { u"Zech.", u"Zechariah" }, { u"Ecc.", u"Ecclesiastes" }, { u"Eccl.", u"Ecclesiastes" },
        { u"Cor.", u"Corinthians" }, { u"Eph.", u"Ephesians" }, { u"Ja.", u"James" },
        { u"Pe.", u"Peter" }, { u"Mal.", u"Malachi" }, { u"Matt.", u"Matthew" },
        { u"Gal.", u"Galatians" }, { u"Tim.", u"Timothy" }, { u"Ex.", u"Exodus" },
        { u"Nu.", u"Numbers" }, { u"De.", u"Deuteronomy" }, { u"Dt.", u"Deuteronomy" },
        { u"Deut.", u"Deuteronomy" }, { u"Ju.", u"Judges" }, { u"Heb.", u"Hebrews" },
        { u"Jos.", u"Joshua" }, { u"Is.", u"Isaiah" }, { u"Thess.", u"Thessalonians" },
        { u"Chr.", u"Chronicles" }, { u"Ne.", u"Nehemiah" }, { u"Ti.", u"Timothy" },
        { u"Rev.", u"Revelation" }, { u"Revelations", u"Revelation" }, { u"Phil.", u"Philippians" },
        { u"Ru.", u"Ruth" }, { u"Pet.", u"Peter" }, { u"Mk.", u"Mark" }, { u"Lu.", u"Luke" },
        { u"Rom.", u"Romans" }, { u"Jer.", u"Jeremiah" }, { u"Ph.", u"Philippians" },
        { u"Dan.", u"Daniel" }, { u"Col.", u"Colossians" }, { u"Jon.", u"Jonah" } };
    static_assert(std::size(names) == 44);
    for (auto const& [abbreviation, name] : names)
        ReplaceAll(text, abbreviation, name);
    return text;
}

inline Text PlainlyDescrambled(std::string_view raw)
{
    if (!raw.starts_with('!'))
        return FromCodePage(raw);
    if (raw.size() < 3)
        return {};
    auto const key = static_cast<unsigned char>(raw.back());
    Text text = FromCodePage(raw.substr(1, raw.size() - 2));
    for (char16_t& character : text)
        if (IsLowerLetter(character))
            character = static_cast<char16_t>(97 + ((character - 97) - (key - 97) + 26) % 26);
    return text;
}

inline void ReplaceUntilGone(Text& text, TextView from, TextView to)
{
    while (Contains(text, from))
        ReplaceAll(text, from, to);
}

inline Text PlainlyDecodedForTheCatalogue(std::string_view raw)
{
    Text text = PlainlyDescrambled(raw);
    ReplaceUntilGone(text, u"//", u"/");
    ReplaceUntilGone(text, u"\r\n\r\n", u"\r\n");
    ReplaceUntilGone(text, u"\t", u" ");
    return text;
}

inline Text PlainlyDecoded(std::string_view raw)
{
    Text text = PlainlyDecodedForTheCatalogue(raw);
    ReplaceUntilGone(text, u"  ", u" ");
    return Text(Trim(text));
}

#pragma once
// The expansion of book names in its plain form: one replacement after the other over the whole
// text. Slow, and right at a glance; what the fast one is held against.

#include "base/text.h"

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

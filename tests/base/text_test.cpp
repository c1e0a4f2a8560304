#include "base/code_page.h"
#include "base/failure.h"
#include "base/text.h"

#include <gmock/gmock.h>

#include <cmath>

using testing::ElementsAre;

TEST(Text, NumbersAtTheStartOfATextAreRead)
{
    struct {
        char16_t const* text;
        double value;
    } const rows[] = { { u"12", 12 }, { u"012:3", 12 }, { u"  7 x", 7 }, { u"-3", -3 },
        { u"+3", 3 }, { u"0.3", 0.3 }, { u"1.15.2", 1.15 }, { u".5", 0.5 }, { u"5.", 5 },
        { u"1e3", 1 }, { u"2,5", 2 }, { u"- 3", 0 }, { u"", 0 }, { u"   ", 0 }, { u"-", 0 },
        { u".", 0 }, { u"-.", 0 }, { u"+-3", 0 }, { u"inf", 0 }, { u"nan", 0 }, { u"0x1F", 0 },
        { u"\t4", 0 }, { u"\u0663", 0 }, { u"99999999999", 99999999999.0 } };
    for (auto const& row : rows)
        EXPECT_EQ(NumericValue(row.text), row.value) << ToUtf8(row.text);
    EXPECT_EQ(NumericValue(Text(400, u'9')), HUGE_VAL);
    EXPECT_EQ(NumericValue(u"-" + Text(400, u'9')), -HUGE_VAL);
    EXPECT_EQ(NumericValue(u"0." + Text(400, u'0') + u"1"), 0);
}

TEST(Text, OnlyAWholeIntegerIsAnInteger)
{
    struct {
        char16_t const* text;
        std::optional<std::int64_t> value;
    } const rows[] = { { u"0", 0 }, { u" 42 ", 42 }, { u"-7", -7 }, { u"+7", 7 }, { u"007", 7 },
        { u"9223372036854775807", INT64_MAX }, { u"-9223372036854775808", INT64_MIN },
        { u"9223372036854775808", {} }, { u"", {} }, { u" ", {} }, { u"-", {} }, { u"+", {} },
        { u"+-7", {} }, { u"--7", {} }, { u"1-2", {} }, { u"1 2", {} }, { u"1.0", {} },
        { u"7x", {} }, { u"\u0167", {} } };
    for (auto const& row : rows)
        EXPECT_EQ(ToInteger(row.text), row.value) << ToUtf8(row.text);
}

TEST(Text, SplittingTrimmingReplacing)
{
    EXPECT_THAT(Split(u"a|b||", u'|'), ElementsAre(u"a", u"b", u"", u""));
    EXPECT_THAT(Split(u"", u'|'), ElementsAre(u""));
    EXPECT_EQ(Trim(u"  a b  "), u"a b");
    EXPECT_EQ(Trim(u" \t "), u"\t");
    EXPECT_EQ(Trim(u"   "), u"");

    struct {
        char16_t const *text, *from, *to, *result;
    } const rows[] = {
        { u"a//b/c", u"/", u"\r\n", u"a\r\n\r\nb\r\nc" },
        { u"aaa", u"aa", u"a", u"aa" }, // from left to right, what was put in isn't looked at again
        { u"abab", u"ab", u"", u"" },
        { u"abc", u"x", u"y", u"abc" },
        { u"a", u"a", u"aa", u"aa" },
    };
    for (auto const& row : rows) {
        Text text = row.text;
        ReplaceAll(text, row.from, row.to);
        EXPECT_EQ(text, row.result) << ToUtf8(row.text);
    }
}

TEST(Text, AnyTextReturnsFromUtf8)
{
    Text all;
    for (unsigned code = 0; code < 0x10000; ++code)
        all.push_back(static_cast<char16_t>(
            code)); // Ends of the surrogates' range pair up; the rest stand alone.
    EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
    for (char16_t const* text :
        { u"\U00010000", u"\U0010FFFF", u"a\xD800", u"\xDC00\xD800", u"\xD83D\xD83D\xDE00" })
        EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
    EXPECT_EQ(ToUtf8(u"\U0001F600"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf8(u"\u00E9\u20AC"), "\xC3\xA9\xE2\x82\xAC");
}

TEST(Text, WhatIsNoUtf8BecomesTheReplacementCharacter)
{
    struct {
        char const* bytes;
        char16_t const* text;
    } const rows[] = {
        { "a\x80z", u"a\uFFFDz" },
        { "\xC0\x80", u"\uFFFD\uFFFD" }, // overlong
        { "\xE0\x80\x80z", u"\uFFFD\uFFFD\uFFFDz" },
        { "\xF0\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD" },
        { "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD" }, // above U+10FFFF
        { "\xFF", u"\uFFFD" },
        { "\xE2\x82", u"\uFFFD\uFFFD" }, // cut off
        { "\xC3z", u"\uFFFDz" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(FromUtf8(row.bytes), row.text) << testing::PrintToString(row.bytes);
}

TEST(CodePage, AllBytesReturn)
{
    std::string bytes;
    for (int value = 0; value < 256; ++value)
        bytes.push_back(static_cast<char>(value));
    Text const text = FromCodePage(bytes);
    EXPECT_EQ(ToCodePage(text), bytes);
    EXPECT_EQ(FromCodePage("\x80\x81\x8D\x8F\x90\x92\x9D\x9F\xB6\xFF"),
        u"\u20AC\u0081\u008D\u008F\u0090\u2019\u009D\u0178\u00B6\u00FF");
}

TEST(CodePage, LacksWhatItHasNoByteFor)
{
    for (char16_t const character :
        { u'\u0080', u'\u0092', u'\u0100', u'\u0411', u'\uFF21', u'\xD83D' })
        EXPECT_FALSE(CodePageByte(character)) << static_cast<int>(character);
    EXPECT_FALSE(ToCodePage(u"plain \u0411"));
}

TEST(Failure, TheMessageLeavesOutWhatIsMissing)
{
    EXPECT_EQ((Failure { u"a.dat", 3, u"bad" }).Message(), u"a.dat, line 3: bad.");
    EXPECT_EQ((Failure { u"a.dat", 0, u"bad" }).Message(), u"a.dat: bad.");
    EXPECT_EQ((Failure { u"", 3, u"bad" }).Message(), u"line 3: bad.");
    EXPECT_EQ((Failure { u"", 0, u"bad" }).Message(), u"bad.");
}

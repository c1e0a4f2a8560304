// Lines from their raw bytes to their text.

#include "study/codec.h"

#include "plain_codec.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using namespace std::literals;

static Text Decoded(std::string_view raw)
{
    Turns turns;
    return Decoded(raw, turns);
}

TEST(Codec, DecodesLinesForTheLessonAndForTheCatalogue)
{
    struct Row {
        std::string_view raw;
        TextView lesson, catalogue;
    };
    static constexpr Row rows[] = {
        { "", u"", u"" },
        { "!", u"", u"" },
        { "!x", u"", u"" },
        { "!bb", u"a", u"a" },
        { " !bb", u"!bb", u" !bb" },
        { "!Abc, xyz: 12/3.a", u"Abc, xyz: 12/3.", u"Abc, xyz: 12/3." },
        { "!Jbexfxk!, ybz: 12/3.x", u"Jehaian!, bec: 12/3.", u"Jehaian!, bec: 12/3." },
        { "!ABC 123b", u"ABC 123", u"ABC 123" },
        { "!\xE9\x80\xFF\x62z", u"\u00E9\u20AC\u00FFc", u"\u00E9\u20AC\u00FFc" },
        { "///", u"/", u"/" },
        { "http://a", u"http:/a", u"http:/a" },
        { "!a//b///ca", u"a/b/c", u"a/b/c" },
        { " \t ", u"", u"   " },
        { "a \t b", u"a b", u"a   b" },
        { "  a  b ", u"a b", u"  a  b " },
        { "!  b  a", u"b", u"  b  " },
        { "a\r\n\r\n\r\n\r\nb", u"a\r\nb", u"a\r\nb" },
        { "\r\r\n\r\n\n\r\n", u"\r\r\n\n\r\n", u"\r\r\n\n\r\n" },
        { "a\n\nb\r\rc", u"a\n\nb\r\rc", u"a\n\nb\r\rc" },
        { "/ /", u"/ /", u"/ /" },
        { "a\0b"sv, u"a\0b"sv, u"a\0b"sv },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(Decoded(row.raw), row.lesson) << row.raw;
        EXPECT_EQ(DecodedForTheCatalogue(row.raw), row.catalogue) << row.raw;
    }
}

TEST(Codec, AShiftOutsideTheLettersFollowsTheSameFormula)
{
    // 97 + the remainder, with the sign of the dividend, of (0 to 25) - (tail - 97) + 26 by 26.
    EXPECT_EQ(Decoded("!az{"), u"az") << "a shift of 26 turns the alphabet once";
    EXPECT_EQ(Decoded("!az|"), u"`y") << "a shift of 27 goes below a";
    EXPECT_EQ(Decoded("!az\xFF"), u"_^") << "a shift of 158";
    EXPECT_EQ(Decoded("!azA"), u"gf") << "a shift of -32";
    EXPECT_EQ(Decoded("!az\0"sv), u"ts") << "a shift of -97";
}

TEST(Codec, ReusesALineWithoutATraceOfItsText)
{
    Turns turns;
    Text line = u"what stood here before";
    DecodeLine("!bcdb", turns, line);
    EXPECT_EQ(line, u"abc");
    DecodeLine("!", turns, line);
    EXPECT_EQ(line, u"");
}

TEST(Codec, GivesATurnForTheLineAndForEachScrambledCharacter)
{
    auto const given = [](std::string_view raw) {
        Turns turns;
        Decoded(raw, turns);
        return turns.Given();
    };
    EXPECT_EQ(given(""), 1u);
    EXPECT_EQ(given("a plain line"), 1u);
    EXPECT_EQ(given("!a"), 1u);
    EXPECT_EQ(given("!ab"), 2u);
    EXPECT_EQ(given("!a  //  b\ta"), 10u) << "as many as the body has, before it is tidied";
}

TEST(Codec, ADueTurnComesAtItsCharacter)
{
    std::vector<Turns::Count> seen;
    Turns* armed = nullptr;
    Turns turns([&] {
        seen.push_back(armed->Given());
        armed->Arm(seen.size() < 3 ? seen.size() * 4 : Turns::never);
    });
    armed = &turns;
    turns.Arm(1);
    EXPECT_EQ(Decoded("!" + std::string(20, 'b') + "b", turns), Text(20, u'a'));
    EXPECT_EQ(seen, (std::vector<Turns::Count> { 1, 5, 13 }));
    EXPECT_EQ(turns.Given(), 21u);
}

TEST(Codec, LongLinesCollapseWhole)
{
    auto const repeated = [](std::string_view part) {
        std::string text;
        for (int i = 0; i < 100'000; ++i)
            text += part;
        return text;
    };
    EXPECT_EQ(Decoded(repeated("/")), u"/");
    EXPECT_EQ(Decoded(repeated("\t")), u"");
    EXPECT_EQ(Decoded("a" + repeated(" ") + "b"), u"a b");
    EXPECT_EQ(Decoded(repeated("\r\n")), u"\r\n");
    EXPECT_EQ(Decoded("!" + repeated("bcd") + "b").size(), 300'000u) << "beyond 16 bits";
}

TEST(Codec, DecodesLikeOneReplacementAfterTheOther)
{
    static constexpr std::string_view pieces[]
        = { "/", "/", " ", " ", "\t", "\r", "\n", "\r\n", "\r\n", "abc", "X",
              "a long stretch without any of them, so that runs fall on every place" };
    std::mt19937 random(2);
    for (int round = 0; round < 2'000; ++round) {
        std::string raw = round % 2 == 0 ? "!" : "";
        for (auto length = random() % 150; length > 0; --length)
            for (auto times = 1 + random() % 4, piece = random() % std::size(pieces); times > 0;
                 --times)
                raw += pieces[piece];
        raw += "dz{\xFF"[random() % 4];
        ASSERT_EQ(Decoded(raw), PlainlyDecoded(raw)) << round;
        ASSERT_EQ(DecodedForTheCatalogue(raw), PlainlyDecodedForTheCatalogue(raw)) << round;
    }
}

TEST(BookNames, ExpandsAbbreviations)
{
    struct Row {
        TextView text, expanded;
    };
    static constexpr Row rows[] = {
        { u"Pro. 3, Prov. 3, Ecc. 1, Eccl. 1",
            u"Proverbs 3, Proverbs 3, Ecclesiastes 1, Ecclesiastes 1" },
        { u"Phil. 1; Ph. 1; Pe. 1; Pet. 1; Ro. 1; Rom. 1",
            u"Philippians 1; Philippians 1; Peter 1; Peter 1; Romans 1; Romans 1" },
        { u"Rev. and Revelations", u"Revelation and Revelation" },
        { u"Rev.s, Revelationss", u"Revelation, Revelations" },
        { u"This Is. Not this is.", u"This Isaiah Not this is." },
        { u"1Jn.2Jn..Jn", u"1John2John.Jn" },
        { u"MJn. xThess. Thesss. hess.", u"MJohn xThessalonians Thesss. hess." },
        { u".", u"." },
        { u"", u"" },
    };
    for (auto const& row : rows) {
        Text text(row.text);
        ExpandBookNames(text);
        EXPECT_EQ(text, row.expanded);
    }
}

TEST(BookNames, ExpandsLikeOneReplacementAfterTheOther)
{
    static constexpr TextView pieces[]
        = { u"Pro", u"Prov", u"Jn", u"Ps", u"Rev", u"Revelation", u"elation", u"Ro", u"m", u"Is",
              u"Thess", u"Zech", u"Ecc", u"l", u"Pe", u"t", u"Phil", u"Jo", u"s", u"n", u"Ti",
              u"Deut", u"Matthew", u"Ruth", u"a", u"J", u" ", u".", u".", u".", u"..", u"s" };
    std::mt19937 random(1);
    for (int round = 0; round < 20'000; ++round) {
        Text text;
        for (auto length = random() % 12; length > 0; --length)
            text += pieces[random() % std::size(pieces)];
        Text expanded = text;
        ExpandBookNames(expanded);
        ASSERT_EQ(expanded, PlainlyExpanded(text)) << ToUtf8(text);
    }
}

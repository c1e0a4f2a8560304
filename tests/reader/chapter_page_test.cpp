#include "reader/chapter_page.h"

#include "base/code_page.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

constexpr TextView head = u"<html><head><title>Bible Reader</title>\r\n"
                          u"<script language=\"JavaScript\">\r\n"
                          u"<!--\r\n"
                          u"document.oncontextmenu = function(){return false}\r\n"
                          u"//-->\r\n"
                          u"</script>\r\n"
                          u"</head>\r\n"
                          u"<body background=\"file:///the/disc\\bg.jpg\">\r\n"
                          u"<font size=2 face=\"verdana\">\r\n";
constexpr TextView tail = u"</body></html>";

/// What stands between the page's head and its end; verses are marked by "#" and chapters by "=",
/// to be short.
std::string Body(std::string_view file, TextView reference, bool runsOn = false)
{
    auto const page = BuildChapterPage(file, { u"/the/disc", runsOn, ReadWantedVerses(reference) });
    EXPECT_TRUE(page && page->starts_with(head) && page->ends_with(tail));
    auto body = page->substr(head.size(), page->size() - head.size() - tail.size());
    for (int chapter = 0; chapter < 120; ++chapter) {
        Text const number = FromNumber(chapter);
        ReplaceAll(body,
            u"<a name=chapter" + number + u"><p><b><font face=\"Arial\" color=darkblue>Chapter "
                + number + u"</font></b><p>\r\n",
            u"=" + number + u"= ");
    }
    ReplaceAll(body, u"</sup>&nbsp;", u"# ");
    ReplaceAll(body, u"<sup>", u"");
    return ToUtf8(body);
}

TEST(ChapterPage, HasItsExactText)
{
    auto const verse = "title\r\n002 001 alpha\r\n beta\r\n\r\n"s;
    Text const shown
        = u"<a name=chapter2><p><b><font face=\"Arial\" color=darkblue>Chapter 2</font></b><p>\r\n"
          u"<sup>1</sup>&nbsp;alpha beta  ";
    for (bool const runsOn : { false, true }) {
        auto const page
            = BuildChapterPage(verse, { u"/the/disc", runsOn, ReadWantedVerses(u"John 2") });
        EXPECT_EQ(ToUtf8(page.value_or(u"")),
            ToUtf8(Text(head) + shown + (runsOn ? u" " : u"<p>\r\n") + Text(tail)));
    }
    EXPECT_EQ(EmptyPage(u"/the/disc"),
        u"<html><head><title>Bible Reader</title></head>\r\n<body "
        u"background=\"file:///the/disc\\bg.jpg\">\r\n</body></html>\r\n");
}

TEST(ChapterPage, ShowsWhatTheReferenceAsksFor)
{
    auto const file = "title\r\n\xB6"
                      "001 001 a\r\n more\r\n\r\n001 002 b\r\n\r\n\xB6"
                      "002 001 c\r\n \xB6"
                      "d\r\n\r\n2   2   e\r\n\r\n"s;
    struct {
        TextView reference;
        bool runsOn;
        char const* body;
    } const rows[] = {
        { u"John", false,
            "<p>=1= 1# a more  <p>\r\n2# b  <p>\r\n<p>=2= 1# c \xC2\xB6"
            "d  <p>\r\n2# e  <p>\r\n" },
        { u"John", true,
            "<p>=1= 1# a more   2# b   <p>=2= 1# c \xC2\xB6"
            "d   2# e   " },
        { u"John 1", false,
            // the marks of what isn't shown start paragraphs
            "<p>=1= 1# a more  <p>\r\n2# b  <p>\r\n<p><p>" },
        { u"John 2:2", false, "<p><p><p>=2= 2# e  <p>\r\n" },
        { u"John 2:1,2", true,
            "<p><p>=2= 1# c \xC2\xB6"
            "d   2# e   " },
        { u"John 9", false, "<p><p><p>" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Body(file, row.reference, row.runsOn), row.body)
            << ToUtf8(row.reference) << row.runsOn;
}

TEST(ChapterPage, TakesTheLinesAsTheyAre)
{
    struct {
        char const* what;
        std::string file;
        std::string body;
    } const rows[] = {
        { "an empty file", "", "" },
        { "one line, which is none of a verse", "001 001 a", "" },
        { "a verse in the first line", "001 001 a\n\n001 002 b\n\n", "=1= 2# b  <p>\r\n" },
        { "line feeds alone", "\n001 001 a\n b\n\n", "=1= 1# a b  <p>\r\n" },
        { "carriage returns anywhere", "\r\n00\r1 001 a\r\r\n b\rc\r\n\r\r\n",
            "=1= 1# a bc  <p>\r\n" },
        { "lone carriage returns are no line ends", "\r001 001 a\r\r", "" },
        { "a verse line at the very end", "\n001 001 a", "=1= 1# a <p>\r\n" },
        { "a verse line and a line end", "\n001 001 a\n", "=1= 1# a  <p>\r\n" },
        { "a continuation line at the very end", "\n001 001 a\n b", "=1= 1# a b <p>\r\n" },
        { "no empty line between", "\n001 001 a\n001 002 b\n\n001 003 c\n\n",
            "=1= 1# a 001 002 b  <p>\r\n3# c  <p>\r\n" },
        { "a line of blanks ends a verse", "\n001 001 a\n   \n001 002 b\n\n",
            "=1= 1# a  <p>\r\n2# b  <p>\r\n" },
        { "blanks at the ends", "\n001 001   a  \n    b   \n\n", "=1= 1# a b  <p>\r\n" },
        { "tabs are no blanks", "\n001 001\ta\t\n\tb\n\n", "=1= 1# a\t \tb  <p>\r\n" },
        { "chapters out of order", "\n002 001 a\n\n001 001 b\n\n002 002 c\n\n",
            "=2= 1# a  <p>\r\n=1= 1# b  <p>\r\n=2= 2# c  <p>\r\n" },
        { "three digits", "\n119 176 a\n\n", "=119= 176# a  <p>\r\n" },
        { "no text", "\n001 001\n\n001 002 \n\n", "=1= 1#   <p>\r\n2#   <p>\r\n" },
        { "columns that aren't read", "\n001x001ya\n\n", "=1= 1# a  <p>\r\n" },
        { "columns that are no numbers",
            "\nx01 001 a\n b\n\n001 0y1 c\n\n001\n\n    \n\n001 002 d\n\n", "=1= 2# d  <p>\r\n" },
        { "marks in front, within and behind",
            "\n*\xB6*001\xB6 *001 *a*\xB6"
            "b*\n\n",
            "<p>=1= 1# ab  <p>\r\n" },
        { "asterisks alone", "\n*001 0*01 a*b\n\n", "=1= 1# ab  <p>\r\n" },
        { "marks behind the verse line stay", "\n001 001 a\n *b\xB6*\n\n",
            "=1= 1# a *b\xC2\xB6*  <p>\r\n" },
        { "a line of marks", "\n\xB6*\n***\n\xB6\xB6\n001 001 a\n\n", "<p><p>=1= 1# a  <p>\r\n" },
        { "a continuation by its mark", "\n* 001 001 a\n\xB6 001 001 a\n 001 001 a\n\n", "<p>" },
        { "HTML", "\n001 001 <b>a & b</b> &#1488;\n <i>\n\n",
            "=1= 1# <b>a & b</b> &#1488; <i>  <p>\r\n" },
        { "all of the code page", "\n001 001 \x93\xE9\x81\x80\x94\n\n",
            "=1= 1# \xE2\x80\x9C\xC3\xA9\xC2\x81\xE2\x82\xAC\xE2\x80\x9D  <p>\r\n" },
        { "NUL bytes", "\n001 001 a\0b\n \0\n\n"s, "=1= 1# a\0b \0  <p>\r\n"s },
        { "NUL bytes for numbers", "\n\0\0\0 001 a\n\n001 001 b\n\n"s, "=1= 1# b  <p>\r\n" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Body(row.file, u"John"), row.body) << row.what;
}

TEST(ChapterPage, TakesLinesOfAnyLength)
{
    std::string const length(10'000'000, 'a');
    auto const page = BuildChapterPage("\n001 001 " + length + "\n b\n\n" + length + "\n" + length,
        { u"/the/disc", true, ReadWantedVerses(u"John 1:1") });
    EXPECT_TRUE(page
        && page->ends_with(
            u"<sup>1</sup>&nbsp;" + Text(length.size(), u'a') + u" b   " + Text(tail)));
}

TEST(ChapterPage, TellsItsListenerEachLineAndTurn)
{
    auto const file = "title\n001 001 a\n more\n and more\n\n001 002 b\n\n\n002 001 c\n d\n\n"s;
    struct {
        TextView reference;
        char const* told; // lines by their number, turns by "."
    } const rows[] = { { u"John", "11: 1... 5. 7 8.. 11" },
        { u"John 1:2", "11: 1 2 3 4 5. 7 8 9 10 11" }, { u"John 3", "11: 1 2 3 4 5 6 7 8 9 10 11" },
        { u"John 2", "11: 1 2 3 4 5 6 7 8.. 11" } };
    for (auto const& row : rows) {
        std::string told;
        PageListener const listener { [&](int last) { told += std::to_string(last) + ':'; },
            [&](int line) { told += ' ' + std::to_string(line); },
            [&] { return !(told += '.').empty(); } };
        EXPECT_TRUE(
            BuildChapterPage(file, { u"", false, ReadWantedVerses(row.reference) }, listener));
        EXPECT_EQ(told, row.told) << ToUtf8(row.reference);
    }
}

TEST(ChapterPage, IsGivenUpInAnyTurn)
{
    auto const file = "title\n001 001 a\n more\n\n001 002 b\n\n"s;
    for (int end = 1; end <= 4; ++end) {
        int turns = 0;
        PageListener listener;
        listener.turn = [&] { return ++turns < end; };
        auto const page
            = BuildChapterPage(file, { u"", false, ReadWantedVerses(u"John") }, listener);
        EXPECT_EQ(page.has_value(), end > 3) << end;
        EXPECT_EQ(turns, std::min(end, 3)) << end;
    }
}

} // namespace

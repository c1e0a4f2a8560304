#include "bible/book_file.h"

#include "base/code_page.h"
#include "bible/book_index.h"
#include "support/page_examples.h"

#include <gtest/gtest.h>

namespace {

/// The records as lines of their own: "1:2 paragraph: text".
std::string Dump(std::vector<VerseRecord> const& records)
{
    std::string text;
    for (auto const& record : records)
        text += std::to_string(record.chapter) + ':' + std::to_string(record.verse)
            + (record.startsParagraph ? " paragraph: " : ": ") + record.text + '\n';
    return text;
}

TEST(BookFile, ReadsAndWritesTheExampleOfItsPage)
{
    auto const blocks = FencedBlocks("bible-files.md");
    ASSERT_EQ(blocks.size(), 3u);
    auto const bytes = *ToCodePage(FromUtf8(blocks[1]));
    auto const records = ReadVerseRecords(bytes);
    EXPECT_EQ(Dump(records), blocks[2]);

    std::string written = "Jude\r\n";
    for (auto const& record : records)
        written += WriteVerseRecord(record, 70);
    std::erase(written, '\r');
    EXPECT_EQ(written, bytes);
}

TEST(BookFile, ReadsWhatOtherHandsWrote)
{
    struct Row {
        char const* what;
        char const* lines;
        char const* read;
    };
    Row const rows[] = {
        { "a verse in the first line", "001 001 a\n\n001 002 b\n\n", "1:2: b\n" },
        { "numbers on the left, blanks around them", "\n1    2  a\n\n1   12  b\n\n",
            "1:2: a\n1:12: b\n" },
        { "marks anywhere in the verse line",
            "\n0\xB6"
            "01 *001 a*b\n\n",
            "1:1 paragraph: ab\n" },
        { "marks in a continuation line stay", "\n001 001 a\n *b\xB6\n\n", "1:1: a *b\xB6\n" },
        { "blanks around each line", "\n001 001   a  \n   b \n\n", "1:1: a b\n" },
        { "no empty line between two verses", "\n001 001 a\n001 002 b\n\n001 003 c\n",
            "1:1: a 001 002 b\n1:3: c\n" },
        { "no line end at the end", "\n001 001 a", "1:1: a\n" },
        { "an empty text", "\n001 001\n b\n\n", "1:1:  b\n" },
        { "columns without numbers", "\nx01 001 a\n b\n\n001 0y1 c\n\n001\n\n001 002 d\n\n",
            "1:2: d\n" },
        { "nothing at all", "", "" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Dump(ReadVerseRecords(row.lines)), row.read) << row.what;
}

TEST(BookFile, BreaksLinesAtBlanksAlone)
{
    struct Row {
        char const* text;
        char const* lines;
    };
    Row const rows[] = {
        { "aaaa bbbb cccc", "001 001 aaaa\r\n bbbb cccc\r\n\r\n" },
        { "aaaaaaaaaaaaaaaaaaaaaaaa b", "001 001 aaaaaaaaaaaaaaaaaaaaaaaa\r\n b\r\n\r\n" },
        { "a bbbbbbbbbbbbbbbbbbbbbbbb c", "001 001 a\r\n bbbbbbbbbbbbbbbbbbbbbbbb\r\n c\r\n\r\n" },
        { "", "001 001\r\n\r\n" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(WriteVerseRecord({ 1, 1, false, row.text }, 12), row.lines) << row.text;
}

TEST(BookIndex, TakesLinesOfTwoFields)
{
    EXPECT_EQ(ParseIndexLine(u"1 Samuel|31")->name, u"1 Samuel");
    EXPECT_EQ(ParseIndexLine(u"1 Samuel|31")->chapterCount, u"31");
    for (auto const* const line : { u"", u"Ruth", u"Ruth|4|x" })
        EXPECT_FALSE(ParseIndexLine(line)) << ToUtf8(line);
}

} // namespace

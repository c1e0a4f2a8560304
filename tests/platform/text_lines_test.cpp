// Lines of a file that arrives in blocks of any size.

#include "platform/text_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

using namespace std::literals;

namespace {

/// A file that hands out its bytes in blocks of one size, and fails where it is told to.
class BlockFile final : public InputFile {
public:
    BlockFile(std::string bytes, std::size_t block, std::size_t failAt = std::string::npos)
        : m_bytes(std::move(bytes))
        , m_block(block)
        , m_failAt(failAt)
    {
    }
    Outcome<std::size_t> Read(std::span<char> to) override
    {
        if (m_at >= m_failAt)
            return Failure { u"f", 0, u"the disc is scratched" };
        auto const count = std::min({ m_block, m_bytes.size() - m_at, to.size() });
        std::memcpy(to.data(), m_bytes.data() + m_at, count);
        m_at += count;
        return count;
    }

private:
    std::string m_bytes;
    std::size_t m_block, m_failAt, m_at = 0;
};

TextLines LinesOf(std::string_view bytes, std::size_t block, std::size_t failAt = std::string::npos)
{
    return TextLines(std::make_unique<BlockFile>(std::string(bytes), block, failAt), u"f.txt");
}

std::vector<std::string> AllLines(TextLines lines)
{
    std::vector<std::string> all;
    while (!lines.AtEnd()) {
        auto const line = lines.NextBytes();
        if (!line) {
            all.push_back("! " + ToUtf8(line.failure().Message()));
            break;
        }
        all.emplace_back(*line);
    }
    return all;
}

} // namespace

TEST(TextLines, ALineThatIsTooLongEndsTheReading)
{
    std::string const longest(TextLines::longestLine, 'x');
    EXPECT_EQ(
        AllLines(LinesOf("a\n" + longest + "\r\nb", 65536)), (std::vector { "a"s, longest, "b"s }));
    for (std::string const behind : { "x\nb", "xx", "x\r\nb\n", "xxxxx\n" })
        EXPECT_EQ(AllLines(LinesOf("a\n" + longest + behind, 65536)),
            (std::vector { "a"s, "! f.txt, line 2: a line is longer than 16 MB."s }));
}

TEST(TextLines, PartsBytesIntoLines)
{
    struct Row {
        std::string_view bytes;
        std::vector<std::string> lines;
    };
    Row const rows[] = { { "", {} }, { "\n", { "" } }, { "a", { "a" } }, { "a\n", { "a" } },
        { "a\n\n", { "a", "" } }, { "a\r\nb\r\n", { "a", "b" } }, { "a\r\r\nb", { "a\r", "b" } },
        { "a\rb\n\rc", { "a\rb", "\rc" } }, { "last\r", { "last\r" } }, { "\r\n\r\n", { "", "" } },
        { "a\0b\n\0\n"sv, { "a\0b"s, "\0"s } } };
    for (auto const& row : rows)
        for (std::size_t const block : { 1u, 2u, 3u, 100u })
            EXPECT_EQ(AllLines(LinesOf(row.bytes, block)), row.lines)
                << row.bytes << " in " << block;
}

TEST(TextLines, ReadsLinesOfAnyLength)
{
    std::string const endless(10'000'000, 'x');
    auto lines = LinesOf(endless, 1 << 20);
    EXPECT_EQ(*lines.NextBytes(), endless);
    EXPECT_TRUE(lines.AtEnd());

    std::string const around(65'535, 'y'); // the line feed is the last byte of a block
    EXPECT_EQ(AllLines(LinesOf(around + "\n" + around + "\r\nz", 1 << 20)),
        (std::vector<std::string> { around, around, "z" }));
}

TEST(TextLines, CountsLinesAndNamesThemInAFailure)
{
    auto lines = LinesOf("a\nb", 1);
    EXPECT_EQ(lines.LineNumber(), 0);
    EXPECT_EQ(*lines.Next(), u"a");
    EXPECT_EQ(*lines.Next(), u"b");
    EXPECT_EQ(lines.LineNumber(), 2);
    EXPECT_TRUE(lines.AtEnd());
    EXPECT_EQ(lines.Next().failure().Message(), u"f.txt, line 2: the file ends here.");
}

TEST(TextLines, WholeLinesBeforeAFailureAreRead)
{
    for (std::size_t const block : { 1u, 3u })
        EXPECT_EQ(AllLines(LinesOf("a\nb\nhalf a line", block, 6)),
            (std::vector<std::string> { "a", "b", "! f.txt, line 2: the disc is scratched." }));
    EXPECT_EQ(AllLines(LinesOf("", 1, 0)),
        (std::vector<std::string> { "! f.txt: the disc is scratched." }));
}

#include "reader/print_wrapped.h"

#include <gtest/gtest.h>

namespace {

/// A printer whose characters are 10 twips wide and whose page is 1,000 wide, from 20 on. It writes
/// what it prints as "<x>text" for each piece that doesn't follow the one before, and "/" for a
/// line end.
class DumpingPrinter final : public Printer {
public:
    std::string dump;
    float top = 0;

    void SetTitle(TextView) override { }
    void SetFont(Font const&) override { }
    float ScaleLeft() const override { return 20; }
    float ScaleWidth() const override { return 1000; }
    float ScaleHeight() const override { return 1000; }
    float CurrentX() const override { return m_x; }
    void SetCurrentX(float x) override { m_x = x; }
    void SetCurrentY(float y) override { top = y; }
    float TextWidth(TextView text) const override { return static_cast<float>(text.size()) * 10; }
    float LineHeight() const override { return 20; }
    void Print(TextView text) override
    {
        if (text.empty())
            return;
        if (m_x != m_end)
            dump += '<' + std::to_string(static_cast<int>(m_x)) + '>';
        dump += ToUtf8(text);
        m_x += TextWidth(text);
        m_end = m_x;
    }
    void EndLine() override
    {
        dump += '/';
        m_x = 0;
        m_end = -1;
    }
    void NewPage() override { }
    void EndDoc() override { }

private:
    float m_x = 0;
    float m_end = -1; // of the last piece of the line
};

/// Prints with a left margin of 100 and a column that ends at 200: ten characters wide.
std::string Wrapped(TextView text, std::int32_t rightMargin = 820)
{
    DumpingPrinter printer;
    PrintWrapped(printer, text, 100, rightMargin);
    EXPECT_EQ(printer.top, 100);
    return printer.dump;
}

TEST(PrintWrapped, BreaksLinesBeforeWords)
{
    struct {
        TextView text;
        char const* printed;
    } const rows[] = {
        { u"", "" },
        { u"ten in all", "<100>ten in all" },
        { u"one twothree", "<100>one /<100>twothree" },
        { u"1234567890", "<100>1234567890" },
        { u"12345678901 b", "/<100>12345678901 /<100>b" }, // too wide, at the very start
        { u"a 12345678901", "<100>a /<100>12345678901" },
        { u"1234567890    b", "<100>1234567890    /<100>b" }, // blanks aren't tested
        { u"  a", "<100>  a" },
        { u"a\r\nb", "<100>a/<100>b" },
        { u"a\rb", "<100>ab" },
        { u"a\n\n\nb\n", "<100>a///<100>b/" },
        { u"\r\n\r\n", "//" },
        { TextView(u"a\0\x1F\x0B"
                   "b",
              5),
            "<100>ab" },
        { u"a\u00A0b",
            "<100>a\xC2\xA0"
            "b" }, // above the blank: no separator
        { u"12345678901\tb", "/<100>12345678901/<100>b" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Wrapped(row.text), row.printed) << ToUtf8(row.text);
}

TEST(PrintWrapped, LeadsTabsToStopsFromTheEdge)
{
    struct {
        TextView text;
        char const* printed;
    } const rows[] = {
        { u"\tb", "<200>b" }, // at a stop already: a full interval on
        { u"a\tb", "<100>a<200>b" },
        { u"123456789\tb", "<100>123456789<200>b" },
        { u"1234567890\tb", "<100>1234567890<300>b" },
        { u"a\t\tb", "<100>a<300>b" },
        { u"a\n\tb", "<100>a/<200>b" },
        { u"a \t b", "<100>a <200> b" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Wrapped(row.text, 0), row.printed) << ToUtf8(row.text);
}

TEST(PrintWrapped, PrintsTextsOfAnyLength)
{
    Text text;
    std::string printed;
    for (int i = 0; i < 20'000; ++i) {
        text += u"word word ";
        printed += i == 0 ? "<100>word word " : "/<100>word word ";
    }
    EXPECT_EQ(Wrapped(text), printed);
    EXPECT_EQ(Wrapped(Text(100'000, u'x')), "/<100>" + std::string(100'000, 'x'));
}

} // namespace

#include "controls/log_form.h"

#include <climits>
#include <random>

namespace {

/// The text with its runs and paragraphs in one line: "[b8.25]text" for runs, "{left,hanging}" for
/// paragraphs.
std::string Dump(RichTextBox const& box)
{
    std::string dump;
    auto run = box.Runs().begin();
    auto paragraph = box.Paragraphs().begin();
    for (int at = 0; at <= box.Length(); ++at) {
        if (paragraph != box.Paragraphs().end() && paragraph->start == at) {
            auto const& format = paragraph++->format;
            dump += "{" + std::to_string(static_cast<int>(format.left)) + ","
                + std::to_string(static_cast<int>(format.hanging)) + "}";
        }
        if (run != box.Runs().end() && run->start == at) {
            auto const& format = run++->format;
            dump += std::string("[") + (format.bold ? "b" : "")
                + std::to_string(static_cast<int>(format.size)) + (format.raise > 0 ? "^]" : "]");
        }
        dump += ToUtf8(TextView(box.Text()).substr(static_cast<std::size_t>(at), 1));
    }
    std::replace(dump.begin(), dump.end(), '\r', '~');
    std::replace(dump.begin(), dump.end(), '\n', '|');
    return dump;
}

class RichTextBoxTest : public FormsTest {
protected:
    RichTextBoxTest() { a.Show(); }

    void Append(TextView text)
    {
        box.SelStart = box.Length();
        box.ReplaceSelection(text);
    }
    void Select(int start, int length)
    {
        box.SelStart = start;
        box.SelLength = length;
    }

    RichTextBox& box = a.first;
};

} // namespace

TEST_F(RichTextBoxTest, AppendingTakesTheFormatBeforeTheCaretUnlessAnotherIsSet)
{
    box.SelBold = true;
    box.ReplaceSelection(u"Head\r\n");
    box.SelStart = box.Length();
    box.SelBold = false;
    box.SelHangingIndent = 210;
    box.SelFontSize = 4;
    box.SelCharOffset = 35;
    box.ReplaceSelection(u"1");
    box.SelStart = box.Length();
    box.SelCharOffset = 0;
    box.SelFontSize = 8;
    box.ReplaceSelection(u" verse\r\n");
    Append(u"next");
    EXPECT_EQ(Dump(box), "{0,0}[b8]Head~|{0,210}[4^]1[8] verse~|{0,210}next");
}

TEST_F(RichTextBoxTest, AppendingIsNoRevisionOfWhatStands)
{
    Append(u"one\r\n");
    auto const revision = box.Revision();
    Append(u"two\r\n");
    box.SelHangingIndent = 210; // Of the last line, which is still empty.
    Append(u"three");
    EXPECT_EQ(box.Revision(), revision);
    Select(0, box.Length());
    box.SelIndent = 150;
    EXPECT_NE(box.Revision(), revision);
    EXPECT_EQ(Dump(box), "{150,0}[8]one~|{150,0}two~|{150,210}three");
}

TEST_F(RichTextBoxTest, FormatsPartsOfTheTextAndKeepsTheOthers)
{
    Append(u"abcdef");
    Select(2, 2);
    box.SelBold = true;
    Select(3, 2);
    box.SelFontSize = 12;
    EXPECT_EQ(Dump(box), "{0,0}[8]ab[b8]c[b12]d[12]e[8]f");
    Select(1, 4);
    box.ReplaceSelection(u"X\nY");
    EXPECT_EQ(Dump(box), "{0,0}[8]aX~|{0,0}Yf");
    EXPECT_EQ(box.SelStart, 5);
}

TEST_F(RichTextBoxTest, TheCaretStaysWithinTheTextAndOutOfLineEnds)
{
    Append(u"ab\r\ncd");
    struct {
        int start, length, wantedStart, wantedLength;
    } const rows[]
        = { { 3, 0, 2, 0 }, { -4, 2, 0, 2 }, { 0, 3, 0, 2 }, { 1, 99, 1, 5 }, { 99, 99, 6, 0 } };
    box.Selected(4, INT_MAX);
    EXPECT_EQ(box.SelLength, 2);
    for (auto const& row : rows) {
        Select(row.start, row.length);
        EXPECT_EQ(box.SelStart, row.wantedStart) << row.start << "+" << row.length;
        EXPECT_EQ(box.SelLength, row.wantedLength) << row.start << "+" << row.length;
    }
}

TEST_F(RichTextBoxTest, SettingTheTextStartsAnewAndRaisesChange)
{
    Append(u"old");
    TakeLog();
    box.Text = u"lone\rends\nand\r\nwhole";
    EXPECT_THAT(TakeLog(), testing::ElementsAre("a.first change"));
    EXPECT_EQ(box.Text(), u"lone\r\nends\r\nand\r\nwhole");
    EXPECT_EQ(box.Paragraphs().size(), 4U);
    EXPECT_EQ(box.SelStart, 0);
}

/// Edits at random places leave runs and paragraphs that fit the text, as if it had been written at
/// once.
TEST_F(RichTextBoxTest, RandomEditsKeepRunsAndParagraphsInStep)
{
    std::mt19937 random(20240229);
    auto const below
        = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    Text const pieces[] = { u"a", u"\r\n", u"bc\r\nd", u"", u"\r\n\r\n", u"x\ny" };
    for (int round = 0; round < 2000; ++round) {
        Select(below(box.Length() + 1), below(6));
        switch (below(4)) {
        case 0:
            box.SelBold = !box.SelBold;
            break;
        case 1:
            box.SelHangingIndent = static_cast<float>(below(3));
            break;
        case 2:
            box.ReplaceSelection(pieces[below(6)]);
            break;
        default:
            Text edited = box.Text();
            edited.insert(static_cast<std::size_t>(box.SelStart()), pieces[below(6)]);
            box.Edited(edited, box.SelStart, 0);
        }
        if (box.Length() > 60)
            box.Text = box.Text().substr(30);
        std::vector<int> lineStarts { 0 };
        for (int at = 0; at < box.Length(); ++at)
            if (box.Text()[static_cast<std::size_t>(at)] == u'\n')
                lineStarts.push_back(at + 1);
        ASSERT_EQ(box.Paragraphs().size(), lineStarts.size()) << round << ": " << Dump(box);
        for (std::size_t i = 0; i < lineStarts.size(); ++i)
            ASSERT_EQ(box.Paragraphs()[i].start, lineStarts[i]) << round << ": " << Dump(box);
        ASSERT_EQ(box.Runs().empty(), box.Length() == 0) << round;
        for (std::size_t i = 0; i < box.Runs().size(); ++i) {
            int const previous = i == 0 ? -1 : box.Runs()[i - 1].start;
            ASSERT_GT(box.Runs()[i].start, previous) << round << ": " << Dump(box);
            ASSERT_LT(box.Runs()[i].start, box.Length()) << round << ": " << Dump(box);
        }
        ASSERT_TRUE(box.Runs().empty() || box.Runs()[0].start == 0) << round;
    }
}

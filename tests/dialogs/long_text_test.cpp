#include "dialogs/long_text.h"

#include "controls/form.h"
#include "controls/screen.h"
#include "headless/headless_host.h"
#include "support/memory_file_system.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using enum LongTextStyle;

namespace {

class LongTextTest : public testing::Test {
protected:
    void Write(std::initializer_list<LongTextParagraph> text)
    {
        WriteLongText(box, std::vector(text));
    }

    /// The bold passages of the box.
    std::vector<std::string> Bold() const
    {
        std::vector<std::string> passages;
        auto const& runs = box.Runs();
        for (std::size_t i = 0; i < runs.size(); ++i) {
            auto const end = i + 1 < runs.size() ? static_cast<std::size_t>(runs[i + 1].start)
                                                 : box.Text().size();
            auto const start = static_cast<std::size_t>(runs[i].start);
            if (runs[i].format.bold)
                passages.push_back(ToUtf8(box.Text().substr(start, end - start)));
        }
        return passages;
    }

    MemoryFileSystem files;
    HeadlessHost host { files };
    Screen screen { host };
    Form form { screen, "form", u"Form", 3000, 3000 };
    RichTextBox box { form, form, "box", {} };
};

} // namespace

TEST_F(LongTextTest, HeadingsAndMarkedPassagesAreBold)
{
    Write({ { Title, u"All" }, { Paragraph, u"one *two* three *four*" },
        { Heading, u"*Plain* within" }, { Quotation, u"*a**b*" } });
    EXPECT_EQ(box.Text(), u"All\r\n\r\none two three four\r\n\r\nPlain within\r\n\r\nab\r\n\r\n");
    EXPECT_THAT(Bold(), ElementsAre("All", "two", "four", " within", "ab"));
    EXPECT_EQ(box.SelStart, 0) << "the text is read from its start";
}

TEST_F(LongTextTest, EachParagraphHasItsOwnIndents)
{
    Write({ { Indented, u"in" }, { Paragraph, u"out" }, { Numbered, u"1. one" } });
    std::vector<float> left, hanging;
    for (auto const& paragraph : box.Paragraphs()) {
        left.push_back(paragraph.format.left);
        hanging.push_back(paragraph.format.hanging);
    }
    // Each is followed by an empty one of its own look; the last, empty one is behind the last line
    // end.
    EXPECT_THAT(left, ElementsAre(360, 360, 0, 0, 180, 180, 180));
    EXPECT_THAT(hanging, ElementsAre(0, 0, 0, 0, 300, 300, 300));
}

TEST_F(LongTextTest, TheProgramsOwnTextsHaveTheirMarksInPairs)
{
    for (auto const text : { gettingStartedText, finalExamText })
        for (auto const& paragraph : text) {
            auto const& words = paragraph.text;
            EXPECT_FALSE(words.empty());
            EXPECT_EQ(std::count(words.begin(), words.end(), u'*') % 2, 0) << ToUtf8(words);
            EXPECT_EQ(words.find(u"  "), TextView::npos) << ToUtf8(words);
            EXPECT_EQ(words.find_first_of(u"\r\n\t"), TextView::npos) << ToUtf8(words);
        }
}

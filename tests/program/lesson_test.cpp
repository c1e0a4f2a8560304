#include "support/program_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(StudyTest, TheLoadFillsTheScreen)
{
    Open(u"james-1.dat:1");
    EXPECT_EQ(CaptionOf("frmMain.lblStudy"), u"A Working Faith");
    EXPECT_EQ(
        CaptionOf("frmMain.XPContainer3"), u"Lesson 1, Part One:  Faith Under Trial   James 1");
    auto const& intro = Get<RichTextBox>("frmMain.Text4");
    EXPECT_THAT(ToUtf8(intro.Text), StartsWith("Faith\r\n\r\nRead John twice.\r\n\r\nThen take"));
    EXPECT_THAT(ToUtf8(intro.Text), Not(HasSubstr("General")));
    EXPECT_EQ(intro.Runs().size(), 2U) << "two bold paragraphs, then plain ones";
    EXPECT_EQ(intro.Paragraphs()[1].format, (ParagraphFormat { 150, 150, 0 }));
    EXPECT_FALSE(Get("frmMain.Frame1").Visible);
    EXPECT_EQ(FormOf("frmMain").Focus(), &Get("frmMain.Text3"));
    EXPECT_EQ(Get<TextControl>("frmMain.Text4").BackColor, 0xFCF4EFU);

    Click("frmMain.mnuFileClose");
    Open(u"james-2.dat:1");
    EXPECT_EQ(CaptionOf("frmMain.XPContainer3"), u"Lesson 1, Part Two:  Faith Under Trial");
    EXPECT_EQ(TextOf("frmMain.Text4"), u"Short intro\r\n\r\nGeneral, see Romans 8.\r\n\r\nxc\r\n");
}

TEST_F(StudyTest, PagesShowByTheirLabelsAndTexts)
{
    Open(u"james-1.dat:1");
    struct {
        int page;
        TextView label, text;
    } const rows[] = {
        { 1, u"1.", u"Who wrote this?\r\n\r\nLook at the greeting.\r\n\r\n" },
        { 2, u"2.", u"How will you use it?\r\n\r\n" },
        { 3, u"", u"Blankless\r\n\r\n" },
        { 4, u"", u"No label\r\n\r\n" },
        { 5, u"", u"The end.\r\n\r\nGo on.\r\n\r\n" },
    };
    EXPECT_EQ(Get<ScrollBar>("frmMain.ctlScrollbar").Max, 5);
    for (auto const& row : rows) {
        GoTo(row.page);
        EXPECT_EQ(CaptionOf("frmMain.lblPageTitle"), row.label) << row.page;
        EXPECT_EQ(TextOf("frmMain.Text2"), row.text) << row.page;
        EXPECT_EQ(settings.Value(u"james-1.dat:1", u"currentindex"), FromNumber(row.page));
        EXPECT_EQ(Get("frmMain.Command2").Enabled, row.page > 1) << row.page;
        EXPECT_EQ(
            Get("frmMain.ctlScrollbar").ToolTipText(), u"Page " + FromNumber(row.page) + u" of 5");
    }
    auto const& text2 = Get("frmMain.Text2");
    auto const& text3 = Get("frmMain.Text3");
    EXPECT_EQ(text2.Height, std::min(3200.0F, Get("frmMain.XPContainer2").Height / 2 - 650));
    EXPECT_EQ(text3.Top, text2.Height + text2.Top + 105);
    EXPECT_EQ(text3.Height, Get("frmMain.Image1").Top - text3.Top);
    EXPECT_EQ(text2.Width, Get("frmMain.Image2").Width - text2.Left - 320);
    EXPECT_EQ(Get<ProgressBar>("frmMain.ProgressBar1").Min, 1);
    EXPECT_EQ(Get<ProgressBar>("frmMain.ProgressBar1").Max, 5);
    EXPECT_EQ(Get<ProgressBar>("frmMain.ProgressBar1").Value, 5);

    Click("frmMain.mnuFileClose");
    Open(u"james-2.dat:1");
    GoTo(2);
    EXPECT_EQ(CaptionOf("frmMain.lblPageTitle"), u"- Well done.")
        << "congratulations end the lesson themselves";
    EXPECT_EQ(TextOf("frmMain.Text2"), u"Well done. Congratulations on the lesson\r\n\r\n");
    EXPECT_EQ(Get<ScrollBar>("frmMain.ctlScrollbar").Max, 2);

    files.Put(u"conclusion.txt", "");
    Click("frmMain.mnuFileClose");
    Open(u"james-1.dat:1");
    GoTo(5);
    EXPECT_EQ(TextOf("frmMain.Text2"), u"") << "an empty conclusion";
}

TEST_F(StudyTest, NextFollowsTheAnswer)
{
    Open(u"james-1.dat:1");
    auto& next = Get("frmMain.Command1");
    EXPECT_FALSE(next.Enabled);
    Write("frmMain.Text3", u"  ");
    EXPECT_FALSE(next.Enabled) << "blanks are no answer";
    Write("frmMain.Text3", u"x");
    EXPECT_TRUE(next.Enabled);
    Click("frmMain.Command1");
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page1"), u"  x");
    EXPECT_EQ(TextOf("frmMain.Text3"), u"");
    EXPECT_FALSE(next.Enabled);
    Click("frmMain.Command2");
    EXPECT_TRUE(next.Enabled) << "an answer that is there counts at once";
    GoTo(5);
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page2"), u"")
        << "an empty box that was left is stored as well";
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page3"), u"(none)")
        << "a page that was never visited isn't";
    Write("frmMain.Text3", u"end");
    EXPECT_TRUE(next.Enabled);
    Click("frmMain.Command1");
    EXPECT_EQ(Get<ScrollBar>("frmMain.ctlScrollbar").Value, 5);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(StudyTest, ALessonReturnsToItsPageWithEveryAnswerUntouched)
{
    struct {
        TextView stored;
        int page;
    } const rows[]
        = { { u"3", 3 }, { u"1", 1 }, { u"99", 5 }, { u"0", 1 }, { u"-4", 1 }, { u"three", 1 },
              { u"70000", 5 }, { u"99999999999999999999999999", 5 }, { u"", 1 }, { u"1e9", 1 } };
    for (auto const& row : rows) {
        ASSERT_TRUE(settings.Write(u"james-1.dat:1", u"currentindex", row.stored));
        for (int page = 1; page <= 5; ++page)
            ASSERT_TRUE(settings.Write(
                u"james-1.dat:1", u"Page" + FromNumber(page), u"answer\r\n" + FromNumber(page)));
        Open(u"james-1.dat:1");
        EXPECT_EQ(Get<ScrollBar>("frmMain.ctlScrollbar").Value, row.page) << ToUtf8(row.stored);
        EXPECT_EQ(TextOf("frmMain.Text3"), u"answer\r\n" + FromNumber(row.page))
            << ToUtf8(row.stored);
        EXPECT_EQ(Get<RichTextBox>("frmMain.Text3").SelStart, 9);
        EXPECT_EQ(Get<ProgressBar>("frmMain.ProgressBar1").Value, row.page == 1 ? 0 : row.page);
        Click("frmMain.mnuFileClose");
        for (int page = 1; page <= 5; ++page)
            EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page" + FromNumber(page)),
                u"answer\r\n" + FromNumber(page));
    }
}

TEST_F(StudyTest, ThePublishersAnswerIsForThoseWhoWroteOne)
{
    Open(u"james-1.dat:1");
    TextView const vary = u"Answers will vary. Do you best to answer this application question "
                          u"because it will help you apply the truths you are learning to your "
                          u"personal life.";
    struct {
        int page;
        TextView written, shown;
    } const rows[] = {
        { 1, u"", u"Please enter your answer in the text box provided.\r\n\r\n" },
        { 1, u" ", u"Please enter your answer in the text box provided.\r\n\r\n" },
        { 1, u"mine", u"James, a servant.\r\n\r\nOf God.\r\n\r\n" },
        { 2, u"mine", vary },
        { 3, u"mine", vary },
        { 5, u"mine", u"" },
    };
    for (auto const& row : rows) {
        GoTo(row.page);
        Get<RichTextBox>("frmMain.Text3").Text = Text(row.written);
        Click("frmMain.Image1");
        EXPECT_EQ(CaptionOf("frmAnswer.Label1"), row.shown) << row.page << ToUtf8(row.written);
        auto const& label = Get("frmAnswer.Label1");
        auto const& button = Get("frmAnswer.OKButton");
        EXPECT_EQ(button.Top, label.Height + 370 + (row.shown == vary ? 300 : 0));
        EXPECT_EQ(FormOf("frmAnswer").Height, button.Top + 850);
        EXPECT_EQ(FormOf("frmAnswer").ScaleWidth, 5370);
        EXPECT_EQ(FormOf("frmAnswer").Left, Get("frmMain.XPContainer1").Left - 100);
        EXPECT_EQ(FormOf("frmAnswer").Top,
            (FormOf("frmMain").ScaleHeight - FormOf("frmAnswer").Height) / 2);
        Click(row.page == 1 ? "frmAnswer.Label1" : "frmAnswer.OKButton");
        EXPECT_FALSE(IsOpen("frmAnswer"));
    }
    Click("frmMain.Image1");
    EXPECT_EQ(input.Step(Get<ScrollBar>("frmMain.ctlScrollbar"), BarStep::Less), "");
    EXPECT_FALSE(IsOpen("frmAnswer")) << "a move to another page closes it";
}

TEST_F(StudyTest, PassagesFillTheTextAndTheTrees)
{
    Open(u"james-1.dat:1");
    auto const& text = Get<RichTextBox>("frmMain.Text1");
    Text const wanted
        = u"James 1:1\r\n\r\n 1 James, a servant of God.\r\n\r\n12 Blessed is the man.\r\n\r\n"
          u"1a\r\n\r\n"
          u"Jn. 3:16\r\n\r\n16 For God so loved.\r\n\r\n";
    EXPECT_EQ(text.Text().substr(0, wanted.size()), wanted);
    EXPECT_EQ(text.Length(), static_cast<int>(wanted.size()) + 80);
    auto const& main = Get<TreeView>("frmMain.TreeView1").Nodes();
    auto const& supplementary = Get<TreeView>("frmMain.TreeView2").Nodes();
    ASSERT_EQ(main.size(), 1U);
    ASSERT_EQ(supplementary.size(), 1U);
    EXPECT_EQ(main[0].Key(), u"item1");
    EXPECT_EQ(main[0].Tag(), u"0");
    EXPECT_EQ(supplementary[0].Key(), u"item1");
    EXPECT_EQ(supplementary[0].Tag(), FromNumber(static_cast<int>(wanted.find(u"Jn. 3:16"))));
    EXPECT_STREQ(std::get<char const*>(supplementary[0].Image()), "book");
    auto const number = std::find_if(text.Runs().begin(), text.Runs().end(),
        [](auto const& run) { return run.format.raise > 0; });
    EXPECT_EQ(number->format, (CharacterFormat { false, 4, 35 }));
    EXPECT_EQ((number + 1)->format, (CharacterFormat { false, 8, 0 }));
    EXPECT_EQ(text.Paragraphs()[2].format.hanging, 210);
    EXPECT_EQ(text.Paragraphs()[6].format.hanging, 0) << "a plain verse";
    Node("frmMain.TreeView2", u"item1");
    EXPECT_EQ(text.TopOffset, text.SelStart);
    EXPECT_EQ(FromNumber(text.SelStart), supplementary[0].Tag());
    EXPECT_EQ(text.SelLength, 0);
    EXPECT_EQ(Get<ScrollBar>("frmMain.ctlScrollbar").Value, 1);
}

TEST_F(StudyTest, TheClipboardEntriesWorkOnTheAnswerWhileItHasTheFocus)
{
    Open(u"james-1.dat:1");
    Write("frmMain.Text3", u"one two");
    input.Select(Get<TextInput>("frmMain.Text3"), 0, 3);
    Click("frmMain.mnuEditCopy");
    EXPECT_EQ(host.ClipboardText(), u"one");
    Click("frmMain.mnuEditCut");
    EXPECT_EQ(TextOf("frmMain.Text3"), u" two");
    Click("frmMain.mnuEditPaste");
    EXPECT_EQ(TextOf("frmMain.Text3"), u"one two");
    Click("frmMain.mnuEditCopy");
    EXPECT_EQ(host.ClipboardText(), u"") << "nothing selected leaves it empty";
    input.Focus(Get("frmMain.Text1"));
    EXPECT_FALSE(Get("frmMain.mnuEditPaste").Enabled);
    input.Focus(Get("frmMain.Text3"));
    EXPECT_TRUE(Get("frmMain.mnuEditPaste").Enabled);
}

TEST_F(StudyTest, AnswersAreDeletedWithTheirLesson)
{
    Open(u"james-1.dat:1");
    Write("frmMain.Text3", u"kept");
    GoTo(2);
    Click("frmMain.mnuEditDeleteLesson");
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page1"), u"(none)");
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"currentindex"), u"(none)");
    EXPECT_EQ(TextOf("frmMain.Text3"), u"");
    EXPECT_FALSE(Get("frmMain.Command1").Enabled);
    EXPECT_EQ(Get<ScrollBar>("frmMain.ctlScrollbar").Value, 2);
    Click("frmMain.mnuFileClose");
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page2"), u"")
        << "leaving the page stores its empty text";
}

TEST_F(StudyTest, EveryWayOutStoresTheAnswer)
{
    struct {
        char const* about;
        std::function<void()> leave;
    } const rows[] = {
        { "another study", [this] { Click("frmMain.mnuFileClose"); } },
        { "exit", [this] { Click("frmMain.mnuFileExit"); } },
        { "close box", [this] { input.Close(FormOf("frmMain")); } },
        { "end of the program", [this] { program.Finish(); } },
        { "another window", [this] { Click("frmMain.mnuHelpWelcome"); } },
        { "another program", [this] { screen.SuspendFocus(); } },
    };
    for (auto const& row : rows) {
        Open(u"james-1.dat:1");
        Get<RichTextBox>("frmMain.Text3").Text = u"";
        Write("frmMain.Text3", FromUtf8(row.about));
        row.leave();
        EXPECT_EQ(ToUtf8(settings.Value(u"james-1.dat:1", u"Page1")), row.about);
        program.Finish();
        screen.CloseAll();
    }
}

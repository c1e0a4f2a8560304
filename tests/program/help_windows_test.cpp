// The small windows beside the screens, each by itself.

#include "headless/keyboard.h"
#include "support/program_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class HelpWindowsTest : public StudyTest {
protected:
    HelpWindowsTest() { Start(); }
    int Tick() { return Get<CheckBox>("frmWelcome.Check1").Value; }
    Text Stored() const { return settings.Value(u"Parameters", u"showhelp"); }
    void Store(TextView value) { ASSERT_TRUE(settings.Write(u"Parameters", u"showhelp", value)); }
};

} // namespace

TEST_F(HelpWindowsTest, TheWelcomeBoxShowsTheStoredChoiceAndItsLabelTurnsItOver)
{
    struct {
        char const* stored; // nothing for no entry
        int tick;
        int clicks;
        TextView written;
    } const rows[]
        = { { nullptr, 0, 0, u"true" }, { nullptr, 0, 1, u"false" }, { "false", 1, 0, u"false" },
              { "false", 1, 1, u"true" }, { "false", 1, 2, u"false" }, { "true", 0, 2, u"true" },
              { "False", 0, 0, u"true" }, { "false ", 0, 0, u"true" }, { "", 0, 0, u"true" } };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.stored ? row.stored : "no entry");
        ASSERT_TRUE(settings.DeleteSection(u"Parameters", SettingsStore::NoBackup));
        if (row.stored)
            Store(FromUtf8(row.stored));
        auto const before = Stored();
        Click("frmContents.mnuHelpWelcome");
        EXPECT_EQ(Tick(), row.tick);
        for (int i = 0; i < row.clicks; ++i)
            Click("frmWelcome.Label2");
        EXPECT_EQ(Stored(), before) << "before OK";
        EXPECT_EQ(input.Close(FormOf("frmWelcome")), "");
        EXPECT_EQ(Stored(), before) << "nor by the close box";
        Click("frmContents.mnuHelpWelcome");
        EXPECT_EQ(Tick(), row.tick);
        for (int i = 0; i < row.clicks; ++i)
            Click(i == 0 ? "frmWelcome.Check1" : "frmWelcome.Label2");
        Click("frmWelcome.Command1");
        EXPECT_EQ(Stored(), row.written);
        EXPECT_FALSE(FormOf("frmWelcome").IsLoaded());
    }
}

TEST_F(HelpWindowsTest, AStoreThatFailsCostsTheChoiceAlone)
{
    Store(u"false");
    settings.failing = true;
    Click("frmContents.mnuHelpWelcome");
    EXPECT_EQ(Tick(), 0);
    Click("frmWelcome.Command1");
    EXPECT_FALSE(FormOf("frmWelcome").IsLoaded());
    EXPECT_THAT(Messages(), IsEmpty());
    settings.failing = false;
    EXPECT_EQ(Stored(), u"false");
}

TEST_F(HelpWindowsTest, TheLongTextsScrollAndBeginAtTheirStartEachTime)
{
    for (std::string const form : { "frmGettingStarted", "frmFinalExam" }) {
        auto const* const entry = form == "frmFinalExam" ? "frmContents.mnuOptionFinal"
                                                         : "frmContents.mnuGettingStarted";
        Click(entry);
        auto& box = Get<RichTextBox>(form + ".RichTextBox1");
        EXPECT_GT(box.Text().size(), 4000u) << "the text is whole";
        EXPECT_GT(box.Runs().size(), 16u) << "with its bold passages";
        auto const word = box.Text().find(u"the ", box.Text().size() / 2);
        EXPECT_EQ(input.Select(box, static_cast<int>(word), 4), "") << "a passage can be selected";
        constexpr int deleteKey = 46;
        auto const whole = box.Text();
        Press(input, screen, box, deleteKey, 0);
        EXPECT_EQ(box.Text(), whole);
        EXPECT_EQ(input.Close(FormOf(form)), "");
        Click(entry);
        EXPECT_EQ(box.Text(), whole);
        EXPECT_EQ(box.SelStart, 0);
        EXPECT_EQ(box.TopOffset, 0);
    }
}

TEST_F(StudyTest, WindowsFromTheMenusStayOpenWhateverBecomesOfTheLesson)
{
    Start();
    for (std::string const entry : { "mnuBibleReader", "mnuOptionsMapOne", "mnuGettingStarted",
             "mnuOptionFinal", "mnuHelpAbout" })
        Click("frmContents." + entry);
    auto const allAreOpen = [&] {
        return IsOpen("frmBible") && IsOpen("frmMap") && IsOpen("frmGettingStarted")
            && IsOpen("frmFinalExam") && IsOpen("frmAbout");
    };
    Open(u"james-1.dat:1");
    EXPECT_TRUE(allAreOpen()) << "when a lesson begins";
    Write("frmMain.Text3", u"James");
    Click("frmMain.Image1");
    ASSERT_TRUE(IsOpen("frmAnswer"));
    Click("frmMain.Command1");
    EXPECT_FALSE(IsOpen("frmAnswer"));
    EXPECT_TRUE(allAreOpen()) << "when its page is turned";
    Click("frmMain.mnuFileClose");
    EXPECT_TRUE(allAreOpen()) << "when it is left";
    Click("frmContents.mnuFileExit");
    EXPECT_TRUE(allAreOpen());
}

TEST_F(StudyTest, TheVideoIsSetToItsStartBeforeItPlaysEachTime)
{
    files.Put(u"/app\\sparrowfield.wmv", "no real video");
    std::vector<std::string> steps;
    host.onAssigned = [&](Control& control, PropertyBase const& property) {
        std::string_view const name = property.Name();
        auto const* const player = dynamic_cast<WindowsMediaPlayer const*>(&control);
        if (player && name == "currentPosition")
            steps.push_back("to " + std::to_string(static_cast<int>(player->currentPosition())));
        if (player && name == "playing")
            steps.push_back(player->playing ? "play" : "end");
    };
    Start();
    for (int time = 0; time < 2; ++time) {
        Click("frmContents.mnuHelpVideo");
        Get<WindowsMediaPlayer>("frmVideo.WindowsMediaPlayer1").currentPosition.AssignSilently(12);
        EXPECT_EQ(input.Close(FormOf("frmVideo")), "");
    }
    EXPECT_THAT(steps, ElementsAre("to 0", "play", "end", "to 0", "play", "end"));
}

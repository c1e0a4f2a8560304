#include "support/program_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr TextView installedCopy
    = u"C:\\Program Files\\Sparrowfield House\\Sparrowfield Interactive Software\\sparrowfield.exe";

class SplashTest : public StudyTest {
protected:
    void PutVideo() { files.Put(u"/app\\sparrowfield.wmv", "no real video"); }
    void ExpectCatalogue(char const* after)
    {
        EXPECT_FALSE(IsOpen("frmSplash")) << after;
        EXPECT_TRUE(IsOpen("frmContents")) << after;
        EXPECT_FALSE(screen.Ended()) << after;
    }
};

} // namespace

TEST_F(SplashTest, EveryWayButTwoLeadsToTheCatalogue)
{
    struct Way {
        char const* name;
        std::function<void(ProgramFixture&)> take;
    };
    for (Way const& way : {
             Way { "a click on the ground",
                 [](ProgramFixture& run) {
                     EXPECT_EQ(run.input.Click(run.FormOf("frmSplash")), "");
                 } },
             { "a key",
                 [](ProgramFixture& run) {
                     EXPECT_EQ(run.input.KeyPress(run.FormOf("frmSplash"), 27), "");
                 } },
             { "Run from CD", [](ProgramFixture& run) { run.Click("frmSplash.lblRunFromCD"); } },
             { "a choice that is covered",
                 [](ProgramFixture& run) { run.Click("frmSplash.lblEnter"); } },
             { "its cover", [](ProgramFixture& run) { run.Click("frmSplash.Shape2"); } },
             { "the video that isn't there",
                 [](ProgramFixture& run) { run.Click("frmSplash.lblWelcomeVideo"); } },
             { "closing",
                 [](ProgramFixture& run) {
                     EXPECT_EQ(run.input.Close(run.FormOf("frmSplash")), "");
                 } },
         }) {
        ProgramFixture run;
        run.program.Start({});
        EXPECT_TRUE(run.IsOpen("frmSplash")) << way.name;
        EXPECT_FALSE(run.IsOpen("frmContents")) << way.name;
        way.take(run);
        EXPECT_FALSE(run.IsOpen("frmSplash")) << way.name;
        EXPECT_TRUE(run.IsOpen("frmContents")) << way.name;
        EXPECT_THAT(run.shell.opened, IsEmpty()) << way.name;
    }
}

TEST_F(SplashTest, EveryKeyButAModifierByItselfLeadsOn)
{
    program.Start({});
    for (int const modifier : { 16, 17, 18, 20, 91, 144, 160 })
        EXPECT_EQ(Press(input, screen, FormOf("frmSplash"), modifier, 0), "") << modifier;
    EXPECT_TRUE(IsOpen("frmSplash"));
    constexpr int tab = 9, enter = 13, escape = 27, pageUp = 33, left = 37, down = 40, del = 46,
                  f1 = 112, f12 = 123;
    for (auto const& [key, shift] : std::vector<std::pair<int, int>> { { tab, 0 }, { enter, 0 },
             { escape, 0 }, { pageUp, 0 }, { left, 0 }, { down, 0 }, { del, 0 }, { f1, 0 },
             { f12, shiftHeld }, { 'C', controlHeld }, { 'X', altHeld } }) {
        ProgramFixture run;
        run.program.Start({});
        EXPECT_EQ(Press(run.input, run.screen, run.FormOf("frmSplash"), key, shift), "");
        EXPECT_TRUE(run.IsOpen("frmContents")) << key;
    }
}

TEST_F(SplashTest, ExitAndInstallEndTheProgramThereAndThen)
{
    for (bool const fails : { false, true }) {
        ProgramFixture run;
        run.shell.failing = fails;
        run.program.Start({});
        run.Click("frmSplash.lblInstallToDisk");
        EXPECT_TRUE(run.screen.Ended());
        EXPECT_FALSE(run.IsOpen("frmContents"));
        EXPECT_THAT(run.Messages(), IsEmpty());
        if (!fails) {
            EXPECT_THAT(
                run.shell.opened, ElementsAre(std::pair(Text(u"open"), Text(u"Setup.exe"))));
        }
    }
    program.Start({});
    Click("frmSplash.lblExit");
    EXPECT_TRUE(screen.Ended());
    EXPECT_FALSE(IsOpen("frmContents"));
}

TEST_F(SplashTest, WithAnInstalledCopyThereIsNothingToInstall)
{
    files.Put(installedCopy, "program");
    program.Start({});
    EXPECT_TRUE(Get("frmSplash.Shape1").Visible);
    Click("frmSplash.lblInstallToDisk"); // counts as a click on the ground
    EXPECT_THAT(shell.opened, IsEmpty());
    ExpectCatalogue("a click on Install to Disk");
}

TEST_F(SplashTest, AnInstalledCopyOffersNothingButToEnter)
{
    struct {
        char const* label;
        bool runs;
    } const rows[]
        = { { "lblEnter", true }, { "lblInstallToDisk", false }, { "lblRunFromCD", false } };
    for (auto const& row : rows) {
        ProgramFixture run;
        run.files.applicationFolder = u"D:\\Programs\\Workbook";
        run.program.Start({});
        for (char const* const cover : { "Shape1", "Shape3" })
            EXPECT_TRUE(run.Get(std::string("frmSplash.") + cover).Visible) << cover;
        EXPECT_FALSE(run.Get("frmSplash.Shape2").Visible);
        auto const label = std::string("frmSplash.") + row.label;
        EXPECT_EQ(run.Get(label).Enabled, row.runs) << row.label;
        run.Click(label); // on a choice that isn't offered it counts as one on the form
        EXPECT_TRUE(run.IsOpen("frmContents")) << row.label;
        EXPECT_THAT(run.shell.opened, IsEmpty());
    }
}

TEST_F(SplashTest, TheVideoHoldsTheStartUpScreenAndLeavesItAsItWas)
{
    PutVideo();
    program.Start({});
    int served = 0;
    host.serveModal = [&](Form& video) {
        ++served;
        EXPECT_EQ(&video, &FormOf("frmVideo"));
        auto& player = Get<WindowsMediaPlayer>("frmVideo.WindowsMediaPlayer1");
        EXPECT_TRUE(player.playing);
        EXPECT_EQ(player.URL(), u"sparrowfield.wmv");
        EXPECT_THAT(input.KeyPress(FormOf("frmSplash"), u' '), HasSubstr("under the modal form"));
        EXPECT_EQ(input.Close(video), "");
        EXPECT_FALSE(player.playing);
    };
    for (int time = 0; time < 2; ++time)
        Click("frmSplash.lblWelcomeVideo");
    EXPECT_EQ(served, 2);
    EXPECT_TRUE(IsOpen("frmSplash"));
    EXPECT_FALSE(Get("frmSplash.Shape4").Visible);
    EXPECT_TRUE(Get("frmSplash.lblRunFromCD").Enabled);
    Click("frmSplash.lblRunFromCD");
    ExpectCatalogue("the video");
    Click("frmContents.mnuHelpVideo");
    EXPECT_TRUE(IsOpen("frmVideo"));
    EXPECT_EQ(input.Click(FormOf("frmContents")), "") << "beside the catalogue it holds nothing";
}

TEST_F(SplashTest, TheVideoFillsItsWindow)
{
    PutVideo();
    Start();
    Click("frmContents.mnuHelpVideo");
    Form& video = FormOf("frmVideo");
    EXPECT_EQ(input.Resize(video, 9000, 4000), "");
    auto& player = Get<WindowsMediaPlayer>("frmVideo.WindowsMediaPlayer1");
    EXPECT_EQ(player.Width, video.ScaleWidth);
    EXPECT_EQ(player.Height, video.ScaleHeight);
    player.playing = false;
    EXPECT_EQ(input.Click(video), "");
    EXPECT_TRUE(player.playing) << "a click on the ground plays on";
}

TEST_F(SplashTest, MenuEntriesOpenTheirWindowsBesideTheScreenAndAgain)
{
    Start();
    EXPECT_FALSE(Get("frmContents.mnuHelpVideo").Enabled) << "there is no video";
    struct Row {
        char const *entry, *form, *button;
    };
    Row const rows[] = {
        { "mnuGettingStarted", "frmGettingStarted", "Command1" },
        { "mnuHelpAbout", "frmAbout", "cmdOK" },
        { "mnuOptionFinal", "frmFinalExam", "Command1" },
        { "mnuHelpWelcome", "frmWelcome", "Command1" },
    };
    for (std::string const main : { "frmContents", "frmMain" }) {
        if (main == "frmMain")
            Open(u"james-1.dat:1");
        for (int time = 0; time < 2; ++time)
            for (Row const& row : rows) {
                auto const loaded = screen.Loaded().size();
                Click(main + "." + row.entry);
                EXPECT_EQ(screen.Active(), &FormOf(row.form)) << row.form;
                EXPECT_EQ(input.Activate(FormOf(main)), "")
                    << "the screen stays usable beside " << row.form;
                Click(main + "." + row.entry);
                EXPECT_EQ(screen.Active(), &FormOf(row.form))
                    << "the open window comes to the front";
                EXPECT_EQ(screen.Loaded().size(), loaded + 1);
                Click(std::string(row.form) + "." + row.button);
                EXPECT_FALSE(FormOf(row.form).IsLoaded());
            }
    }
}

TEST_F(SplashTest, TheLongTextsAreWholeAndTheirMarksGone)
{
    Start();
    struct Row {
        char const *entry, *form;
        std::size_t words;
    };
    for (Row const& row : { Row { "mnuGettingStarted", "frmGettingStarted", 700 },
             { "mnuOptionFinal", "frmFinalExam", 1300 } }) {
        Click(std::string("frmContents.") + row.entry);
        std::string const box = std::string(row.form) + ".RichTextBox1";
        Text const text = TextOf(box);
        EXPECT_GT(Split(text, u' ').size(), row.words);
        EXPECT_FALSE(Contains(text, u'*')) << "the marks of bold passages";
        int bold = 0;
        for (auto const& run : Get<RichTextBox>(box).Runs())
            bold += run.format.bold;
        EXPECT_GT(bold, 8) << row.form;
    }
}

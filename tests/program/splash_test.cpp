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
};

} // namespace

TEST_F(SplashTest, EveryWayButTwoLeadsToTheCatalogue)
{
    // The ground, a choice, a covered choice, its cover, the video that is missing; the close box.
    for (std::string const clicked :
        { "", ".lblRunFromCD", ".lblEnter", ".Shape2", ".lblWelcomeVideo", "close box" }) {
        ProgramFixture run;
        run.program.Start({});
        EXPECT_TRUE(run.IsOpen("frmSplash") && !run.IsOpen("frmContents")) << clicked;
        Form& splash = run.FormOf("frmSplash");
        if (clicked == "close box")
            EXPECT_EQ(run.input.Close(splash), "");
        else if (clicked.empty())
            EXPECT_EQ(run.input.Click(splash), "");
        else
            run.Click("frmSplash" + clicked);
        EXPECT_TRUE(!run.IsOpen("frmSplash") && run.IsOpen("frmContents")) << clicked;
        EXPECT_THAT(run.shell.opened, IsEmpty()) << clicked;
    }
}

TEST_F(SplashTest, EveryKeyButAModifierByItselfLeadsOn)
{
    program.Start({});
    for (int const modifier : { 16, 17, 18, 20, 91, 144, 160 })
        EXPECT_EQ(Press(input, screen, FormOf("frmSplash"), modifier, 0), "") << modifier;
    EXPECT_TRUE(IsOpen("frmSplash"));
    for (auto const& [key, shift] : { std::pair(9, 0), std::pair(13, 0), std::pair(27, 0),
             std::pair(40, 0), std::pair(112, 0), std::pair('C' + 0, int { controlHeld }) }) {
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
    EXPECT_TRUE(IsOpen("frmContents") && !screen.Ended());
}

TEST_F(SplashTest, AnInstalledCopyOffersNothingButToEnter)
{
    for (std::string const label : { "lblEnter", "lblInstallToDisk", "lblRunFromCD" }) {
        ProgramFixture run;
        run.files.applicationFolder = u"D:\\Programs\\Workbook";
        run.program.Start({});
        for (std::string const cover : { "Shape1", "Shape2", "Shape3" })
            EXPECT_EQ(run.Get("frmSplash." + cover).Visible, cover != "Shape2") << cover;
        EXPECT_EQ(run.Get("frmSplash." + label).Enabled, label == "lblEnter") << label;
        run.Click("frmSplash." + label); // on a choice that isn't offered: a click on the form
        EXPECT_TRUE(run.IsOpen("frmContents")) << label;
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
        std::string entry, form, button;
    } const rows[] = {
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
                Click(row.form + "." + row.button);
                EXPECT_FALSE(FormOf(row.form).IsLoaded());
            }
    }
}

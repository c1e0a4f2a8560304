// What the user meets when files and store are not as they should be.

#include "support/program_bench.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(StudyTest, ALessonThatCannotBeShownLeadsBackToTheCatalogue)
{
    Lines const noPage { "J:T", "D", "Lesson", "-", ">1", "Intro", "-", "James1", "James1s" };
    struct {
        char const* about;
        std::function<void()> spoil;
        char const* message;
    } const rows[] = {
        { "study file missing", [this] { files.Remove(u"james-1.dat"); }, "james-1.dat: " },
        { "main verse file missing", [this] { files.Remove(u"V-James1"); }, "V-James1: " },
        { "supplementary verse file unreadable", [this] { files.MakeUnreadable(u"V-James1s"); }, "V-James1s: " },
        { "no page", [&] { PutLines(u"james-1.dat", noPage), files.Remove(u"conclusion.txt"); }, "james-1.dat" },
        { "no marker", [this] { PutLines(u"james-1.dat", { "J:T", "D", "Lesson", "-", ">2" }); }, "james-1.dat" },
        { "a study of NULs", [this] { files.Put(u"james-1.dat", std::string(5000, '\0')); }, "james-1.dat" },
        { "an empty study", [this] { files.Put(u"james-1.dat", ""); }, "james-1.dat" },
    };
    for (auto const& row : rows) {
        PutStudy();
        Start();
        row.spoil();
        Open(u"james-1.dat:1");
        EXPECT_FALSE(FormOf("frmMain").IsLoaded()) << row.about;
        EXPECT_TRUE(IsOpen("frmContents")) << row.about;
        auto const messages = Messages();
        ASSERT_EQ(messages.size(), 1U) << row.about;
        EXPECT_THAT(messages[0], HasSubstr(row.message)) << row.about;
        screen.CloseAll();
    }
}

/// Cuts the study file behind each of its lines in turn. Whatever is missing, the user stands on a screen that works.
TEST_F(StudyTest, AStudyFileThatEndsEarlyShowsAMessageAndTheCatalogue)
{
    int shown = 0;
    for (std::size_t count = 2; count < partOne.size(); ++count) {
        PutLines(u"james-1.dat", { partOne.begin(), partOne.begin() + static_cast<std::ptrdiff_t>(count) });
        for (TextView const key : { u"james-1.dat:1", u"james-1.dat:2" }) {
            screen.CloseAll();
            Start();
            if (!Get<TreeView>("frmContents.TreeView1").Find(key))
                continue;
            Open(key);
            auto const messages = Messages();
            ASSERT_NE(IsOpen("frmMain"), IsOpen("frmContents")) << count;
            ASSERT_EQ(IsOpen("frmContents"), messages.size() == 1) << count;
            shown += IsOpen("frmMain");
        }
    }
    EXPECT_EQ(shown, 6) << "lesson 1 is whole behind its two names, on line 18";
}

/// Lets each call on the files fail in turn.
TEST_F(StudyTest, NoFailingReadLeavesTheUserWithoutAScreen)
{
    for (int call = 1; call < 80; ++call) {
        Start();
        files.FailAt(call);
        if (Get<TreeView>("frmContents.TreeView1").Find(u"james-1.dat:1"))
            Open(u"james-1.dat:1");
        files.FailAt(0);
        ASSERT_NE(IsOpen("frmMain"), IsOpen("frmContents")) << call;
        ASSERT_EQ(Messages().size(), IsOpen("frmContents") ? 1U : 0U) << call;
        screen.CloseAll();
    }
}

TEST_F(StudyTest, GeneralTextsMayBeMissing)
{
    files.Remove(u"introduction.txt");
    files.Remove(u"conclusion.txt");
    Open(u"james-1.dat:2");
    EXPECT_TRUE(IsOpen("frmMain"));
    EXPECT_EQ(TextOf("frmMain.Text4"), u"Own\r\n\r\n");
    EXPECT_EQ(Get<ScrollBar>("frmMain.ctlScrollbar").Max, 1) << "no conclusion page";
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(StudyTest, AnswersThatCannotBeStoredAreKeptAndTriedAgain)
{
    Open(u"james-1.dat:1");
    settings.failing = true;
    Write("frmMain.Text3", u"first");
    Click("frmMain.Command1");
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("settings.db")));
    EXPECT_EQ(Get<ScrollBar>("frmMain.ctlScrollbar").Value, 2) << "the user moves on";
    Write("frmMain.Text3", u"second");
    Click("frmMain.Command2");
    EXPECT_THAT(Messages(), IsEmpty()) << "once is enough";
    EXPECT_EQ(TextOf("frmMain.Text3"), u"first");
    settings.failing = false;
    GoTo(3);
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page1"), u"first");
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page2"), u"second");
}

/// A store that can't be read for a moment must not have its answer replaced by the empty box.
TEST_F(StudyTest, AnAnswerThatCouldNotBeReadIsNotOverwritten)
{
    ASSERT_TRUE(settings.Write(u"james-1.dat:1", u"Page2", u"years of work"));
    Open(u"james-1.dat:1");
    settings.failing = true;
    GoTo(2);
    settings.failing = false;
    GoTo(3);
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page2"), u"years of work");
}

TEST_F(StudyTest, InputDuringALoadIsDroppedAndTheLoadingPanelStands)
{
    Start();
    host.serveModal = [this](Form& form) { input.Close(form); };
    bool seen = false;
    host.onTurn = [&] {
        seen = true;
        EXPECT_TRUE(IsOpen("frmMain"));
        EXPECT_TRUE(Get("frmMain.Frame1").Visible);
        EXPECT_FALSE(FormOf("frmContents").IsLoaded());
        EXPECT_EQ(input.Click(Get("frmMain.mnuFileExit")), "");
        EXPECT_EQ(input.Close(FormOf("frmMain")), "");
    };
    host.turns.Arm(12);
    Node("frmContents.TreeView1", u"james-1.dat:1");
    EXPECT_TRUE(seen);
    EXPECT_TRUE(IsOpen("frmMain"));
    EXPECT_FALSE(screen.Ended());
}

TEST_F(StudyTest, TheProgramCanEndInATurnOfALoad)
{
    Start();
    host.serveModal = [this](Form& form) { input.Close(form); };
    host.onTurn = [&] { screen.CloseAll(); };
    host.turns.Arm(12);
    Node("frmContents.TreeView1", u"james-1.dat:1");
    EXPECT_TRUE(screen.Ended());
    EXPECT_THAT(Messages(), IsEmpty());
}

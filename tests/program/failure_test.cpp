// What the user meets when files and store are not as they should be.

#include "controls/timer.h"
#include "platform/text_lines.h"
#include "support/program_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A study file of one lesson with this introduction and these pages.
static Lines WithLesson(std::string const& introduction, std::string const& pages)
{
    return { "J:T", "D", "Lesson", "-", ">1", introduction, pages, "-" };
}

TEST_F(StudyTest, ALessonThatCannotBeShownLeadsBackToTheCatalogue)
{
    std::string paragraphs;
    for (int i = 0; i < 50'000; ++i)
        paragraphs += "a/";
    struct {
        char const* about;
        std::function<void()> spoil;
        char const* message;
    } const rows[] = {
        { "study file missing", [this] { files.Remove(u"james-1.dat"); }, "james-1.dat: " },
        { "main verse file missing", [this] { files.Remove(u"V-James1"); }, "V-James1: " },
        { "supplementary verse file unreadable", [this] { files.MakeUnreadable(u"V-James1s"); },
            "V-James1s: " },
        { "no page",
            [&] {
                PutLines(u"james-1.dat", WithLesson("I", "-")), files.Remove(u"conclusion.txt");
            },
            "james-1.dat" },
        { "no marker", [this] { files.Put(u"james-1.dat", "J:T\r\nD\r\nLesson\r\n-\r\n>2\r\n"); },
            "james-1.dat" },
        { "a study of NULs", [this] { files.Put(u"james-1.dat", std::string(5000, '\0')); },
            "james-1.dat" },
        { "an empty study", [this] { files.Put(u"james-1.dat", ""); }, "james-1.dat" },
        { "a line that is too long",
            [this] {
                files.Put(u"james-1.dat", ">1\r\n" + std::string(TextLines::longestLine + 1, 'x'));
            },
            "james-1.dat, line 2: a line is longer than 16 MB." },
        { "an introduction of too many paragraphs",
            [&] { PutLines(u"james-1.dat", WithLesson(paragraphs, "P")); },
            "james-1.dat, line 6: the introduction has more than 40,000 paragraphs." },
        { "too many pages",
            [&] { PutLines(u"james-1.dat", WithLesson("I", std::string(50'000, '\n'))); },
            "james-1.dat, line 40005: the lesson is larger than 4 MB, or has more than 40,000 "
            "lines." },
        { "a file that takes more memory than there is",
            [this] { files.RunOutOfMemoryAt(u"V-James1"); },
            "james-1.dat:1: there isn't enough memory for the lesson." },
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

/// Cuts the study file behind each of its lines in turn. Whatever is missing, the user stands on a
/// screen that works.
TEST_F(StudyTest, AStudyFileThatEndsEarlyShowsAMessageAndTheCatalogue)
{
    int shown = 0;
    for (std::size_t count = 2; count < partOne.size(); ++count) {
        PutLines(u"james-1.dat",
            { partOne.begin(), partOne.begin() + static_cast<std::ptrdiff_t>(count) });
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

TEST_F(StudyTest, WhereMemoryRunsOutWhatIsTypedIsStoredAndTheProgramGoesOn)
{
    files.Put(u"/app\\biblekjv.idx", "John|3\r\n");
    Open(u"james-1.dat:1");
    Write("frmMain.Text3", u"first");
    files.RunOutOfMemoryAt(u"/app\\biblekjv.idx");
    Click("frmMain.mnuBibleReader");
    EXPECT_THAT(Messages(),
        ElementsAre(
            "There isn't enough memory for this, and it was left unfinished. What you have typed "
            "is stored."));
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page1"), u"first");
    EXPECT_FALSE(FormOf("frmBible").IsBusy());
    EXPECT_EQ(input.Close(FormOf("frmBible")), "");
    Click("frmMain.Command1");
    EXPECT_EQ(Get<ScrollBar>("frmMain.ctlScrollbar").Value, 2);
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

TEST_F(StudyTest, WhatIsTypedIsStoredASecondLater)
{
    auto const timer = [this]() -> Timer& { return Get<Timer>("frmMain.tmrStore"); };
    auto const stored
        = [this](int page) { return settings.Value(u"james-1.dat:1", u"Page" + FromNumber(page)); };
    Open(u"james-1.dat:1");
    EXPECT_EQ(timer().Interval, 1000);
    EXPECT_FALSE(timer().Enabled) << "the program's own assignments start nothing";
    Write("frmMain.Text3", u"first");
    EXPECT_TRUE(timer().Enabled);
    EXPECT_EQ(input.Fire(timer()), "");
    EXPECT_EQ(stored(1), u"first");
    EXPECT_FALSE(timer().Enabled);
    EXPECT_EQ(Get("frmMain.Text3").ParentForm().Focus(), &Get("frmMain.Text3"))
        << "nothing of it is seen";

    for (auto const* const action : { "frmMain.mnuEditCut", "frmMain.mnuEditPaste" }) {
        EXPECT_EQ(input.Select(Get<TextInput>("frmMain.Text3"), 0, 2), "");
        Click(action);
        EXPECT_TRUE(timer().Enabled) << action;
        EXPECT_EQ(input.Fire(timer()), "");
        EXPECT_EQ(stored(1), TextOf("frmMain.Text3")) << action;
    }
    struct {
        char const* about;
        std::function<void()> stop;
    } const rows[] = {
        { "a page turn", [this] { GoTo(2), GoTo(1); } },
        { "leaving the box", [this] { EXPECT_EQ(input.Focus(Get("frmMain.Text1")), ""); } },
        { "Save", [this] { Click("frmMain.mnuFileSave"); } },
        { "Delete", [this] { Click("frmMain.mnuEditDeleteLesson"); } },
    };
    for (auto const& row : rows) {
        Write("frmMain.Text3", u"x");
        ASSERT_TRUE(timer().Enabled) << row.about;
        row.stop();
        EXPECT_FALSE(timer().Enabled) << row.about;
    }
}

/// However long the disk takes, keys go on; what asks for the stored answers waits.
TEST_F(StudyTest, NoKeyWaitsForTheDisk)
{
    auto& timer = Get<Timer>("frmMain.tmrStore");
    Open(u"james-1.dat:1");
    writer.isHolding = true;
    Write("frmMain.Text3", u"first");
    EXPECT_EQ(input.Fire(timer), "");
    Write("frmMain.Text3", u" and more");
    EXPECT_EQ(input.Fire(timer), "");
    EXPECT_EQ(Press(input, screen, Get("frmMain.Text3"), 8, 0), "");
    EXPECT_EQ(writer.waits, 0);
    EXPECT_TRUE(timer.Enabled) << "the rest has to be stored yet";
    writer.Work();
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page1"), u"first");
    EXPECT_EQ(input.Fire(timer), "");
    EXPECT_EQ(writer.waits, 0);
    GoTo(2);
    EXPECT_EQ(writer.waits, 1);
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page1"), u"first and mor");
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page2"), u"(none)");
    EXPECT_FALSE(timer.Enabled);
}

TEST_F(StudyTest, SaveStoresWhatTheBoxShowsAndSaysSo)
{
    auto const said = [this] {
        return std::get<Text>(Get("frmMain.StatusBar1").FindProperty("Panel2")->Get());
    };
    Open(u"james-1.dat:1");
    Write("frmMain.Text3", u"mine");
    Click("frmMain.mnuFileSave");
    EXPECT_EQ(said(), u"Saved");
    ASSERT_TRUE(settings.Write(u"james-1.dat:1", u"Page1", u"another copy's"));
    Click("frmMain.mnuFileSave");
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page1"), u"mine") << "always";
    EXPECT_EQ(Press(input, screen, Get("frmMain.Text3"), 35, 0), "");
    EXPECT_EQ(said(), u"") << "the next key";
    Click("frmMain.mnuFileSave");
    GoTo(2);
    EXPECT_EQ(said(), u"") << "the next page";
    Write("frmMain.Text3", u"two");
    settings.unwritable = true;
    Click("frmMain.mnuFileSave");
    EXPECT_EQ(said(), u"");
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("settings.db")));
}

/// The next words may be those that were deleted.
TEST_F(StudyTest, ADeletedAnswerCanBeWrittenAgain)
{
    for (auto const* const leave :
        { "frmMain.mnuFileSave", "frmMain.Command1", "frmMain.mnuFileClose" }) {
        Open(u"james-1.dat:1");
        GoTo(1);
        Write("frmMain.Text3", u"mine");
        Click("frmMain.mnuFileSave");
        Click("frmMain.mnuEditDeleteLesson");
        EXPECT_EQ(TextOf("frmMain.Text3"), u"");
        Write("frmMain.Text3", u"mine");
        Click(leave);
        EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page1"), u"mine") << leave;
        ASSERT_TRUE(settings.DeleteSection(u"james-1.dat:1", SettingsStore::NoBackup));
        screen.CloseAll();
    }
    EXPECT_EQ(settings.backups.size(), 3U);
}

/// Whoever meets the damage, the user is told once, and what is on show is in the new store.
TEST_F(StudyTest, AStoreThatIsDamagedMeanwhileIsToldOnceAndFilledAgain)
{
    struct {
        char const* about;
        std::function<void()> act;
        TextView page;
    } const rows[] = {
        { "a page turn", [this] { GoTo(2), GoTo(1); }, u"1" },
        { "going on to another page", [this] { GoTo(2); }, u"2" },
        { "typing",
            [this] {
                Write("frmMain.Text3", u"!");
                EXPECT_EQ(input.Fire(Get<Timer>("frmMain.tmrStore")), "");
            },
            u"1" },
        { "a silent read",
            [this] { Click("frmMain.mnuHelpWelcome"), Click("frmWelcome.Command1"); }, u"1" },
    };
    for (auto const& row : rows) {
        Open(u"james-1.dat:1");
        GoTo(1);
        Write("frmMain.Text3", u"mine");
        Click("frmMain.mnuFileSave");
        settings.Damage();
        row.act();
        EXPECT_THAT(Messages(), ElementsAre(HasSubstr("settings.db.damaged-1"))) << row.about;
        EXPECT_THAT(ToUtf8(settings.Value(u"james-1.dat:1", u"Page1")), HasSubstr("mine"))
            << row.about;
        EXPECT_EQ(settings.Value(u"james-1.dat:1", u"currentindex"), row.page) << row.about;
        screen.CloseAll();
    }
}

TEST_F(StudyTest, ALessonWhoseFileWasRenamedInCaseKeepsItsAnswers)
{
    ASSERT_TRUE(settings.Write(u"JAMES-1.dat:1", u"currentindex", u"2"));
    ASSERT_TRUE(settings.Write(u"JAMES-1.dat:1", u"Page2", u"mine"));
    Open(u"james-1.dat:1");
    EXPECT_EQ(TextOf("frmMain.Text3"), u"mine");
    Write("frmMain.Text3", u"!");
    GoTo(3);
    EXPECT_EQ(settings.Value(u"JAMES-1.dat:1", u"Page2"), u"mine!");
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page2"), u"(none)");
    Click("frmMain.mnuEditDeleteLesson");
    EXPECT_EQ(settings.Value(u"JAMES-1.dat:1", u"Page2"), u"(none)");
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

#include "support/bible_fixture.h"

using testing::IsEmpty;

namespace {

/// A reader on John 3 with a note in the box that isn't stored yet, and stored notes on John 4 and
/// Job 1.
struct BusyBench : BibleFixture {
    BusyBench()
    {
        files.Put(NotePath(u"John4"), "four");
        files.Put(NotePath(u"Job1"), "job");
        OpenReader();
        WriteNote(u"three");
    }

    /// Looks John 4 up, with something done in a turn of that, and tells whether there was that
    /// turn.
    bool LookUpWith(Turns::Count turn, std::function<void(BibleFixture&)> const& action)
    {
        bool came = false;
        host.onTurn = [&] {
            came = true;
            action(*this);
        };
        host.turns.Arm(turn);
        LookUp(u"John 4");
        host.turns.Arm(Turns::never);
        return came;
    }
    std::string Notes()
    {
        return Stored(u"John3") + ' ' + Stored(u"John4") + ' ' + Stored(u"Job1") + ' '
            + Stored(u"John5");
    }
};

struct Action {
    char const* what;
    std::function<void(BibleFixture&)> take;
};

} // namespace

TEST(BusyBible, EndsWhereTheLastActionLeads)
{
    struct Row {
        Action action;
        char const* state;
    };
    Row const rows[] = {
        { { "a lookup", [](BibleFixture& run) { run.LookUp(u"job 1"); } },
            "Job 1 | k-Job-1:1 k-Job-1:16 | Job | Notes for Job 1 | job | -, Job 2" },
        { { "two lookups",
              [](BibleFixture& run) {
                  run.LookUp(u"Jude");
                  run.LookUp(u"job 1");
              } },
            "Job 1 | k-Job-1:1 k-Job-1:16 | Job | Notes for Job 1 | job | -, Job 2" },
        { { "a failing lookup", [](BibleFixture& run) { run.LookUp(u"Nobody 1"); } },
            " | k-John-4:1 k-John-4:16 | John | Notes for John 4 | four | John 3, -" },
        { { "a click in the tree",
              [](BibleFixture& run) { run.Node(BibleFixture::tree, u"job 1"); } },
            "Job 1 | k-Job-1:1 k-Job-1:16 | Job | Notes for Job 1 | job | -, Job 2" },
        { { "a change of translation", [](BibleFixture& run) { run.Translate(1); } },
            "John 4 | n-John-4:1 n-John-4:16 | John | Notes for John 4 | four | John 3, John 5" },
        { { "a click on a button", [](BibleFixture& run) { run.Click("frmBible.cmdPrev"); } },
            "John 3 | k-John-3:1 k-John-3:16 | John | Notes for John 3 | three | John 2, John 4" },
        { { "a step back",
              [](BibleFixture& run) {
                  EXPECT_EQ(Press(run.input, run.screen, run.FormOf("frmBible"), 37, altHeld), "");
              } },
            "John 3:16 | k-John-3:16 | John | Notes for John 3 | three | John 2, John 4" },
        { { "typing in the notes",
              [](BibleFixture& run) {
                  static_cast<void>(run.Change(BibleFixture::notes, u"three and more"));
              } },
            "John 4 | k-John-4:1 k-John-4:16 | John | Notes for John 4 | four | John 3, -" },
        { { "another size",
              [](BibleFixture& run) {
                  run.input.ChangeState(run.FormOf("frmBible"), FormState::Normal);
              } },
            "John 4 | k-John-4:1 k-John-4:16 | John | Notes for John 4 | four | John 3, -" },
    };
    for (auto const& row : rows) {
        Turns::Count turn = 1;
        for (bool came = true; came; ++turn) {
            BusyBench run;
            came = run.LookUpWith(turn, row.action.take);
            if (!came)
                break;
            EXPECT_EQ(run.State(), row.state) << row.action.what << " in turn " << turn;
            EXPECT_FALSE(run.Get("frmBible.ProgressBar1").Visible)
                << row.action.what << " in turn " << turn;
            EXPECT_EQ(run.FormOf("frmBible").MousePointer(), pointerDefault);
            run.CloseReader();
            EXPECT_EQ(run.Notes(), "three four job (none)")
                << row.action.what << " in turn " << turn;
            EXPECT_FALSE(run.HasPage());
            EXPECT_THAT(run.Messages(), IsEmpty());
        }
        EXPECT_EQ(turn, 11u) << row.action.what; // six lines of the index, four of the verses
    }
}

TEST(BusyBible, GoesWhenItIsClosed)
{
    Action const actions[] = {
        { "the close box", [](BibleFixture& run) { run.CloseReader(); } },
        { "a lookup and the close box",
            [](BibleFixture& run) {
                run.LookUp(u"job 1");
                run.CloseReader();
            } },
        { "the menu", [](BibleFixture& run) { run.Click("frmBible.mnuFileExit"); } },
        { "the end of the program", [](BibleFixture& run) { run.program.Finish(); } },
    };
    for (auto const& action : actions) {
        bool came = true;
        for (Turns::Count turn = 1; came; ++turn) {
            BusyBench run;
            came = run.LookUpWith(turn, action.take);
            if (!came)
                break;
            EXPECT_FALSE(run.FormOf("frmBible").IsLoaded()) << action.what << " in turn " << turn;
            EXPECT_EQ(run.Notes(), "three four job (none)") << action.what << " in turn " << turn;
            EXPECT_FALSE(run.HasPage()) << action.what << " in turn " << turn;
            EXPECT_THAT(run.Messages(), IsEmpty());
            if (run.screen.Ended())
                continue;
            run.OpenReader();
            EXPECT_FALSE(run.FormOf("frmBible").IsBusy());
            EXPECT_THAT(run.State(), testing::HasSubstr("Notes for John"));
        }
    }
}

TEST(BusyBible, EndsABuildAtTheNextTurnAfterTheCloseBox)
{
    BusyBench run;
    EXPECT_TRUE(run.LookUpWith(
        7, [](BibleFixture& bench) { bench.CloseReader(); })); // in the first line of a verse
    EXPECT_EQ(run.settings.Value(u"biblereader", u"search"), u"John 3:16");
}

TEST(BusyBible, IsToldFromAnIdleOne)
{
    BusyBench run;
    EXPECT_TRUE(run.LookUpWith(8, [](BibleFixture& bench) {
        EXPECT_TRUE(bench.Get("frmBible.ProgressBar1").Visible);
        EXPECT_EQ(bench.FormOf("frmBible").MousePointer(), pointerHourglass);
        EXPECT_EQ(bench.CaptionOf("frmBible.XPContainer2"), u"John");
        EXPECT_EQ(bench.Shown(), "k-John-3:16");
        EXPECT_EQ(bench.Stored(u"John3"), "three") << "the note is saved first";
        bench.Click("frmContents.mnuBibleReader"); // from another form, at once
        EXPECT_EQ(bench.Shown(), "k-John-3:16");
    }));
}

/// The reader isn't seen yet while it opens, but the program can end.
TEST(BusyBible, LetsTheProgramEndWhileItOpens)
{
    bool came = true;
    for (Turns::Count turn = 1; came; ++turn) {
        BibleFixture run;
        run.files.Put(BibleFixture::NotePath(u"John"), "years of work");
        run.Start();
        came = false;
        run.host.onTurn = [&] {
            came = true;
            run.program.Finish();
        };
        run.host.turns.Arm(turn);
        run.Click("frmContents.mnuBibleReader");
        EXPECT_EQ(run.screen.Ended(), came) << turn;
        EXPECT_EQ(run.HasPage(), !came) << turn;
        EXPECT_EQ(run.Stored(u"John"), "years of work") << turn;
    }
}

#include "support/bible_fixture.h"

using testing::IsEmpty;

namespace {

using Action = std::function<void(BibleFixture&)>;

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

    /// Looks John 4 up and acts in a turn of that; false if there was no such turn.
    bool LookUpWith(Turns::Count turn, Action const& action)
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
    /// After the reader was closed: every note and no page, without a message.
    void ExpectAllStored()
    {
        EXPECT_EQ(Stored(u"John3") + ' ' + Stored(u"John4") + ' ' + Stored(u"Job1") + ' '
                + Stored(u"John5"),
            "three four job (none)");
        EXPECT_FALSE(HasPage());
        EXPECT_THAT(Messages(), IsEmpty());
    }
};

/// Takes the action in each turn of a lookup, each time with a reader of its own.
void InEachTurn(char const* what, Action const& action, Action const& expect)
{
    Turns::Count turn = 1;
    for (;; ++turn) {
        SCOPED_TRACE(what + (" in turn " + std::to_string(turn)));
        BusyBench run;
        if (!run.LookUpWith(turn, action))
            break;
        expect(run);
        if (run.FormOf("frmBible").IsLoaded())
            run.CloseReader();
        run.ExpectAllStored();
    }
    EXPECT_EQ(turn, 11u) << what; // six lines of the index, four of the verses
}

} // namespace

TEST(BusyBible, EndsWhereTheLastActionLeads)
{
    struct {
        char const* what;
        Action action;
        char const* state;
    } const rows[] = {
        { "a lookup", [](auto& run) { run.LookUp(u"job 1"); },
            "Job 1 | k-Job-1:1 k-Job-1:16 | Job | Notes for Job 1 | job | -, Job 2" },
        { "two lookups", [](auto& run) { run.LookUp(u"Jude"), run.LookUp(u"job 1"); },
            "Job 1 | k-Job-1:1 k-Job-1:16 | Job | Notes for Job 1 | job | -, Job 2" },
        { "a failing lookup", [](auto& run) { run.LookUp(u"Nobody 1"); },
            " | k-John-4:1 k-John-4:16 | John | Notes for John 4 | four | John 3, -" },
        { "a click in the tree", [](auto& run) { run.Node(BibleFixture::tree, u"job 1"); },
            "Job 1 | k-Job-1:1 k-Job-1:16 | Job | Notes for Job 1 | job | -, Job 2" },
        { "a change of translation", [](auto& run) { run.Translate(1); },
            "John 4 | n-John-4:1 n-John-4:16 | John | Notes for John 4 | four | John 3, John 5" },
        { "a click on a button", [](auto& run) { run.Click("frmBible.cmdPrev"); },
            "John 3 | k-John-3:1 k-John-3:16 | John | Notes for John 3 | three | John 2, John 4" },
        { "a step back",
            [](auto& run) { Press(run.input, run.screen, run.FormOf("frmBible"), 37, altHeld); },
            "John 3:16 | k-John-3:16 | John | Notes for John 3 | three | John 2, John 4" },
        { "typing in the notes",
            [](auto& run) { run.input.Edit(run.template Get<TextInput>(run.notes), u"x", 1, 0); },
            "John 4 | k-John-4:1 k-John-4:16 | John | Notes for John 4 | four | John 3, -" },
        { "another size",
            [](auto& run) { run.input.ChangeState(run.FormOf("frmBible"), FormState::Normal); },
            "John 4 | k-John-4:1 k-John-4:16 | John | Notes for John 4 | four | John 3, -" },
    };
    for (auto const& row : rows)
        InEachTurn(row.what, row.action, [&](BibleFixture& run) {
            EXPECT_EQ(run.State(), row.state);
            EXPECT_FALSE(run.Get("frmBible.ProgressBar1").Visible);
            EXPECT_EQ(run.FormOf("frmBible").MousePointer(), pointerDefault);
        });
}

TEST(BusyBible, GoesWhenItIsClosed)
{
    struct {
        char const* what;
        Action action;
    } const rows[] = {
        { "the close box", [](auto& run) { run.CloseReader(); } },
        { "a lookup and the close box",
            [](auto& run) { run.LookUp(u"job 1"), run.CloseReader(); } },
        { "the menu", [](auto& run) { run.Click("frmBible.mnuFileExit"); } },
        { "the end of the program", [](auto& run) { run.program.Finish(); } },
    };
    for (auto const& row : rows)
        InEachTurn(row.what, row.action, [](BibleFixture& run) {
            EXPECT_FALSE(run.FormOf("frmBible").IsLoaded());
            if (run.screen.Ended())
                return;
            run.OpenReader();
            EXPECT_FALSE(run.FormOf("frmBible").IsBusy());
            EXPECT_THAT(run.State(), testing::HasSubstr("Notes for John"));
        });
}

TEST(BusyBible, EndsABuildAtTheNextTurnAfterTheCloseBox)
{
    BusyBench run;
    EXPECT_TRUE(run.LookUpWith(
        7, [](auto& bench) { bench.CloseReader(); })); // in the first line of a verse
    EXPECT_EQ(run.settings.Value(u"biblereader", u"search"), u"John 3:16");
}

TEST(BusyBible, IsToldFromAnIdleOne)
{
    BusyBench run;
    EXPECT_TRUE(run.LookUpWith(8, [](auto& bench) {
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

#include "controls/timer.h"
#include "headless/keyboard.h"
#include "support/bible_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

TEST_F(BibleTest, NotesBelongToTheirChapter)
{
    OpenReader();
    WriteNote(u"of the chapter");
    LookUp(u"John 3:1");
    EXPECT_EQ(TextOf(notes), u"of the chapter");
    LookUp(u"John 03");
    WriteNote(u"of the number as typed");
    LookUp(u"John");
    WriteNote(u"of the book");
    LookUp(u"John 99");
    WriteNote(u"of no chapter");
    Node(tree, u"john 3");
    EXPECT_EQ(TextOf(notes), u"of the chapter");
    EXPECT_EQ(Stored(u"John3"), "of the chapter");
    EXPECT_EQ(Stored(u"John03"), "of the number as typed");
    EXPECT_EQ(Stored(u"John"), "of the book");
    EXPECT_EQ(Stored(u"John99"), "of no chapter");
    LookUp(u"Job 1");
    LookUp(u"Job 2");
    EXPECT_EQ(Stored(u"Job1"), "") << "each chapter visited leaves a file";
}

TEST_F(BibleTest, AnyTextOfANoteComesBackExactly)
{
    OpenReader();
    for (TextView const text :
        { u"\u05E9\u05DC\u05D5\u05DD\r\n\U0001F426", u"slwm", u"  \r\n", u"" }) {
        WriteNote(text);
        LookUp(u"Job 1");
        EXPECT_EQ(TextOf(notes), u"");
        LookUp(u"John 3");
        EXPECT_EQ(TextOf(notes), text);
        CloseReader();
        OpenReader();
        EXPECT_EQ(TextOf(notes), text);
    }
}

TEST_F(BibleTest, ThereIsPrintingWhileThereIsANote)
{
    OpenReader();
    auto const& print = Get("frmBible.cmdPrint");
    EXPECT_FALSE(print.Enabled);
    WriteNote(u"typed");
    EXPECT_TRUE(print.Enabled);
    LookUp(u"Job 1");
    EXPECT_FALSE(print.Enabled);
    WriteNote(u" \r\n ");
    EXPECT_FALSE(print.Enabled);
    LookUp(u"John 3");
    EXPECT_TRUE(print.Enabled);
    LookUp(u"Job 1");
    EXPECT_FALSE(print.Enabled);
    EXPECT_EQ(Stored(u"Job1"), " \r\n ");
}

TEST_F(BibleTest, ANotePrintsAsWideAsItsBox)
{
    OpenReader();
    EXPECT_EQ(input.ChangeState(FormOf("frmBible"), FormState::Normal), "");
    Text note;
    for (int word = 0; word < 100; ++word)
        note += u"word ";
    WriteNote(note);
    std::size_t linesBefore = 100;
    for (float const width : { 9000.0F, 12000.0F, 15000.0F }) {
        EXPECT_EQ(input.Resize(FormOf("frmBible"), width, 8000), "");
        Click("frmBible.cmdPrint");
        EXPECT_TRUE(Get("frmBible.cmdPrint").Enabled);
        EXPECT_EQ(FormOf("frmBible").MousePointer(), pointerDefault);
        auto const jobs = host.Recorder().TakeJobs();
        ASSERT_THAT(jobs, SizeIs(1));
        EXPECT_EQ(jobs[0].font, u"Arial");
        EXPECT_EQ(jobs[0].size, 10);
        ASSERT_THAT(jobs[0].pages, SizeIs(1));
        std::set<float> lines;
        for (auto const& piece : jobs[0].pages[0]) {
            lines.insert(piece.y);
            if (piece.text == u"word") {
                EXPECT_LE(piece.x + host.MeasureText({ u"Arial", 10, false }, u"word", 0).width,
                    Get(notes).Width() - 100 + 1);
            }
        }
        EXPECT_EQ(*lines.begin(), 100);
        EXPECT_LT(lines.size(), linesBefore);
        linesBefore = lines.size();
    }
    LookUp(u"Job 1");
    EXPECT_EQ(Stored(u"John3"), ToUtf8(note));
}

/// Before the first page of an opening there is no note in the box, only an empty box.
TEST_F(BibleTest, AStoredNoteSurvivesTheOpening)
{
    for (TextView const search : { u"John 3:16", u"J", u"", u"Nobody 3", u"John" }) {
        BibleFixture run;
        for (auto const* const name : { u"John", u"J", u"Nobody", u"John3", u"Job2", u"" })
            run.files.Put(NotePath(name), "years of work");
        run.Store(u"search", search);
        for (int opening = 0; opening < 2; ++opening) {
            run.OpenReader();
            if (run.CaptionOf("frmBible.XPContainer4") == u"Notes") {
                EXPECT_EQ(Type(run.input, run.Get<TextInput>(notes), u"x"),
                    "frmBible.txtNotes is read-only");
            }
            run.LookUp(u"J");
            run.LookUp(u"Job 2");
            run.Store(u"search", search);
            run.CloseReader();
        }
        for (auto const* const name : { u"John", u"J", u"Nobody", u"John3", u"Job2", u"" })
            EXPECT_EQ(run.Stored(name), "years of work") << ToUtf8(search) << ": " << ToUtf8(name);
    }
}

TEST_F(BibleTest, ANoteThatCantBeWrittenIsToldOnceKeptAndWrittenLater)
{
    files.unwritable = u"C:\\Program Files";
    OpenReader();
    EXPECT_THAT(Messages(), IsEmpty());
    WriteNote(u"three");
    LookUp(u"Job 1");
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("John3.dat")));
    EXPECT_EQ(CaptionOf("frmBible.XPContainer4"), u"Notes for Job 1");
    WriteNote(u"job");
    LookUp(u"John 3:16");
    EXPECT_EQ(TextOf(notes), u"three");
    WriteNote(u"three and more");
    CloseReader();
    OpenReader();
    EXPECT_EQ(TextOf(notes), u"three and more");
    EXPECT_THAT(Messages(), IsEmpty());
    files.unwritable.clear();
    LookUp(u"Jude");
    EXPECT_EQ(Stored(u"John3"), "three and more");
    EXPECT_EQ(Stored(u"Job1"), "job");
}

TEST_F(BibleTest, ANoteThatWaitsIsWrittenAtTheEnd)
{
    OpenReader();
    WriteNote(u"three");
    files.unwritable = u"C:\\Program Files";
    CloseReader();
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Stored(u"John3"), "(none)");
    files.unwritable.clear();
    program.Finish();
    EXPECT_EQ(Stored(u"John3"), "three");
}

TEST_F(BibleTest, ABookThatNamesNoFileHasNoNotes)
{
    OpenReader();
    WriteNote(u"three");
    LookUp(u"..\\ 1");
    EXPECT_EQ(
        State(), "..\\ 1 | k-Evil-1:1 k-Evil-1:16 | ..\\Evil | Notes for ..\\Evil 1 |  | -, -");
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("..\\Evil")));
    EXPECT_NE(Change(notes, u"typed"), "");
    LookUp(u"Job 1");
    EXPECT_EQ(Stored(u"John3"), "three");
    EXPECT_FALSE(files.FileExists(
        u"C:\\Program Files\\Sparrowfield Interactive Software\\notes\\..\\Evil1.dat"));
    WriteNote(u"typed");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(BibleTest, ANoteIsStoredASecondAfterItIsTyped)
{
    auto const timer = [this]() -> Timer& { return Get<Timer>("frmBible.tmrStore"); };
    OpenReader();
    EXPECT_FALSE(timer().Enabled);
    WriteNote(u"three");
    EXPECT_TRUE(timer().Enabled);
    EXPECT_EQ(input.Fire(timer()), "");
    EXPECT_EQ(Stored(u"John3"), "three");
    EXPECT_FALSE(timer().Enabled);
    WriteNote(u"thr");
    LookUp(u"Job 1");
    EXPECT_FALSE(timer().Enabled) << "stored with the lookup";
    EXPECT_EQ(Stored(u"John3"), "thr");

    files.unwritable = u"C:\\Program Files";
    WriteNote(u"job");
    EXPECT_EQ(input.Fire(timer()), "");
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("Job1.dat")));
    WriteNote(u"jobs");
    EXPECT_EQ(input.Fire(timer()), "");
    EXPECT_THAT(Messages(), IsEmpty()) << "told once";
    files.unwritable.clear();
    CloseReader();
    EXPECT_EQ(Stored(u"Job1"), "jobs");
}

TEST_F(BibleTest, WhatCantBeLookedAtIsNotEmptied)
{
    files.MakeInvisible(u"/app\\biblekjv.idx");
    auto const index = files.Bytes(u"/app\\biblekjv.idx");
    OpenReader();
    EXPECT_EQ(files.Bytes(u"/app\\biblekjv.idx"), index);
    files.Remove(u"/app\\kjv\\kjv4");
    files.MakeVisible(u"/app\\biblekjv.idx");
    LookUp(u"Jude");
    EXPECT_TRUE(files.FileExists(u"/app\\kjv\\kjv4"))
        << "one that is missing comes into being, empty";
}

TEST_F(BibleTest, AnUnreadableNoteIsSetAsideNotOverwritten)
{
    files.Put(NotePath(u"John3"), "years of work");
    files.MakeUnreadable(NotePath(u"John3"));
    OpenReader();
    EXPECT_EQ(TextOf(notes), u"");
    LookUp(u"Job 1");
    LookUp(u"John 3");
    EXPECT_EQ(Stored(u"John3"), "years of work");
    WriteNote(u"new");
    LookUp(u"Job 1");
    EXPECT_EQ(Stored(u"John3"), "new");
    EXPECT_EQ(files.Bytes(NotePath(u"John3") + u".aside"), "years of work");
    EXPECT_THAT(Messages(), IsEmpty());
}

/// One call of the file system fails, whichever: nothing that was typed is lost.
TEST_F(BibleTest, NoSingleFailureLosesANote)
{
    bool isThrough = false;
    for (int call = 1; !isThrough; ++call) {
        BibleFixture run;
        run.Start();
        run.files.Put(NotePath(u"John4"), "four");
        int const callsBefore = run.files.Calls();
        run.files.FailAt(call);
        run.OpenReader();
        run.LookUp(u"John 3");
        run.WriteNote(u"three");
        run.LookUp(u"John 4");
        auto const typed = run.TextOf(notes) + u" and more";
        run.WriteNote(typed);
        run.CloseReader();
        isThrough = run.files.Calls() < callsBefore + call;
        run.program.Finish();
        EXPECT_THAT(run.Stored(u"John3"), HasSubstr("three")) << call;
        auto const stored = run.Stored(u"John3") + run.Stored(u"John4");
        EXPECT_THAT(stored, HasSubstr(ToUtf8(typed))) << call;
        EXPECT_THAT(stored + run.files.Bytes(NotePath(u"John4") + u".aside"), HasSubstr("four"))
            << call;
    }
}

} // namespace

#include "bible/book_file.h"
#include "support/bible_fixture.h"

using testing::IsEmpty;

namespace {

TEST_F(BibleTest, ItOpensForTheFirstTimeOnAVerse)
{
    OpenReader();
    EXPECT_EQ(State(), "John 3:16 | k-John-3:16 | John | Notes for John 3 |  | John 2, John 4");
    EXPECT_EQ(Expanded(), "John ");
    EXPECT_EQ(Panel("Panel1"), "KJV");
    EXPECT_EQ(Panel("Panel2"), "");
    EXPECT_EQ(settings.Value(u"biblereader", u"translation"), u"kjv");
    EXPECT_EQ(settings.Value(u"biblereader", u"search"), u"John 3:16");
    EXPECT_EQ(FormOf("frmBible").WindowState(), FormState::Maximised);
    EXPECT_FALSE(Get("frmBible.ProgressBar1").Visible);
    EXPECT_FALSE(Get("frmBible.cmdPrint").Enabled);
    std::string nodes;
    for (auto const& node : Get<TreeView>(tree).Nodes())
        if (node.Parent() == nullptr || node.Parent()->Key() == u"1 john")
            nodes += ToUtf8(node.Key()) + '=' + ToUtf8(node.Caption()) + ';';
    EXPECT_EQ(nodes,
        "genesis=Genesis;job=Job;john=John;jude=Jude;1 john=1 John;1 john 1=Chapter 1;1 john "
        "2=Chapter 2;..\\evil=..\\Evil;");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(BibleTest, ItOpensOnWhatIsStored)
{
    constexpr auto design = " |  | Scripture Text | Notes |  | -, -";
    struct {
        TextView translation, search;
        char const* state;
        char const* panel;
    } const rows[] = {
        { u"kjv", u"Job 2", "Job 2 | k-Job-2:1 k-Job-2:16 | Job | Notes for Job 2 |  | Job 1, -",
            "KJV" },
        { u"nasb", u"John 5:1", "John 5:1 | n-John-5:1 | John | Notes for John 5 |  | John 4, -",
            "NASB" },
        { u"another", u"Jude 1:1", "Jude 1:1 | n-Jude-1:1 | Jude | Notes for Jude 1 |  | -, -",
            "NASB" },
        { u"kjv", u"  Job 1:16 ", "Job 1:16 | k-Job-1:16 | Job | Notes for Job 1 |  | -, Job 2",
            "KJV" },
        { u"kjv", u"J", "J |  | Scripture Text | Notes |  | -, -", "KJV" },
        { u"kjv", u"", design, "KJV" },
        { u"kjv", u"Nobody 3", design, "KJV" },
    };
    for (auto const& row : rows) {
        BibleFixture run;
        run.Store(u"translation", row.translation);
        run.Store(u"search", row.search);
        run.OpenReader();
        EXPECT_EQ(run.State(), row.state) << ToUtf8(row.search);
        EXPECT_EQ(run.Panel("Panel1"), row.panel) << ToUtf8(row.search);
        EXPECT_FALSE(run.Get("frmBible.cmdPrint").Enabled) << "there is no note to print";
        EXPECT_EQ(run.settings.Value(u"biblereader", u"translation"),
            row.panel == std::string("KJV") ? u"kjv" : u"nasb");
        EXPECT_EQ(run.settings.Value(u"biblereader", u"search"), Trim(row.search));
    }
}

TEST_F(BibleTest, ALookupShowsPageNotesAndNeighbours)
{
    struct {
        TextView reference;
        char const* state;
    } const rows[] = {
        { u"john 4:16", "John 4:16 | k-John-4:16 | John | Notes for John 4 |  | John 3, -" },
        { u"JOHN 1", "JOHN 1 | k-John-1:1 k-John-1:16 | John | Notes for John 1 |  | -, John 2" },
        { u"jo 1", "Jo 1 | k-Job-1:1 k-Job-1:16 | Job | Notes for Job 1 |  | -, Job 2" },
        { u"Jude", "Jude | k-Jude-1:1 k-Jude-1:16 | Jude | Notes for Jude |  | -, -" },
        { u"Jude 1", "Jude 1 | k-Jude-1:1 k-Jude-1:16 | Jude | Notes for Jude 1 |  | -, -" },
        { u"1 john 2:1",
            "1 john 2:1 | k-1John-2:1 | 1 John | Notes for 1 John 2 |  | 1 John 1, -" },
        { u"John 99", "John 99 |  | John | Notes for John 99 |  | John 98, -" },
        { u"John 3:5", "John 3:5 |  | John | Notes for John 3 |  | John 2, John 4" },
        { u"John 0", "John 0 |  | John | Notes for John 0 |  | -, John 1" },
        { u"John 03",
            "John 03 | k-John-3:1 k-John-3:16 | John | Notes for John 03 |  | John 2, John 4" },
        { u" john   3 :  16",
            "John  3 : 16 | k-John-3:16 | John | Notes for John 3 |  | John 2, John 4" },
        { u"John 3:16:2",
            "John 3:16:2 | k-John-3:16 | John | Notes for John 3 |  | John 2, John 4" },
        { u"John 3:1-20",
            "John 3:1-20 | k-John-3:1 k-John-3:16 | John | Notes for John 3 |  | John 2, John 4" },
        { u"John 2:16, 1",
            "John 2:16, 1 | k-John-2:1 k-John-2:16 | John | Notes for John 2 |  | John 1, John 3" },
        { u"  ",
            " | k-Genesis-1:1 k-Genesis-1:16 k-Genesis-2:1 k-Genesis-2:16 | Genesis | Notes for "
            "Genesis |  | -, -" },
    };
    OpenReader();
    for (auto const& row : rows) {
        LookUp(row.reference);
        EXPECT_EQ(State(), row.state) << ToUtf8(row.reference);
        EXPECT_EQ(settings.Value(u"biblereader", u"search"), TextOf(box));
        EXPECT_EQ(Expanded(), ToUtf8(CaptionOf("frmBible.XPContainer2")) + ' ');
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(BibleTest, AFailedLookupChangesNothingButTheBoxAndTheTree)
{
    OpenReader();
    WriteNote(u"typed");
    auto const before = StateBesideBox();
    for (TextView const reference : { u"Nobody 3", u"John x1", u"John 3:", u"John3:16",
             u"John 99999", u"John 3:99999", u"42", u"John 3:16-x", u"ohn 3" }) {
        LookUp(reference);
        EXPECT_EQ(State(), " | " + before) << ToUtf8(reference);
        EXPECT_EQ(Expanded(), "") << ToUtf8(reference);
        EXPECT_EQ(Stored(u"John3"), "typed");
        EXPECT_EQ(settings.Value(u"biblereader", u"search"), u"John 3:16");
    }
    WriteNote(u"typed and more"); // still of the chapter that it was typed for
    LookUp(u"Nobody 4");
    LookUp(u"Job 1");
    EXPECT_EQ(Stored(u"John3"), "typed and more");
    EXPECT_EQ(Stored(u"nobody3"), "(none)");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(BibleTest, TooShortAReferenceDoesNothingAtAll)
{
    OpenReader();
    WriteNote(u"typed");
    auto const before = StateBesideBox();
    for (TextView const reference : { u"", u"J", u" " }) {
        LookUp(reference);
        EXPECT_EQ(State(), ToUtf8(reference) + " | " + before);
        EXPECT_EQ(Stored(u"John3"), "(none)");
    }
}

TEST_F(BibleTest, EveryControlLeadsToALookup)
{
    OpenReader();
    EXPECT_EQ(input.Select(Get<TextInput>(box), 0, 9), "");
    Write(box, u"job 2");
    EXPECT_EQ(Shown(), "k-John-3:16");
    Write(box, u"\r");
    EXPECT_EQ(Shown(), "k-Job-2:1 k-Job-2:16");
    EXPECT_EQ(Change(box, u"Jude"), "");
    Click("frmBible.cmdOkay");
    EXPECT_EQ(Shown(), "k-Jude-1:1 k-Jude-1:16");
    Node(tree, u"1 john 2");
    EXPECT_EQ(State(),
        "1 john 2 | k-1John-2:1 k-1John-2:16 | 1 John | Notes for 1 John 2 |  | 1 John 1, -");
    EXPECT_EQ(Get<TreeView>(tree).Selected(), Get<TreeView>(tree).Find(u"1 john 2"));
    auto const& chapter = *Get<TreeView>(tree).Find(u"1 john 2");
    EXPECT_STREQ(std::get<char const*>(chapter.Image()), "book");
    EXPECT_STREQ(std::get<char const*>(chapter.Parent()->Image()), "folder");
    EXPECT_STREQ(std::get<char const*>(chapter.Parent()->SelectedImage()), "openfolder");
    Node(tree, u"job");
    EXPECT_EQ(
        State(), "Job | k-Job-1:1 k-Job-1:16 k-Job-2:1 k-Job-2:16 | Job | Notes for Job |  | -, -");
    EXPECT_EQ(Expanded(), "Job ");
    LookUp(u"John 2:1");
    Click("frmBible.cmdNext");
    EXPECT_EQ(
        State(), "John 3 | k-John-3:1 k-John-3:16 | John | Notes for John 3 |  | John 2, John 4");
    Click("frmBible.cmdNext");
    Click("frmBible.cmdPrev");
    Click("frmBible.cmdPrev");
    Click("frmBible.cmdPrev");
    EXPECT_EQ(State(), "John 1 | k-John-1:1 k-John-1:16 | John | Notes for John 1 |  | -, John 2");
}

TEST_F(BibleTest, AnotherTranslationKeepsTheTreeAndTheNote)
{
    OpenReader();
    LookUp(u"John 4:1");
    WriteNote(u"typed");
    auto const nodes = Get<TreeView>(tree).Nodes().size();
    Translate(1);
    EXPECT_EQ(State(), "John 4:1 | n-John-4:1 | John | Notes for John 4 | typed | John 3, John 5");
    EXPECT_EQ(Get<TreeView>(tree).Nodes().size(), nodes);
    EXPECT_EQ(Panel("Panel1"), "NASB");
    EXPECT_EQ(settings.Value(u"biblereader", u"translation"), u"nasb");
    EXPECT_EQ(Stored(u"John4"), "typed");
    Node(tree, u"job 1"); // a book that the other translation lacks
    EXPECT_EQ(State(), " | n-John-4:1 | John | Notes for John 4 | typed | John 3, John 5");
    Translate(0); // with an empty box
    EXPECT_EQ(State(), " | n-John-4:1 | John | Notes for John 4 | typed | John 3, John 5");
    EXPECT_EQ(Panel("Panel1"), "KJV");
    EXPECT_EQ(settings.Value(u"biblereader", u"translation"), u"kjv");
    LookUp(u"John 4:1");
    EXPECT_EQ(State(), "John 4:1 | k-John-4:1 | John | Notes for John 4 | typed | John 3, -");
}

TEST_F(BibleTest, ClosingSavesTheNoteAndDeletesThePage)
{
    OpenReader();
    EXPECT_TRUE(HasPage());
    LookUp(u"Job 2");
    WriteNote(u"typed");
    Click("frmBible.mnuFileExit");
    EXPECT_FALSE(IsOpen("frmBible"));
    EXPECT_FALSE(HasPage());
    EXPECT_EQ(Stored(u"Job2"), "typed");
    OpenReader();
    EXPECT_EQ(State(), "Job 2 | k-Job-2:1 k-Job-2:16 | Job | Notes for Job 2 | typed | Job 1, -");
    EXPECT_FALSE(HasPage()) << "each opening has a page of its own";
    Click("frmContents.mnuBibleReader"); // brings up the one that is open
    EXPECT_EQ(TextOf(notes), u"typed");
    CloseReader();
    EXPECT_FALSE(files.FileExists(u"C:\\Temp\\tmp2.htm"));
}

TEST_F(BibleTest, APageThatCantBeWrittenLeavesTheOneBefore)
{
    OpenReader();
    files.unwritable = u"C:\\Temp";
    LookUp(u"John 4:1");
    EXPECT_EQ(State(), "John 4:1 | k-John-3:16 | John | Notes for John 4 |  | John 3, -");
    EXPECT_NE(Panel("Panel2"), "");
    EXPECT_FALSE(Get("frmBible.ProgressBar1").Visible);
    files.unwritable.clear();
    LookUp(u"John 4:1");
    EXPECT_EQ(Shown(), "k-John-4:1");
    EXPECT_EQ(Panel("Panel2"), "");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(BibleTest, TheStatusBarTellsWhatTextStandsInATranslationsPlace)
{
    constexpr auto about = u"/app\\biblenasb.about";
    struct Row {
        std::string bytes;
        Text panel;
    } const rows[] = {
        { "The World English Bible\r\nmore", u"The World English Bible" },
        { " caf\xE9 \x96\ta\n", u"caf\u00E9 \u2013a" },
        { std::string(5000, 'x'), Text(200, u'x') },
        { "\r\nThe second line", u"" },
        { "", u"" },
    };
    OpenReader();
    for (auto const& row : rows) {
        files.Put(about, row.bytes);
        Translate(1);
        EXPECT_EQ(Panel("Panel2"), ToUtf8(row.panel));
        EXPECT_EQ(files.Bytes(about), row.bytes);
        EXPECT_EQ(Change(box, u""), "");
        Translate(0);
        EXPECT_EQ(Panel("Panel2"), "") << "also where no page comes up";
        LookUp(u"John 4:1");
    }
    EXPECT_FALSE(files.FileExists(u"/app\\biblekjv.about"));
    files.MakeUnreadable(about);
    Translate(1);
    EXPECT_EQ(Panel("Panel2"), "");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(BibleTest, TheStatusBarTellsOfAChapterOrVerseThatTheBookLacks)
{
    struct Row {
        TextView reference;
        char const* panel;
    } const rows[] = {
        { u"John 99", "John has 4 chapters" },
        { u"John 0", "John has 4 chapters" },
        { u"john 99:1", "John has 4 chapters" },
        { u"John 4:17", "John 4 has 16 verses" },
        { u"Jo 02:16, 17", "Job 2 has 16 verses" },
        { u"John 3:10-99", "John 3 has 16 verses" },
        { u"John 3:0", "John 3 has 16 verses" },
        { u"Jude 5", "Jude has 1 chapter. For the verse type Jude 1:5" },
        { u"Jude 5:1", "Jude has 1 chapter" },
        { u"Jude 0", "Jude has 1 chapter" },
        { u"Jude 1:16", "" },
        { u"John 3:2-16", "" },
        { u"John 4:17", "John 4 has 16 verses" },
        { u"Nobody 4:17", "" },
        { u"..\\evil 1:17", "..\\Evil 1 has 16 verses" },
        { u"Genesis", "" },
    };
    OpenReader();
    for (auto const& row : rows) {
        LookUp(row.reference);
        EXPECT_EQ(Panel("Panel2"), row.panel) << ToUtf8(row.reference);
    }
    files.Put(u"/app\\biblekjv.about", "The Version");
    LookUp(u"Job 9");
    EXPECT_EQ(Panel("Panel2"), "Job has 2 chapters") << "before the line about the text";
    LookUp(u"Nobody 9");
    EXPECT_EQ(Panel("Panel2"), "The Version");
    files.unwritable = u"C:\\Temp";
    LookUp(u"Job 9");
    EXPECT_TRUE(Panel("Panel2").starts_with("The page can't be shown: ")) << Panel("Panel2");
}

TEST_F(BibleTest, TheReferenceIsSelectedToBeTypedOver)
{
    OpenReader();
    Write(box, u"job 2\r");
    Write(box, u"jude\r");
    EXPECT_EQ(State(), "Jude | k-Jude-1:1 k-Jude-1:16 | Jude | Notes for Jude |  | -, -");
    Node(tree, u"1 john 2");
    Write(box, u"John 4:1\r");
    EXPECT_EQ(Shown(), "k-John-4:1");
    Write(box, u"J\r"); // does nothing at all, so the caret stays behind the letter
    Write(box, u"ob 1\r");
    EXPECT_EQ(Shown(), "k-Job-1:1 k-Job-1:16");
    // What is put into the box while a lookup is at work stays as it is.
    host.onTurn = [&] { Get<TextBox>(box).Text = u"Jude 1:1"; };
    host.turns.Arm(7);
    LookUp(u"John 4");
    EXPECT_EQ(TextOf(box), u"Jude 1:1");
    EXPECT_EQ(Get<TextBox>(box).SelLength, 0);
    Store(u"search", u"J");
    CloseReader();
    Store(u"search", u"J");
    OpenReader();
    Write(box, u"Jude\r");
    EXPECT_EQ(Shown(), "k-Jude-1:1 k-Jude-1:16");
}

TEST_F(BibleTest, AltAndAnArrowGoThroughTheReferencesFound)
{
    constexpr int back = 37, on = 39;
    OpenReader();
    auto const go = [&](int key, std::string_view path = "frmBible.txtNotes") {
        EXPECT_EQ(Press(input, screen, Get(path), key, altHeld), "");
        return ToUtf8(TextOf(box)) + " | " + Shown();
    };
    EXPECT_EQ(go(back), "John 3:16 | k-John-3:16") << "nothing before it";
    LookUp(u"jude  1:1");
    Node(tree, u"1 john 2");
    Translate(1); // no such book there
    EXPECT_EQ(TextOf(box), u"");
    Translate(0);
    EXPECT_EQ(go(back, tree), "Jude 1:1 | k-Jude-1:1");
    Translate(1); // the same reference adds nothing
    EXPECT_EQ(Shown(), "n-Jude-1:1");
    EXPECT_EQ(go(on, "frmBible.cboVersion"), " | n-Jude-1:1");
    Translate(0);
    EXPECT_EQ(go(on), " | n-Jude-1:1") << "nothing ahead of it";
    EXPECT_EQ(go(back), "Jude 1:1 | k-Jude-1:1");
    EXPECT_EQ(go(back, box), "John 3:16 | k-John-3:16");
    EXPECT_EQ(settings.Value(u"biblereader", u"search"), u"John 3:16");
    EXPECT_EQ(go(on), "Jude 1:1 | k-Jude-1:1");
    LookUp(u"  "); // found, but too short to be looked up again
    EXPECT_EQ(go(on).substr(0, 3), " | ") << "what was ahead is gone";
    EXPECT_EQ(go(back), "Jude 1:1 | k-Jude-1:1");
    EXPECT_EQ(go(on).substr(0, 23), "Genesis | k-Genesis-1:1");
    LookUp(u"Nobody 1");
    EXPECT_EQ(go(back), "Jude 1:1 | k-Jude-1:1") << "from the reference last found";
    CloseReader();
    OpenReader();
    EXPECT_EQ(go(back), "Jude 1:1 | k-Jude-1:1") << "each opening has its own";
}

TEST_F(BibleTest, TheTreeGoesToTheBookThatALookupOpens)
{
    OpenReader();
    auto& books = Get<TreeView>(tree);
    auto const seen
        = [&] { return books.EnsuredVisible() ? ToUtf8(books.EnsuredVisible()->Key()) : "(none)"; };
    EXPECT_EQ(seen(), "john");
    LookUp(u"Jude");
    EXPECT_EQ(seen(), "jude");
    auto const times = books.TimesEnsured();
    LookUp(u"Jude 1:1");
    LookUp(u"Nobody 1");
    EXPECT_EQ(books.TimesEnsured(), times) << "nothing opened";
    Node(tree, u"1 john 2");
    EXPECT_EQ(seen(), "1 john 2") << "books above it have been closed";
}

TEST_F(BibleTest, ALookupDoesNotWaitForTheDisk)
{
    OpenReader();
    writer.isHolding = true;
    LookUp(u"Jude 1");
    LookUp(u"Job 2");
    EXPECT_EQ(State(), "Job 2 | k-Job-2:1 k-Job-2:16 | Job | Notes for Job 2 |  | Job 1, -");
    EXPECT_EQ(writer.waits, 0);
    CloseReader();
    OpenReader();
    EXPECT_EQ(State(), "Job 2 | k-Job-2:1 k-Job-2:16 | Job | Notes for Job 2 |  | Job 1, -")
        << "the next reading sees what is still to be written";
}

TEST_F(BibleTest, MissingOrBadBibleDataIsNoMatterForTheUser)
{
    files.Remove(u"/app\\biblekjv.idx");
    OpenReader();
    EXPECT_EQ(State(), " |  | Scripture Text | Notes |  | -, -");
    EXPECT_TRUE(files.FileExists(u"/app\\biblekjv.idx"));
    CloseReader();
    PutLines(u"/app\\biblekjv.idx",
        { "", "John|x", "Job|1", "job|2", "No bar", "|3", "Jude|40000", "Joel|0" });
    files.Put(u"/app\\kjv\\kjv7", std::string(largestBook + 1, '\n'));
    files.Remove(u"/app\\kjv\\kjv8");
    OpenReader();
    // Job with its chapter, Jude with the first 999, Joel
    EXPECT_EQ(Get<TreeView>(tree).Nodes().size(), 1003u);
    LookUp(u"Jude 2000"); // in a book that is too large, so the page is empty
    EXPECT_EQ(State(), "Jude 2000 |  | Jude | Notes for Jude 2000 |  | Jude 1999, Jude 2001");
    LookUp(u"Joel 1");
    EXPECT_EQ(State(), "Joel 1 |  | Joel | Notes for Joel 1 |  | -, -");
    EXPECT_TRUE(files.FileExists(u"/app\\kjv\\kjv8"));
    files.MakeUnreadable(u"/app\\biblekjv.idx");
    LookUp(u"Job 1");
    EXPECT_EQ(TextOf(box), u"");
    EXPECT_THAT(Messages(), IsEmpty());
}

} // namespace

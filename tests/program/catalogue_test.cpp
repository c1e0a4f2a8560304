#include "support/program_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::vector<std::string> DumpTree(TreeView const& tree)
{
    std::vector<std::string> dump;
    for (Node const& node : tree.Nodes())
        dump.push_back((node.Parent() ? ToUtf8(node.Parent()->Key()) + " > " : "")
            + ToUtf8(node.Key()) + " \"" + ToUtf8(node.Caption()) + "\" "
            + std::to_string(std::get<int>(node.Image())) + (node.Bold() ? "b" : "")
            + (node.Tag().empty() ? "" : " tag " + ToUtf8(node.Tag())));
    return dump;
}

} // namespace

TEST_F(StudyTest, TheCatalogueIsBuiltFromTheHeadsOfTheStudies)
{
    PutLines(u"Abc-1.dat", { "!Aevu  qh hckvjc", "", " - no end/", "/", "-/", "beyond" });
    files.Put(u"half-1.dat", "Only a title");
    files.Put(u"open-1.dat", "Open\nDescription\nLesson\n>1\nIntro");
    files.Put(u"cut-1.dat", "Cut\nDescription\nLesson//");
    PutLines(u"zz-1.dat", { "ZZ", "Unreadable", "-" });
    files.MakeUnreadable(u"zz-1.dat");
    Start();
    EXPECT_THAT(DumpTree(Get<TreeView>("frmContents.TreeView1")),
        ElementsAre("Abc-1.dat \"Acts  of faith\" 4b",
            "Abc-1.dat > Abc-1.dat1 \"Lesson 1:  - no end\" 3",
            "Abc-1.dat1 > Abc-1.dat:1 \"Part One\" 0", "Abc-1.dat1 > Abc-2.dat:1 \"Part Two\" 0",
            "Abc-1.dat > Abc-1.dat2 \"Lesson 2: \" 3", "Abc-1.dat2 > Abc-1.dat:2 \"Part One\" 0",
            "Abc-1.dat2 > Abc-2.dat:2 \"Part Two\" 0", "cut-1.dat \"Cut\" 4b tag Description",
            "cut-1.dat > cut-1.dat1 \"Lesson 1: Lesson\" 3",
            "cut-1.dat1 > cut-1.dat:1 \"Part One\" 0", "cut-1.dat1 > cut-2.dat:1 \"Part Two\" 0",
            "james-1.dat \"James: A Working Faith \" 4b tag Two lessons. For one reader.",
            "james-1.dat > james-1.dat1 \"Lesson 1: Faith Under Trial/James 1/more\" 3",
            "james-1.dat1 > james-1.dat:1 \"Part One\" 0",
            "james-1.dat1 > james-2.dat:1 \"Part Two\" 0",
            "james-1.dat > james-1.dat2 \"Lesson 2: Hearing\" 3",
            "james-1.dat2 > james-1.dat:2 \"Part One\" 0",
            "james-1.dat2 > james-2.dat:2 \"Part Two\" 0", "open-1.dat \"Open\" 4b tag Description",
            "open-1.dat > open-1.dat1 \"Lesson 1: Lesson\" 3",
            "open-1.dat1 > open-1.dat:1 \"Part One\" 0",
            "open-1.dat1 > open-2.dat:1 \"Part Two\" 0"));
}

TEST_F(StudyTest, AClickOnAStudyShowsItsDescriptionAndOnALessonOnlyOpensIt)
{
    Start();
    auto& tree = Get<TreeView>("frmContents.TreeView1");
    EXPECT_FALSE(Get("frmContents.lblStudy").Visible);
    EXPECT_THAT(
        ToUtf8(TextOf("frmContents.txtDesc")), HasSubstr("Click on the name of a Bible study"));
    Node("frmContents.TreeView1", u"james-1.dat");
    EXPECT_TRUE(tree.Find(u"james-1.dat")->Expanded());
    EXPECT_EQ(TextOf("frmContents.lblStudy"), u"James: A Working Faith ");
    EXPECT_EQ(TextOf("frmContents.txtDesc"), u"Two lessons. For one reader.");
    EXPECT_EQ(Get("frmContents.txtDesc").Top, Get("frmContents.lblStudy").Top + 740);
    EXPECT_TRUE(Get("frmContents.Picture1").Visible);
    Node("frmContents.TreeView1", u"james-1.dat1");
    EXPECT_TRUE(tree.Find(u"james-1.dat1")->Expanded());
    EXPECT_EQ(TextOf("frmContents.txtDesc"), u"Two lessons. For one reader.");
    Node("frmContents.TreeView1", u"james-1.dat");
    EXPECT_FALSE(tree.Find(u"james-1.dat")->Expanded());
}

TEST_F(StudyTest, TheWelcomeDialogComesOnceOnTheWayIntoALesson)
{
    struct {
        char const* about;
        TextView showhelp;
        bool comes;
    } const rows[] = { { "never chosen", u"", true }, { "wanted", u"true", true },
        { "unwanted", u"false", false }, { "anything else", u"True", false } };
    for (auto const& row : rows) {
        ProgramFixture run;
        for (auto const name :
            { u"james-1.dat", u"V-James1", u"V-James1s", u"introduction.txt", u"conclusion.txt" })
            run.files.Put(name, files.Bytes(name));
        if (!row.showhelp.empty()) {
            ASSERT_TRUE(run.settings.Write(u"Parameters", u"showhelp", row.showhelp));
        }
        run.Start();
        run.Click("frmContents.mnuHelpWelcome"); // One that is open already is in nobody's way.
        int shown = 0;
        run.host.serveModal = [&](Form& form) {
            ++shown;
            EXPECT_EQ(&form, &run.FormOf("frmWelcome"));
            run.input.Close(form);
        };
        for (int i = 0; i < 2; ++i) {
            run.Node("frmContents.TreeView1", u"james-1.dat:1");
            ASSERT_TRUE(run.IsOpen("frmMain")) << row.about;
            run.Click("frmMain.mnuFileClose");
        }
        EXPECT_EQ(shown, row.comes ? 1 : 0) << row.about;
    }
}

TEST_F(StudyTest, TheCatalogueIsLeftForTheLessonAndComesBackCollapsed)
{
    Open(u"james-2.dat:2");
    EXPECT_TRUE(IsOpen("frmMain"));
    EXPECT_FALSE(FormOf("frmContents").IsLoaded());
    Click("frmMain.mnuFileClose");
    EXPECT_FALSE(FormOf("frmMain").IsLoaded());
    ASSERT_TRUE(IsOpen("frmContents"));
    EXPECT_FALSE(Get<TreeView>("frmContents.TreeView1").Find(u"james-1.dat")->Expanded());
    EXPECT_EQ(Get("frmContents.txtDesc").Tag(), u"False");
    Click("frmContents.mnuFileExit");
    EXPECT_TRUE(screen.Ended());
}

TEST_F(StudyTest, ALessonTellsWhatIsDoneInItWhenItIsAsked)
{
    struct {
        char const* about;
        std::vector<SettingsStore::Entry> stored;
        char const* ofLesson;
        char const* ofPartOne;
    } const rows[] = {
        { "never opened", {}, "", "" },
        { "opened only",
            { { u"james-1.dat:1", u"currentindex", u"3" }, { u"james-1.dat:1", u"Page1", u"" },
                { u"james-1.dat:1", u"Page2", u" \r\n" } },
            "", "" },
        { "one answer, of another lesson too",
            { { u"james-1.dat:1", u"currentindex", u"2" }, { u"james-1.dat:1", u"Page1", u"a" },
                { u"james-1.dat:10", u"Page1", u"a" }, { u"james-1.dat:2", u"Page1", u"a" } },
            "Part One: 1 page answered, last at page 2",
            "Part One: 1 page answered, last at page 2" },
        { "both parts",
            { { u"james-1.dat:1", u"currentindex", u"5" }, { u"james-1.dat:1", u"Page1", u"a" },
                { u"james-1.dat:1", u"Page10", u"b" }, { u"james-2.dat:1", u"Page2", u"c" },
                { u"james-2.dat:1", u"currentindex", u"none" } },
            "Part One: 2 pages answered, last at page 5\nPart Two: 1 page answered",
            "Part One: 2 pages answered, last at page 5" },
        { "stored under a name in capitals",
            { { u"JAMES-2.DAT:1", u"Page1", u"a" }, { u"JAMES-2.DAT:1", u"currentindex", u"1" } },
            "Part Two: 1 page answered, last at page 1", "" },
    };
    Start();
    auto& tree = Get<TreeView>("frmContents.TreeView1");
    files.Remove(u"james-2.dat"); // which is not opened here
    for (auto const& row : rows) {
        auto const before = settings.All();
        for (auto const& entry : *before)
            ASSERT_TRUE(settings.DeleteSection(entry.section, SettingsStore::NoBackup));
        ASSERT_TRUE(settings.WriteAll(row.stored, SettingsStore::Existing::Goes));
        EXPECT_EQ(ToUtf8(tree.ToolTipOf(*tree.Find(u"james-1.dat1"))), row.ofLesson) << row.about;
        EXPECT_EQ(ToUtf8(tree.ToolTipOf(*tree.Find(u"james-1.dat:1"))), row.ofPartOne) << row.about;
        EXPECT_EQ(tree.ToolTipOf(*tree.Find(u"james-1.dat")), u"") << "of a study";
    }
    settings.failing = true;
    EXPECT_EQ(tree.ToolTipOf(*tree.Find(u"james-1.dat1")), u"");
    settings.failing = false;
    auto const calls = settings.Calls();
    Unload(FormOf("frmContents"));
    FormOf("frmContents").Show();
    EXPECT_EQ(settings.Calls(), calls) << "building the tree asks for nothing";
}

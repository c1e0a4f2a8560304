#include "drive/driver.h"

#include "support/program_fixture.h"

#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class DriverTest : public StudyTest {
protected:
    /// Runs a script from the program's start to its end and gives the answers, a line each.
    std::vector<std::string> Run(std::string const& script)
    {
        std::istringstream lines(script);
        std::ostringstream answers;
        Machine machine { host, screen, settings, recorder };
        Driver driver(machine, lines, answers, [](int) { throw std::runtime_error("power cut"); });
        Start();
        try {
            driver.Run();
        } catch (std::runtime_error const& end) {
            cut = true;
        }
        status = driver.Status();
        std::vector<std::string> result;
        std::istringstream written(answers.str());
        for (std::string line; std::getline(written, line);)
            result.push_back(line);
        return result;
    }

    RecordingShell recorder;
    int status = -1;
    bool cut = false;
};

} // namespace

TEST_F(DriverTest, AnswersEachCommandWithALine)
{
    struct {
        char const* command;
        char const* answer;
    } const rows[] = {
        { "running", R"({"running":true})" },
        { "get frmContents.Caption", R"({"value":"Sparrowfield Interactive Bible Studies"})" },
        { "get frmContents.XPContainer1.Width", R"({"value":17520})" },
        { "get frmContents.TreeView1.FontSize", R"({"value":11.25})" },
        { "get frmContents.Picture1.Visible", R"({"value":false})" },
        { "get frmContents.File1.List", R"({"value":["james-1.dat"]})" },
        { "get frmContents.WindowState", R"({"value":2})" },
        { "set frmContents.lblStudy.Text \"quoted \\\"\\r\\nline\"", "{}" },
        { "get frmContents.lblStudy.Text", R"({"value":"quoted \"\r\nline"})" },
        { "set frmContents.XPContainer1.Width wide", R"({"error":"not a number: wide"})" },
        { "set frmContents.ScaleWidth 5",
            R"({"error":"frmContents.ScaleWidth can't be set to 5"})" },
        { "set frmContents.Left nan", R"({"error":"not a number: nan"})" },
        { "set frmWelcome.Label2.Caption Z", "{}" },
        { "click frmContents.mnuHelpWelcome", "{}" },
        { "get frmWelcome.Label2.Caption", R"({"value":"Don't show me this again"})" },
        { "state frmWelcome 2", R"({"error":"frmWelcome has no button for this state"})" },
        { "close frmWelcome", "{}" },
        { "click frmContents.mnuFileSeparator",
            R"({"error":"frmContents.mnuFileSeparator is a separator"})" },
        { "get frmContents.Nothing", R"({"error":"frmContents has no property Nothing"})" },
        { "get frmNothing.Caption", R"({"error":"there is no form frmNothing"})" },
        { "setting james-1.dat:1 Page2 answer", "{}" },
        { "tip frmContents.TreeView1 james-1.dat1", R"({"text":"Part One: 1 page answered"})" },
        { "tip frmContents.TreeView1 james-1.dat", R"({"text":""})" },
        { "tip frmContents.TreeView1 x", R"({"error":"frmContents.TreeView1 has no node x"})" },
        { "tree frmContents.txtDesc", R"({"error":"frmContents.txtDesc is a TextBox"})" },
        { "click frmContents.mnuFileSave", R"({"error":"frmContents.mnuFileSave is disabled"})" },
        { "click frmMain.Command1", R"({"error":"frmMain isn't loaded"})" },
        { "node frmContents.TreeView1 nothing",
            R"({"error":"frmContents.TreeView1 has no node nothing"})" },
        { "dance", R"({"error":"there is no command dance"})" },
        { "click", R"({"error":"the command needs more words"})" },
        { "forms now", R"({"error":"the command has too many words"})" },
        { "type frmContents.txtDesc \"open", R"({"error":"a quoted word has no end"})" },
        { "clipboard \"caf\\u00e9\"", "{}" },
        { "clipboard", R"({"text":"café"})" },
        { "setting a b c", "{}" },
        { "settings",
            R"({"settings":[{"section":"a","key":"b","value":"c"},)"
            R"({"section":"james-1.dat:1","key":"Page2","value":"answer"}]})" },
        { "opened", R"({"opened":[]})" },
        { "printed", R"({"jobs":[]})" },
        { "messages", R"({"messages":[]})" },
    };
    std::string script = "# a remark\n\n";
    for (auto const& row : rows)
        script += std::string(row.command) + "\n";
    auto const answers = Run(script);
    ASSERT_EQ(answers.size(), std::size(rows));
    for (std::size_t i = 0; i < answers.size(); ++i)
        EXPECT_EQ(answers[i], rows[i].answer) << rows[i].command;
    EXPECT_EQ(status, 1);
}

TEST_F(DriverTest, AModalFormIsServedWhileItsHandlerWaits)
{
    auto const answers = Run("node frmContents.TreeView1 james-1.dat:1\n"
                             "click frmContents.mnuFileExit\n"
                             "turn 1 get frmMain.Frame1.Visible\n"
                             "click frmWelcome.Command1\n"
                             "get frmMain.Visible\n");
    ASSERT_EQ(answers.size(), 5U);
    EXPECT_EQ(answers[0], "{}");
    EXPECT_THAT(answers[1], HasSubstr("under the modal form frmWelcome"));
    EXPECT_EQ(answers[2], "{}");
    EXPECT_THAT(answers[3], HasSubstr(R"("served":{"value":true})"))
        << "the click goes on into the load";
    EXPECT_EQ(answers[4], R"({"value":true})");
}

TEST_F(DriverTest, ATurnServesACommandAtItsCharacter)
{
    ASSERT_TRUE(settings.Write(u"Parameters", u"showhelp", u"false"));
    auto const answers = Run("turn 2 click frmMain.mnuFileExit\n"
                             "node frmContents.TreeView1 james-1.dat:2\n"
                             "turn 100000 \"get frmMain.Caption\"\n"
                             "click frmMain.mnuFileClose\n"
                             "node frmContents.TreeView1 james-1.dat:2\n");
    ASSERT_EQ(answers.size(), 5U);
    // A turn of the load itself and one for each line read; the scrambled line of the general
    // introduction has a body of two. 24 lines of the study file, 3 + 2 + 2 lines of introduction
    // and conclusion, 8 + 3 lines of the verse files.
    EXPECT_EQ(answers[1], R"({"turns":43,"served":{}})") << "input during a load is dropped";
    EXPECT_EQ(answers[3], R"({"turns":0})");
    EXPECT_EQ(answers[4], "{}");
}

TEST_F(DriverTest, WatchesAssignmentsInTheirOrder)
{
    auto const answers = Run("setting Parameters showhelp false\n"
                             "watch frmMain.Command1.Enabled\n"
                             "watch frmMain.XPContainer3.Caption\n"
                             "node frmContents.TreeView1 james-1.dat:1\n"
                             "type frmMain.Text3 a\n"
                             "changes\n"
                             "changes\n");
    EXPECT_EQ(answers[5],
        R"({"changes":[{"property":"frmMain.XPContainer3.Caption",)"
        R"("value":"Lesson 1, Part One:  Faith Under Trial   James 1"},)"
        R"({"property":"frmMain.Command1.Enabled","value":false},)"
        R"({"property":"frmMain.Command1.Enabled","value":false},)"
        R"({"property":"frmMain.Command1.Enabled","value":true}]})");
    EXPECT_EQ(answers[6], R"({"changes":[]})");
}

TEST_F(DriverTest, TheFirstLayoutReadsPlacesOfTheDesign)
{
    auto const answers = Run("setting Parameters showhelp false\n"
                             "watch frmMain.XPContainer4.Height\n"
                             "watch frmMain.Image1.Left\n"
                             "node frmContents.TreeView1 james-1.dat:1\n"
                             "changes\n");
    EXPECT_EQ(answers[4],
        R"({"changes":[{"property":"frmMain.XPContainer4.Height","value":3828},)"
        R"({"property":"frmMain.Image1.Left","value":8235},)"
        R"({"property":"frmMain.XPContainer4.Height","value":3734.4},)"
        R"({"property":"frmMain.Image1.Left","value":7995}]})");
}

TEST_F(DriverTest, DescribesRichTextsTreesAndMenus)
{
    auto const answers = Run("setting Parameters showhelp false\n"
                             "node frmContents.TreeView1 james-1.dat:1\n"
                             "type frmMain.Text3 \"ab\\r\\nc\"\n"
                             "rich frmMain.Text3\n"
                             "tree frmMain.TreeView2\n"
                             "menus frmMain\n"
                             "dump frmMain\n");
    EXPECT_EQ(answers[3],
        R"({"text":"ab\r\nc","caret":5,"selectionLength":0,"top":0,)"
        R"("runs":[{"start":0,"length":5,"bold":false,"size":8.25,"raise":0}],)"
        R"("paragraphs":[{"start":0,"left":0,"right":0,"hanging":0},)"
        R"({"start":4,"left":0,"right":0,"hanging":0}]})");
    EXPECT_THAT(answers[4],
        HasSubstr(R"({"key":"item1","parent":"","text":"Jn. 3:16","image":"book",)"
                  R"("selectedImage":0,"bold":false,"expanded":true,)"
                  R"("selected":false,"backColor":16577775,"tag":")"));
    EXPECT_THAT(answers[5],
        HasSubstr(R"({"name":"mnuEditCut","caption":"Cut","shortcut":"Ctrl+X","enabled":true})"));
    EXPECT_THAT(
        answers[6], HasSubstr(R"("Text3":{"kind":"RichTextBox","container":"Image2","Left":480,)"));
    EXPECT_THAT(answers[6], HasSubstr(R"("focus":"Text3"})"));
}

TEST_F(DriverTest, AfterTheEndOnlyTheRecordsAnswer)
{
    auto const answers = Run("click frmContents.mnuFileExit\nrunning\nforms\nmessages\n");
    EXPECT_THAT(answers,
        ElementsAre("{}", R"({"running":false})", R"({"error":"the program has ended"})",
            R"({"messages":[]})"));
}

TEST_F(DriverTest, APowerCutRunsNoHandler)
{
    ASSERT_TRUE(settings.Write(u"Parameters", u"showhelp", u"false"));
    auto const answers = Run(
        "node frmContents.TreeView1 james-1.dat:1\ntype frmMain.Text3 gone\nprogram-ends\nforms\n");
    EXPECT_THAT(answers, ElementsAre("{}", "{}", "{}"));
    EXPECT_TRUE(cut);
    EXPECT_EQ(settings.Value(u"james-1.dat:1", u"Page1"), u"(none)");
}

TEST_F(DriverTest, AScriptThatEndsUnderAModalFormClosesEverything)
{
    Run("node frmContents.TreeView1 james-1.dat:1\n");
    EXPECT_TRUE(screen.Loaded().empty());
    EXPECT_EQ(status, 0);
}

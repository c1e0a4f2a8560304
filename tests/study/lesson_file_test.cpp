// Study files, from their bytes to a dump of the lesson, and what bad ones get.

#include "study/lesson_file.h"

#include "base/code_page.h"
#include "study/general_texts.h"
#include "support/memory_file_system.h"
#include "support/page_examples.h"

#include <gtest/gtest.h>

#include <sstream>

/// The lesson, a line for each piece, in the form that the page on study files shows.
static std::string Dump(LessonBlock const& block)
{
    Text dump = u"study " + block.study.studyPrefix + u" | " + block.study.studyTitle + u"\npart "
        + block.partWord + u"\ntitle " + block.titleLine + u"\n";
    for (auto const& paragraph : block.introParagraphs)
        dump += (paragraph.bold ? u"bold " : u"text ") + paragraph.text + u"\n";
    EXPECT_EQ(block.body.pages.size(), block.body.answers.size());
    for (std::size_t i = 0; i < block.body.pages.size(); ++i)
        dump += u"page " + block.body.pages[i] + u"\nanswer " + block.body.answers[i] + u"\n";
    dump += u"closing " + block.body.closingLine + u"\nverses " + block.mainVerseName + u" "
        + block.supplementalVerseName + u"\n";
    return ToUtf8(dump);
}

static std::string Parsed(MemoryFileSystem const& files, TextView studyKey)
{
    Turns turns;
    auto const block = ParseLessonBlock(files, studyKey, turns);
    return block ? Dump(*block) : ToUtf8(block.failure().Message());
}

/// A study of one lesson whose block holds these lines, closed with "-" and two names.
static MemoryFileSystem StudyOf(std::string_view introduction, std::string_view body)
{
    MemoryFileSystem files;
    files.Put(u"a-1.dat",
        "P:T\nD\nL\n-\n>1\n" + std::string(introduction) + "\n" + std::string(body) + "\nV\nW\n");
    return files;
}

/// The lines of the dump that begin with one of the words.
static std::string Only(std::string const& dump, std::string_view first, std::string_view second)
{
    std::string some;
    std::istringstream lines(dump);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(first) || line.starts_with(second))
            some += line + "\n";
    return some;
}

TEST(LessonFile, ReadsTheExampleOfItsPage)
{
    auto const examples = FencedBlocks("study-files.md");
    ASSERT_EQ(examples.size(), 2u);
    MemoryFileSystem files;
    files.Put(u"ruth-1.dat", examples[0]);
    EXPECT_EQ(Parsed(files, u"ruth-1.dat:1"), examples[1]);

    files.Put(u"conclusion.txt", "Not this.\nGod bless you, as Ro. 15 says.");
    EXPECT_EQ(Only(Parsed(files, u"ruth-1.dat:1"), "page .", "closing"),
        "page . God bless you, as Romans 15 says.\nclosing -\n");
    EXPECT_EQ(Only(Parsed(files, u"ruth-1.dat:2"), "page", "answer"),
        "page 1. Where does Ruth find work?\nanswer In the field of Boaz.\n"
        "page - Congratulations, you have come to the end of this study.\n"
        "answer Answers will vary.\n");

    files.Put(u"-2ruth-1.dat.dat", examples[0]);
    EXPECT_EQ(Only(Parsed(files, u"-2ruth-1.dat.dat:2"), "part", "title"),
        "part One\ntitle In the Field\n");
    files.Put(u"ruth.dat", examples[0]);
    EXPECT_EQ(
        Only(Parsed(files, u"ruth.dat:2"), "part", "title"), "part Two\ntitle In the Field\n");
}

TEST(LessonFile, ReadsIntroductions)
{
    struct Row {
        char const *line, *paragraphs;
    };
    static constexpr Row rows[] = {
        { "", "" },
        { "Title", "bold Title\n" },
        { "A/B/^C/D^", "bold A\ntext B\nbold C\ntext D^\n" },
        { "/B/", "bold \ntext B\ntext \n" },
        { "^^A/^", "bold ^A\nbold \n" },
        { "Read XXXX Is./XXXX Is.", "bold Scripture references as given.\ntext XXXX Isaiah\n" },
    };
    for (auto const& row : rows) {
        auto const files = StudyOf(row.line, "1. A page\n-");
        EXPECT_EQ(Only(Parsed(files, u"a-1.dat:1"), "bold", "text"), row.paragraphs) << row.line;
    }
}

TEST(LessonFile, ReadsBodies)
{
    struct Row {
        char const *lines, *pages;
    };
    static constexpr Row rows[] = {
        { "1. A\n[x]\n[y]\n-", "page 1. A\nanswer y\n" },
        { "1. A\n# r\nab\n\n[x/y)\n-", "page 1. A\nanswer x/y\n" },
        { "1. A\n[]\n2. B\n[\n3. C\n-",
            "page 1. A\nanswer \npage 2. B\nanswer \npage 3. C\nanswer Answers will vary.\n" },
        { "[early]\n1. A\n-b", "page 1. A\nanswer Answers will vary.\n" },
        { "1. Is.\n[Jn. 3]\n-", "page 1. Isaiah\nanswer John 3\n" },
        { "1. A\n-- Is.",
            "page 1. A\nanswer Answers will vary.\npage -- Isaiah\nanswer Answers will vary.\n" },
    };
    for (auto const& row : rows) {
        auto const dump = Only(Parsed(StudyOf("I", row.lines), u"a-1.dat:1"), "page", "answer");
        EXPECT_EQ(dump, row.pages) << row.lines;
    }
}

TEST(LessonFile, TheConclusionFollowsUnlessThereAreCongratulations)
{
    auto files = StudyOf("I", "1. A\n-");
    auto const pages = [&] { return Only(Parsed(files, u"a-1.dat:1"), "page", "?"); };
    EXPECT_EQ(pages(), "page 1. A\n") << "no file, no page";
    files.Put(u"conclusion.txt", "");
    EXPECT_EQ(pages(), "page 1. A\npage . \n");
    files.Put(u"conclusion.txt", "one\ntwo\r\n!uisffb\n");
    EXPECT_EQ(pages(), "page 1. A\npage . three\n");
    files.Put(u"a-1.dat", "P:T\nD\nL\n>1\nI\n- Congratulations\nV\nW");
    EXPECT_EQ(pages(), "page - Congratulations\n");
    files.Put(u"a-1.dat", "P:T\nD\nL\n>1\nI/- over\nV\nW");
    EXPECT_EQ(pages(), "page . three\n") << "the introduction closes the lesson";
}

TEST(LessonFile, ReadsHeadsAndMarkers)
{
    MemoryFileSystem files;
    files.Put(u"a-1.dat", "no colon\nD\n>1 is its own marker\nI\n1. A\n-\nV\nW");
    EXPECT_EQ(Only(Parsed(files, u"a-1.dat:1"), "study", "title"),
        "study no colon | \ntitle >1 is its own marker\n");
    files.Put(u"a-1.dat", ": T : more\n\nL\n-\n>12\nI\n1. A\n-\nV\nW");
    EXPECT_EQ(Only(Parsed(files, u"a-1.dat:1"), "study", "page"), "study  | T\npage 1. A\n")
        << "a longer number begins alike";
}

TEST(LessonFile, ABadFileIsNamedWithLineAndReason)
{
    MemoryFileSystem files;
    files.Put(u"empty", "");
    files.Put(u"one", "P:T\n");
    files.Put(u"list", "P:T\nD\nL\n-\n");
    files.Put(u"marked", "P:T\nD\nL\n-\n>1\n");
    files.Put(u"open", "P:T\nD\nL\n-\n>1\nI\n1. A\n");
    files.Put(u"nameless", "P:T\nD\nL\n-\n>1\nI\n1. A\n-\nV\n");
    files.Put(u"pageless", "P:T\nD\nL\n-\n>1\nI\n#\n[x]\n-\nV\nW\n");
    struct Row {
        TextView key;
        char const* message;
    };
    static constexpr Row rows[] = {
        { u"missing:1", "missing: the file doesn't exist." },
        { u"empty:1", "empty: the file ends before the title of the study." },
        { u"one:1", "one, line 1: the file ends before the description of the study." },
        { u"list:3", "list, line 4: the file ends before the title of lesson 3." },
        { u"list:9223372036854775807",
            "list, line 4: the file ends before the title of lesson 9223372036854775807." },
        { u"list:1", "list, line 4: the file ends before the line \">1\" that opens the lesson." },
        { u"marked:1", "marked, line 5: the file ends before the introduction of the lesson." },
        { u"open:1", "open, line 7: the file ends before the line \"-\" that closes the lesson." },
        { u"nameless:1",
            "nameless, line 9: the file ends before the names of the two verse files." },
        { u"pageless:1", "pageless, line 9: the lesson has no page." },
        { u"list", "list: \"\" is no number of a lesson." },
        { u"list:0", "list: \"0\" is no number of a lesson." },
        { u"list:-1", "list: \"-1\" is no number of a lesson." },
        { u"list:1.5", "list: \"1.5\" is no number of a lesson." },
        { u"list:99999999999999999999",
            "list: \"99999999999999999999\" is no number of a lesson." },
        { u"", "\"\" is no number of a lesson." },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Parsed(files, row.key), row.message);
}

TEST(LessonFile, EveryFileCutOffOrReadToAFailureIsALessonOrAFailure)
{
    auto const example = FencedBlocks("study-files.md").front();
    MemoryFileSystem files;
    files.Put(u"whole-1.dat", example);
    auto const whole = Parsed(files, u"whole-1.dat:2");
    ASSERT_TRUE(whole.ends_with("verses Ruth2 Ruth2s\n"));
    for (std::size_t size = 0; size < example.size(); ++size) {
        files.Put(u"cut-1.dat", example.substr(0, size));
        auto const cut = Parsed(files, u"cut-1.dat:2");
        bool const inLastName = size > example.rfind("Ruth2s");
        EXPECT_EQ(cut.starts_with("cut-1.dat"), !inLastName) << size << ": " << cut;
    }
    for (int call = 1;; ++call) {
        files.FailAt(call);
        auto const read = Parsed(files, u"whole-1.dat:2");
        if (read == whole)
            break;
        ASSERT_TRUE(read.ends_with("it can't be read.")) << call << ": " << read;
    }
}

TEST(LessonFile, PagesHoldAnyCharacterAndAnyLength)
{
    std::string const page = "1. " + std::string(1'000'000, 'x') + std::string(2, '\0') + "\ry";
    Turns turns;
    auto const files = StudyOf("I", page + "\n[a\rb]\n-");
    auto const block = ParseLessonBlock(files, u"a-1.dat:1", turns);
    ASSERT_TRUE(block);
    EXPECT_EQ(block->body.pages.front(), FromCodePage(page));
    EXPECT_EQ(block->body.answers.front(), u"a\rb");
}

TEST(LessonFile, TheReaderGoesAsFarAsItIsAsked)
{
    MemoryFileSystem files;
    files.Put(u"a-2.dat", "P:T\n!Ea\nL/M\n>1\nI\n1. A\n-\nV\nW");
    Turns turns;
    auto reader = LessonReader::Open(files, u"a-2.dat:1:more", turns);
    ASSERT_TRUE(reader);
    EXPECT_EQ(reader->LessonNumber(), u"1");
    EXPECT_EQ(reader->ReadHead()->studyTitle, u"T");
    EXPECT_EQ(turns.Given(), 1u);
    EXPECT_EQ(*reader->ReadTitleLine(), u"L/M");
    EXPECT_EQ(turns.Given(), 4u) << "one of them for the scrambled character of the description";
}

TEST(GeneralTexts, HandsOnTheLinesOfTheIntroduction)
{
    MemoryFileSystem files;
    Turns turns;
    std::vector<Text> lines;
    auto const keep = [&](TextView line) { lines.emplace_back(line); };
    ReadIntroduction(files, turns, keep);
    EXPECT_TRUE(lines.empty()) << "no file, no introduction";
    files.Put(u"introduction.txt", "Read  Jn. 3/on\n\n!ifmmp!!b\n");
    ReadIntroduction(files, turns, keep);
    EXPECT_EQ(lines, (std::vector<Text> { u"Read John 3/on", u"", u"hello!!" }));
    lines.clear();
    files.Put(u"introduction.txt", "Read Jn. 3/on\n\n" + std::string(100, 'x'));
    files.FailAt(3); // the second block
    ReadIntroduction(files, turns, keep);
    EXPECT_EQ(lines, (std::vector<Text> { u"Read John 3/on", u"" }));
}

TEST(GeneralTexts, AConclusionThatBreaksOffIsNone)
{
    MemoryFileSystem files;
    Turns turns;
    files.Put(u"conclusion.txt", "first line\n" + std::string(100, 'x'));
    EXPECT_EQ(ReadConclusion(files, turns), Text(100, u'x'));
    files.FailAt(3); // the second block
    EXPECT_EQ(ReadConclusion(files, turns), std::nullopt);
}

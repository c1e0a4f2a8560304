#include "kit/study/study_check.h"

#include "kit/kit_fixtures.h"
#include "support/page_examples.h"

#include <gtest/gtest.h>

namespace {

/// A study file of two lessons without a fault, line by line.
std::vector<std::string> const good
    = { "A: B", "C", "D/E", "F", "-", ">1", "I/^J", "1. K", "[L]", "# M", "!2. Nz",
          "- Congratulations, all", "Main", "More", ">2 free", "O", ". P", "-", "Main", "^More" };

std::string Joined(std::vector<std::string> const& lines)
{
    std::string bytes;
    for (auto const& line : lines)
        bytes += line + "\r\n";
    return bytes;
}

/// The faults of a file in a folder with all that belongs to a study.
std::string Check(std::string const& name, std::string const& bytes)
{
    TestFolder folder;
    folder.Write("s-1.dat", Joined(good));
    folder.Write("s-2.dat", Joined(good));
    folder.Write("V-Main", ">1\r\n");
    folder.Write("v-more", ">1\r\n");
    folder.Write(name, bytes);
    Faults faults;
    CheckFile(folder.Path() / name, faults);
    for (auto& fault : faults)
        fault.file = "f";
    return Dump(faults);
}

TEST(StudyCheck, FindsNoFaultInTheExamples)
{
    auto const study = FencedBlocks("study-files.md").at(0);
    TestFolder folder;
    folder.Write("V-Ruth", FencedBlocks("verse-files.md").at(0));
    for (auto const* const name : { "ruth-1.dat", "ruth-2.dat" })
        folder.Write(name, study);
    for (auto const* const name : { "V-Ruth1", "V-Ruth1s", "V-Ruth2", "V-Ruth2s" })
        folder.Write(name, ">1\nRuth 1:1\n1 Now.\n");
    Faults faults;
    for (auto const& entry : std::filesystem::directory_iterator(folder.Path()))
        CheckFile(entry.path(), faults);
    EXPECT_EQ(Dump(faults), "");
    EXPECT_EQ(Check("s-1.dat", Joined(good)), "");
}

TEST(StudyCheck, NamesEachBreakOfAStudyFile)
{
    struct Row {
        std::size_t line; ///< from 1
        std::vector<std::string> lines; ///< what stands in its place
        char const* faults;
    };
    Row const rows[] = {
        { 1, { "A" }, "f:1: expected <prefix>:<title>, found no colon in “A”\n" },
        { 1, { "A: :C" }, "f:1: expected <prefix>:<title>, found an empty one\n" },
        { 1, { ":B" }, "f:1: expected <prefix>:<title>, found an empty one\n" },
        { 1, { "A:B:C" }, "" },
        { 2, { "- > C" }, "" },
        { 3, { "D/E/F" },
            "f:3: expected <title> or <title>/<second title>, found more\nf: expected the same "
            "lessons as in s-2.dat\n" },
        { 4, { "" },
            "f:4: expected the title of a lesson, found an empty one\nf: expected the same "
            "lessons as in s-2.dat\n" },
        { 4, { "/F" },
            "f:4: expected the title of a lesson, found an empty one\nf: expected the same "
            "lessons as in s-2.dat\n" },
        { 4, { "F/ " },
            "f:4: expected nothing after the “/” at the end of the title, which the catalogue "
            "shows now\n" },
        { 5, { " -" },
            "f:5: expected the “-” that ends the list of lessons at the start of its line\n" },
        { 5, { "-", "" }, "" },
        { 6, { ">01" },
            "f:6: expected the marker >1, found “>01”\nf:15: expected the marker >1, found >2\n" },
        { 6, { ">12" }, "f:6: expected no lesson 12, since the list has 2\n" },
        { 7, { "[> I" }, "" },
        { 7, { "- XXXX" }, "" },
        { 8, { "Ps. 23 who?" }, "f:8: expected <label>. <text>, found “Ps. 23 who?”\n" },
        { 14, { "" }, "f:14: expected the name of the supplemental verse file, found “”\n" },
        { 20, { "More", "", "" }, "" },
        { 5, {}, "f:5: expected the “-” that ends the list of lessons, found “>1”\n" },
        { 6, {},
            "f:6: expected the marker >1, found “I/^J”\nf:14: expected the marker >1, found >2\n" },
        { 6, { "x", "y", ">1" }, "f:6: expected the marker >1, found “x”\n" },
        { 6, { ">2" },
            "f:6: expected the marker >1, found >2\nf:15: expected the marker >3, found >2\n" },
        { 15, { ">3" }, "f:15: expected no lesson 3, since the list has 2\n" },
        { 7, { "I/^- J" },
            "f:7: expected an introduction whose last paragraph doesn't begin with “-”, which "
            "ends the body\n" },
        { 7, {}, "f:8: an answer; expected a page before it\n" },
        { 8, { "Kay" }, "f:8: expected <label>. <text>, found “Kay”\n" },
        { 8, { "1.K" }, "f:8: expected <label>. <text>, found “1.K”\n" },
        { 8, { "K l. m" }, "f:8: expected <label>. <text>, found “K l. m”\n" },
        { 9, { "[L" },
            "f:9: expected “]” at the end of the answer, whose last character is never shown\n" },
        { 9, { "[" },
            "f:9: expected “]” at the end of the answer, whose last character is never shown\n" },
        { 11, { "!2. N" },
            "f:11: a scrambled line has no shift letter: expected one from a to z at its end\n" },
        { 11, { "!" },
            "f:11: a scrambled line has no shift letter: expected one from a to z at its end\n" },
        { 11, { "!" + std::string(32768, 'x') + ". xa" },
            "f:11: a scrambled line has more than 32,767 characters\n" },
        { 11, { std::string("2. \0", 4) }, "f:11: a control character\n" },
        { 12, {},
            "f:12: expected <label>. <text>, found “Main”\nf:13: expected <label>. <text>, found "
            "“More”\nf:14: expected the closing line and the names of two verse files before “>2 "
            "free”\n" },
        { 13, {}, "f:14: expected the name of the supplemental verse file, found “>2 free”\n" },
        { 13, { "a:b" }, "f:13: expected the name of the main verse file, found “a:b”\n" },
        { 14, { "None" }, "f:14: expected a verse file of this name, V-None\n" },
        { 17, {}, "f:17: the lesson ends; expected a page\n" },
        { 20, { "^More", "x" }, "f:21: expected the end of the file, found “x”\n" },
        { 20, {}, "f:19: the file ends; expected the name of the supplemental verse file\n" },
    };
    for (auto const& row : rows) {
        auto lines = good;
        auto const place = lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(row.line) - 1);
        lines.insert(place, row.lines.begin(), row.lines.end());
        EXPECT_EQ(Check("s-1.dat", Joined(lines)), row.faults);
    }
}

TEST(StudyCheck, NoticesWhereAStudyFileEnds)
{
    auto const outlined = "f: expected the same lessons as in s-2.dat\n";
    for (std::size_t count = 0; count < good.size(); ++count) {
        auto const faults = Check(
            "s-1.dat", Joined({ good.begin(), good.begin() + static_cast<std::ptrdiff_t>(count) }));
        EXPECT_NE(faults.find("f" + (count > 0 ? ":" + std::to_string(count) : "")
                      + ": the file ends; expected"),
            std::string::npos)
            << faults;
        EXPECT_EQ(faults.find(outlined) != std::string::npos, count < 4) << count;
    }
}

TEST(StudyCheck, NamesEachBreakOfAVerseFile)
{
    struct Row {
        char const* bytes;
        char const* faults;
    };
    Row const rows[] = {
        { ">1\nJohn 3:16\n16 For God\n\n^x\n>2\n1 a\n", "" },
        { "", "f: the file ends; expected a section mark\n" },
        { "John 3:16\n16 For\n>1\n", "" },
        { ">\n>x\n> 1\nfor a > b\n",
            "f:1: expected > and the number of a lesson, found “>”\nf:2: expected > and the "
            "number of a lesson, "
            "found “>x”\nf:3: expected > and the number of a lesson, found “> 1”\nf:4: expected > "
            "and the number of a "
            "lesson, found “for a > b”\n" },
        { ">1\n100 I understand\n03 For\n16For God\n12.\n-3 x\n",
            "f:2: expected a verse number of one or two digits, the first one not 0, found “100 I "
            "understand”\nf:3: expected a verse "
            "number of one or two digits, the first one not 0, found “03 For”\nf:4: expected a "
            "blank and the text of the verse "
            "after its number, found “16For God”\nf:5: expected a blank and the text of the "
            "verse after its number, found “12.”\nf:6: "
            "expected a verse number of one or two digits, the first one not 0, found “-3 x”\n" },
        { ">1\n^\n", "f:2: expected a heading after “^”\n" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Check("V-x", row.bytes), row.faults) << row.bytes;
}

TEST(StudyCheck, LooksForWhatBelongsToAFile)
{
    EXPECT_EQ(Check("t-2.dat", Joined(good)),
        "f: expected the other part of the study beside it, t-1.dat\n");
    EXPECT_EQ(Check("notes.txt", "x"),
        "f: expected the name of a study file (*-1.dat, *-2.dat), a verse file (V-*) or a general "
        "text\n");
    EXPECT_EQ(Check("introduction.txt", "!a\n!xB\n"),
        "f:2: a scrambled line has no shift letter: expected one from a to z at its end\n");
    Faults faults;
    CheckFile("/nowhere/V-x", faults);
    EXPECT_EQ(Dump(faults), "/nowhere/V-x: the file doesn't exist\n");
}

} // namespace

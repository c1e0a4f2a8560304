// Verse files, from their bytes to a dump of a lesson's items.

#include "study/verse_file.h"

#include "support/memory_file_system.h"
#include "support/page_examples.h"

#include <gtest/gtest.h>

static std::string Dump(VerseFileItem const& item)
{
    using Kind = VerseFileItem::Kind;
    auto const text = ToUtf8(item.text);
    if (item.kind == Kind::Heading)
        return "heading " + text + "\n";
    if (item.kind == Kind::PlainVerse)
        return "plain " + text + "\n";
    return "verse |" + ToUtf8(item.number) + "|" + text + "\n";
}

static std::string Section(MemoryFileSystem const& files, TextView name, TextView lesson)
{
    Turns turns;
    std::string items;
    VerseFileListener const listener { {}, {},
        [&](VerseFileItem const& item) { items += Dump(item); } };
    auto const read = ReadVerseSection(files, name, lesson, turns, listener);
    return read ? items : ToUtf8(read.failure().Message());
}

TEST(VerseFile, ReadsTheExampleOfItsPage)
{
    auto const examples = FencedBlocks("verse-files.md");
    ASSERT_EQ(examples.size(), 2u);
    MemoryFileSystem files;
    files.Put(u"V-Ruth1", examples[0]);
    EXPECT_EQ(Section(files, u" Ru^th1^ ", u"1"), examples[1]);
}

TEST(VerseFile, ClassifiesLines)
{
    struct Row {
        char const *line, *item;
    };
    static constexpr Row rows[] = {
        { "John 3:16", "heading John 3:16\n" },
        { "1 John 3:16", "heading 1 John 3:16\n" },
        { "^^A heading.", "heading ^A heading.\n" },
        { "0 begins nothing.", "heading 0 begins nothing.\n" },
        { "", "" },
        { "5 For God.", "verse | 5| For God.\n" },
        { "16 For God.", "verse |16| For God.\n" },
        { "119 For God.", "verse |11| 9 For God.\n" },
        { "5For God.", "verse | 5| For God.\n" },
        { "5 a", "verse |5| a\n" },
        { "5a.", "plain 5a.\n" },
        { "12.", "verse |12| .\n" },
        { "5.", "verse |5.| \n" },
        { ".5 of it.", "plain  .5 of it.\n" },
        { "-5 degrees.", "verse |-5| degrees.\n" },
        { "!5 Fps Gpe.b", "verse | 5| For God.\n" },
    };
    for (auto const& row : rows) {
        MemoryFileSystem files;
        files.Put(u"V-a", row.line);
        EXPECT_EQ(Section(files, u"a", u"1"), row.item) << row.line;
    }
}

TEST(VerseFile, FindsTheSectionsOfTheLesson)
{
    struct Row {
        char const *bytes, *items;
    };
    static constexpr Row rows[] = {
        { ">3\nA\nB\n", "" },
        { ">3\nA\n>2\nB\n>3\nC\n", "heading B\n" },
        { ">02 or so\nB\n", "heading B\n" },
        { "> 2\nB\n", "heading B\n" },
        { ">20\nA\n", "" },
        { ">2\nB\nSee > there\nC\n>2\nD\n", "heading B\nheading D\n" },
        { ">2\n>3\nA\n>2\nB\n", "heading B\n" },
        { ">2\n>2\nB\n", "heading B\n" },
        { ">2", "" },
        { ">2\nB>\n", "" },
        { "x>2\nB\n", "" },
        { ">2\nIs.\nIs.\n", "heading Is.\nheading Isaiah\n" },
    };
    for (auto const& row : rows) {
        MemoryFileSystem files;
        files.Put(u"V-a", row.bytes);
        EXPECT_EQ(Section(files, u"a", u"2"), row.items) << row.bytes;
    }
}

TEST(VerseFile, TellsItsProgress)
{
    MemoryFileSystem files;
    files.Put(u"V-a", ">1\r\nignored\r\n>2\r\n!not countedb\r\n!this isb\r\n\r\nand this");
    Turns turns;
    std::vector<std::string> log;
    ASSERT_TRUE(ReadVerseSection(files, u"a", u"2", turns,
        { [&](std::uint64_t bytes) { log.push_back("size " + std::to_string(bytes)); },
            [&](std::size_t bytes) { log.push_back("line " + std::to_string(bytes)); },
            [&](VerseFileItem const& item) { log.push_back(Dump(item)); } }));
    EXPECT_EQ(log,
        (std::vector<std::string> { "size 53", "line 2", "line 7", "line 2",
            "heading mns bntmsdc\n", "line 9", "heading sghr hr\n", "line 0", "line 8",
            "heading and this\n" }));
    EXPECT_EQ(turns.Given(), 7u + 11u + 7u) << "one for each line and each scrambled character";
}

TEST(VerseFile, AMissingFileFailsAndALaterFailureEndsTheReading)
{
    MemoryFileSystem files;
    EXPECT_EQ(Section(files, u"a", u"1"), "V-a: the file doesn't exist.");
    files.Put(u"V-a", "A\nB\n" + std::string(100, 'x'));
    files.FailAt(4); // the second block
    EXPECT_EQ(Section(files, u"a", u"1"), "heading A\nheading B\n");
}

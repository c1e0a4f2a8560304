#include "kit/study/study_source.h"

#include "base/code_page.h"
#include "kit/kit_fixtures.h"
#include "kit/study/general_texts_source.h"
#include "kit/study/scramble.h"
#include "kit/study/study_check.h"
#include "kit/study/study_writer.h"
#include "support/page_examples.h"

#include <gtest/gtest.h>

namespace {

/// Makes the files of a source, as `study make` does.
class Maker {
public:
    Maker() { WriteTestBible(m_bible); }

    TestFolder const& Bible() const { return m_bible; }
    OutputFiles Make(std::string const& source, bool isPlain)
    {
        faults.clear();
        auto bible = BibleTexts::Open(m_bible.Path(), "kjv", faults);
        auto const study = ReadStudySource(source, "s.txt", *bible, faults);
        return study ? WriteStudy(*study, "s", isPlain, "s.txt", faults) : OutputFiles {};
    }

    Faults faults;

private:
    TestFolder m_bible;
};

std::string FromDisc(std::string const& bytes)
{
    auto text = ToUtf8(FromCodePage(bytes));
    std::erase(text, '\r');
    return text;
}

std::string const head = "study: A\ntitle: B\ndescription: C\n";
std::string const lesson = "lesson: D\npart: one\nquestion: E\npart: two\nquestion: F\n";

TEST(StudySource, MakesTheExampleOfItsPage)
{
    auto const blocks = FencedBlocks("study-source.md");
    ASSERT_EQ(blocks.size(), 4u);
    Maker maker;
    maker.Bible().Write("kjv/kjv6", *ToCodePage(FromUtf8(FencedBlocks("bible-files.md")[1])));
    maker.Bible().Write("kjv/kjv5",
        "\n001 003 Grace be with you, mercy, and peace, from God the Father, and from\n the Lord "
        "Jesus Christ, the Son of "
        "the Father, in truth and love.\n\n");
    std::string book = "\n";
    for (int verse = 1; verse <= 16; ++verse)
        book += TestVerse(1, verse);
    maker.Bible().Write("kjv/kjv1", book);
    auto files = maker.Make(blocks[0], true);
    EXPECT_EQ(Dump(maker.faults), "");
    auto const named = [](std::string text) {
        for (std::size_t at = 0; (at = text.find("ruth", at)) != text.npos;)
            text.replace(at, 4, "s");
        return text;
    };
    EXPECT_EQ(FromDisc(files["s-1.dat"]), named(blocks[1]));
    EXPECT_EQ(FromDisc(files["s-2.dat"]), named(blocks[2]));
    EXPECT_EQ(FromDisc(files["V-s1s"]), blocks[3]);
}

TEST(StudySource, MakesFilesThatTheCheckFindsWhole)
{
    for (bool const isPlain : { false, true }) {
        Maker maker;
        auto const source = head
            + "lesson: !D\n  and “more”\nsecond title: G\nmain: Ruth; John 2:2-3:1\n"
            + lesson.substr(10) + "answer: Ä\n\n  ^€ and so on\nclosing: Congratulations!\n"
            + lesson + "introduction: !\n\n ^x\nsupplementary: 1 John 1:1\n";
        TestFolder disc;
        Faults faults;
        ASSERT_TRUE(ReplaceFiles(disc.Path(), maker.Make(source, isPlain))) << Dump(maker.faults);
        int count = 0;
        for (auto const& entry : std::filesystem::directory_iterator(disc.Path())) {
            CheckFile(entry.path(), faults);
            count += 1;
        }
        EXPECT_EQ(count, 6) << Dump(maker.faults);
        EXPECT_EQ(Dump(faults), "");
        EXPECT_EQ(disc.Read("s-1.dat").find("more") == std::string::npos, !isPlain);
    }
}

TEST(StudySource, NamesEveryMistake)
{
    struct Row {
        std::string source;
        char const* faults; ///< without the name of the file
    };
    std::string const part = head + "lesson: D\npart: one\n"; // line 6 comes next
    std::string const rest = "part: two\nquestion: F\n";
    Row const rows[] = {
        { "",
            "1: expected an entry “study”\n1: expected an entry “title”\n1: expected an entry "
            "“description”\n1: expected a lesson\n" },
        { head, "1: expected a lesson\n" },
        { "  x\n  y\n" + head + lesson, "1: an indented line, but no entry above it\n" },
        { head + "x\n y\n" + lesson,
            "4: expected a key and a colon, or an indented line that goes on with the text "
            "above\n" },
        { head + "titel: x\n" + lesson, "4: unknown key “titel”\n" },
        { head + "title: x\nanswer: y\n" + lesson,
            "4: “title” a second time\n5: “answer” can't stand before the first lesson\n" },
        { "study: A:\ntitle: B: C\ndescription:\n\n" + lesson,
            "1: a colon would end the name\n2: a colon would end the title\n3: expected a text "
            "after “description:”\n" },
        { "study: A\n\n B\ntitle: \xFF\ndescription: \xC3\xA4\xE2\x80\n" + lesson,
            "1: expected an entry “title”\n1: expected an entry “description”\n3: a second "
            "paragraph, where “study” has one\n4: "
            "expected UTF-8\n5: expected UTF-8\n" },
        { head + "lesson: -D" + lesson.substr(9),
            "4: a text that begins with “-” would be taken for the end of the list of lessons\n" },
        { head + "lesson: D\n" + lesson, "4: this lesson has no parts\n" },
        { part + "question: E\n", "4: this lesson has no part “two”\n" },
        { head + "lesson: D\npart: two\nquestion: F\n",
            "4: this lesson has no part “one”\n5: part “one” has to come before\n" },
        { part + "question: E\npart: one\nquestion: F\n" + rest, "7: this part a second time\n" },
        { part + "question: E\npart: three\nquestion: F\n" + rest,
            "7: expected part “one” or “two”\n" },
        { part + rest, "5: this part has no page\n" },
        { part + "question: a/b\n  \xD7\x90 \xF0\x9F\x98\x80\t\x01\n" + rest,
            "6: a “/” would open a new paragraph; leave an empty line for one\n7: code page 1252 "
            "has no character for “\xD7\x90” "
            "(U+05D0)\n7: code page 1252 has no character for “\xF0\x9F\x98\x80” (U+1F600)\n7: a "
            "control character (U+0001)\n" },
        { part + "question: So it Is. And\n  Ps. 23 and Jn.\n  3 (Gen.) end\n" + rest,
            "6: “Is.” would be written out as the name of a book; expected a number after it\n8: "
            "“Gen.” would be written out as the "
            "name of a book; expected a number after it\n" },
        { part + "question a b: x\nquestion 1.: y\nquestion Ex: z\nquestion \xD7\x90: z\n" + rest,
            "6: a label can't hold a blank or one of . # [ - > /\n7: a label can't hold a blank "
            "or one of . # [ - > /\n8: the label would be "
            "written out as the name of a book\n9: code page 1252 lacks a character of the "
            "label\n" },
        { head + "lesson: D\npart: two\nquestion: F\npart: one\nquestion: E\n",
            "5: part “one” has to come before\n" },
        { part + "answer: a\nquestion: b\nanswer: c\nanswer: d\n" + rest,
            "6: an answer, but no page above it\n9: a second answer to the same page\n" },
        { part + "question: b\nanswer: Your answers will vary.\n" + rest,
            "7: an answer with the words “answers will vary” is replaced as a whole by the "
            "program's own sentence; say it in other words, or leave the answer out\n" },
        { part + "question: b\nintroduction: >1\n\n ^- x\n" + rest,
            "7: a text that begins with “>” would be taken for the beginning of a lesson\n9: a "
            "last paragraph that begins with “-” ends "
            "the lesson\n" },
        { part + "question: b\nclosing: Bye. Then\n" + rest,
            "7: expected the word “Congratulations”; without it the closing is a page like any "
            "other\n7: all before the full stop would "
            "become the label of the page\n" },
        { part + "question: b\nmain: John 9; Psalms 1:100,5;\n  Jude; Mark 1\nmain: Psalms 1\n"
                + rest,
            "7: “John 9” names no verse of this Bible\n7: verse numbers above 99 don't fit their "
            "place on the screen: Psalms 1:100,5\n8: no book of the Bible is called “Mark”\n9: "
            "“main” a second time\n9: verse "
            "numbers above 99 don't fit their place on the screen: Psalms 1\n" },
    };
    for (auto const& row : rows) {
        Maker maker;
        EXPECT_TRUE(maker.Make(row.source, false).empty());
        auto found = Dump(maker.faults);
        for (std::size_t at = 0; (at = found.find("s.txt:", at)) != found.npos;)
            found.erase(at, 6);
        EXPECT_EQ(found, row.faults) << row.source;
    }
}

TEST(StudySource, RefusesVersesThatWouldBeReadAsSomethingElse)
{
    for (int const verse : { 2, 3 }) {
        Maker maker;
        auto const reference = "2 John 1:" + std::to_string(verse);
        EXPECT_TRUE(
            maker.Make(head + "lesson: D\nmain: " + reference + "\n" + lesson.substr(10), true)
                .empty());
        ASSERT_EQ(maker.faults.size(), 2u); // one in each part
        EXPECT_EQ(Dump(maker.faults).find("s.txt:5: " + reference + ", verse"), 0u)
            << Dump(maker.faults);
    }
}

TEST(StudySource, KeepsShortNamesInScripture)
{
    Maker maker;
    auto files = maker.Make(head + "lesson: D\nmain: 2 John 1:4\n" + lesson.substr(10), true);
    EXPECT_EQ(FromDisc(files["V-s1"]), ">1\n2 John 1:4\n4 He said Is\u00AD. 5 times\n")
        << Dump(maker.faults);
}

TEST(GeneralTexts, ComeFromTwoEntries)
{
    Faults faults;
    auto files = WriteGeneralTexts(
        "introduction: a\n\n  b\n  c\n\nconclusion: d\n\n  e\n", "g", false, faults);
    std::string lines;
    for (auto const line : { "introduction.txt", "conclusion.txt" }) {
        std::string const bytes = files[line];
        for (std::size_t at = 0; at < bytes.size(); at = bytes.find('\n', at) + 1)
            lines += DescrambleLine(bytes.substr(at, bytes.find('\r', at) - at)) + "|";
    }
    EXPECT_EQ(lines, "a||b c|d/e|");
    EXPECT_EQ(Dump(faults), "");

    EXPECT_TRUE(WriteGeneralTexts(
        "introduction: a/b\nintroduction: b\nx: c\nconclusion:\n", "g", true, faults)
                    .empty());
    EXPECT_EQ(Dump(faults),
        "g:1: a “/” would open a new paragraph; leave an empty line for one\ng:2: “introduction” "
        "a second time\ng:3: expected "
        "“introduction” or “conclusion”, found “x”\ng:4: expected a text after “conclusion:”\n"
        "g:1: expected an entry "
        "“conclusion”\n");
}

TEST(Scramble, IsUndoneForEveryLetter)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        for (auto const& line :
            { all, std::string(), std::string("!"), std::string("!abcz"), std::string("a//b  c ") })
            EXPECT_EQ(DescrambleLine(ScrambleLine(line, letter)), line) << letter;
    }
    EXPECT_EQ(ScrambleLine("xyz Abc", 'c'), "!zab Adec");
    EXPECT_EQ(DescrambleLine("plain !"), "plain !");
}

} // namespace

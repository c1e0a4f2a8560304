#include "kit/answers/answer_documents.h"

#include "support/memory_file_system.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using testing::ElementsAre;

static void PutStudy(MemoryFileSystem& files)
{
    for (auto const* const part : { u"ruth-1.dat", u"ruth-2.dat" })
        files.Put(part,
            "Ruth: A Faithful Stranger\r\nTwo lessons.\r\nThe Way Home/Ruth 1\r\nThe "
            "Field\r\n-\r\n>1\r\nIntro\r\n1. Who left?/And "
            "why?\r\n[Naomi./There was hunger.]\r\n2. Who came?\r\n[Ruth]\r\n- "
            "End\r\nRuth1\r\nRuth1s\r\n>2\r\nIntro\r\n1. Where?\r\n-"
            "\r\nRuth1\r\nRuth1s\r\n");
}

TEST(Documents, FollowTheStudiesAndLoseNoAnswer)
{
    MemoryFileSystem files;
    PutStudy(files);
    UserWork const work {
        { { u"gone-1.dat:3", u"Page2", u"kept" }, { u"ruth-1.dat:1", u"Page1", u"Naomi" },
            { u"ruth-1.dat:1", u"Page2", u" " }, { u"ruth-1.dat:1", u"Page9", u"beyond the end" },
            { u"ruth-1.dat:1", u"currentindex", u"2" },
            { u"ruth-1.dat:2", u"Page1", u"In the field" },
            { u"ruth-1.dat:7", u"Page1", u"no such lesson" },
            { u"ruth-2.dat:1", u"Page2", u"Ruth" }, { u"Parameters", u"showhelp", u"false" } },
        {}
    };
    auto const documents = BuildAnswerDocuments(work, files, true);
    ASSERT_EQ(documents.size(), 2U);
    EXPECT_EQ(documents[0].name, "ruth");
    EXPECT_EQ(documents[0].title, u"A Faithful Stranger");
    std::vector<std::string> told;
    for (auto const& document : documents)
        for (auto const& section : document.sections)
            for (auto const& each : section.pages)
                told.push_back(ToUtf8(section.title + u" | " + each.number + u" | " + each.label
                    + (each.text.empty() ? Text() : u' ' + each.text[0]) + u" | " + each.answer
                    + u" | " + (each.publisher.empty() ? Text() : each.publisher.back())));
    EXPECT_THAT(told,
        ElementsAre(
            "Lesson 1, Part One: The Way Home | 1 | 1. Who left? | Naomi | There was hunger.",
            "Lesson 1, Part One: The Way Home | 9 |  | beyond the end | ",
            "Lesson 1, Part Two: The Way Home | 2 | 2. Who came? | Ruth | Ruth",
            "Lesson 2, Part One: The Field | 1 | 1. Where? | In the field | ",
            "gone-1.dat:3 | 2 |  | kept | ", "ruth-1.dat:7 | 1 |  | no such lesson | "));
    auto const plain = BuildAnswerDocuments(work, files, false);
    for (auto const& section : plain[0].sections)
        for (auto const& each : section.pages)
            EXPECT_TRUE(each.publisher.empty()) << "only on request";
}

TEST(Documents, NamesAreBareAndDistinct)
{
    MemoryFileSystem files;
    PutStudy(files);
    auto const bytes = *files.ReadAll(u"ruth-1.dat");
    UserWork work;
    for (Text const study : { u"/srv/ruth", u"..\\ruth", u"C:\\ruth", u"Ruth", u"RUTH", u".x", u"",
             u"-r", u"chapter-notes", u"Answers-Without-Their-Study", u"a\u202Eb\x1B[31m",
             u"\u00C9t\u00FCde", u"_" }) {
        files.Put(study + u"-1.dat", bytes);
        work.entries.push_back({ study + u"-1.dat:1", u"Page1", u"x" });
    }
    work.entries.push_back({ u"gone-1.dat:1", u"Page1", u"x" });
    std::vector<std::string> names;
    for (auto const& document : BuildAnswerDocuments(work, files, false))
        names.push_back(document.name);
    EXPECT_THAT(names,
        testing::UnorderedElementsAre("_srv_ruth", "___ruth", "RUTH", "Ruth-2", "_x", "_", "_-r",
            "chapter-notes-2", "Answers-Without-Their-Study-2", "a_b__31m", "\u00C9t\u00FCde",
            "_-2", "answers-without-their-study"));
}

TEST(Documents, NotesComeExactAndByChapter)
{
    MemoryFileSystem files;
    TextView const folder = u"C:\\Program Files\\Sparrowfield Interactive Software\\notes\\";
    files.Put(Text(folder) + u"2 John.dat", "a note");
    files.Put(Text(folder) + u"John3.dat", "charis");
    files.Put(Text(folder) + u"John3.dat.utf8", ToUtf8(u"\u03C7\u03AC\u03C1\u03B9\u03C2"));
    files.Put(Text(folder) + u"Jude.dat", "");
    UserWork const work { {},
        { { "2 John.dat", "a note" }, { "John3.dat", "charis" }, { "John3.dat.utf8", "" },
            { "Jude.dat", "" } } };
    auto const document = BuildNotesDocument(work, files);
    ASSERT_EQ(document.sections.size(), 2U);
    EXPECT_EQ(document.sections[0].title, u"2 John");
    EXPECT_EQ(document.sections[1].title, u"John 3");
    EXPECT_EQ(document.sections[0].pages[0].answer, u"a note");
}

TEST(Documents, EveryTextMeansItselfInEveryFormat)
{
    struct {
        char const* about;
        Text answer;
        char const *html, *markdown;
    } const rows[] = {
        { "markup", u"<b>&\"*_`#\\[x](y)|~", "&lt;b&gt;&amp;&quot;*_`#\\[x](y)|~",
            "\\<b\\>\\&\"\\*\\_\\`\\#\\\\\\[x\\](y)\\|\\~" },
        { "line ends of every kind", u"a\r\nb\rc\nd", "a\nb\nc\nd", "a\\\nb\\\nc\\\nd" },
        { "a paragraph", u"a\r\n\r\nb\r\n\r\n", "a\n\nb\n\n", "a\n\nb" },
        { "items and headings", u"- x\r\n1. y\r\n+ z\r\n12) q\r\n=",
            "- x\n1. y\n+ z\n12) q\n=", "\\- x\\\n1\\. y\\\n\\+ z\\\n12\\) q\\\n\\=" },
        { "indented", u"    x", "    x", "&nbsp;   x" },
        { "what no document can hold", Text(u"\0\x1B\xD800x\xDC00\xFFFE", 6),
            "\uFFFD\uFFFD\uFFFDx\uFFFD\uFFFD", "\uFFFD\uFFFD\uFFFDx\uFFFD\uFFFD" },
        { "a pair of surrogates", u"\U0001D11E", "\U0001D11E", "\U0001D11E" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.about);
        Document const document { "x", u"T & T",
            { { u"L", {}, { { u"1", u"1.", { u"Why?" }, row.answer, {} } } } } };
        EXPECT_THAT(Render(document, DocumentFormat::Html),
            testing::HasSubstr("<div class=\"answer\">" + std::string(row.html) + "</div>"));
        EXPECT_THAT(Render(document, DocumentFormat::Markdown),
            testing::HasSubstr("### 1\\. Why?\n\n" + std::string(row.markdown) + "\n\n"));
        auto const json = nlohmann::json::parse(Render(document, DocumentFormat::Json));
        EXPECT_TRUE(json["lessons"][0]["questions"][0]["answer"].is_string());
        EXPECT_EQ(json["title"], "T & T");
    }
}

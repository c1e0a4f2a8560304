#include "kit/bible/bible_import.h"

#include "kit/bible/canon.h"
#include "kit/bible/osis_text.h"
#include "kit/kit_fixtures.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

/// The text of a verse, "P " before it for a paragraph, " +1" behind it for one inside.
std::string Shown(OsisVerse const& verse)
{
    return (verse.startsParagraph ? "P " : "") + verse.text
        + (verse.innerParagraphs > 0 ? " +" + std::to_string(verse.innerParagraphs) : "")
        + (verse.isCutOff ? " (cut off)" : "");
}

TEST(OsisText, KeepsTheWordsOfTheTranslation)
{
    struct Row {
        char const* markup;
        char const* shown;
    };
    Row const rows[] = {
        { "In the <w lemma=\"a>\">b</w>", "In the \">b" }, // no such attribute is ever written
        { "<w>God</w> <w>said</w>,\n  <transChange>was</transChange> it", "God said, was it" },
        { "A&amp;B &lt;c&gt; &x;", "A&B <c> &x;" },
        { "the <note>n <w>m</w></note>end", "the end" },
        { "only born</q><note>n</note><q>Son", "only born Son" },
        { "made<note>n</note>, and", "made, and" },
        { "coins <note>n</note> <q>? Not", "coins? Not" },
        { "\xE2\x80\x9C<note>n</note>So", "\xE2\x80\x9CSo" },
        { "done.\xE2\x80\x9D</q>Then", "done.\xE2\x80\x9D Then" },
        { "a<title>t</title> b<rdg>r</rdg> <speaker>s</speaker>c", "a b c" },
        { "<note><divineName>n</note>a</divineName> b", "a b" },
        { "</note>a", "a" },
        { "\xC2\xB6 And \xC2\xBD", "P And \xC2\xBD" },
        { "<div sID=\"1\" type=\"x-p\"/>a<div eID=\"1\" type=\"x-p\"/> <div sID=\"2\" "
          "type=\"x-p\"/>b",
            "P a b +1" },
        { "<lg sID=\"1\"/><l sID=\"2\"/>a<lb type=\"x-p\"/>", "P a" },
        { "b", "P b" }, // the line break above opens it
        { "<div sID=\"1\" type=\"section\"/><div type=\"x-milestone\" sID=\"2\"/>a", "a" },
        { "a <div sID=\"1\" type=\"glossary\"/>b<div sID=\"2\" type=\"x-p\"/> c<div eID=\"1\" "
          "type=\"glossary\"/>d",
            "a d" },
        { "by my name \\nd JEHOVAH\\+nd* \\", "by my name JEHOVAH" },
        { "it&#8217;s &#x2014; &#0; &#;", "it\xE2\x80\x99s \xE2\x80\x94 &#0; &#;" },
        { "a<!-- <w> > --> b", "a b" },
        { "a. \xE2\x80\x9D b \xE2\x80\x9D", "a.\xE2\x80\x9D b \xE2\x80\x9D" },
        { "a <w lemma=\"b", "a (cut off)" },
        { "a <!-- b", "a (cut off)" },
        { "a <note>b", "a (cut off)" },
        { "", "" },
    };
    OsisReader reader;
    for (auto const& row : rows)
        EXPECT_EQ(Shown(reader.Read(row.markup)), row.shown) << row.markup;
}

/// An export of a whole Bible; `text` gives the markup of a verse by its key, "\n" for none of this
/// verse.
std::string MakeExport(std::function<std::string(std::string const&)> const& text)
{
    std::string bytes = "$$$[ Module Heading ]\n\n$$$[ Testament 1 Heading ]\n<milestone/>\n";
    for (auto const& book : Canon()) {
        if (book.name == u"Matthew")
            bytes += "$$$Tobit 1:1\nThe book of the words of Tobit\n";
        for (std::size_t chapter = 1; chapter <= book.verseCounts.size(); ++chapter) {
            for (int verse = 0; verse <= book.verseCounts[chapter - 1]; ++verse) {
                auto const key
                    = book.exportName + ' ' + std::to_string(chapter) + ':' + std::to_string(verse);
                auto const markup = verse == 0 ? std::string("<chapter/>") : text(key);
                if (markup != "\n")
                    bytes += "$$$" + key + '\n' + markup + '\n';
            }
        }
    }
    return bytes;
}

std::string PlainVerse(std::string const&)
{
    return "And <w>so</w>.";
}

std::string FaultsOf(std::string const& bytes)
{
    Faults faults;
    auto const import = ImportBible(bytes, "b.imp", "kjv", faults);
    EXPECT_EQ(import.has_value(), faults.empty());
    return Dump(faults);
}

TEST(BibleImport, WritesIndexAndBooks)
{
    Faults faults;
    auto const bytes = MakeExport([](std::string const& key) -> std::string {
        if (key == "Romans 14:23")
            return "is sin. <div sID=\"x\" type=\"x-p\"/>Now to him who is able, but now is "
                   "revealed; to the only wise God, Amen.";
        if (key == "Romans 16:25" || key == "Acts 8:37" || key == "Romans 16:26")
            return "\n";
        if (key == "Romans 16:27")
            return "<note>TR</note>";
        if (key == "Genesis 1:1")
            return "\xC2\xB6 \xE2\x80\x9CIn\xE2\x80\x9D the A &amp; *\xCE\xA9\xE2\x80\xA8\x01 *";
        return PlainVerse(key);
    });
    auto const import = ImportBible(bytes, "b.imp", "nasb", faults);
    ASSERT_TRUE(import) << Dump(faults);
    EXPECT_EQ(import->chapters, 1189u);
    EXPECT_EQ(import->verses, 31101u);
    EXPECT_EQ(import->absent, std::vector<std::string> { "Acts 8:37" });
    EXPECT_EQ(import->furtherBooks, std::vector<std::string> { "Tobit" });
    EXPECT_EQ(import->paragraphs, 2u);
    EXPECT_EQ(import->innerParagraphs, 0u);
    EXPECT_EQ(import->replaced, 4u);
    EXPECT_EQ(import->files.size(), 67u);
    auto const& index = import->files.at("biblenasb.idx");
    EXPECT_EQ(index.substr(0, 24), "Genesis|50\r\nExodus|40\r\nL");
    EXPECT_NE(index.find("\r\n1 Samuel|31\r\n"), std::string::npos);
    EXPECT_EQ(import->files.at("nasb/nasb1").substr(0, 42),
        "Genesis\r\n\xB6"
        "001 001 \x93In\x94 the A &amp; O\r\n\r\n00");
    auto const& romans = import->files.at("nasb/nasb45");
    EXPECT_NE(romans.find("\r\n014 023 is sin.\r\n\r\n015"), std::string::npos);
    EXPECT_NE(
        romans.find(
            "\r\n\xB6"
            "016 025 Now to him who is able,\r\n\r\n016 026 but now is revealed;\r\n\r\n016 027 "
            "to the "
            "only wise God, Amen.\r\n\r\n"),
        std::string::npos);
}

TEST(BibleImport, TellsOfATextInOneLine)
{
    for (std::string const good :
        { "The World English Bible", "Rück\xE2\x80\x93und", "\xCE\xA9 Omega" })
        EXPECT_TRUE(IsAboutText(good)) << good;
    EXPECT_TRUE(IsAboutText(std::string(200, 'x')));
    for (std::string const bad :
        { "", " ", " indented", "two\nlines", "two\r\nlines", "a\tb", "\xE9" })
        EXPECT_FALSE(IsAboutText(bad)) << bad;
    EXPECT_FALSE(IsAboutText(std::string(201, 'x')));
}

TEST(BibleImport, NamesWhatIsWrong)
{
    auto const whole = MakeExport(PlainVerse);
    auto const lastLine = std::to_string(std::count(whole.begin(), whole.end(), '\n'));
    auto const replaced = [&](std::string const& from, std::string const& to) {
        auto bytes = whole;
        return bytes.replace(bytes.find(from), from.size(), to);
    };
    auto const without = [&](std::string const& beginning) {
        return MakeExport([&](std::string const& key) {
            return key.starts_with(beginning) ? "\n" : PlainVerse(key);
        });
    };
    struct Row {
        std::string bytes;
        std::string faults;
    };
    Row const rows[] = {
        { "",
            "b.imp:1: expected a line that begins with $$$: this isn't an export of a SWORD "
            "module\n" },
        { "\xFF\xFE$\0$\0$\0",
            "b.imp:1: expected a line that begins with $$$: this isn't an export of a SWORD "
            "module\n" },
        { replaced("$$$Genesis 1:2\n", "$$$Genesis 1-2\n"),
            "b.imp:9: expected a book, a chapter and a verse after $$$\nb.imp:" + lastLine
                + ": the export ends without Genesis 1:2\n" },
        { replaced("$$$Genesis 1:2\nAnd", "$$$Genesis 1:2\n\xE4nd"), "b.imp:10: expected UTF-8\n" },
        { replaced("$$$Genesis 1:2\nAnd", "$$$Genesis 1:2\n<w And"), "" },
        { replaced("$$$Genesis 1:2\nAnd <w>so</w>.", "$$$Genesis 1:2\nAnd <w"),
            "b.imp:10: a tag, or a note or title, has no end\n" },
        { replaced("$$$Genesis 1:3\n", "$$$Genesis 1:2\n"),
            "b.imp:11: Genesis 1:2 a second time, first in line 9\nb.imp:" + lastLine
                + ": the export ends without Genesis 1:3\n" },
        { whole + "$$$Revelation of John 22:22\nx\n$$$Revelation of John 22:23\n\n",
            "b.imp:" + std::to_string(std::stoi(lastLine) + 1)
                + ": Revelation of John 22:22 is no verse of the Bible\n" },
        { whole + "$$$Ruth 1:1\nx\n$$$Hobbits 1:1\nx\n$$$Hobbits 1:2\nx\n",
            "b.imp:" + std::to_string(std::stoi(lastLine) + 1)
                + ": the book “Ruth” begins a second time\nb.imp:"
                + std::to_string(std::stoi(lastLine) + 3) + ": unknown book “Hobbits”\n" },
        { without("Ruth "),
            "b.imp:" + std::to_string(std::stoi(lastLine) - 2 * 85)
                + ": the export ends without Ruth\n" },
        { without("Jude 1:25"),
            "b.imp:" + std::to_string(std::stoi(lastLine) - 2)
                + ": the export ends without Jude 1:25\n" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(FaultsOf(row.bytes), row.faults);
}

TEST(BibleImport, NoticesACutAnywhere)
{
    auto const whole = MakeExport(PlainVerse);
    for (std::size_t const left : { 1u, 2u, 15u, 16u, 30u, 41u, 100001u, 1000000u }) {
        ASSERT_LT(left, whole.size());
        EXPECT_NE(FaultsOf(whole.substr(0, whole.size() - left)), "") << left;
    }
}

} // namespace

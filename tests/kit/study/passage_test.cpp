#include "kit/study/passage.h"

#include "kit/kit_fixtures.h"

#include <gtest/gtest.h>

namespace {

TEST(Passage, FindsWhatAnAuthorMeans)
{
    TestFolder folder;
    WriteTestBible(folder);
    Faults opening;
    auto bible = BibleTexts::Open(folder.Path(), "kjv", opening);
    ASSERT_TRUE(bible) << Dump(opening);

    struct Row {
        char16_t const* reference;
        char const* found; ///< the headings, each with its number of verses, or the fault
    };
    Row const rows[] = {
        { u"John 3:2", "John 3:2 (1)" },
        { u"john  3 : 2", "John 3:2 (1)" },
        { u"Jn. 3:1-3", "John 3:1-3 (3)" },
        { u"John 3:1\u2013"
          u"3",
            "John 3:1-3 (3)" },
        { u"John 3:1,3-4", "John 3:1,3-4 (3)" },
        { u"John 3", "John 3 (5)" },
        { u"John 1-2", "John 1 (5); John 2 (4)" },
        { u"John 2:2-4", "John 2:2,4 (2)" },
        { u"John 2:4-3:2", "John 2:4-5 (2); John 3:1-2 (2)" },
        { u"John 1:5,3:2", "John 1:5 (1); John 3:2 (1)" },
        { u"John 1-3:1", "John 1 (5); John 2 (4); John 3:1 (1)" },
        { u"John 1,1:3,3:1", "John 1 (5); John 3:1 (1)" },
        { u"Ruth", "Ruth 1 (4); Ruth 2 (4)" },
        { u"Jude", "Jude 1 (2)" },
        { u"2 John", "2 John 1 (4)" },
        { u"II John 1:1", "2 John 1:1 (1)" },
        { u"1 Jn. 1:2", "1 John 1:2 (1)" },
        { u"Psalm 1:1", "Psalms 1:1 (1)" },
        { u"Jud 1:1", "“Jud” may be Jude or Judges" },
        { u"Jo 1:1", "John 1:1 (1)" },
        { u"Mark 1:1", "no book of the Bible is called “Mark”" },
        { u"3:16", "no book of the Bible is called “3:16”" },
        { u"John 4", "“John 4” names no verse of this Bible" },
        { u"John 3:6", "“John 3:6” names no verse of this Bible" },
        { u"John 2:3", "“John 2:3” names no verse of this Bible" },
        { u"John 3:4-9", "“John 3:4-9” names no verse of this Bible" },
        { u"John 3:4-2", "“John 3:4-2” names no verse of this Bible" },
        { u"John 0", "“John 0” names no verse of this Bible" },
        { u"John 3-2", "“John 3-2” names no verse of this Bible" },
        { u"John 3:", "expected a chapter, or a chapter and verses, after the book in “John 3:”" },
        { u"John 3:1-2-3",
            "expected a chapter, or a chapter and verses, after the book in “John 3:1-2-3”" },
        { u"John 99999999999",
            "expected a chapter, or a chapter and verses, after the book in “John 99999999999”" },
    };
    for (auto const& row : rows) {
        Faults faults;
        std::string found;
        for (auto const& passage : FindPassages(row.reference, *bible, "f", 0, faults))
            found += (found.empty() ? "" : "; ") + ToUtf8(passage.heading) + " ("
                + std::to_string(passage.verses.size()) + ')';
        for (auto const& fault : faults)
            found += fault.message;
        EXPECT_EQ(found, row.found) << ToUtf8(row.reference);
    }
}

TEST(Passage, ReportsABookThatCannotBeRead)
{
    TestFolder folder;
    folder.Write("biblekjv.idx", "Ruth|4\n");
    Faults faults;
    auto bible = BibleTexts::Open(folder.Path(), "kjv", faults);
    ASSERT_TRUE(bible);
    EXPECT_TRUE(FindPassages(u"Ruth 1", *bible, "f", 7, faults).empty());
    EXPECT_TRUE(FindPassages(u"Ruth 2", *bible, "f", 8, faults).empty());
    EXPECT_EQ(faults.size(), 2u) << Dump(faults);
    EXPECT_NE(Dump(faults).find("kjv1: the file doesn't exist"), std::string::npos) << Dump(faults);
}

TEST(BibleTexts, ReportsAnIndexThatIsNone)
{
    struct Row {
        char const* bytes;
        char const* fault;
    };
    for (auto const& row : { Row { "", ": expected the index of a Bible: it holds no book" },
             Row { "Ruth|4\nJude\n",
                 ":2: expected the name of a book, “|” and its number of chapters" } }) {
        TestFolder folder;
        folder.Write("biblekjv.idx", row.bytes);
        Faults faults;
        BibleTexts::Open(folder.Path(), "kjv", faults);
        EXPECT_EQ(Dump(faults), (folder.Path() / "biblekjv.idx").string() + row.fault + '\n');
    }
}

} // namespace

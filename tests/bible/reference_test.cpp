#include "bible/reference.h"

#include <gtest/gtest.h>

namespace {

std::string Dump(WantedVerses const& wanted)
{
    if (!wanted.isReadable)
        return "unreadable";
    std::string text = ToUtf8(wanted.chapter) + '/' + ToUtf8(wanted.verse);
    for (auto const& [from, to] : wanted.verses)
        text += ' ' + std::to_string(from) + ".." + std::to_string(to);
    return text;
}

TEST(Reference, IsTakenApart)
{
    struct Row {
        TextView text;
        TextView book;
        char const* wanted; // chapter/verse as typed, then the verses from..to
    };
    Row const rows[] = {
        { u"John 3:16", u"John", "3/16 16..16" },
        { u"John 3", u"John", "3/" },
        { u"John", u"John", "/" },
        { u"Joh 3", u"Joh", "3/" },
        { u"John 3: 16", u"John", "3/16 16..16" },
        { u"John 3 :16", u"John", "3/16 16..16" },
        { u"John 3 : 16", u"John", "3/16 16..16" },
        { u"John 3:16:2", u"John", "3/16 16..16" },
        { u"John 3:", u"John 3:", "/" },
        { u"John3:16", u"John3:16", "/" },
        { u"1 John 2", u"1 John", "2/" },
        { u"1 John", u"1 John", "/" },
        { u"Song of Solomon 2:1", u"Song of Solomon", "2/1 1..1" },
        { u"  John   3  ", u"John ", "3/" }, // of three blanks two are left
        { u"John 03:016", u"John", "03/016 16..16" },
        { u"John     :16", u"John ", "/16 16..16" }, // no chapter: a verse of each
        { u"John 0", u"John", "0/" },
        { u"42", u"42", "/" },
        { u"", u"", "/" },
        { u"   ", u"", "/" },
        { u"John 3:16-18", u"John", "3/16-18 16..18" },
        { u"John 3:16,18", u"John", "3/16,18 16..16 18..18" },
        { u"John 3:16 - 18, 20", u"John", "3/16-18,20 16..18 20..20" },
        { u"John 3 : 16 , 18", u"John", "3/16,18 16..16 18..18" },
        { u"John 3:18-16", u"John", "3/18-16 18..16" },
        { u"John 3:16-x", u"John 3:16-x", "/" }, // doesn't end in a digit
        { u"John x1", u"John", "unreadable" },
        { u"John 3-4", u"John", "unreadable" },
        { u"John 3:x6", u"John", "unreadable" },
        { u"John 3:16-18-20", u"John", "unreadable" },
        { u"John 3:16,,18", u"John", "unreadable" },
        { u"John 3:,18", u"John", "unreadable" },
        { u"John 32767:32767", u"John", "32767/32767 32767..32767" },
        { u"John 32768", u"John", "unreadable" },
        { u"John 99999", u"John", "unreadable" },
        { u"John 3:99999", u"John", "unreadable" },
        { u"John 99999999999999999999", u"John", "unreadable" },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(ToUtf8(GetBookName(row.text)), ToUtf8(row.book))
            << '"' << ToUtf8(row.text) << '"';
        EXPECT_EQ(Dump(ReadWantedVerses(row.text)), row.wanted) << '"' << ToUtf8(row.text) << '"';
    }
}

TEST(Reference, SaysWhichVersesAreWanted)
{
    struct Row {
        TextView text;
        char const* shown; // of chapters 2 and 3 with verses 1 to 4
    };
    Row const rows[] = {
        { u"John", "2:1 2:2 2:3 2:4 3:1 3:2 3:3 3:4 " },
        { u"John 3", "3:1 3:2 3:3 3:4 " },
        { u"John 003:02", "3:2 " },
        { u"John     :2", "2:2 3:2 " },
        { u"John 3:2-3", "3:2 3:3 " },
        { u"John 2:4,1", "2:1 2:4 " },
        { u"John 2:1-2, 4-9", "2:1 2:2 2:4 " },
        { u"John 3:3-2", "" },
        { u"John 4", "" },
        { u"John 3:5", "" },
        { u"John 0", "" },
        { u"John x1", "" },
        { u"John 3:x1", "" },
    };
    for (auto const& row : rows) {
        auto const wanted = ReadWantedVerses(row.text);
        std::string shown;
        for (int chapter = 2; chapter <= 3; ++chapter)
            for (int verse = 1; verse <= 4; ++verse)
                if (VerseWanted(wanted, chapter, verse))
                    shown += std::to_string(chapter) + ':' + std::to_string(verse) + ' ';
        EXPECT_EQ(shown, row.shown) << ToUtf8(row.text);
    }
}

} // namespace

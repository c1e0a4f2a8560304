#pragma once
// What the tests of the kit share: faults as text, a small Bible.

#include "kit/bible/bible_texts.h"
#include "kit/common/faults.h"
#include "support/test_folder.h"

#include <string>

/// Faults as the user sees them, each on a line.
inline std::string Dump(Faults const& faults)
{
    std::string text;
    for (auto const& fault : faults)
        text += ToString(fault) + '\n';
    return text;
}

/// A verse record that says where it stands.
inline std::string TestVerse(int chapter, int verse)
{
    return WriteVerseRecord(
        { chapter, verse, false,
            "In " + std::to_string(chapter) + ", " + std::to_string(verse) + ", so." },
        70);
}

/// A Bible of some books, with their names as they are; chapter 2 of John has no verse 3.
inline void WriteTestBible(TestFolder const& folder)
{
    folder.Write("biblekjv.idx",
        "Ruth|2\r\nPsalms|2\r\nJohn|3\r\n1 John|1\r\n2 John|1\r\nJude|1\r\nJudges|1\r\n");
    auto const chapters = [](int count, int verses) {
        std::string bytes = "\r\n";
        for (int chapter = 1; chapter <= count; ++chapter) {
            for (int verse = 1; verse <= verses; ++verse)
                bytes += chapter == 2 && verse == 3 && verses == 5 ? "" : TestVerse(chapter, verse);
        }
        return bytes;
    };
    folder.Write("kjv/kjv1", chapters(2, 4));
    folder.Write("kjv/kjv2", chapters(2, 120));
    folder.Write("kjv/kjv3", chapters(3, 5));
    folder.Write("kjv/kjv4", chapters(1, 4));
    folder.Write("kjv/kjv5",
        "\r\n" + TestVerse(1, 1)
            + "001 002 2 shall be > than 1\r\n\r\n001 003 There were 12\r\n\r\n"
            + "001 004 He said Is. 5 times\r\n\r\n");
    folder.Write("kjv/kjv6", chapters(1, 2));
    folder.Write("kjv/kjv7", chapters(1, 2));
}

#pragma once
// References as a person types them: a book, a book and a chapter, or a book, a chapter and verses
// ("John 3:16", "John 3:16-18", "John 3:16,18"). Which books there are is book_index.h's work.

#include "base/text.h"

#include <utility>
#include <vector>

/// The reference, trimmed, with single blanks and none around its marks. Pairs of blanks are
/// replaced in one pass, so three blanks become two.
Text CleanReference(TextView reference);

/// The book: what comes before the last blank if the reference ends in a digit, else all of it.
Text GetBookName(TextView reference);

/// What a reference asks for in its book.
struct WantedVerses {
    Text chapter; ///< as typed; empty for the whole book
    Text verse; ///< as typed; empty for the whole chapter
    bool isReadable = true; ///< false if a number isn't one, or doesn't fit 16 bits

    int chapterNumber = 0; ///< of `chapter`, if that isn't empty
    std::vector<std::pair<int, int>> verses; ///< from and to, both included; empty for all
};

WantedVerses ReadWantedVerses(TextView reference);

/// True if a verse is asked for. None is by an unreadable reference.
bool VerseWanted(WantedVerses const& wanted, int thisChapter, int thisVerse);

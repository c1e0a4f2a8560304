#pragma once
// References as a person types them: a book, a book and a chapter, or a book, a chapter and verses
// ("John 3:16", "John 3:16-18", "John 3:16,18"). Which books there are is book_index.h's work.

#include "base/text.h"

#include <utility>
#include <vector>

/// The reference with single blanks and none around its marks. Blanks are taken in pairs, once:
/// three become two.
Text CleanReference(TextView reference);

/// The book: what stands before the last blank if the reference ends in a digit, else the whole.
Text GetBookName(TextView reference);

/// What a reference asks for in its book.
struct WantedVerses {
    Text chapter; ///< as typed; empty for the whole book
    Text verse; ///< as typed; empty for the whole chapter
    bool isReadable = true; ///< false if a number isn't one, or lies outside 16 bits

    int chapterNumber = 0; ///< of `chapter`, if that isn't empty
    std::vector<std::pair<int, int>> verses; ///< from and to, both included; empty for all
};

WantedVerses ReadWantedVerses(TextView reference);

/// True if a verse is asked for. Of an unreadable reference none is.
bool VerseWanted(WantedVerses const& wanted, int thisChapter, int thisVerse);

#pragma once
// The verses of the 66 books in memory, by book, chapter and verse, while they are gathered from an
// export.

#include "kit/bible/canon.h"
#include "kit/common/faults.h"

#include <string>
#include <vector>

struct GatheredVerse {
    std::string text; ///< UTF-8; empty where the export has no such verse
    bool startsParagraph = false;
    int line = 0; ///< of the export; 0 where it has no such verse
};

class BibleBooks {
public:
    BibleBooks();

    /// A place in the canon; `book` counts from 0, chapter and verse from 1. The place has to
    /// exist.
    GatheredVerse& At(std::size_t book, int chapter, int verse);
    /// True if the canon has such a chapter and verse in this book.
    static bool Has(std::size_t book, int chapter, int verse);

    /// Moves the doxology of Romans, which begins a paragraph, from 14:23 to 16:25-27, if it is
    /// there and these are empty; else gives false.
    bool PartRomans();

    /// Reports what is missing beyond the verses that translations often leave out, which are given
    /// back as "Luke 17:36". A book or chapter that is missing as a whole is one fault. `lastLine`
    /// is where the export ends.
    std::vector<std::string> CheckWhole(
        std::string const& file, int lastLine, Faults& faults) const;

private:
    void CheckChapter(std::size_t book, std::size_t chapter, std::vector<std::string>& absent,
        std::vector<std::string>& missing) const;

    std::vector<std::vector<std::vector<GatheredVerse>>> m_books; ///< books, chapters, verses
};

#pragma once
// The plain text of verses in OSIS markup, as SWORD exports hold it. Kept are the words of the
// translation; left out are notes, titles, variant readings, names of speakers, and what isn't part
// of a book (prefaces, glossaries).

#include <cstddef>
#include <string>
#include <string_view>

struct OsisVerse {
    std::string text; ///< UTF-8, single blanks, none at the ends
    /// a paragraph, a stanza or a pilcrow comes before its first word
    bool startsParagraph = false;
    std::size_t innerParagraphs = 0; ///< paragraphs and stanzas that begin after its first word
    bool isCutOff = false; ///< a tag or an element that is left out has no end
};

/// Reads verse after verse in the order of the books: a paragraph that opens after the last word
/// of one verse begins with the next.
class OsisReader {
public:
    OsisVerse Read(std::string_view markup);
    /// Forgets a paragraph that is open: what comes next belongs to another book.
    void BeginBook();

private:
    class Reading;
    bool m_isParagraphDue = false;
};

#pragma once
// The Bible files of a disc (docs/formats/bible-files.md) as the source of passages. Books are read
// when they are first asked for.

#include "base/text.h"
#include "bible/book_file.h"
#include "bible/book_index.h"
#include "kit/common/faults.h"

#include <filesystem>
#include <map>
#include <optional>
#include <vector>

struct Verse {
    int number = 0;
    Text text;
};

class BibleTexts {
public:
    /// Reads the index of a translation ("kjv", "nasb") in a folder; nothing, and a fault, if it
    /// can't be read or holds no book.
    static std::optional<BibleTexts> Open(
        std::filesystem::path const& folder, std::string const& translation, Faults& faults);

    std::vector<BookEntry> const& Books() const { return m_books; }

    /// The verses of a chapter in file order; empty if there is no such chapter. `book` counts from
    /// 0. A book file that can't be read is reported once and has no verses.
    std::vector<Verse> const& Chapter(std::size_t book, int chapter, Faults& faults);
    /// The highest chapter that the book's file holds; 0 for none.
    int LastChapter(std::size_t book, Faults& faults);

private:
    using Chapters = std::map<int, std::vector<Verse>>;

    Chapters const& ReadBook(std::size_t book, Faults& faults);

    std::filesystem::path m_folder;
    std::string m_translation;
    std::vector<BookEntry> m_books;
    std::map<std::size_t, Chapters> m_read;
};

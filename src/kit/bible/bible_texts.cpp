#include "kit/bible/bible_texts.h"

#include "base/code_page.h"
#include "base/lines.h"
#include "kit/common/files.h"

namespace {

/// What a page of HTML would show for the text of a book file.
Text PlainText(std::string_view bytes)
{
    auto text = FromCodePage(bytes);
    ReplaceAll(text, u"&lt;", u"<");
    ReplaceAll(text, u"&amp;", u"&");
    return text;
}

} // namespace

std::optional<BibleTexts> BibleTexts::Open(
    std::filesystem::path const& folder, std::string const& translation, Faults& faults)
{
    auto const path = folder / ("bible" + translation + ".idx");
    auto const bytes = ReadWhole(path, faults);
    if (!bytes)
        return std::nullopt;
    BibleTexts texts;
    texts.m_folder = folder;
    texts.m_translation = translation;
    for (auto const& line : SplitLines(*bytes)) {
        auto entry = ParseIndexLine(FromCodePage(line));
        // The number of a book is the number of its line, so malformed lines count too.
        texts.m_books.push_back(entry ? std::move(*entry) : BookEntry {});
        if (!entry)
            faults.push_back({ path.string(), static_cast<int>(texts.m_books.size()),
                "expected the name of a book, “|” and its number of chapters" });
    }
    if (texts.m_books.empty()) {
        faults.push_back({ path.string(), 0, "expected the index of a Bible: it holds no book" });
        return std::nullopt;
    }
    return texts;
}

BibleTexts::Chapters const& BibleTexts::ReadBook(std::size_t book, Faults& faults)
{
    auto const [place, isNew] = m_read.try_emplace(book);
    if (!isNew)
        return place->second;
    auto const bytes = ReadWhole(
        m_folder / m_translation / (m_translation + std::to_string(book + 1)), faults, largestBook);
    if (!bytes)
        return place->second;
    for (auto const& record : ReadVerseRecords(*bytes))
        place->second[record.chapter].push_back({ record.verse, PlainText(record.text) });
    return place->second;
}

std::vector<Verse> const& BibleTexts::Chapter(std::size_t book, int chapter, Faults& faults)
{
    static std::vector<Verse> const none;
    auto const& chapters = ReadBook(book, faults);
    auto const found = chapters.find(chapter);
    return found == chapters.end() ? none : found->second;
}

int BibleTexts::LastChapter(std::size_t book, Faults& faults)
{
    auto const& chapters = ReadBook(book, faults);
    return chapters.empty() ? 0 : chapters.rbegin()->first;
}

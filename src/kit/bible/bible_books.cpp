#include "kit/bible/bible_books.h"

#include <algorithm>
#include <array>

namespace {

std::string Reference(std::size_t book, std::size_t chapter)
{
    return ToUtf8(Canon()[book].name) + ' ' + std::to_string(chapter);
}

bool IsEmpty(std::vector<GatheredVerse> const& verses)
{
    return std::ranges::all_of(verses, [](auto const& verse) { return verse.text.empty(); });
}

} // namespace

BibleBooks::BibleBooks()
{
    for (auto const& book : Canon()) {
        auto& chapters = m_books.emplace_back();
        for (int const count : book.verseCounts)
            chapters.emplace_back(static_cast<std::size_t>(count));
    }
}

bool BibleBooks::Has(std::size_t book, int chapter, int verse)
{
    auto const& counts = Canon()[book].verseCounts;
    return chapter >= 1 && static_cast<std::size_t>(chapter) <= counts.size() && verse >= 1
        && verse <= counts[static_cast<std::size_t>(chapter) - 1];
}

GatheredVerse& BibleBooks::At(std::size_t book, int chapter, int verse)
{
    return m_books.at(book)
        .at(static_cast<std::size_t>(chapter) - 1)
        .at(static_cast<std::size_t>(verse) - 1);
}

bool BibleBooks::PartRomans()
{
    std::size_t const romans = 44;
    auto& glued = At(romans, 14, 23);
    constexpr std::array<std::string_view, 3> beginnings
        = { " Now to him who ", " but now is revealed", " to the only wise God" };
    for (int verse = 25; verse <= 27; ++verse) {
        if (!At(romans, 16, verse).text.empty())
            return false;
    }
    std::array<std::size_t, 4> places {};
    places[3] = glued.text.size();
    for (std::size_t i = 0; i < beginnings.size(); ++i) {
        places[i] = glued.text.find(beginnings[i], i == 0 ? 0 : places[i - 1]);
        if (places[i] == std::string::npos)
            return false;
    }
    for (std::size_t i = 0; i < beginnings.size(); ++i) {
        auto const start = places[i] + 1; // after the blank
        At(romans, 16, 25 + static_cast<int>(i))
            = { glued.text.substr(start, places[i + 1] - start), i == 0, glued.line };
    }
    glued.text.resize(places[0]);
    return true;
}

void BibleBooks::CheckChapter(std::size_t book, std::size_t chapter,
    std::vector<std::string>& absent, std::vector<std::string>& missing) const
{
    auto const& verses = m_books[book][chapter];
    if (IsEmpty(verses)) {
        missing.push_back(Reference(book, chapter + 1));
        return;
    }
    for (std::size_t verse = 0; verse < verses.size(); ++verse) {
        if (!verses[verse].text.empty())
            continue;
        bool const isUsual = IsOftenAbsent(
            Canon()[book].name, static_cast<int>(chapter) + 1, static_cast<int>(verse) + 1);
        (isUsual ? absent : missing)
            .push_back(Reference(book, chapter + 1) + ':' + std::to_string(verse + 1));
    }
}

std::vector<std::string> BibleBooks::CheckWhole(
    std::string const& file, int lastLine, Faults& faults) const
{
    std::vector<std::string> absent, missing;
    for (std::size_t book = 0; book < m_books.size(); ++book) {
        if (std::ranges::all_of(m_books[book], IsEmpty)) {
            missing.push_back(ToUtf8(Canon()[book].name));
            continue;
        }
        for (std::size_t chapter = 0; chapter < m_books[book].size(); ++chapter)
            CheckChapter(book, chapter, absent, missing);
    }
    for (auto const& reference : missing)
        faults.push_back({ file, lastLine, "the export ends without " + reference });
    return absent;
}

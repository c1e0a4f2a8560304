#include "kit/study/passage.h"

#include "kit/common/utf8.h"
#include "study/codec.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace {

constexpr int toTheEnd = std::numeric_limits<int>::max();

/// Verses in a row, over one chapter or several.
struct Range {
    int firstChapter = 0, firstVerse = 1;
    int lastChapter = 0, lastVerse = toTheEnd;
};

/// A number of at most four figures and nothing else.
std::optional<int> Number(TextView text)
{
    auto const trimmed = Trim(text);
    if (trimmed.empty() || trimmed.size() > 4 || CountDigits(trimmed) < trimmed.size())
        return std::nullopt;
    return static_cast<int>(*ToInteger(trimmed));
}

/// "3" as a chapter, or as a verse of the chapter before it; "3:16" as both.
struct Place {
    std::optional<int> chapter, verse;
};

std::optional<Place> ReadPlace(TextView text)
{
    auto const fields = Split(text, u':');
    auto const first = Number(fields[0]);
    if (fields.size() > 2 || !first)
        return std::nullopt;
    if (fields.size() == 1)
        return Place { std::nullopt, first };
    auto const second = Number(fields[1]);
    if (!second)
        return std::nullopt;
    return Place { first, second };
}

/// The ranges of "3", "3-4", "3:16-18,20", "3:16-4:2" and the like; nothing for any other text.
std::optional<std::vector<Range>> ReadRanges(TextView text)
{
    std::vector<Range> ranges;
    int chapter = 0; // of the verses that name none; 0 while whole chapters are meant
    for (auto const part : Split(text, u',')) {
        auto const ends = Split(part, u'-');
        auto const first = ReadPlace(ends[0]), last = ReadPlace(ends.back());
        if (ends.size() > 2 || !first || !last)
            return std::nullopt;
        Range range;
        if (first->chapter)
            chapter = *first->chapter;
        if (chapter == 0) {
            if (last->chapter && ends.size() == 2)
                range = { *first->verse, 1, *last->chapter, *last->verse };
            else
                range = { *first->verse, 1, *last->verse, toTheEnd };
        } else {
            auto const lastChapter = last->chapter.value_or(chapter);
            range = { chapter, *first->verse, lastChapter, *last->verse };
        }
        chapter = range.lastVerse == toTheEnd ? 0 : range.lastChapter;
        ranges.push_back(range);
    }
    return ranges;
}

/// The name of a book, to be compared: in lower case, "II" as "2".
Text Comparable(TextView name)
{
    auto text = ToLowerLatin(Trim(name));
    for (auto const& [roman, figure] :
        { std::pair<TextView, TextView> { u"iii ", u"3 " }, { u"ii ", u"2 " }, { u"i ", u"1 " } }) {
        if (text.starts_with(roman))
            text.replace(0, roman.size(), figure);
    }
    return text;
}

/// The books whose names begin with this text, or only the one whose whole name it is.
std::vector<std::size_t> MatchingBooks(TextView name, std::vector<BookEntry> const& books)
{
    Text expanded(name);
    ExpandBookNames(expanded);
    auto const wanted = Comparable(expanded);
    std::vector<std::size_t> matches;
    for (std::size_t i = 0; i < books.size(); ++i) {
        auto const candidate = Comparable(books[i].name);
        if (candidate == wanted)
            return { i };
        if (!wanted.empty() && candidate.starts_with(wanted))
            matches.push_back(i);
    }
    return matches;
}

/// Where the numbers of a reference begin; its length if there are none.
std::size_t StartOfNumbers(TextView reference)
{
    auto const letter = std::find_if(reference.rbegin(), reference.rend(),
        [](char16_t character) { return !IsDigit(character) && !Contains(u" :,-–", character); });
    auto const end = static_cast<std::size_t>(reference.rend() - letter);
    auto const blank = reference.find(u' ', end);
    return end == 0 || blank == TextView::npos ? reference.size() : blank;
}

/// "16-18" of verses in a row.
Text VerseList(std::vector<Verse> const& verses)
{
    Text list;
    for (std::size_t i = 0; i < verses.size();) {
        auto end = i + 1;
        while (end < verses.size() && verses[end].number == verses[end - 1].number + 1)
            ++end;
        list += (i == 0 ? u"" : u",") + FromNumber(verses[i].number);
        if (end - i > 1)
            list += u"-" + FromNumber(verses[end - 1].number);
        i = end;
    }
    return list;
}

/// Finds the verses of one reference.
class Search {
public:
    Search(BibleTexts& bible, std::size_t book, int line, Faults& bookFaults)
        : m_bible(bible)
        , m_book(book)
        , m_line(line)
        , m_faults(bookFaults)
    {
    }

    /// Appends the verses of a range; false if it names a chapter or verse that isn't there.
    bool Add(Range range)
    {
        auto const lastChapter = m_bible.LastChapter(m_book, m_faults);
        if (range.firstChapter < 1 || range.lastChapter < range.firstChapter
            || range.lastChapter > lastChapter)
            return false;
        for (int chapter = range.firstChapter; chapter <= range.lastChapter; ++chapter) {
            auto const first = chapter == range.firstChapter ? range.firstVerse : 1;
            auto const last = chapter == range.lastChapter ? range.lastVerse : toTheEnd;
            if (!AddVerses(chapter, first, last))
                return false;
        }
        return true;
    }

    /// The passages in the order in which their chapters were named.
    std::vector<Passage> Take()
    {
        for (auto& [chapter, isWhole, passage] : m_chapters) {
            passage.line = m_line;
            passage.heading = m_bible.Books()[m_book].name + u' ' + FromNumber(chapter);
            if (!isWhole)
                passage.heading += u':' + VerseList(passage.verses);
        }
        std::vector<Passage> passages;
        for (auto& chapter : m_chapters)
            passages.push_back(std::move(chapter.passage));
        return passages;
    }

private:
    struct Chapter {
        int number;
        bool isWhole;
        Passage passage;
    };

    bool AddVerses(int chapter, int first, int last)
    {
        auto const& verses = m_bible.Chapter(m_book, chapter, m_faults);
        auto const isThere = [&](int number) {
            return std::ranges::find(verses, number, &Verse::number) != verses.end();
        };
        bool const isWhole = first <= 1 && last == toTheEnd;
        if (verses.empty() || first > last
            || (!isWhole && (!isThere(first) || (last != toTheEnd && !isThere(last)))))
            return false;
        auto const isSame
            = [&](Chapter const& other) { return other.number == chapter && other.isWhole; };
        if (std::ranges::any_of(m_chapters, isSame))
            return true;
        if (m_chapters.empty() || m_chapters.back().number != chapter || isWhole)
            m_chapters.push_back({ chapter, isWhole, {} });
        std::ranges::copy_if(verses, std::back_inserter(m_chapters.back().passage.verses),
            [&](Verse const& verse) { return verse.number >= first && verse.number <= last; });
        return true;
    }

    BibleTexts& m_bible;
    std::size_t m_book;
    int m_line;
    Faults& m_faults;
    std::vector<Chapter> m_chapters;
};

} // namespace

std::vector<Passage> FindPassages(
    TextView reference, BibleTexts& bible, std::string const& file, int line, Faults& faults)
{
    auto const report = [&](std::string message) {
        faults.push_back({ file, line, std::move(message) });
        return std::vector<Passage> {};
    };
    auto const numbersAt = StartOfNumbers(reference);
    auto const name = Trim(reference.substr(0, numbersAt));
    auto const books = MatchingBooks(name, bible.Books());
    if (books.empty())
        return report("no book of the Bible is called " + Quoted(name));
    if (books.size() > 1)
        return report(Quoted(name) + " may be " + ToUtf8(bible.Books()[books[0]].name) + " or "
            + ToUtf8(bible.Books()[books[1]].name));
    Text numbers(Trim(reference.substr(numbersAt)));
    ReplaceAll(numbers, u"–", u"-");
    auto const faultsBefore = faults.size();
    Search search(bible, books[0], line, faults);
    auto const ranges = numbers.empty()
        ? std::vector { Range { 1, 1, std::max(bible.LastChapter(books[0], faults), 1), toTheEnd } }
        : ReadRanges(numbers);
    if (!ranges)
        return report(
            "expected a chapter, or a chapter and verses, after the book in " + Quoted(reference));
    if (!std::ranges::all_of(*ranges, [&](Range const& range) { return search.Add(range); }))
        return faults.size() > faultsBefore
            ? std::vector<Passage> {}
            : report(Quoted(reference) + " names no verse of this Bible");
    return search.Take();
}

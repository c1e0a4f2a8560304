#include "kit/bible/bible_import.h"

#include "base/code_page.h"
#include "base/nearest_code_page.h"
#include "bible/about_line.h"
#include "bible/book_file.h"
#include "kit/bible/bible_books.h"
#include "kit/bible/canon.h"
#include "kit/bible/osis_text.h"
#include "kit/bible/sword_export.h"
#include "kit/common/progress.h"
#include "kit/common/utf8.h"

#include <algorithm>

namespace {

/// In characters; the figure is the publisher's habit, the program takes lines of any length.
constexpr std::size_t lineWidth = 70;

/// Gathers the entries of an export.
class Gathering {
public:
    Gathering(std::string file, Faults& faults)
        : m_file(std::move(file))
        , m_faults(faults)
    {
    }

    void Add(ExportEntry const& entry)
    {
        if (entry.book != m_bookName)
            OpenBook(entry);
        m_lastLine = entry.lastLine;
        if (!m_isWanted)
            return;
        auto const verse = m_reader.Read(entry.text);
        if (entry.chapter == 0 || entry.verse == 0)
            return; // what comes before a book or chapter
        if (verse.isCutOff)
            Report(entry.lastLine, "a tag, or a note or title, has no end");
        if (verse.text.empty())
            return;
        m_innerParagraphs += verse.innerParagraphs;
        AddVerse(entry, verse);
    }

    /// The result, but for the files.
    BibleImport Finish()
    {
        if (m_books.PartRomans() && m_innerParagraphs > 0)
            m_innerParagraphs -= 1;
        BibleImport result;
        result.absent = m_books.CheckWhole(m_file, m_lastLine, m_faults);
        result.innerParagraphs = m_innerParagraphs;
        result.furtherBooks = std::move(m_furtherBooks);
        return result;
    }
    BibleBooks& Books() { return m_books; }
    /// True if no entry has come.
    bool IsEmpty() const { return m_bookName.empty(); }

private:
    void Report(int line, std::string message)
    {
        m_faults.push_back({ m_file, line, std::move(message) });
    }

    void OpenBook(ExportEntry const& entry)
    {
        m_bookName = entry.book;
        m_reader.BeginBook();
        auto const canon = Canon();
        auto const found = std::ranges::find(canon, entry.book, &CanonBook::exportName);
        m_isWanted = false;
        if (found == canon.end()) {
            if (IsFurtherBook(entry.book))
                m_furtherBooks.push_back(m_bookName);
            else
                Report(entry.line, "unknown book “" + m_bookName + "”");
            return;
        }
        m_book = static_cast<std::size_t>(found - canon.begin());
        m_isWanted = !m_isBookSeen[m_book];
        if (!m_isWanted)
            Report(entry.line, "the book “" + m_bookName + "” begins a second time");
        m_isBookSeen[m_book] = true;
    }

    void AddVerse(ExportEntry const& entry, OsisVerse const& verse)
    {
        auto const reference
            = m_bookName + ' ' + std::to_string(entry.chapter) + ':' + std::to_string(entry.verse);
        if (!BibleBooks::Has(m_book, entry.chapter, entry.verse)) {
            Report(entry.line, reference + " is no verse of the Bible");
            return;
        }
        auto& place = m_books.At(m_book, entry.chapter, entry.verse);
        if (place.line > 0)
            Report(entry.line,
                reference + " a second time, first in line " + std::to_string(place.line));
        place = { verse.text, verse.startsParagraph, entry.line };
    }

    std::string m_file;
    Faults& m_faults;
    BibleBooks m_books;
    OsisReader m_reader;
    std::string m_bookName; ///< as the export spells it
    std::size_t m_book = 0;
    bool m_isWanted = false; ///< the book is one of the 66, for the first time
    bool m_isBookSeen[bookCount] = {};
    int m_lastLine = 1;
    std::size_t m_innerParagraphs = 0;
    std::vector<std::string> m_furtherBooks;
};

/// A verse as it may stand in a book file: in code page 1252, with single blanks, what has a
/// meaning there or in a page of HTML replaced.
NearestBytes FileText(std::string const& utf8)
{
    auto form = ToNearestCodePage(FromUtf8(utf8));
    form.replaced += std::erase_if(
        form.bytes, [](char byte) { return byte == '*' || byte == paragraphMark; });
    std::string bytes;
    for (char const byte : form.bytes) {
        bool const isBlank = byte >= 0 && byte <= ' ';
        if (isBlank && (bytes.empty() || bytes.ends_with(' ')))
            continue;
        bytes += isBlank  ? " "
            : byte == '&' ? "&amp;"
            : byte == '<' ? "&lt;"
                          : std::string(1, byte);
    }
    if (bytes.ends_with(' '))
        bytes.pop_back();
    form.bytes = std::move(bytes);
    return form;
}

std::string WriteBook(std::size_t book, BibleBooks& books, BibleImport& result)
{
    auto const& canon = Canon()[book];
    auto bytes = ToNearestCodePage(canon.name).bytes + "\r\n";
    for (int chapter = 1; chapter <= static_cast<int>(canon.verseCounts.size()); ++chapter) {
        for (int verse = 1; BibleBooks::Has(book, chapter, verse); ++verse) {
            auto const& gathered = books.At(book, chapter, verse);
            if (gathered.text.empty())
                continue;
            auto const text = FileText(gathered.text);
            bytes += WriteVerseRecord(
                { chapter, verse, gathered.startsParagraph, text.bytes }, lineWidth);
            result.verses += 1;
            result.paragraphs += gathered.startsParagraph;
            result.replaced += text.replaced;
        }
        result.chapters += 1;
    }
    return bytes;
}

} // namespace

bool IsAboutText(std::string const& utf8)
{
    auto const bytes = ToNearestCodePage(FromUtf8(utf8)).bytes;
    return IsUtf8(utf8) && !bytes.empty() && bytes == ToCodePage(AboutLine(bytes));
}

std::optional<BibleImport> ImportBible(
    std::string_view bytes, std::string const& file, std::string const& translation, Faults& faults)
{
    auto const faultsBefore = faults.size();
    Gathering gathering(file, faults);
    Progress progress(file, std::max<std::size_t>(bytes.size(), 1));
    ReadSwordExport(bytes, file, faults, [&](ExportEntry const& entry, std::uint64_t done) {
        gathering.Add(entry);
        progress.At(done);
    });
    // If it isn't an export at all, there are no missing books to report.
    if (faults.size() > faultsBefore && gathering.IsEmpty())
        return std::nullopt;
    auto result = gathering.Finish();
    if (faults.size() > faultsBefore)
        return std::nullopt;
    std::string index;
    for (std::size_t book = 0; book < bookCount; ++book) {
        auto const name
            = std::filesystem::path(translation) / (translation + std::to_string(book + 1));
        result.files[name] = WriteBook(book, gathering.Books(), result);
        auto const& canon = Canon()[book];
        index += ToUtf8(canon.name) + '|' + std::to_string(canon.verseCounts.size()) + "\r\n";
    }
    result.files["bible" + translation + ".idx"] = index;
    return result;
}

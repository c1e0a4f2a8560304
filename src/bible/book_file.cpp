#include "bible/book_file.h"

#include "base/text.h"
#include "bible/book_lines.h"

#include <algorithm>
#include <charconv>

namespace {

std::string Padded(int number)
{
    auto const digits = std::to_string(number);
    return std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits;
}

/// The number in the three columns from `column` on, which may have blanks around it.
std::optional<int> ColumnNumber(std::string_view line, std::size_t column)
{
    if (line.size() <= column)
        return std::nullopt;
    auto const field = line.substr(column, 3);
    // as in nearly every verse line
    if (field.size() == 3 && std::all_of(field.begin(), field.end(), IsDigit))
        return (field[0] - '0') * 100 + (field[1] - '0') * 10 + (field[2] - '0');
    auto const digits = TrimBlanks(field);
    int number = 0;
    auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return number;
}

} // namespace

std::string_view TrimBlanks(std::string_view text)
{
    auto const first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<VerseLine> ParseVerseLine(std::string_view line)
{
    constexpr std::size_t verseColumn = 4, textColumn = 8;
    if (line.empty() || line.front() == ' ')
        return std::nullopt;
    auto const chapter = ColumnNumber(line, 0), verse = ColumnNumber(line, verseColumn);
    if (!chapter || !verse)
        return std::nullopt;
    return VerseLine { *chapter, *verse, line.substr(std::min(line.size(), textColumn)) };
}

std::vector<VerseRecord> ReadVerseRecords(std::string_view bytes)
{
    std::vector<VerseRecord> records;
    BookLines lines(bytes);
    lines.Next();
    while (lines.HasNext()) {
        auto const [line, isMarked] = lines.WithoutMarks(lines.Next());
        auto const verse = ParseVerseLine(line);
        if (!verse)
            continue;
        VerseRecord record { verse->chapter, verse->verse, isMarked,
            std::string(TrimBlanks(verse->text)) };
        while (lines.HasNext()) {
            auto const more = TrimBlanks(lines.Next());
            if (more.empty())
                break;
            record.text.append(1, ' ').append(more);
        }
        records.push_back(std::move(record));
    }
    return records;
}

std::string WriteVerseRecord(VerseRecord const& record, std::size_t width)
{
    std::string lines;
    if (record.startsParagraph)
        lines += paragraphMark;
    auto lineStart = lines.size();
    lines += Padded(record.chapter) + ' ' + Padded(record.verse);
    std::string_view rest = record.text;
    while (!rest.empty()) {
        auto const word = rest.substr(0, rest.find(' '));
        bool const isFirst = rest.size() == record.text.size();
        if (!isFirst && lines.size() - lineStart + 1 + word.size() > width) {
            lines += "\r\n";
            lineStart = lines.size();
        }
        lines.append(1, ' ').append(word);
        rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    }
    return lines += "\r\n\r\n";
}

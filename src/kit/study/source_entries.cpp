#include "kit/study/source_entries.h"

#include "base/lines.h"
#include "kit/common/utf8.h"

#include <algorithm>

namespace {

constexpr TextView labelledKey = u"question ";

bool IsIndented(TextView line)
{
    return line.starts_with(u' ') || line.starts_with(u'\t');
}

/// The text with every white space a single blank, none at the ends.
Text SingleBlanks(TextView text)
{
    Text result;
    for (char16_t const character : text) {
        bool const isBlank = character == u' ' || character == u'\t';
        if (!isBlank)
            result += character;
        else if (!result.empty() && result.back() != u' ')
            result += u' ';
    }
    if (result.ends_with(u' '))
        result.pop_back();
    return result;
}

/// The entry that a line in the first column opens; one without a key if the line has none.
SourceEntry OpenEntry(TextView line, int number)
{
    SourceEntry entry;
    entry.line = number;
    auto const colon = line.find(u':');
    if (colon == TextView::npos)
        return entry;
    entry.key = SingleBlanks(line.substr(0, colon));
    if (entry.key.starts_with(labelledKey)) {
        entry.label = entry.key.substr(labelledKey.size());
        entry.key.resize(labelledKey.size() - 1);
    }
    auto text = SingleBlanks(line.substr(colon + 1));
    if (!text.empty())
        entry.paragraphs.push_back({ { { std::move(text), number } } });
    return entry;
}

/// Joins lines to entries.
class Reading {
public:
    Reading(std::string const& file, Faults& faults)
        : m_file(file)
        , m_faults(faults)
    {
    }

    void Add(TextView line, int number)
    {
        auto text = SingleBlanks(line);
        if (text.empty()) {
            m_isBehindGap = true;
            return;
        }
        if (line.starts_with(u'#'))
            return;
        if (IsIndented(line))
            AddText({ std::move(text), number });
        else
            Open(line, number);
        m_isBehindGap = false;
    }

    std::vector<SourceEntry> Take() { return std::move(m_entries); }

private:
    void Report(int line, std::string message)
    {
        m_faults.push_back({ m_file, line, std::move(message) });
    }

    void Open(TextView line, int number)
    {
        auto entry = OpenEntry(line, number);
        m_isOpen = !entry.key.empty();
        if (m_isOpen)
            m_entries.push_back(std::move(entry));
        else
            Report(number,
                "expected a key and a colon, or an indented line that goes on with the text above");
    }

    void AddText(SourceLine line)
    {
        if (m_entries.empty() && !m_isBehindBadLine) {
            Report(line.line, "an indented line, but no entry above it");
            m_isBehindBadLine = true;
        }
        if (!m_isOpen)
            return;
        auto& paragraphs = m_entries.back().paragraphs;
        if (paragraphs.empty() || m_isBehindGap)
            paragraphs.emplace_back();
        paragraphs.back().lines.push_back(std::move(line));
    }

    std::string const& m_file;
    Faults& m_faults;
    std::vector<SourceEntry> m_entries;
    bool m_isOpen = false; // indented lines belong to the last entry
    bool m_isBehindGap = false;
    bool m_isBehindBadLine = false;
};

} // namespace

Text SourceParagraph::Joined() const
{
    Text text;
    for (auto const& line : lines)
        text += (text.empty() ? u"" : u" ") + line.text;
    return text;
}

int SourceParagraph::LineAt(std::size_t place) const
{
    std::size_t end = 0;
    for (auto const& line : lines) {
        end += line.text.size() + 1;
        if (place < end)
            return line.line;
    }
    return lines.back().line;
}

Text SourceEntry::Joined() const
{
    Text text;
    for (auto const& paragraph : paragraphs)
        text += (text.empty() ? u"" : u"/") + paragraph.Joined();
    return text;
}

std::vector<SourceEntry> ReadEntries(
    std::string_view bytes, std::string const& file, Faults& faults)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byteOrderMark))
        bytes.remove_prefix(byteOrderMark.size());
    Reading reading(file, faults);
    int number = 0;
    for (auto const line : SplitLines(bytes)) {
        number += 1;
        if (IsUtf8(line))
            reading.Add(FromUtf8(line), number);
        else
            faults.push_back({ file, number, "expected UTF-8" });
    }
    return reading.Take();
}

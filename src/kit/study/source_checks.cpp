#include "kit/study/source_checks.h"

#include "base/code_page.h"
#include "kit/common/utf8.h"
#include "kit/study/short_names.h"

#include <algorithm>
#include <cstdio>

namespace {

/// "“א” (U+05D0)"; of a surrogate pair both halves.
std::string Named(TextView character)
{
    char32_t const code = character.size() == 2
        ? 0x10000 + ((static_cast<char32_t>(character[0]) - 0xD800) << 10) + (character[1] - 0xDC00)
        : character[0];
    char number[16];
    std::snprintf(number, sizeof number, "U+%04X", static_cast<unsigned>(code));
    return (code < 0x20 ? "" : Quoted(character) + " ") + "(" + number + ")";
}

void CheckCharacters(SourceLine const& line, std::string const& file, Faults& faults)
{
    for (std::size_t i = 0; i < line.text.size(); ++i) {
        auto const character = line.text[i];
        if (character == u'/')
            faults.push_back({ file, line.line,
                "a “/” would open a new paragraph; leave an empty line for one" });
        else if (character < u' ')
            faults.push_back({ file, line.line,
                "a control character " + Named(TextView(line.text).substr(i, 1)) });
        else if (!CodePageByte(character)) {
            bool const isPair = (character & 0xFC00) == 0xD800 && i + 1 < line.text.size();
            faults.push_back({ file, line.line,
                "code page 1252 has no character for "
                    + Named(TextView(line.text).substr(i, isPair ? 2 : 1)) });
            i += isPair;
        }
    }
}

void CheckShortNames(SourceParagraph const& paragraph, std::string const& file, Faults& faults)
{
    auto const text = paragraph.Joined();
    std::size_t from = 0;
    for (auto name = FindShortName(text, from); name.length > 0; name = FindShortName(text, from)) {
        from = name.start + name.length;
        auto const rest = TextView(text).substr(from);
        bool const hasNumber = rest.size() > 1 && rest[0] == u' ' && IsDigit(rest[1]);
        if (!hasNumber)
            faults.push_back({ file, paragraph.LineAt(name.start),
                Quoted(text.substr(name.start, name.length))
                    + " would be written out as the name of a book; expected a number after it" });
    }
}

} // namespace

void CheckTexts(SourceEntry const& entry, std::string const& file, Faults& faults)
{
    for (auto const& paragraph : entry.paragraphs) {
        for (auto const& line : paragraph.lines)
            CheckCharacters(line, file, faults);
        CheckShortNames(paragraph, file, faults);
    }
}

void CheckHasText(SourceEntry const& entry, std::string const& file, Faults& faults)
{
    if (entry.paragraphs.empty())
        faults.push_back({ file, entry.line, "expected a text after " + Quoted(entry.key + u':') });
}

void CheckOneParagraph(SourceEntry const& entry, std::string const& file, Faults& faults)
{
    CheckHasText(entry, file, faults);
    if (entry.paragraphs.size() > 1)
        faults.push_back({ file, entry.paragraphs[1].lines[0].line,
            "a second paragraph, where " + Quoted(entry.key) + " has one" });
}

void CheckBeginning(SourceEntry const& entry, TextView characters, std::string const& meaning,
    std::string const& file, Faults& faults)
{
    if (entry.paragraphs.empty())
        return;
    auto const& first = entry.paragraphs[0].lines[0];
    if (Contains(characters, first.text[0]))
        faults.push_back({ file, first.line,
            "a text that begins with " + Quoted(first.text.substr(0, 1)) + " would be taken for "
                + meaning });
}

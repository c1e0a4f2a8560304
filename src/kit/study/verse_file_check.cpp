#include "kit/study/verse_file_check.h"

#include "study/codec.h"

#include <algorithm>

namespace {

bool IsDigit(char16_t character)
{
    return character >= u'0' && character <= u'9';
}

bool IsMark(TextView line)
{
    return line.size() >= 2 && line.starts_with(u'>')
        && std::ranges::all_of(line.substr(1), IsDigit) && NumericValue(line.substr(1)) > 0;
}

/// The digits that the line begins with.
std::size_t CountDigits(TextView line)
{
    return static_cast<std::size_t>(std::ranges::find_if_not(line, IsDigit) - line.begin());
}

/// Of a line that opens with a number and whose last character is no digit.
void CheckVerse(CheckLines& lines, TextView line)
{
    auto const digits = CountDigits(line);
    if (digits == 0 || digits > 2 || line.starts_with(u'0'))
        lines.Report("expected a verse number of one or two digits, the first one no 0, found "
            + Excerpt(line));
    else if (digits + 1 >= line.size() || line[digits] != u' ')
        lines.Report(
            "expected a blank and the text of the verse behind its number, found " + Excerpt(line));
}

} // namespace

void CheckVerseLines(CheckLines& lines)
{
    bool hasMark = false;
    while (lines.Next()) {
        auto const line = lines.Line();
        if (Contains(line, u'>')) {
            if (!IsMark(line))
                lines.Report("expected > and the number of a lesson, found " + Excerpt(line));
            hasMark = true;
            continue;
        }
        if (line.empty())
            continue;
        if (NumericValue(line) != 0 && !IsDigit(line.back()))
            CheckVerse(lines, line);
        else if (line == u"^")
            lines.Report("expected a heading behind “^”");
    }
    if (!hasMark)
        lines.Report("the file ends; expected a section mark");
}

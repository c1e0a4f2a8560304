#include "kit/study/verse_file_check.h"

#include "study/verse_file.h"

namespace {

bool IsMark(TextView line)
{
    return line.starts_with(u'>') && 1 + CountDigits(line.substr(1)) == line.size()
        && NumericValue(line.substr(1)) > 0;
}

/// Checks a line that opens with a number and doesn't end in a digit.
void CheckVerse(CheckLines& lines, TextView line)
{
    auto const digits = CountDigits(line);
    if (digits == 0 || digits > 2 || line.starts_with(u'0'))
        lines.Report("expected a verse number of one or two digits, the first one not 0, found "
            + Excerpt(line));
    else if (digits + 1 >= line.size() || line[digits] != u' ')
        lines.Report(
            "expected a blank and the text of the verse after its number, found " + Excerpt(line));
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
        auto const item = ClassifyVerseLine(line);
        if (item && item->kind != VerseFileItem::Kind::Heading)
            CheckVerse(lines, line);
        else if (item && item->text.empty())
            lines.Report("expected a heading after “^”");
    }
    if (!hasMark)
        lines.Report("the file ends; expected a section mark");
}

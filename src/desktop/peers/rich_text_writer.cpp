#include "desktop/peers/rich_text_writer.h"

#include "desktop/peers/convert.h"
#include "desktop/peers/text_edit.h"

#include <QFontMetricsF>

#include <algorithm>

RichTextWriter::RichTextWriter(RichTextBox const& box)
    : m_box(box)
{
}

static QTextBlockFormat BlockFormat(ParagraphFormat const& format)
{
    QTextBlockFormat result;
    result.setLeftMargin(Pixels(format.left + format.hanging));
    result.setTextIndent(-Pixels(format.hanging));
    result.setRightMargin(Pixels(format.right));
    return result;
}

QTextCharFormat const& RichTextWriter::FormatOf(CharacterFormat const& format)
{
    for (auto const& [known, shown] : m_formats)
        if (known == format)
            return shown;
    QTextCharFormat shown;
    auto const font = ToQFont({ m_box.FontName, format.size, format.bold });
    shown.setFont(font);
    if (format.raise != 0)
        shown.setBaselineOffset(
            100 * static_cast<double>(format.raise) / 15 / QFontMetricsF(font).height());
    return m_formats.emplace_back(format, shown).second;
}

QTextCharFormat const& RichTextWriter::FormatAt(int offset)
{
    auto const& runs = m_box.Runs();
    if (runs.empty())
        return FormatOf({ m_box.FontBold, m_box.FontSize, 0 });
    while (m_run + 1 < runs.size() && runs[m_run + 1].start <= offset)
        ++m_run;
    return FormatOf(runs[m_run].format);
}

void RichTextWriter::WriteRuns(QTextCursor& cursor, int from, int to)
{
    auto const& runs = m_box.Runs();
    while (from < to) {
        auto const& format = FormatAt(from);
        int const end = m_run + 1 < runs.size() ? std::min(to, runs[m_run + 1].start) : to;
        auto const piece
            = TextView(m_box.Text())
                  .substr(static_cast<std::size_t>(from), static_cast<std::size_t>(end - from));
        cursor.insertText(ForDocument(piece), format);
        from = end;
    }
}

void RichTextWriter::Write(QTextCursor& cursor, int from)
{
    auto const& paragraphs = m_box.Paragraphs();
    auto const behind = std::upper_bound(paragraphs.begin(), paragraphs.end(), from,
        [](int offset, RichTextBox::Paragraph const& paragraph) {
            return offset < paragraph.start;
        });
    cursor.beginEditBlock();
    for (auto i = static_cast<std::size_t>(behind - paragraphs.begin()) - 1; i < paragraphs.size();
         ++i) {
        int const start = std::max(from, paragraphs[i].start);
        auto const format = BlockFormat(paragraphs[i].format);
        if (start == paragraphs[i].start && i > 0 && start > 0
            && cursor.blockNumber() < static_cast<int>(i))
            cursor.insertBlock(format, FormatAt(start));
        else
            cursor.setBlockFormat(format);
        bool const isLast = i + 1 == paragraphs.size();
        WriteRuns(cursor, start, isLast ? m_box.Length() : paragraphs[i + 1].start - 2);
    }
    cursor.endEditBlock();
}

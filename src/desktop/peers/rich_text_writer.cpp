#include "desktop/peers/rich_text_writer.h"

#include "desktop/peers/convert.h"
#include "desktop/peers/text_edit.h"

#include <QFontMetricsF>
#include <QTextDocument>

#include <algorithm>

/// In characters, about 2 ms. Whatever is put before a text moves all of it, which takes up to 20
/// ms for the longest, so there a portion is larger.
static constexpr int appended = 10'000, prepended = 40'000;

/// The index of the last element that starts at the offset or before it; 0 if none does.
template <class Element> static std::size_t LastAt(std::vector<Element> const& elements, int offset)
{
    auto const after = std::upper_bound(elements.begin(), elements.end(), offset,
        [](int at, Element const& element) { return at < element.start; });
    return after == elements.begin() ? 0 : static_cast<std::size_t>(after - elements.begin()) - 1;
}

static QTextBlockFormat BlockFormat(ParagraphFormat const& format)
{
    QTextBlockFormat result;
    if (format
        == ParagraphFormat()) // Enter in an empty paragraph that has one would only remove it
        return result;
    result.setLeftMargin(Pixels(format.left + format.hanging));
    result.setTextIndent(-Pixels(format.hanging));
    result.setRightMargin(Pixels(format.right));
    return result;
}

RichTextWriter::RichTextWriter(RichTextBox const& box, QTextDocument& document, int offset)
    : m_box(box)
    , m_document(document)
    , m_first(LastAt(box.Paragraphs(), offset))
    , m_from(box.Paragraphs()[m_first].start)
    , m_to(m_from)
{
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
    return FormatOf(runs[LastAt(runs, offset)].format);
}

/// Writes the paragraph from the offset on into the cursor's block.
void RichTextWriter::WriteParagraph(QTextCursor& cursor, std::size_t index, int from)
{
    auto const& paragraphs = m_box.Paragraphs();
    auto const& runs = m_box.Runs();
    bool const isLast = index + 1 == paragraphs.size();
    int const end = isLast ? m_box.Length() : paragraphs[index + 1].start - 2; // without CR LF
    for (auto run = LastAt(runs, from); from < end; ++run) {
        int const to = run + 1 < runs.size() ? std::min(end, runs[run + 1].start) : end;
        auto const piece
            = TextView(m_box.Text())
                  .substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
        cursor.insertText(ForDocument(piece), FormatOf(runs[run].format));
        from = to;
    }
}

/// Writes the paragraphs up to the index, which isn't included.
void RichTextWriter::Append(std::size_t end)
{
    auto const& paragraphs = m_box.Paragraphs();
    QTextCursor cursor(&m_document);
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    for (auto i = LastAt(paragraphs, m_to); i < end; ++i) {
        auto const format = BlockFormat(paragraphs[i].format);
        // The block of an empty paragraph at the end of the text may be there already.
        if (static_cast<std::size_t>(cursor.blockNumber()) < i - m_first)
            cursor.insertBlock(format, FormatAt(paragraphs[i].start));
        else
            cursor.setBlockFormat(format);
        WriteParagraph(cursor, i, std::max(m_to, paragraphs[i].start));
    }
    m_to = end < paragraphs.size() ? paragraphs[end].start : m_box.Length();
    cursor.endEditBlock(); // the layout follows, and its watchers may ask for more
}

/// Writes the paragraphs from the index to the document's first.
void RichTextWriter::Prepend(std::size_t begin)
{
    auto const& paragraphs = m_box.Paragraphs();
    QTextCursor cursor(&m_document);
    cursor.beginEditBlock();
    for (auto i = begin; i < m_first; ++i) {
        auto const first = BlockFormat(paragraphs[i].format);
        if (i == begin)
            cursor.setBlockFormat(first);
        WriteParagraph(cursor, i, paragraphs[i].start);
        cursor.insertBlock(
            BlockFormat(paragraphs[i + 1].format), FormatAt(paragraphs[i + 1].start));
    }
    m_first = begin;
    m_from = paragraphs[begin].start;
    cursor.endEditBlock();
}

void RichTextWriter::TakeAsWritten()
{
    m_first = 0;
    m_from = 0;
    m_to = m_box.Length();
}

void RichTextWriter::WriteTo(int offset)
{
    if (m_to >= std::min(offset, m_box.Length()) && m_to > m_from)
        return;
    auto const& paragraphs = m_box.Paragraphs();
    auto const end = LastAt(paragraphs, offset) + 1;
    // The last paragraph, which may be empty, is written with the one before it.
    Append(end + 1 == paragraphs.size() ? paragraphs.size() : end);
}

void RichTextWriter::WritePortion()
{
    if (m_to < m_box.Length())
        WriteTo(m_to + appended);
    else if (m_from > 0)
        Prepend(std::min(LastAt(m_box.Paragraphs(), m_from - prepended), m_first - 1));
}

#pragma once
// Writes the text of a rich text box, with its runs and paragraphs, into a document. A long text is
// written in portions, so that its first page, or any other place, can be shown long before all of
// it is there: first from that place to the end, then what comes before.

#include "controls/rich_text_box.h"

#include <QTextCharFormat>
#include <QTextCursor>

#include <utility>
#include <vector>

class QTextDocument;

class RichTextWriter {
public:
    /// Writes from the beginning of the paragraph that has the offset. The document is empty; it
    /// and the box outlive this object. In between the box may only be appended to.
    RichTextWriter(RichTextBox const& box, QTextDocument& document, int offset = 0);

    /// The part of the text that is in the document, as offsets in the box.
    int From() const { return m_from; }
    int To() const { return m_to; }
    bool IsComplete() const { return m_from == 0 && m_to == m_box.Length(); }

    /// The document has been given the whole text by other means.
    void TakeAsWritten();
    /// Writes on until the document has the text up to the offset at least.
    void WriteTo(int offset);
    /// Writes a portion of the rest, which takes a few milliseconds, or if there is none, of what
    /// comes before the document's first paragraph, which may take some tens.
    void WritePortion();

private:
    void Append(std::size_t paragraphs);
    void Prepend(std::size_t paragraphs);
    void WriteParagraph(QTextCursor& cursor, std::size_t index, int from);
    QTextCharFormat const& FormatOf(CharacterFormat const& format);
    QTextCharFormat const& FormatAt(int offset);

    RichTextBox const& m_box;
    QTextDocument& m_document;
    std::size_t m_first; // paragraph of the box that is the document's first
    int m_from, m_to;
    std::vector<std::pair<CharacterFormat, QTextCharFormat>> m_formats; // a text has only a handful
};

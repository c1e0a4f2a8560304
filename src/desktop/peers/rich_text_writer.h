#pragma once
// Writes the runs and paragraphs of a rich text box into a document.

#include "controls/rich_text_box.h"

#include <QTextCharFormat>
#include <QTextCursor>

#include <vector>

class RichTextWriter {
public:
    explicit RichTextWriter(RichTextBox const& box); // outlives this object

    /// Writes the text from the offset on. The cursor is at the end of the text before it.
    void Write(QTextCursor& cursor, int from);

private:
    void WriteRuns(QTextCursor& cursor, int from, int to);
    QTextCharFormat const& FormatOf(CharacterFormat const& format);
    QTextCharFormat const& FormatAt(int offset);

    RichTextBox const& m_box;
    std::vector<std::pair<CharacterFormat, QTextCharFormat>> m_formats; // a text has only a handful
    std::size_t m_run = 0; // the one that was used last; they are used in their order
};

#pragma once
// The widget of every text of more than one line: takes and gives plain text only, and counts as
// the model does, where a line end is two characters.

#include <QTextEdit>

#include "base/text.h"

#include <functional>

class TextEdit final : public QTextEdit {
public:
    explicit TextEdit(QWidget* parent);

    /// The whole text with CR LF line ends.
    Text WholeText() const;
    /// The model's offset of a position in the document, and the other way; both in logarithmic
    /// time.
    int ToOffset(int position) const;
    int ToPosition(int offset) const;

    /// Makes this the whole text, line ends as CR LF, by one step that the user can undo; what both
    /// texts have in common at their ends stays untouched.
    void ChangeTo(TextView whole);

    /// Scrolls the line with the position to the top, also where the text ends before the
    /// page is full.
    void BringToTop(int position);

    /// The model's offset of the document's first character; above 0 while the document has only a
    /// later part of the text.
    int firstOffset = 0;
    /// Before a command that is about the whole text, of which the document may have only a part.
    std::function<void()> wholeWanted;
    std::function<void()> resized; ///< after each change of size, and when the widget is shown

protected:
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(QMimeData const* source) const override;
    void insertFromMimeData(QMimeData const* source) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
};

/// A text without line ends as it can be in a document: the few characters that would divide or
/// hide it give way to blanks.
QString ForDocument(TextView text);

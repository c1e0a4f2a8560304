#pragma once
// The widget of multi-line texts: plain text only, with the model's offsets, in which a line end is
// two characters.

#include "base/text.h"
#include "desktop/peers/letter_scale.h"

#include <QTextEdit>

#include <functional>

class TextEdit final : public QTextEdit {
public:
    explicit TextEdit(QWidget* parent);

    /// The whole text with CR LF line ends.
    Text WholeText() const;
    /// The model's offset of a position in the document, and back; in logarithmic time.
    int ToOffset(int position) const;
    int ToPosition(int offset) const;

    /// Makes this, with line ends as CR LF, the whole text, in one step that the user can undo.
    void ChangeTo(TextView whole);

    /// Scrolls the line with the position to the top, even near the end of the text.
    void BringToTop(int position);

    /// The size of the letters against that of their formats.
    void SetLetterScale(double scale) { m_letters.Apply(*this, scale); }
    /// Instead of setDocument, which the base class has.
    void ShowDocument(QTextDocument* document);

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

private:
    LetterScale m_letters { *this };
};

/// Replaces the few characters that would divide or hide a text in a document by blanks. `text` has
/// no line ends.
QString ForDocument(TextView text);

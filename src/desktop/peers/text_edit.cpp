#include "desktop/peers/text_edit.h"

#include "desktop/peers/convert.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>

#include <algorithm>

TextEdit::TextEdit(QWidget* parent)
    : QTextEdit(parent)
{
    setAcceptRichText(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
}

QString ForDocument(TextView text)
{
    auto result = ToQString(text);
    constexpr TextView parting = u"\x2029\xFDD0\xFDD1";
    if (text.find_first_of(parting) != TextView::npos)
        for (QChar& character : result)
            if (Contains(parting, character.unicode()))
                character = u' ';
    return result;
}

Text TextEdit::WholeText() const
{
    auto raw = document()->toRawText();
    raw.replace(QChar(QChar::ParagraphSeparator), QStringLiteral("\r\n"));
    return ToText(raw);
}

int TextEdit::ToOffset(int position) const
{
    auto const block = document()->findBlock(position);
    return firstOffset + position + (block.isValid() ? block.blockNumber() : 0);
}

int TextEdit::ToPosition(int offset) const
{
    offset = std::max(0, offset - firstOffset);
    // The last block whose start, counted with two characters a line end, isn't after the offset.
    int first = 0;
    int last = document()->blockCount() - 1;
    while (first < last) {
        int const middle = (first + last + 1) / 2;
        if (document()->findBlockByNumber(middle).position() + middle <= offset)
            first = middle;
        else
            last = middle - 1;
    }
    auto const block = document()->findBlockByNumber(first);
    return std::min(offset - first, block.position() + block.length() - 1);
}

void TextEdit::ShowDocument(QTextDocument* document)
{
    setDocument(document);
    m_letters.ApplyToNew(*this);
}

void TextEdit::ChangeTo(TextView whole)
{
    auto const old = WholeText();
    // A line end is two characters of the model, and so are those beyond the first 65,536.
    auto const partsTwo = [](TextView text, std::size_t at) {
        return at > 0 && at < text.size() && (text[at] == u'\n' || QChar::isLowSurrogate(text[at]));
    };
    auto const common = std::min(old.size(), whole.size());
    auto head = static_cast<std::size_t>(
        std::mismatch(old.begin(), old.begin() + static_cast<std::ptrdiff_t>(common), whole.begin())
            .first
        - old.begin());
    if (partsTwo(old, head) || partsTwo(whole, head))
        --head;
    std::size_t tail = 0;
    while (tail < common - head && old[old.size() - 1 - tail] == whole[whole.size() - 1 - tail])
        ++tail;
    if (partsTwo(old, old.size() - tail) || partsTwo(whole, whole.size() - tail))
        --tail;
    Text inserted(whole.substr(head, whole.size() - tail - head));
    std::erase(inserted, u'\r');
    QTextCursor cursor(document());
    cursor.setPosition(ToPosition(static_cast<int>(head)));
    cursor.setPosition(ToPosition(static_cast<int>(old.size() - tail)), QTextCursor::KeepAnchor);
    cursor.insertText(ForDocument(inserted));
}

void TextEdit::BringToTop(int position)
{
    if (position == 0 && firstOffset == 0) {
        verticalScrollBar()->setValue(0);
        return;
    }
    auto const* const layout = document()->documentLayout();
    auto const block = document()->findBlock(position);
    layout->documentSize(); // which lays out everything, so that the bar has its range
    auto top = layout->blockBoundingRect(block).top();
    auto const line = block.layout()->lineForTextPosition(position - block.position());
    if (line.isValid() && line.lineNumber() > 0)
        top += line.y();
    int const wanted = qRound(top);
    if (wanted > verticalScrollBar()->maximum()) {
        auto* const frame = document()->rootFrame();
        auto format = frame->frameFormat();
        format.setBottomMargin(viewport()->height());
        frame->setFrameFormat(format);
        layout->documentSize();
    }
    verticalScrollBar()->setValue(wanted);
}

QMimeData* TextEdit::createMimeDataFromSelection() const
{
    auto* const copied = new QMimeData;
    auto text = textCursor().selectedText();
    copied->setText(text.replace(QChar(QChar::ParagraphSeparator), u'\n'));
    return copied;
}

bool TextEdit::canInsertFromMimeData(QMimeData const* source) const
{
    return source->hasText();
}

void TextEdit::insertFromMimeData(QMimeData const* source)
{
    if (source->hasText() && !isReadOnly())
        insertPlainText(source->text());
    ensureCursorVisible();
}

void TextEdit::contextMenuEvent(QContextMenuEvent* event)
{
    if (wholeWanted)
        wholeWanted(); // it has "Select All"
    QTextEdit::contextMenuEvent(event);
}

void TextEdit::keyPressEvent(QKeyEvent* event)
{
    if (wholeWanted
        && (event->matches(QKeySequence::SelectAll)
            || event->matches(QKeySequence::MoveToEndOfDocument)
            || event->matches(QKeySequence::SelectEndOfDocument)
            || event->matches(QKeySequence::MoveToStartOfDocument)
            || event->matches(QKeySequence::SelectStartOfDocument)))
        wholeWanted();
    // Qt would make a line end of its own kind, which is none to the model.
    if (event->matches(QKeySequence::InsertLineSeparator) && !isReadOnly()) {
        insertPlainText(QStringLiteral("\n"));
        return;
    }
    QTextEdit::keyPressEvent(event);
}

void TextEdit::resizeEvent(QResizeEvent* event)
{
    QTextEdit::resizeEvent(event);
    if (resized)
        resized();
}

void TextEdit::showEvent(QShowEvent* event)
{
    QTextEdit::showEvent(event);
    if (resized)
        resized();
}

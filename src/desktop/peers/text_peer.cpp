#include "desktop/peers/text_peer.h"

#include "desktop/peers/convert.h"
#include "desktop/peers/keys.h"
#include "desktop/peers/text_edit.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QTextDocument>

TextPeer::TextPeer(PeerContext& context, TextInput& control, QWidget& ground)
    : Peer(context, control, new TextEdit(&ground))
    , m_box(control)
    , m_shown(static_cast<TextEdit&>(*Widget()))
{
    ConnectDocument();
    connect(&m_shown, &QTextEdit::textChanged, this, [this] { Changed(); });
    connect(&m_shown, &QTextEdit::cursorPositionChanged, this, [this] { Changed(); });
    connect(&m_shown, &QTextEdit::selectionChanged, this, [this] { Changed(); });
}

void TextPeer::ConnectDocument()
{
    connect(m_shown.document(), &QTextDocument::contentsChange, this, [this] {
        if (!m_context.IsMirroring())
            m_documentChanged = true;
    });
}

void TextPeer::Changed()
{
    if (m_context.IsMirroring() || m_editing)
        return;
    auto const cursor = m_shown.textCursor();
    int const start = m_shown.ToOffset(cursor.selectionStart());
    int const length = m_shown.ToOffset(cursor.selectionEnd()) - start;
    UserActed();
    if (m_documentChanged) {
        m_editing = true;
        Act([&](Input& input) { input.Edit(m_box, m_shown.WholeText(), start, length); });
        m_editing = false;
        m_documentChanged = false;
    } else if (start != m_box.SelStart || length != m_box.SelLength) {
        Act([&](Input& input) { input.Select(m_box, start, length); });
    }
}

bool TextPeer::IsTyped() const
{
    return m_editing && m_shown.WholeText() == m_box.Text();
}

bool TextPeer::WantsKey(int keyCode) const
{
    return keyCode == keyEnter && !m_box.Locked;
}

void TextPeer::Mirror()
{
    if (m_shown.isReadOnly() != m_box.Locked) {
        m_shown.setReadOnly(m_box.Locked);
        if (m_box.Locked)
            m_shown.setTextInteractionFlags(
                Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    }
    auto const frame = HasBorder() ? QFrame::WinPanel | QFrame::Sunken : int { QFrame::NoFrame };
    if (m_shown.frameStyle() != frame)
        m_shown.setFrameStyle(frame);
    MirrorLook(m_box, m_shown, false);
    m_shown.SetLetterScale(m_box.LetterScale());
    auto palette = m_shown.palette();
    palette.setColor(QPalette::Text, ToQColor(m_box.ForeColor));
    palette.setColor(QPalette::Base, ToQColor(m_box.BackColor));
    if (palette != m_shown.palette())
        m_shown.setPalette(palette);
    Peer::Mirror();
    // A text that nobody sees waits until it is shown.
    if (!m_box.Visible)
        return;
    MirrorText();
    MirrorCaret();
}

void TextPeer::MirrorCaret()
{
    // The caret of a text that can't be written in shows only where the user reads by the keyboard.
    bool const isLocked = m_box.Locked;
    if (isLocked && m_box.ParentForm().Focus() != &m_box)
        return;
    int const start = m_shown.ToPosition(m_box.SelStart);
    int const end = m_shown.ToPosition(m_box.SelStart + m_box.SelLength);
    auto cursor = m_shown.textCursor();
    if (cursor.selectionStart() == start && cursor.selectionEnd() == end)
        return;
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    int const scrolled = m_shown.verticalScrollBar()->value();
    m_shown.setTextCursor(cursor);
    if (isLocked)
        m_shown.verticalScrollBar()->setValue(scrolled);
}

TextBoxPeer::TextBoxPeer(PeerContext& context, TextBox& control, QWidget& ground)
    : TextPeer(context, control, ground)
    , m_textBox(control)
{
    m_shown.setVerticalScrollBarPolicy(
        control.ScrollBar ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

void TextBoxPeer::MirrorText()
{
    if (IsTyped() || m_shown.WholeText() == m_textBox.Text())
        return;
    QString whole;
    for (TextView const line : Split(m_textBox.Text(), u'\n'))
        whole
            += ForDocument(line.ends_with(u'\r') ? line.substr(0, line.size() - 1) : line) + u'\n';
    whole.chop(1);
    m_shown.setPlainText(whole);
}

LinePeer::LinePeer(PeerContext& context, TextBox& control, QWidget& ground)
    : Peer(context, control, new QLineEdit(&ground))
    , m_box(control)
    , m_shown(static_cast<QLineEdit&>(*Widget()))
{
    connect(&m_shown, &QLineEdit::textChanged, this, [this] { Changed(); });
    connect(&m_shown, &QLineEdit::cursorPositionChanged, this, [this] { Changed(); });
    connect(&m_shown, &QLineEdit::selectionChanged, this, [this] { Changed(); });
}

void LinePeer::Changed()
{
    if (m_context.IsMirroring())
        return;
    bool const selects = m_shown.hasSelectedText();
    int const start = selects ? m_shown.selectionStart() : m_shown.cursorPosition();
    int const length = selects ? m_shown.selectionLength() : 0;
    if (m_shown.text() != m_known) {
        m_known = m_shown.text();
        Act([&](Input& input) { input.Edit(m_box, ToText(m_known), start, length); });
    } else if (start != m_box.SelStart || length != m_box.SelLength) {
        Act([&](Input& input) { input.Select(m_box, start, length); });
    }
}

void LinePeer::Mirror()
{
    auto const text = ToQString(m_box.Text());
    if (m_shown.text() != text)
        m_shown.setText(text);
    m_known = m_shown.text();
    m_shown.setReadOnly(m_box.Locked);
    m_shown.setFrame(m_box.Border);
    int const start = m_box.SelStart;
    int const length = m_box.SelLength;
    if (length > 0 && (m_shown.selectionStart() != start || m_shown.selectionLength() != length))
        m_shown.setSelection(start, length);
    else if (length == 0 && (m_shown.hasSelectedText() || m_shown.cursorPosition() != start))
        m_shown.setCursorPosition(start);
    MirrorLook(m_box, m_shown, false);
    auto palette = m_shown.palette();
    palette.setColor(QPalette::Base, ToQColor(m_box.BackColor));
    if (palette != m_shown.palette())
        m_shown.setPalette(palette);
    Peer::Mirror();
}

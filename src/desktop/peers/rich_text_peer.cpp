#include "desktop/peers/rich_text_peer.h"

#include "desktop/peers/convert.h"
#include "desktop/peers/rich_text_writer.h"
#include "desktop/peers/text_edit.h"

#include <QPointer>
#include <QScrollBar>
#include <QTextDocument>

#include <algorithm>
#include <utility>

RichTextPeer::RichTextPeer(PeerContext& context, RichTextBox& control, QWidget& ground)
    : TextPeer(context, control, ground)
    , m_rich(control)
    , m_revision(control.Revision())
    , m_generation(control.Generation())
{
    connect(m_shown.verticalScrollBar(), &QScrollBar::actionTriggered, this,
        [this] { m_keepsTop = false; });
    m_shown.resized = [this] {
        if (m_scrollWanted || m_keepsTop)
            Scroll();
    };
}

void RichTextPeer::Mirror()
{
    TextPeer::Mirror();
    if (m_scrollWanted && m_rich.Visible && m_shown.isVisible())
        Scroll();
}

void RichTextPeer::MirrorText()
{
    bool const isOther
        = m_revision != m_rich.Revision() || m_length > m_rich.Length() || IsEditing();
    bool const wasPlain = std::exchange(m_isPlain, IsPlain());
    if (!IsTyped() && (isOther || m_length < m_rich.Length()) && wasPlain && CanBeUndone()) {
        m_shown.ChangeTo(m_rich.Text());
    } else if (!IsTyped() && isOther) {
        Fill();
    } else if (!IsTyped() && m_length < m_rich.Length()) {
        QTextCursor cursor(m_shown.document());
        cursor.movePosition(QTextCursor::End);
        RichTextWriter(m_rich).Write(cursor, m_length);
        m_shown.document()->clearUndoRedoStacks();
    }
    m_revision = m_rich.Revision();
    m_generation = m_rich.Generation();
    m_length = m_rich.Length();
}

/// Of a text that can be written in: whether all of it has the look of the design.
bool RichTextPeer::IsPlain() const
{
    CharacterFormat const design { m_rich.FontBold, m_rich.FontSize, 0 };
    auto const& runs = m_rich.Runs();
    auto const& paragraphs = m_rich.Paragraphs();
    return !m_rich.Locked && std::all_of(runs.begin(), runs.end(), [&](auto const& run) {
        return run.format == design;
    }) && std::all_of(paragraphs.begin(), paragraphs.end(), [](auto const& each) {
        return each.format == ParagraphFormat {};
    });
}

/// True for a change by a command such as Cut in a plain text, but not by a handler of typing.
bool RichTextPeer::CanBeUndone() const
{
    return m_isPlain && !IsEditing() && m_generation == m_rich.Generation();
}

void RichTextPeer::Fill()
{
    if (!m_rich.Locked) {
        // In place: the change may come from within the widget's own handling of a key.
        QTextCursor cursor(m_shown.document());
        cursor.select(QTextCursor::Document);
        cursor.removeSelectedText();
        RichTextWriter(m_rich).Write(cursor, 0);
        m_shown.document()->clearUndoRedoStacks();
        return;
    }
    // A new document is filled several times as fast as one that is shown.
    auto* const document = new QTextDocument(&m_shown);
    document->setUndoRedoEnabled(false);
    document->setDefaultFont(m_shown.font());
    QTextCursor cursor(document);
    RichTextWriter(m_rich).Write(cursor, 0);
    QPointer<QTextDocument> const before = m_shown.document();
    m_shown.setDocument(document); // which deletes only a document of the widget's own making
    delete before;
    ConnectDocument();
    m_scrollWanted = true;
}

void RichTextPeer::Scroll()
{
    if (!m_shown.isVisible() || !m_rich.Visible)
        return;
    m_scrollWanted = false;
    m_keepsTop = true;
    m_shown.BringToTop(m_shown.ToPosition(m_rich.TopOffset));
}

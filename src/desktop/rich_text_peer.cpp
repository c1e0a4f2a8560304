#include "desktop/rich_text_peer.h"

#include "desktop/convert.h"
#include "desktop/rich_text_writer.h"
#include "desktop/text_edit.h"

#include <QPointer>
#include <QScrollBar>
#include <QTextDocument>

RichTextPeer::RichTextPeer(Desk& desk, RichTextBox& control, QWidget& ground)
    : TextPeer(desk, control, ground)
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
    if (!IsTyped() && (isOther || m_length < m_rich.Length()) && CanBeUndone()) {
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

/// Of a text in one look, the change that a command such as Cut made in it. A handler that changes
/// what is being typed has its way.
bool RichTextPeer::CanBeUndone() const
{
    return !m_rich.Locked && !IsEditing() && m_generation == m_rich.Generation()
        && m_rich.Runs().size() <= 1;
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
    // A document of its own takes a long text in several times as fast as one that is on show.
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

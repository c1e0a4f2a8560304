#include "desktop/peers/rich_text_peer.h"

#include "desktop/peers/convert.h"
#include "desktop/peers/text_edit.h"

#include <QAbstractTextDocumentLayout>
#include <QPointer>
#include <QScrollBar>
#include <QTextDocument>

#include <algorithm>
#include <chrono>
#include <utility>

/// In characters: more than the largest screen shows at once.
static constexpr int screenful = 24'000;
/// The rest of a text is written for so long at a time.
static constexpr std::chrono::milliseconds portion(6);
static constexpr std::chrono::milliseconds userPause(300);
using Clock = std::chrono::steady_clock;

RichTextPeer::RichTextPeer(PeerContext& context, RichTextBox& control, QWidget& ground)
    : TextPeer(context, control, ground)
    , m_rich(control)
    , m_revision(control.Revision())
    , m_generation(control.Generation())
{
    m_writer.emplace(m_rich, *m_shown.document());
    connect(m_shown.verticalScrollBar(), &QScrollBar::actionTriggered, this,
        [this] { m_keepsTop = false; });
    connect(&m_rest, &QTimer::timeout, this, [this] { WriteRest(); });
    m_shown.wholeWanted = [this] { Write([] { return true; }); };
    m_shown.resized = [this] {
        if (m_scrollWanted || m_keepsTop)
            Scroll();
    };
}

void RichTextPeer::Mirror()
{
    TextPeer::Mirror();
    if (std::exchange(m_letterScale, m_rich.LetterScale()) != m_rich.LetterScale() && m_keepsTop)
        m_scrollWanted = true;
    if (m_scrollWanted && m_rich.Visible && m_shown.isVisible())
        Scroll();
}

void RichTextPeer::MirrorText()
{
    bool const isOther
        = m_revision != m_rich.Revision() || m_writer->To() > m_rich.Length() || IsEditing();
    int const missing = m_rich.Length() - m_writer->To();
    bool const isLonger = missing > 0 && (missing <= screenful || !m_rest.isActive());
    bool const wasPlain = std::exchange(m_isPlain, IsPlain());
    if (IsTyped() || ((isOther || isLonger) && wasPlain && CanBeUndone())) {
        if (!IsTyped())
            m_shown.ChangeTo(m_rich.Text());
        m_writer->TakeAsWritten();
    } else if (isOther) {
        Fill(0);
    } else if (isLonger) {
        m_writer->WriteTo(m_rich.Locked ? m_writer->To() + screenful : m_rich.Length());
        m_shown.document()->clearUndoRedoStacks();
        if (!m_writer->IsComplete())
            m_rest.start(0);
    }
    m_revision = m_rich.Revision();
    m_generation = m_rich.Generation();
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

/// Writes the text anew; a long one first from the offset on.
void RichTextPeer::Fill(int offset)
{
    if (!m_rich.Locked) {
        // In place: the change may come from within the widget's own handling of a key.
        QTextCursor cursor(m_shown.document());
        cursor.select(QTextCursor::Document);
        cursor.removeSelectedText();
        m_writer.emplace(m_rich, *m_shown.document()).WriteTo(m_rich.Length());
        m_shown.document()->clearUndoRedoStacks();
        return;
    }
    // A new document is filled several times as fast as one that is shown.
    auto* const document = new QTextDocument(&m_shown);
    document->setUndoRedoEnabled(false);
    document->setDefaultFont(m_shown.font());
    m_writer.emplace(m_rich, *document, offset).WriteTo(offset + screenful);
    m_shown.firstOffset = m_writer->From();
    QPointer<QTextDocument> const before = m_shown.document();
    m_shown.ShowDocument(document); // which deletes only a document of the widget's own making
    delete before;
    ConnectDocument();
    m_scrollWanted = true;
    if (!m_writer->IsComplete())
        m_rest.start(0);
}

void RichTextPeer::WriteRest()
{
    auto const start = Clock::now();
    // What comes before the text on show can wait until the user pauses.
    bool const isSlow = m_writer->To() == m_rich.Length();
    if (isSlow && start - m_context.lastAct < userPause) {
        m_rest.start(userPause);
        return;
    }
    m_rest.setInterval(0);
    Write([&] { return Clock::now() - start < portion; });
}

/// Writes portions of what is still missing as long as told; the lines on show stay where they are.
void RichTextPeer::Write(std::function<bool()> const& goesOn)
{
    PeerContext::Mirroring const ours(m_context);
    auto const* const layout = m_shown.document()->documentLayout();
    auto* const bar = m_shown.verticalScrollBar();
    // The model may have changed, and not been mirrored, if a handler is at work.
    while (!m_writer->IsComplete() && m_revision == m_rich.Revision() && goesOn()) {
        int const from = m_writer->From(), value = bar->value();
        auto const height = layout->documentSize().height();
        m_writer->WritePortion();
        if (m_writer->From() == from)
            continue;
        m_shown.firstOffset = m_writer->From();
        bar->setValue(value + qRound(layout->documentSize().height() - height));
    }
    if (m_writer->IsComplete())
        MirrorCaret();
    if (m_writer->IsComplete() || m_revision != m_rich.Revision())
        m_rest.stop();
}

void RichTextPeer::Scroll()
{
    if (!m_shown.isVisible() || !m_rich.Visible)
        return;
    PeerContext::Mirroring const ours(m_context);
    int const top = m_rich.TopOffset;
    if (top < m_writer->From() || top > m_writer->To() + screenful)
        Fill(top);
    else if (!m_writer->IsComplete())
        m_writer->WriteTo(top + screenful);
    m_scrollWanted = false;
    m_keepsTop = true;
    m_shown.BringToTop(m_shown.ToPosition(top));
}

#include "desktop/peers/letter_scale.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>

int LetterScale::metric(PaintDeviceMetric metric) const
{
    switch (metric) {
    case PdmWidth:
        return m_widget.width();
    case PdmHeight:
        return m_widget.height();
    case PdmWidthMM:
        return m_widget.widthMM();
    case PdmHeightMM:
        return m_widget.heightMM();
    case PdmNumColors:
        return m_widget.colorCount();
    case PdmDepth:
        return m_widget.depth();
    case PdmDpiX:
    case PdmPhysicalDpiX:
        return qRound(m_widget.logicalDpiX() * m_scale);
    case PdmDpiY:
    case PdmPhysicalDpiY:
        return qRound(m_widget.logicalDpiY() * m_scale);
    default:
        return QPaintDevice::metric(metric);
    }
}

void LetterScale::ApplyToNew(QTextEdit& view)
{
    view.document()->documentLayout()->setPaintDevice(this);
}

void LetterScale::Apply(QTextEdit& view, double scale)
{
    if (scale == m_scale)
        return;
    m_scale = scale;
    auto* const document = view.document();
    auto* const layout = document->documentLayout();
    auto* const bar = view.verticalScrollBar();
    QPoint const inTopLine(0, 3); // not in the line above, of which a fraction of a pixel may show
    int const top = bar->value() == 0 ? 0 : view.cursorForPosition(inTopLine).position();
    ApplyToNew(view);
    document->markContentsDirty(0, document->characterCount());
    layout->documentSize(); // which lays out everything
    auto const block = document->findBlock(top);
    auto const line = block.layout()->lineForTextPosition(top - block.position());
    bar->setValue(top == 0 ? 0
                           : qRound(layout->blockBoundingRect(block).top()
                               + (line.isValid() && line.lineNumber() > 0 ? line.y() : 0)));
}

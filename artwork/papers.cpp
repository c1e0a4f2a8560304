#include "papers.h"

#include "brushes.h"
#include "palette.h"
#include "things.h"

#include <QLinearGradient>

#include <cmath>

/// Light blue paper with rays that come from a point, strongest at the top.
static void PaintLightPaper(QPainter& painter, QSizeF const& size, QPointF const& source)
{
    QLinearGradient paper(0, 0, size.width() * 0.4, size.height());
    paper.setColorAt(0, { 250, 252, 255 });
    paper.setColorAt(0.5, palette::panelLight);
    paper.setColorAt(1, palette::panelDark);
    painter.fillRect(QRectF({ 0, 0 }, size), paper);
    painter.setPen(Qt::NoPen);
    qreal const far = std::hypot(size.width(), size.height()) * 1.4;
    for (int ray = 0; ray < 28; ++ray) {
        qreal const angle = ray * 6.283185 / 28;
        QPainterPath beam(source);
        beam.lineTo(source + far * QPointF(std::cos(angle), std::sin(angle)));
        beam.lineTo(source + far * QPointF(std::cos(angle + 0.11), std::sin(angle + 0.11)));
        beam.closeSubpath();
        painter.fillPath(beam, Faint(palette::panelHeader, 0.1));
    }
    PaintGlow(painter, source, size.width() * 0.7, Qt::white, 0.85);
}

static void PaintLamp(QPainter& painter, QPointF const& place, qreal width, qreal opacity)
{
    painter.save();
    painter.setOpacity(opacity);
    painter.translate(place);
    painter.scale(width / 700, width / 700);
    DrawLamp(painter);
    painter.restore();
}

void PaintDialog(QPainter& painter)
{
    PaintLightPaper(painter, { 613, 737 }, { 540, 60 });
}

void PaintGettingStarted(QPainter& painter)
{
    PaintLightPaper(painter, { 700, 842 }, { 600, 60 });
}

void PaintAnswer(QPainter& painter)
{
    PaintLightPaper(painter, { 358, 640 }, { 310, 40 });
    QLinearGradient fade(0, 420, 0, 639);
    fade.setColorAt(0, Faint(Qt::white, 0));
    fade.setColorAt(1, Qt::white);
    painter.fillRect(QRectF(0, 420, 358, 220), fade);
}

void PaintLoading(QPainter& painter)
{
    QLinearGradient paper(0, 0, 0, 70);
    paper.setColorAt(0, Qt::white);
    paper.setColorAt(0.4, palette::panelLight);
    paper.setColorAt(1, palette::panelDark);
    painter.fillRect(QRectF(0, 0, 282, 70), paper);
    PaintGlow(painter, { 244, 22 }, 46, palette::flame, 0.5);
    PaintLamp(painter, { 234, 6 }, 44, 1);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette::strongBlue, 1));
    painter.drawRect(QRectF(0.5, 0.5, 281, 69));
}

void PaintAbout(QPainter& painter)
{
    painter.fillRect(QRectF(0, 0, 40, 30), palette::deepBlue);
    PaintGlow(painter, { 9.5, 9.5 }, 18, palette::flame, 0.5);
    painter.translate(3, 5.5);
    painter.scale(35.0 / 700, 35.0 / 700);
    DrawLamp(painter);
}

void PaintPage(QPainter& painter)
{
    painter.fillRect(QRectF(0, 0, 256, 256), QColor(251, 248, 240));
    Chance chance(5);
    painter.setPen(Qt::NoPen);
    for (int cloud = 0; cloud < 26; ++cloud) {
        QPointF const centre(chance.Between(0, 256), chance.Between(0, 256));
        qreal const radius = chance.Between(26, 70);
        QColor const colour
            = chance.Between(0, 1) < 0.5 ? QColor(255, 254, 250) : QColor(244, 238, 224);
        for (qreal const right :
            { -256.0, 0.0, 256.0 }) // what leaves on one side comes in on the other
            for (qreal const down : { -256.0, 0.0, 256.0 })
                PaintGlow(painter, centre + QPointF(right, down), radius, colour, 0.7);
    }
    for (int fibre = 0; fibre < 70; ++fibre) {
        QPointF const from(chance.Between(4, 240), chance.Between(4, 250));
        QPointF const to = from + QPointF(chance.Between(-9, 9), chance.Between(-5, 5));
        painter.setPen(QPen(Faint({ 206, 192, 160 }, chance.Between(0.1, 0.26)), 0.7));
        painter.drawLine(from, to);
    }
}

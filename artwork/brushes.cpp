#include "brushes.h"

#include "palette.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QRadialGradient>

#include <cmath>

qreal Chance::Between(qreal low, qreal high)
{
    m_state = m_state * 1664525U + 1013904223U;
    return low + (high - low) * static_cast<qreal>(m_state >> 8) / static_cast<qreal>(1U << 24);
}

void PaintDawnSky(QPainter& painter, QRectF const& area)
{
    QLinearGradient sky(area.topLeft(), area.bottomLeft());
    sky.setColorAt(0, palette::night);
    sky.setColorAt(0.35, palette::deepBlue);
    sky.setColorAt(0.68, palette::blue);
    sky.setColorAt(0.86, { 172, 168, 198 });
    sky.setColorAt(1, palette::dawn);
    painter.fillRect(area, sky);
}

void PaintStars(QPainter& painter, QRectF const& area, int count, unsigned seed)
{
    Chance chance(seed);
    painter.setPen(Qt::NoPen);
    for (int star = 0; star < count; ++star) {
        qreal const depth = std::pow(chance.Between(0, 1), 1.7);
        QPointF const place(
            area.left() + area.width() * chance.Between(0, 1), area.top() + area.height() * depth);
        qreal const radius = chance.Between(0.35, 1.1);
        painter.setBrush(Faint({ 236, 241, 255 }, (1 - depth) * chance.Between(0.35, 0.95)));
        painter.drawEllipse(place, radius, radius);
    }
}

void PaintHills(QPainter& painter, qreal left, qreal right, qreal crest, qreal height, qreal foot,
    QColor const& top, QColor const& bottom, unsigned seed)
{
    Chance chance(seed);
    struct Wave {
        qreal length, phase, share;
    };
    Wave waves[5];
    qreal length = (right - left) / 1.6;
    qreal share = 0.5;
    for (auto& wave : waves) {
        wave = { length * chance.Between(0.8, 1.2), chance.Between(0, 6.28), share };
        length *= 0.48;
        share *= 0.45;
    }
    QPainterPath range({ left, foot });
    constexpr qreal step = 1.5; // pixels
    int const last = int((right + 1 - left) / step);
    for (int i = 0; i <= last; ++i) {
        qreal const x = left + i * step;
        qreal rise = 0;
        for (auto const& wave : waves)
            rise += wave.share * std::sin(6.2832 * (x - left) / wave.length + wave.phase);
        range.lineTo(x, crest - height * rise);
    }
    range.lineTo(right + 1, foot);
    range.closeSubpath();
    QLinearGradient fill(0, crest - height, 0, foot);
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawPath(range);
}

void PaintGlow(
    QPainter& painter, QPointF const& centre, qreal radius, QColor const& colour, qreal strength)
{
    QRadialGradient light(centre, radius);
    for (int step = 0; step <= 8; ++step) {
        qreal const far = step / 8.0;
        light.setColorAt(far, Faint(colour, strength * (1 - far) * (1 - far)));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawEllipse(centre, radius, radius);
}

QPainterPath LetteringOutline(
    QString const& text, QPointF const& centre, qreal size, qreal spacing, bool italic, bool bold)
{
    QFont font(QStringLiteral("Liberation Serif"));
    font.setPixelSize(100); // outlines are exact at a large size
    font.setItalic(italic);
    font.setBold(bold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, spacing * 100 / size);
    font.setHintingPreference(QFont::PreferNoHinting);
    QPainterPath outline;
    outline.addText(0, 0, font, text);
    qreal const width = QFontMetricsF(font).horizontalAdvance(text);
    QTransform place;
    place.translate(centre.x(), centre.y());
    place.scale(size / 100, size / 100);
    place.translate(-width / 2, 0);
    return place.map(outline);
}

void PaintLettering(QPainter& painter, QString const& text, QPointF const& centre, qreal size,
    QColor const& colour, qreal spacing, bool italic)
{
    painter.fillPath(LetteringOutline(text, centre, size, spacing, italic, false), colour);
}

void FadeToBlack(QPainter& painter, QRectF const& area, QPointF const& from, QPointF const& to)
{
    QLinearGradient fade(from, to);
    for (int step = 0; step <= 8; ++step) {
        qreal const far = step / 8.0;
        fade.setColorAt(far, Faint(Qt::black, far * far * (3 - 2 * far)));
    }
    painter.fillRect(area, fade);
}

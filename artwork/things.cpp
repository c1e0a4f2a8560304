#include "things.h"

#include "brushes.h"
#include "palette.h"

#include <QLinearGradient>
#include <QRadialGradient>

static QPainterPath LampBody()
{
    QPainterPath body({ 74, 184 });
    body.cubicTo(92, 262, 160, 318, 262, 350);
    body.lineTo(438, 350);
    body.cubicTo(540, 326, 584, 262, 566, 214);
    body.cubicTo(540, 166, 470, 150, 392, 150);
    body.cubicTo(310, 150, 244, 190, 162, 186);
    body.closeSubpath();
    return body;
}

static QPainterPath Flame(QPointF const& foot, qreal height, qreal width, qreal sway)
{
    QPainterPath flame(foot);
    flame.cubicTo(foot + QPointF(-width, -height * 0.22),
        foot + QPointF(-width * 0.62 + sway * 0.4, -height * 0.55), foot + QPointF(sway, -height));
    flame.cubicTo(foot + QPointF(width * 0.3 + sway * 0.6, -height * 0.66),
        foot + QPointF(width, -height * 0.34), foot);
    return flame;
}

static void DrawFlame(QPainter& painter, QPointF const& foot, qreal height, qreal sway)
{
    QLinearGradient fire(foot, foot - QPointF(0, height));
    fire.setColorAt(0, { 236, 120, 36 });
    fire.setColorAt(0.35, palette::flame);
    fire.setColorAt(1, { 255, 176, 64 });
    painter.setPen(Qt::NoPen);
    painter.fillPath(Flame(foot, height, height * 0.34, sway), fire);
    painter.fillPath(
        Flame(foot - QPointF(0, height * 0.06), height * 0.62, height * 0.18, sway * 0.6),
        palette::flameHeart);
}

void DrawLamp(QPainter& painter, qreal flicker)
{
    QPen handle(palette::clayDark, 34, Qt::SolidLine, Qt::RoundCap);
    QPainterPath ring({ 548, 222 });
    ring.cubicTo(640, 130, 706, 232, 650, 288);
    ring.cubicTo(616, 318, 570, 306, 530, 292);
    painter.strokePath(ring, handle);
    handle.setWidthF(20);
    handle.setColor(palette::clay);
    painter.strokePath(ring, handle);

    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::clayDark);
    painter.drawEllipse(QPointF(350, 352), 112, 20);
    QLinearGradient clay(180, 140, 420, 380);
    clay.setColorAt(0, palette::clayLight);
    clay.setColorAt(0.45, palette::clay);
    clay.setColorAt(1, palette::clayDark);
    painter.fillPath(LampBody(), clay);

    painter.setPen(QPen(Faint(palette::clayDark, 0.65), 5));
    painter.setBrush(Qt::NoBrush);
    for (int band = 0; band < 3; ++band) {
        QPainterPath line({ 236.0 + band * 14, 226.0 + band * 34 });
        line.cubicTo(
            330, 246 + band * 34, 470, 246 + band * 34, 562.0 - band * 22, 218.0 + band * 38);
        painter.drawPath(line);
    }
    painter.setPen(QPen(palette::clayDark, 7));
    painter.setBrush(QColor(58, 28, 18));
    painter.drawEllipse(QPointF(400, 166), 66, 13);
    painter.drawEllipse(QPointF(118, 186), 46, 12);
    painter.setPen(QPen(QColor(250, 240, 220), 12, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(122, 186), QPointF(118, 168));
    DrawFlame(painter, { 118, 176 }, 150 + 6 * flicker, 8 + 14 * flicker);
}

void DrawPlainLamp(QPainter& painter)
{
    QPainterPath ring({ 540, 216 });
    ring.cubicTo(650, 130, 710, 240, 640, 290);
    ring.cubicTo(610, 312, 570, 306, 530, 292);
    painter.strokePath(ring, QPen(palette::clayDark, 40, Qt::SolidLine, Qt::RoundCap));
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::clayDark);
    painter.drawRoundedRect(QRectF(240, 336, 220, 40), 16, 16);
    QLinearGradient clay(0, 150, 0, 350);
    clay.setColorAt(0, palette::clayLight);
    clay.setColorAt(1, QColor(150, 80, 44));
    painter.setBrush(clay);
    painter.setPen(QPen(palette::clayDark, 12));
    painter.drawPath(LampBody());
    DrawFlame(painter, { 118, 178 }, 176, 6);
}

static QPainterPath Page(qreal side)
{
    QPainterPath page({ 400, 92 });
    page.cubicTo(400 + side * 90, 40, 400 + side * 230, 46, 400 + side * 318, 76);
    page.lineTo(400 + side * 386, 330);
    page.cubicTo(400 + side * 280, 300, 400 + side * 110, 300, 400, 352);
    page.closeSubpath();
    return page;
}

static void DrawLines(QPainter& painter, qreal side)
{
    Chance chance(side < 0 ? 7U : 11U);
    painter.setBrush(Qt::NoBrush);
    for (int line = 0; line < 15; ++line) {
        qreal const t = line / 15.0;
        qreal const y = 108 + t * 208;
        bool const last = line % 5 == 4;
        qreal const from = 26 + t * 6;
        qreal const full = 292 + t * 52;
        qreal const to = last ? from + (full - from) * chance.Between(0.35, 0.7) : full;
        qreal const bend = -36 + t * 14;
        auto const at = [&](qreal far) {
            qreal const share = far / full;
            return QPointF(400 + side * far,
                y + bend * 4 * share * (1 - share) * 0.9 - share * 24 + t * share * 12);
        };
        QPainterPath text(at(side < 0 ? full : from));
        int const steps = 16;
        for (int step = 1; step <= steps; ++step) {
            qreal const share = static_cast<qreal>(step) / steps;
            qreal const far = side < 0 ? full - (to - from) * share : from + (to - from) * share;
            text.lineTo(at(far));
        }
        painter.setPen(QPen(Faint({ 70, 62, 60 }, 0.55), 3.2 + t * 1.6, Qt::CustomDashLine));
        QPen pen = painter.pen();
        pen.setDashPattern(
            { chance.Between(5, 8), 1.4, chance.Between(3, 6), 1.4, chance.Between(7, 10), 1.4 });
        painter.setPen(pen);
        painter.drawPath(text);
    }
}

void DrawBook(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    QPainterPath cover({ 64, 72 });
    cover.cubicTo(180, 30, 320, 44, 400, 84);
    cover.cubicTo(480, 44, 620, 30, 736, 72);
    cover.lineTo(804, 352);
    cover.cubicTo(690, 316, 500, 318, 400, 374);
    cover.cubicTo(300, 318, 110, 316, -4, 352);
    cover.closeSubpath();
    painter.fillPath(cover, QColor(74, 34, 26));
    for (int leaf = 3; leaf >= 0; --leaf)
        for (qreal const side : { -1.0, 1.0 })
            painter.fillPath(Page(side).translated(side * leaf * 1.5, leaf * 4.5),
                leaf ? palette::paperShade.darker(100 + leaf * 5) : palette::paper);
    for (qreal const side : { -1.0, 1.0 }) {
        QLinearGradient shade(400, 0, 400 + side * 380, 0);
        shade.setColorAt(0, Faint({ 120, 92, 54 }, 0.62));
        shade.setColorAt(0.14, Faint({ 150, 120, 80 }, 0.18));
        shade.setColorAt(0.5, Faint({ 255, 255, 255 }, 0));
        shade.setColorAt(1, Faint({ 120, 92, 54 }, side > 0 ? 0.3 : 0.08));
        painter.fillPath(Page(side), shade);
        DrawLines(painter, side);
    }
    painter.setPen(Qt::NoPen);
    QPainterPath ribbon({ 396, 100 });
    ribbon.cubicTo(410, 190, 388, 280, 404, 360);
    ribbon.lineTo(398, 412);
    ribbon.lineTo(390, 398);
    ribbon.lineTo(380, 410);
    ribbon.lineTo(388, 356);
    ribbon.cubicTo(376, 280, 396, 190, 388, 100);
    ribbon.closeSubpath();
    painter.fillPath(ribbon, QColor(170, 34, 40));
}

static QPainterPath SparrowBody()
{
    QPainterPath body({ 62, 96 });
    body.cubicTo(70, 52, 118, 44, 146, 68); // crown
    body.cubicTo(196, 84, 232, 132, 244, 178); // back
    body.lineTo(292, 246); // tail
    body.lineTo(270, 256);
    body.lineTo(214, 214);
    body.cubicTo(188, 244, 134, 252, 100, 224); // belly
    body.cubicTo(62, 192, 58, 140, 62, 112);
    body.lineTo(34, 108); // beak
    body.lineTo(62, 94);
    return body;
}

void DrawSparrowSilhouette(QPainter& painter, QColor const& colour)
{
    painter.setPen(Qt::NoPen);
    painter.fillPath(SparrowBody(), colour);
    painter.setPen(QPen(colour, 7, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(136, 238), QPointF(128, 276));
    painter.drawLine(QPointF(160, 238), QPointF(158, 276));
}

void DrawSparrow(QPainter& painter)
{
    QColor const brown(134, 86, 52);
    painter.setPen(QPen(QColor(112, 72, 44), 7, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(136, 236), QPointF(128, 276));
    painter.drawLine(QPointF(160, 236), QPointF(158, 276));
    painter.setPen(Qt::NoPen);
    painter.save();
    painter.setClipPath(SparrowBody());
    QLinearGradient feathers(80, 60, 210, 240);
    feathers.setColorAt(0, { 206, 188, 168 });
    feathers.setColorAt(1, { 236, 226, 210 });
    painter.fillRect(0, 0, 300, 300, feathers);
    QPainterPath crown({ 40, 92 });
    crown.cubicTo(80, 72, 130, 96, 168, 110);
    crown.lineTo(180, 30);
    crown.lineTo(40, 30);
    crown.closeSubpath();
    painter.fillPath(crown, brown);
    QPainterPath bib({ 50, 112 });
    bib.cubicTo(84, 112, 104, 132, 92, 158);
    bib.cubicTo(76, 160, 60, 142, 50, 112);
    painter.fillPath(bib, QColor(44, 34, 32));
    painter.restore();
    QPainterPath wing({ 136, 112 });
    wing.cubicTo(196, 104, 240, 160, 262, 232);
    wing.cubicTo(220, 216, 150, 206, 134, 160);
    wing.closeSubpath();
    painter.fillPath(wing, brown.darker(118));
    painter.setPen(QPen(QColor(222, 196, 164), 5, Qt::SolidLine, Qt::RoundCap));
    for (int feather = 0; feather < 3; ++feather)
        painter.drawLine(QPointF(152 + feather * 8, 142 + feather * 20),
            QPointF(196 + feather * 16, 152 + feather * 24));
    painter.setPen(Qt::NoPen);
    painter.fillPath(
        [] {
            QPainterPath beak({ 66, 92 });
            beak.lineTo(30, 108);
            beak.lineTo(66, 114);
            return beak;
        }(),
        QColor(60, 52, 48));
    painter.setBrush(QColor(24, 18, 18));
    painter.drawEllipse(QPointF(88, 94), 7, 7);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(86, 92), 2.2, 2.2);
}

void DrawFarBird(QPainter& painter, QColor const& colour)
{
    QPainterPath bird({ 0, 8 });
    bird.cubicTo(20, -2, 40, 8, 50, 26);
    bird.cubicTo(62, 8, 82, 0, 100, 12);
    bird.cubicTo(80, 10, 64, 20, 51, 36);
    bird.cubicTo(38, 18, 20, 8, 0, 8);
    painter.fillPath(bird, colour);
}

void DrawWheat(QPainter& painter, QColor const& colour, qreal lean)
{
    QPainterPath stalk({ 30, 300 });
    stalk.quadTo(30, 150, 30 + lean, 20);
    painter.strokePath(stalk, QPen(colour, 3, Qt::SolidLine, Qt::RoundCap));
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    for (int grain = 0; grain < 8; ++grain) {
        qreal const t = 1 - grain * 0.036;
        QPointF const at = stalk.pointAtPercent(t);
        for (int const side : { -1, 1 }) {
            painter.save();
            painter.translate(at);
            painter.rotate(lean * 0.35 + side * 28);
            painter.drawEllipse(QPointF(0, -9), 4.2, 11);
            painter.setPen(QPen(colour, 0.9));
            painter.drawLine(QPointF(0, -18), QPointF(side * 2, -46));
            painter.setPen(Qt::NoPen);
            painter.restore();
        }
    }
}

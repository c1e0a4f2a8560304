#include "small_pictures.h"

#include "brushes.h"
#include "palette.h"
#include "things.h"

#include <QLinearGradient>
#include <QPolygonF>
#include <QTransform>

void PaintLampPicture(QPainter& painter)
{
    painter.scale(35.0 / 700, 21.0 / 420);
    DrawPlainLamp(painter);
}

static QPainterPath FolderBack()
{
    QPainterPath back({ 1.5, 12.5 });
    back.lineTo(1.5, 3.5);
    back.lineTo(2.5, 2.5);
    back.lineTo(6, 2.5);
    back.lineTo(7.5, 4.5);
    back.lineTo(13.5, 4.5);
    back.lineTo(13.5, 12.5);
    back.closeSubpath();
    return back;
}

void PaintFolder(QPainter& painter)
{
    QLinearGradient fill(0, 3, 0, 13);
    fill.setColorAt(0, { 255, 230, 156 });
    fill.setColorAt(1, palette::gold);
    painter.setPen(QPen(QColor(134, 94, 28), 1));
    painter.setBrush(fill);
    painter.drawPath(FolderBack());
    painter.setPen(QPen(QColor(255, 244, 206), 1));
    painter.drawLine(QPointF(2.5, 5.5), QPointF(12.5, 5.5));
}

void PaintOpenFolder(QPainter& painter)
{
    painter.setPen(QPen(QColor(134, 94, 28), 1));
    painter.setBrush(palette::gold);
    painter.drawPath(FolderBack());
    QLinearGradient fill(0, 6, 0, 13);
    fill.setColorAt(0, { 255, 238, 178 });
    fill.setColorAt(1, { 240, 196, 100 });
    painter.setBrush(fill);
    painter.drawPolygon(QPolygonF({ { 4, 6.5 }, { 15.5, 6.5 }, { 13, 12.5 }, { 1.5, 12.5 } }));
}

void PaintSmallBook(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::panelText);
    painter.drawPolygon(QPolygonF(
        { { 0.5, 4 }, { 8, 5 }, { 15.5, 4 }, { 15.5, 13.5 }, { 8, 14.2 }, { 0.5, 13.5 } }));
    for (qreal const side : { -1.0, 1.0 }) {
        QPainterPath page({ 8, 4.4 });
        page.cubicTo(8 + side * 2, 2.6, 8 + side * 5, 2.4, 8 + side * 6.6, 2.8);
        page.lineTo(8 + side * 6.6, 11.8);
        page.cubicTo(8 + side * 5, 11.4, 8 + side * 2, 11.6, 8, 13.2);
        page.closeSubpath();
        painter.setPen(QPen(palette::panelText, 0.8));
        painter.setBrush(palette::paper);
        painter.drawPath(page);
        painter.setPen(QPen(palette::blue, 0.8));
        for (int line = 0; line < 3; ++line)
            painter.drawLine(
                QPointF(8 + side * 2, 5.6 + line * 2), QPointF(8 + side * 5.2, 5 + line * 2));
    }
}

void PaintLessonDot(QPainter& painter)
{
    QRadialGradient ball(6.6, 6.6, 5);
    ball.setColorAt(0, { 150, 186, 240 });
    ball.setColorAt(1, { 26, 66, 168 });
    painter.setPen(Qt::NoPen);
    painter.setBrush(ball);
    painter.drawEllipse(QPointF(8, 8), 3.6, 3.6);
}

void PaintStudyTriangle(QPainter& painter)
{
    QLinearGradient fill(0, 3, 0, 13);
    fill.setColorAt(0, { 246, 186, 90 });
    fill.setColorAt(1, { 196, 104, 26 });
    painter.setPen(QPen(QColor(130, 64, 14), 1, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter.setBrush(fill);
    painter.drawPolygon(QPolygonF({ { 5, 3 }, { 12, 8 }, { 5, 13 } }));
}

void PaintHand(QPainter& painter)
{
    QPainterPath hand({ 4, 2.4 });
    hand.cubicTo(4, 0, 8, 0, 8, 2.4); // the pointing finger
    hand.lineTo(8, 10);
    hand.cubicTo(8.6, 8, 11.8, 8.4, 11.8, 10.6);
    hand.cubicTo(12.6, 9, 15.4, 9.4, 15.4, 11.6);
    hand.cubicTo(16.4, 10.2, 18.8, 10.8, 18.8, 13);
    hand.lineTo(18.8, 17.4);
    hand.cubicTo(18.8, 20, 17.4, 21, 17, 23.4);
    hand.lineTo(7.4, 23.4);
    hand.cubicTo(6.6, 20, 2, 17, 0.8, 13.6);
    hand.cubicTo(0.2, 11.6, 2.4, 11, 4, 13.6);
    hand.closeSubpath();
    painter.setPen(QPen(Qt::black, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::white);
    painter.drawPath(hand);
    painter.setPen(QPen(Qt::black, 1));
    for (qreal const x : { 8.0, 11.8, 15.4 })
        painter.drawLine(QPointF(x, 10.5), QPointF(x, 14.5));
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::strongBlue);
    painter.drawRoundedRect(QRectF(7.2, 23.6, 10, 3.6), 1, 1);
}

void PaintPanArrows(QPainter& painter)
{
    QPolygonF arrows; // an arrow up from the middle, and the same turned three times by a quarter
    for (int quarter = 0; quarter < 4; ++quarter)
        for (QPointF const corner : { QPointF(-1.5, -1.5), QPointF(-1.5, -8.5), QPointF(-5, -8.5),
                 QPointF(0, -14), QPointF(5, -8.5), QPointF(1.5, -8.5) })
            arrows << QTransform().rotate(90 * quarter).map(corner);
    painter.translate(16, 16);
    painter.setPen(QPen(Qt::black, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::white);
    painter.drawPolygon(arrows);
}

void PaintGrip(QPainter& painter)
{
    painter.fillRect(QRectF(0, 0, 14, 15), QColor(224, 224, 224));
    for (int line = 0; line < 3; ++line) {
        qreal const at = 3.5 + line * 4;
        painter.setPen(QPen(Qt::white, 1));
        painter.drawLine(QPointF(at - 1, 14), QPointF(13, at));
        painter.setPen(QPen(QColor(120, 132, 156), 1));
        painter.drawLine(QPointF(at, 14), QPointF(13, at + 1));
    }
}

static void PaintTile(QPainter& painter)
{
    QLinearGradient ground(0, 2, 0, 62);
    ground.setColorAt(0, { 62, 106, 196 });
    ground.setColorAt(1, { 12, 24, 84 });
    painter.setPen(QPen(palette::night, 2));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 12, 12);
}

void PaintIcon(QPainter& painter)
{
    PaintTile(painter);
    PaintGlow(painter, { 32, 20 }, 17, palette::flame, 0.75);
    painter.save(); // the book below, a flame above it
    painter.translate(5, 27);
    painter.scale(54.0 / 800, 32.0 / 400);
    painter.setPen(Qt::NoPen);
    for (qreal const side : { -1.0, 1.0 }) {
        QPainterPath page({ 400, 92 });
        page.cubicTo(400 + side * 90, 10, 400 + side * 250, 16, 400 + side * 350, 60);
        page.lineTo(400 + side * 386, 320);
        page.cubicTo(400 + side * 280, 280, 400 + side * 110, 290, 400, 366);
        page.closeSubpath();
        painter.setPen(QPen(palette::night, 18));
        painter.setBrush(side < 0 ? palette::paper : palette::paperShade);
        painter.drawPath(page);
    }
    painter.restore();
    QPainterPath fire({ 32, 31 });
    fire.cubicTo(22, 28, 25, 16, 33, 6);
    fire.cubicTo(36, 15, 43, 22, 38, 29);
    fire.cubicTo(36.5, 31, 34, 31.6, 32, 31);
    QLinearGradient heat(0, 6, 0, 32);
    heat.setColorAt(0, { 255, 190, 74 });
    heat.setColorAt(1, palette::flameHeart);
    painter.setPen(Qt::NoPen);
    painter.fillPath(fire, heat);
}

void PaintMapIcon(QPainter& painter)
{
    PaintTile(painter);
    painter.setPen(QPen(palette::night, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (int fold = 0; fold < 3; ++fold) { // a map in three folds
        qreal const left = 9 + fold * 15.4;
        qreal const rise = fold % 2 ? 5 : 0;
        painter.setBrush(fold % 2 ? palette::paperShade : palette::paper);
        painter.drawPolygon(QPolygonF({ { left, 16 + rise }, { left + 15.4, 21 - rise },
            { left + 15.4, 51 - rise }, { left, 46 + rise } }));
    }
    QPainterPath coast({ 14, 18 });
    coast.cubicTo(20, 26, 16, 34, 22, 48);
    painter.strokePath(coast, QPen(palette::blue, 3));
    QPainterPath route({ 28, 42 });
    route.cubicTo(34, 30, 40, 40, 46, 30);
    painter.strokePath(route, QPen(QColor(176, 40, 40), 2.4, Qt::DotLine, Qt::RoundCap));
    painter.setPen(QPen(QColor(176, 40, 40), 2.6));
    painter.drawLine(QPointF(43, 24), QPointF(50, 31));
    painter.drawLine(QPointF(50, 24), QPointF(43, 31));
}

#include "scenes.h"

#include "brushes.h"
#include "palette.h"
#include "things.h"

#include <QLinearGradient>

/// Draws a thing of the given box into a rectangle.
template <typename Draw>
static void Place(QPainter& painter, QRectF const& where, QSizeF const& box, Draw const& draw)
{
    painter.save();
    painter.translate(where.topLeft());
    painter.scale(where.width() / box.width(), where.height() / box.height());
    draw();
    painter.restore();
}

static void PaintBird(QPainter& painter, qreal x, qreal y, qreal width, QColor const& colour)
{
    Place(
        painter, { x, y, width, width * 0.4 }, { 100, 40 }, [&] { DrawFarBird(painter, colour); });
}

/// The lake between its hills, from the horizon down to the sill.
static void PaintCountry(QPainter& painter)
{
    PaintDawnSky(painter, { 0, 0, 800, 330 });
    PaintStars(painter, { 0, 0, 800, 250 }, 240, 3);
    PaintGlow(painter, { 560, 330 }, 330, palette::dawn, 0.85);
    PaintGlow(painter, { 560, 322 }, 90, palette::flameHeart, 0.8);
    PaintHills(painter, 0, 800, 306, 26, 345, { 142, 142, 184 }, { 196, 172, 178 }, 21);
    PaintHills(painter, 0, 800, 322, 20, 350, { 92, 104, 160 }, { 150, 140, 166 }, 5);

    QLinearGradient water(0, 340, 0, 440);
    water.setColorAt(0, { 240, 200, 158 });
    water.setColorAt(0.3, { 150, 150, 188 });
    water.setColorAt(1, { 44, 70, 138 });
    painter.fillRect(QRectF(0, 340, 800, 110), water);
    Chance chance(9);
    for (int ripple = 0; ripple < 90; ++ripple) {
        qreal const depth = chance.Between(0, 1);
        qreal const y = 344 + depth * 84;
        qreal const half = (6 + depth * 46) * chance.Between(0.4, 1);
        qreal const x = 560 + chance.Between(-1, 1) * (30 + depth * 150);
        painter.setPen(QPen(
            Faint({ 255, 226, 178 }, chance.Between(0.1, 0.5) * (1 - depth * 0.5)), 1 + depth));
        painter.drawLine(QPointF(x - half, y), QPointF(x + half, y));
    }
    PaintHills(painter, -160, 1100, 396, 26, 450, { 52, 66, 118 }, { 30, 40, 84 }, 14);
    PaintHills(painter, 0, 800, 420, 12, 470, { 30, 42, 86 }, { 18, 26, 60 }, 33);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int stalk = 0; stalk < 54; ++stalk) {
        qreal const x = chance.Between(-10, 790);
        qreal const tall = chance.Between(46, 92);
        QColor const colour = chance.Between(0, 1) < 0.5 ? QColor(22, 28, 60) : QColor(34, 40, 76);
        Place(painter, { x, 468 - tall, tall * 0.22, tall }, { 60, 300 },
            [&] { DrawWheat(painter, colour, chance.Between(-26, 34)); });
    }
    PaintBird(painter, 78, 172, 34, { 206, 216, 242 });
    PaintBird(painter, 124, 148, 25, { 190, 204, 236 });
    PaintBird(painter, 142, 184, 20, { 176, 192, 230 });
}

void PaintSill(QPainter& painter, qreal flicker)
{
    PaintCountry(painter);
    QLinearGradient wood(0, 448, 0, 528);
    wood.setColorAt(0, { 96, 62, 44 });
    wood.setColorAt(0.12, { 70, 44, 34 });
    wood.setColorAt(1, { 20, 12, 14 });
    painter.fillRect(QRectF(0, 448, 800, 80), wood);
    Chance chance(17);
    for (int grain = 0; grain < 46; ++grain) {
        qreal const y = chance.Between(452, 526);
        qreal const x = chance.Between(-100, 700);
        painter.setPen(
            QPen(Faint({ 20, 10, 8 }, chance.Between(0.1, 0.4)), chance.Between(0.6, 1.6)));
        QPainterPath line({ x, y });
        line.cubicTo(x + 80, y - 2, x + 160, y + 3, x + chance.Between(180, 340), y);
        painter.strokePath(line, painter.pen());
    }
    painter.fillRect(QRectF(0, 447, 800, 1.6), QColor(150, 104, 70));

    // The things on the sill, and the shadows under them.
    auto const shadow = [&](QPointF const& at, qreal width, qreal height) {
        painter.save();
        painter.translate(at);
        painter.scale(1, height / width);
        PaintGlow(painter, { 0, 0 }, width, Qt::black, 0.75);
        painter.restore();
    };
    shadow({ 420, 500 }, 210, 26);
    shadow({ 172, 478 }, 104, 15);
    Place(painter, { 260, 372, 320, 150 }, { 800, 400 }, [&] { DrawBook(painter); });
    PaintGlow(painter, { 98, 392 }, 300 + 14 * flicker, palette::flame, 0.34 + 0.03 * flicker);
    PaintGlow(painter, { 98, 392 }, 84 + 5 * flicker, palette::flame, 0.6);
    Place(painter, { 62, 358, 220, 132 }, { 700, 420 }, [&] { DrawLamp(painter, flicker); });
}

void PaintName(QPainter& painter, QPointF const& centre, qreal size)
{
    auto const lines = [&](QPointF const& shift, QBrush const& large, QBrush const& small) {
        painter.fillPath(LetteringOutline(QStringLiteral("Sparrowfield"), centre + shift, size,
                             size * 0.015, false, true),
            large);
        painter.fillPath(
            LetteringOutline(QStringLiteral("INTERACTIVE BIBLE STUDY"),
                centre + shift + QPointF(0, size * 0.52), size * 0.27, size * 0.083, false, false),
            small);
    };
    lines({ size * 0.03, size * 0.035 }, Faint(Qt::black, 0.5), Faint(Qt::black, 0.5));
    QLinearGradient letters(0, centre.y() - size * 0.72, 0, centre.y() + size * 0.15);
    letters.setColorAt(0, { 255, 255, 255 });
    letters.setColorAt(0.55, { 226, 236, 255 });
    letters.setColorAt(1, { 250, 214, 150 });
    lines({ 0, 0 }, letters, QColor(236, 208, 156));
}

/// A choice of the start-up screen; the program lays its click areas and covers over these places.
struct PaintedChoice {
    char const* words;
    qreal left, right;
};

// Each between the edges of its click area and of its cover, in pixels: twips / 15.
static constexpr PaintedChoice choices[] = {
    { "Install to Disk", 16, 169 },
    { "Welcome Video", 224, 385 },
    { "Run from CD", 432, 577 },
    { "Enter", 624, 694 },
    { "Exit", 728, 788 },
};

void PaintSplash(QPainter& painter)
{
    PaintSill(painter, 0);
    Place(painter, { 366, 36, 68, 68 }, { 300, 300 }, [&] {
        DrawSparrowSilhouette(painter, { 226, 236, 255 });
    });
    PaintName(painter, { 400, 158 }, 74);
    PaintLettering(painter,
        QStringLiteral("\u201cThy word is a lamp unto my feet, and a light unto my path.\u201d"),
        { 400, 236 }, 18, { 238, 228, 206 }, 0, true);

    painter.fillRect(QRectF(0, 528, 800, 72), Qt::black);
    painter.fillRect(QRectF(0, 528, 800, 1), palette::gold);
    for (auto const& choice : choices)
        PaintLettering(painter, QString::fromLatin1(choice.words),
            { (choice.left + choice.right) / 2, 562 }, 19, { 244, 226, 186 }, 0.6);
}

/// A night sky that ends in black on the right and below, so that it lies on a black form of any
/// size.
static void PaintNight(QPainter& painter, QSizeF const& size, unsigned seed)
{
    QRectF const area({ 0, 0 }, size);
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, { 12, 22, 66 });
    sky.setColorAt(0.25, { 24, 42, 108 });
    sky.setColorAt(1, palette::night);
    painter.fillRect(area, sky);
    PaintStars(painter, area, 170, seed);
}

static void EndInBlack(QPainter& painter, QSizeF const& size)
{
    QRectF const area({ 0, 0 }, size);
    FadeToBlack(painter, area, { size.width() * 0.42, 0 }, { size.width() - 1, 0 });
    FadeToBlack(painter, area, { 0, size.height() * 0.5 }, { 0, size.height() - 1 });
}

void PaintCatalogueGround(QPainter& painter)
{
    // Above the panel a strip of 132 pixels stays free, beside it one of 56.
    QSizeF const size(700, 600);
    painter.fillRect(QRectF({ 0, 0 }, size), Qt::black);
    PaintDawnSky(painter, { 0, 0, 700, 132 });
    PaintStars(painter, { 0, 0, 700, 84 }, 120, 41);
    PaintGlow(painter, { 210, 128 }, 190, palette::dawn, 0.7);
    PaintHills(painter, 0, 700, 110, 12, 150, { 128, 134, 182 }, { 172, 156, 176 }, 12);
    PaintHills(painter, 0, 700, 124, 9, 600, { 58, 74, 134 }, Qt::black, 6);
    Chance chance(23);
    for (int stalk = 0; stalk < 120; ++stalk) {
        qreal const x = chance.Between(-8, 690);
        qreal const tall = chance.Between(26, 52);
        Place(painter, { x, 138 - tall * 0.7, tall * 0.2, tall }, { 60, 300 }, [&] {
            DrawWheat(painter, { 26, 34, 78 }, chance.Between(-24, 34));
        });
    }
    PaintBird(painter, 96, 52, 24, { 216, 224, 246 });
    PaintBird(painter, 134, 38, 17, { 196, 208, 240 });
    PaintBird(painter, 160, 58, 14, { 180, 194, 232 });
    EndInBlack(painter, size);
}

void PaintLessonGround(QPainter& painter)
{
    PaintNight(painter, { 700, 600 }, 71);
    PaintGlow(painter, { 120, -40 }, 320, palette::blue, 0.55);
    EndInBlack(painter, { 700, 600 });
}

void PaintReaderGround(QPainter& painter)
{
    PaintNight(painter, { 628, 558 }, 83);
    PaintGlow(painter, { 300, -60 }, 320, palette::blue, 0.55);
    EndInBlack(painter, { 628, 558 });
}

void PaintLogo(QPainter& painter)
{
    PaintGlow(painter, { 44, 46 }, 44, palette::blue, 0.7);
    Place(painter, { 6, 8, 78, 78 }, { 300, 300 }, [&] { DrawSparrow(painter); });
    PaintName(painter, { 200, 50 }, 37);
}

#include "map_styles.h"

#include "brushes.h"
#include "map_ground.h"
#include "palette.h"

#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>

static constexpr QColor ink { 38, 30, 24 }, brown { 110, 70, 34 }, water { 34, 78, 150 },
    wine { 132, 26, 52 };

// Routes are wide, with light beside them and arrows; what people built and agreed upon is drawn
// with corners.
static LineStyle const lineStyles[] = {
    { "river", { 84, 130, 198 }, 2.6, {}, true, false, false },
    { "stream", { 96, 142, 204 }, 1.5, {}, true, false, false },
    { "border", wine, 2.4, {}, true, false, false },
    { "road", { 138, 88, 48 }, 2.4, { 4, 1.6 }, true, false, true },
    { "red", { 190, 30, 36 }, 4.4, {}, true, true, true },
    { "blue", { 24, 72, 190 }, 4.4, {}, true, true, true },
    { "green", { 22, 120, 60 }, 4.4, {}, true, true, true },
    { "purple", { 124, 40, 150 }, 4.4, {}, true, true, true },
    { "orange", { 214, 110, 16 }, 4.4, {}, true, true, true },
    { "red-dashed", { 190, 30, 36 }, 3.6, { 2.6, 1.7 }, true, true, true },
    { "wall", { 70, 52, 40 }, 6, {}, false, false, true },
    { "wall-older", { 150, 96, 44 }, 6, {}, false, false, true },
    { "wall-assumed", { 70, 52, 40 }, 5, { 2, 1.3 }, false, false, true },
    { "wall-later", { 124, 116, 108 }, 5, { 2, 1.3 }, false, false, true },
    { "tunnel", { 34, 96, 190 }, 3.4, { 2.4, 1.5 }, true, false, true },
    { "brook", { 84, 130, 198 }, 2.6, { 6, 2.2 }, true, false, false },
    { "stairs", { 110, 82, 56 }, 9, { 0.22, 0.3 }, false, false, false },
};

static AreaStyle const areaStyles[] = {
    { "rose", { 214, 92, 110 }, {}, true, false },
    { "sky", { 84, 140, 214 }, {}, true, false },
    { "leaf", { 104, 168, 84 }, {}, true, false },
    { "sand", { 222, 180, 70 }, {}, true, false },
    { "lilac", { 150, 110, 190 }, {}, true, false },
    { "mint", { 70, 176, 160 }, {}, true, false },
    { "peach", { 236, 140, 70 }, {}, true, false },
    { "grey", { 130, 130, 140 }, {}, true, false },
    { "city-older", { 214, 160, 90, 105 }, {}, false, true },
    { "city", { 236, 214, 160, 150 }, {}, false, true },
    { "city-later", { 236, 222, 190, 110 }, {}, false, true },
    { "court", { 250, 240, 214 }, { 110, 82, 56 }, false, false },
    { "building", { 190, 124, 82 }, { 92, 54, 34 }, false, false },
    { "temple", { 240, 198, 92 }, { 132, 88, 20 }, false, false },
    { "pool", { 150, 194, 238 }, { 34, 78, 150 }, false, false },
    { "garden", { 150, 186, 112, 190 }, {}, true, false },
};

static Lettering Letters(qreal size, QColor colour, bool bold = false, bool italic = false,
    bool capitals = false, qreal spacing = 0)
{
    Lettering lettering;
    lettering.size = size;
    lettering.colour = colour;
    lettering.bold = bold;
    lettering.italic = italic;
    lettering.capitals = capitals;
    lettering.spacing = spacing;
    return lettering;
}

static WordStyle const wordStyles[] = {
    { "ocean", Letters(34, water, false, true, false, 9) },
    { "sea", Letters(24, water, false, true, false, 4) },
    { "water", Letters(16, water, false, true, false, 1) },
    { "realm", Letters(32, wine, true, false, true, 9) },
    { "region", Letters(23, wine, true, false, true, 4) },
    { "people", Letters(18, wine, true, false, true, 2) },
    { "tribe", Letters(30, wine, true, false, true, 5) },
    { "land", Letters(22, brown, false, true, false, 4) },
    { "range", Letters(17, brown, false, true, false, 2) },
    { "note", Letters(16, brown, false, true) },
    { "valley", Letters(21, brown, false, true, false, 3) },
    { "quarter", Letters(21, wine, true, false, true, 3) },
    { "road", Letters(16, brown, false, true) },
    { "building", Letters(17, ink, true) },
};

static void Disc(
    QPainter& painter, QPointF const& centre, qreal radius, QColor const& fill, qreal edge)
{
    painter.setPen(QPen(ink, edge));
    painter.setBrush(fill);
    painter.drawEllipse(centre, radius, radius);
}

static PlaceStyle const placeStyles[] = {
    { "city", 6.5,
        [](QPainter& painter, QPointF const& at, qreal radius) {
            Disc(painter, at, radius, palette::paper, 1.6);
            Disc(painter, at, radius / 2, { 176, 30, 36 }, 1);
        },
        Letters(20, ink, true) },
    { "town", 4.2,
        [](QPainter& painter, QPointF const& at, qreal radius) {
            Disc(painter, at, radius, { 176, 30, 36 }, 1.2);
        },
        Letters(17, ink) },
    { "village", 3.2,
        [](QPainter& painter, QPointF const& at, qreal radius) {
            Disc(painter, at, radius, { 176, 30, 36 }, 1);
        },
        Letters(16, ink) },
    { "site", 4.2,
        [](QPainter& painter, QPointF const& at, qreal radius) {
            Disc(painter, at, radius, palette::paper, 1.6);
        },
        Letters(16, ink, false, true) },
    { "refuge", 6,
        [](QPainter& painter, QPointF const& at, qreal radius) {
            painter.setPen(QPen(ink, 1.3));
            painter.setBrush(QColor(24, 72, 190));
            painter.drawRect(
                QRectF(at - QPointF(radius, radius) * 0.8, QSizeF(radius, radius) * 1.6));
        },
        Letters(17, ink, true) },
    { "mount", 6,
        [](QPainter& painter, QPointF const& at, qreal radius) {
            painter.setPen(QPen(QColor(70, 44, 20), 1.2));
            painter.setBrush(QColor(146, 100, 54));
            painter.drawPolygon(QPolygonF({ at + QPointF(-radius, radius * 0.8),
                at + QPointF(0, -radius), at + QPointF(radius, radius * 0.8) }));
        },
        Letters(16, brown, false, true) },
    { "gate", 6,
        [](QPainter& painter, QPointF const& at, qreal radius) {
            painter.setPen(QPen(ink, 1.3));
            painter.setBrush(palette::paper);
            QPainterPath arch(at + QPointF(-radius, radius));
            arch.lineTo(at + QPointF(-radius, 0));
            arch.arcTo(QRectF(at - QPointF(radius, radius), QSizeF(radius, radius) * 2), 180, -180);
            arch.lineTo(at + QPointF(radius, radius));
            arch.closeSubpath();
            painter.drawPath(arch);
        },
        Letters(16, ink) },
    { "tower", 6,
        [](QPainter& painter, QPointF const& at, qreal radius) {
            painter.setPen(QPen(ink, 1.3));
            painter.setBrush(QColor(150, 96, 44));
            painter.drawRect(QRectF(at - QPointF(radius, radius), QSizeF(radius, radius) * 2));
        },
        Letters(16, ink) },
    { "spring", 4.6,
        [](QPainter& painter, QPointF const& at, qreal radius) {
            Disc(painter, at, radius, { 84, 150, 226 }, 1.3);
        },
        Letters(16, water, false, true) },
};

template <class Style, std::size_t count>
static Style const* Find(Style const (&styles)[count], QString const& name)
{
    auto const found = std::find_if(std::begin(styles), std::end(styles),
        [&](Style const& style) { return name == QLatin1String(style.name); });
    return found == std::end(styles) ? nullptr : found;
}

LineStyle const* FindLineStyle(QString const& name)
{
    return Find(lineStyles, name);
}

AreaStyle const* FindAreaStyle(QString const& name)
{
    return Find(areaStyles, name);
}

WordStyle const* FindWordStyle(QString const& name)
{
    return Find(wordStyles, name);
}

PlaceStyle const* FindPlaceStyle(QString const& name)
{
    return Find(placeStyles, name);
}

static QPainterPath PathOf(std::vector<QPointF> const& points, bool isSmooth, bool isClosed)
{
    if (isSmooth)
        return Smooth(points, isClosed);
    QPainterPath path;
    for (auto const& point : points)
        path.elementCount() == 0 ? path.moveTo(point) : path.lineTo(point);
    if (isClosed)
        path.closeSubpath();
    return path;
}

/// Arrow heads along the way, the last at its end.
static void PaintArrows(QPainter& painter, QPainterPath const& path, LineStyle const& style)
{
    constexpr qreal apart = 210; // pixels
    qreal const length = path.length(), size = style.width * 2.6;
    auto const count = std::max(1, static_cast<int>(std::lround(length / apart)));
    painter.setPen(QPen(palette::paper, 1));
    painter.setBrush(style.colour);
    for (int arrow = 1; arrow <= count; ++arrow) {
        qreal const at = path.percentAtLength(arrow == count ? length : length * arrow / count);
        painter.save();
        painter.translate(path.pointAtPercent(at));
        painter.rotate(-path.angleAtPercent(std::max(0.0, at - 0.002)));
        painter.drawPolygon(QPolygonF({ QPointF(size * 0.4, 0), QPointF(-size, -size * 0.62),
            QPointF(-size * 0.68, 0), QPointF(-size, size * 0.62) }));
        painter.restore();
    }
}

void PaintLine(QPainter& painter, LineStyle const& style, std::vector<QPointF> const& points)
{
    auto const path = PathOf(points, style.isSmooth, false);
    auto const cap = style.dashes.size() == 0 && style.isSmooth ? Qt::RoundCap : Qt::FlatCap;
    if (style.hasCasing)
        painter.strokePath(path,
            QPen(Faint(palette::paper, 0.6), style.width + 3, Qt::SolidLine, cap, Qt::RoundJoin));
    QPen pen(style.colour, style.width, Qt::SolidLine, cap,
        style.isSmooth ? Qt::RoundJoin : Qt::MiterJoin);
    if (style.dashes.size() > 0)
        pen.setDashPattern(QList<qreal>(style.dashes));
    painter.strokePath(path, pen);
    if (style.hasArrows)
        PaintArrows(painter, path, style);
}

/// Roofs in uneven rows.
static void PaintHouses(QPainter& painter, QPainterPath const& quarter)
{
    constexpr int apart = 17; // pixels
    Chance chance(70);
    auto const area = quarter.boundingRect();
    painter.save();
    for (int down = 0; down < area.height(); down += apart)
        for (int across = 0; across < area.width(); across += apart) {
            qreal const x = area.left() + across, y = area.top() + down;
            QSizeF const size(chance.Between(7, 13), chance.Between(7, 12));
            QRectF const house(QPointF(x + chance.Between(0, 6), y + chance.Between(0, 6)), size);
            if (chance.Between(0, 1) < 0.2 || !quarter.contains(house))
                continue;
            painter.fillRect(house.translated(2, 2), QColor(90, 60, 30, 40));
            painter.fillRect(house, QColor(246, 234, 206, 150));
            painter.setPen(QPen(QColor(120, 84, 50, 80), 1));
            painter.drawRect(house);
        }
    painter.restore();
}

void PaintArea(QPainter& painter, AreaStyle const& style, std::vector<QPointF> const& points)
{
    auto const path = PathOf(points, style.isSmooth, true);
    painter.fillPath(path, style.fill);
    if (style.hasHouses)
        PaintHouses(painter, path);
    if (!style.edge.isValid())
        return;
    QPen pen(Faint(style.edge, style.isSmooth ? 0.75 : 1), style.isSmooth ? 2.2 : 1.4);
    if (style.isSmooth)
        pen.setDashPattern({ 5, 2.4, 1, 2.4 });
    painter.strokePath(path, pen);
}

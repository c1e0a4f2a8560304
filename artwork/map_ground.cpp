#include "map_ground.h"

#include "map_regions.h"
#include "map_relief.h"
#include "palette.h"

#include <QFile>
#include <QPainter>
#include <QPainterPath>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <numbers>

Projection::Projection(qreal west, qreal south, qreal east, qreal north, int width)
    : m_west(west)
    , m_north(north)
    , m_pixelsPerLongitude(width / (east - west))
    , m_pixelsPerLatitude(
          m_pixelsPerLongitude / std::cos((south + north) / 2 * std::numbers::pi / 180))
    , m_size(width, static_cast<int>(std::lround((north - south) * m_pixelsPerLatitude)))
{
}

QPointF Projection::At(Spot const& spot) const
{
    return { (spot.longitude - m_west) * m_pixelsPerLongitude,
        (m_north - spot.latitude) * m_pixelsPerLatitude };
}

Spot Projection::SpotAt(QPointF const& pixel) const
{
    return { m_north - pixel.y() / m_pixelsPerLatitude, m_west + pixel.x() / m_pixelsPerLongitude };
}

std::vector<Shore> ReadShores(QString const& file)
{
    QFile data(file);
    if (!data.open(QIODevice::ReadOnly | QIODevice::Text))
        throw TableMistake(file.toStdString() + ": can't be read");
    std::vector<Shore> shores;
    QTextStream stream(&data);
    for (QString line; stream.readLineInto(&line);) {
        if (line.startsWith(QChar('>'))) {
            shores.push_back({ line.section(QStringLiteral("Level "), 1).toInt(), {} });
            continue;
        }
        auto const numbers = line.simplified().split(QChar(' '));
        if (numbers.size() == 2 && !shores.empty())
            shores.back().spots.push_back({ numbers[1].toDouble(), numbers[0].toDouble() });
    }
    return shores;
}

std::vector<QPointF> Project(Projection const& projection, std::vector<Spot> const& spots)
{
    std::vector<QPointF> points;
    points.reserve(spots.size());
    for (auto const& spot : spots)
        points.push_back(projection.At(spot));
    return points;
}

QPainterPath Smooth(std::vector<QPointF> const& points, bool closed)
{
    auto const count = static_cast<int>(points.size());
    auto const at = [&](int index) {
        int const wrapped = closed ? (index + count) % count : std::clamp(index, 0, count - 1);
        return points[static_cast<std::size_t>(wrapped)];
    };
    QPainterPath path;
    if (count == 0)
        return path;
    path.moveTo(points[0]);
    // Catmull and Rom's spline as Bezier curves.
    for (int i = 0; i < (closed ? count : count - 1); ++i)
        path.cubicTo(
            at(i) + (at(i + 1) - at(i - 1)) / 6, at(i + 1) - (at(i + 2) - at(i)) / 6, at(i + 1));
    return path;
}

static QPainterPath Straight(std::vector<QPointF> const& points)
{
    QPainterPath path;
    if (!points.empty())
        path.moveTo(points[0]);
    for (auto const& point : points)
        path.lineTo(point);
    return path;
}

/// Fills from a pixel as far as the white reaches.
static void Flood(QImage& mask, QPoint from)
{
    std::vector<QPoint> open { from };
    while (!open.empty()) {
        auto const at = open.back();
        open.pop_back();
        if (!mask.rect().contains(at) || mask.scanLine(at.y())[at.x()] != 255)
            continue;
        mask.scanLine(at.y())[at.x()] = 0;
        for (auto const& by : { QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1) })
            open.push_back(at + by);
    }
}

static QPainterPath DryLand(Projection const& projection, Ground const& ground)
{
    QPainterPath path;
    for (auto const& [southWest, northEast] : ground.dry)
        path.addRect(QRectF(projection.At(southWest), projection.At(northEast)).normalized());
    return path;
}

/// White on the land, black in the sea. The shores are lines, cut at the edges of the data; what
/// they enclose is found by filling the seas from within.
static QImage LandMask(Projection const& projection, Ground const& ground)
{
    QImage mask(projection.Size(), QImage::Format_Grayscale8);
    mask.fill(255);
    QPainter painter(&mask);
    painter.setPen(QPen(QColor(128, 128, 128), 1.5));
    for (auto const& shore : ground.shores)
        if (shore.level == 1)
            painter.drawPath(Straight(Project(projection, shore.spots)));
    painter.end();
    for (auto const& sea : ground.seas) {
        auto const at = projection.At(sea).toPoint();
        if (mask.rect().contains(at))
            Flood(mask, at);
    }
    QPainter(&mask).fillPath(DryLand(projection, ground), Qt::white);
    return mask;
}

static QImage Softened(QImage const& mask, int by)
{
    auto const size = mask.size();
    return mask.scaled(size / by, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_Grayscale8);
}

static QColor Mixed(QColor const& from, QColor const& to, qreal share)
{
    auto const mix
        = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return { mix(from.red(), to.red()), mix(from.green(), to.green()),
        mix(from.blue(), to.blue()) };
}

/// Light along the shore, deeper farther out.
static QRgb SeaColour(int nearLand)
{
    constexpr QColor shallow { 204, 226, 246 }, deep { 150, 186, 229 };
    return Mixed(deep, shallow, std::min(1.0, nearLand / 150.0)).rgb();
}

static void PaintLakes(QPainter& painter, Projection const& projection, Ground const& ground)
{
    painter.setPen(QPen(QColor(74, 116, 180), 1.4));
    painter.setBrush(QColor(176, 207, 240));
    for (auto const& lake : ground.lakes)
        painter.drawPath(Smooth(Project(projection, lake), true));
}

static void PaintFertile(QImage& land, Projection const& projection, Ground const& ground)
{
    QImage mask(land.size(), QImage::Format_Grayscale8);
    mask.fill(0);
    QPainter painter(&mask);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    for (auto const& area : ground.fertile)
        painter.drawPath(Smooth(Project(projection, area), true));
    painter.end();
    QImage green(land.size(), QImage::Format_ARGB32);
    green.fill(QColor(178, 203, 138));
    auto soft = Softened(Softened(mask, 8), 40);
    for (int y = 0; y < soft.height(); ++y)
        for (int x = 0; x < soft.width(); ++x)
            soft.scanLine(y)[x] = static_cast<uchar>(soft.scanLine(y)[x] * 2 / 5);
    green.setAlphaChannel(soft);
    QPainter(&land).drawImage(0, 0, green);
}

QImage PaintGround(Projection const& projection, Ground const& ground)
{
    auto land = PaintRelief(projection, ground);
    PaintFertile(land, projection, ground);
    PaintRegions(land, projection, ground.regions);
    if (!ground.seas.empty()) {
        auto const mask = LandMask(projection, ground);
        auto const shelf = Softened(mask, 20);
        for (int y = 0; y < land.height(); ++y)
            for (int x = 0; x < land.width(); ++x)
                if (mask.constScanLine(y)[x] == 0)
                    reinterpret_cast<QRgb*>(land.scanLine(y))[x]
                        = SeaColour(shelf.constScanLine(y)[x]);
    }
    QPainter painter(&land);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath old;
    old.addRect(land.rect());
    painter.setClipPath(old - DryLand(projection, ground));
    painter.setPen(QPen(QColor(74, 116, 180), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (auto const& shore : ground.shores)
        if (shore.level == 1)
            painter.drawPath(Straight(Project(projection, shore.spots)));
    painter.setClipping(false);
    PaintLakes(painter, projection, ground);
    return land;
}

#include "map_sheet.h"

#include "palette.h"

#include <QFontMetricsF>
#include <QLinearGradient>

#include <algorithm>
#include <cmath>

static Lettering Plain(qreal size, bool bold = false)
{
    Lettering lettering;
    lettering.size = size;
    lettering.bold = bold;
    lettering.colour = palette::panelText;
    lettering.hasHalo = false;
    return lettering;
}

static qreal WidthOf(QString const& text, Lettering const& lettering)
{
    return QFontMetricsF(FontOf(lettering)).horizontalAdvance(text);
}

/// A star of eight points; the four chief ones are half light, half dark.
static void PaintCompass(QPainter& painter, QPointF const& centre, qreal radius)
{
    for (int point = 0; point < 8; ++point) {
        // The four between first, below the chief ones.
        bool const isChief = point >= 4;
        qreal const angle = point * 90 + (isChief ? 0 : 45);
        qreal const length = isChief ? radius : radius * 0.58;
        painter.save();
        painter.translate(centre);
        painter.rotate(angle);
        QPolygonF const left(
            { QPointF(0, -length), QPointF(-radius * 0.17, -radius * 0.17), QPointF(0, 0) });
        QPolygonF const right(
            { QPointF(0, -length), QPointF(radius * 0.17, -radius * 0.17), QPointF(0, 0) });
        painter.setPen(QPen(palette::panelText, 0.8));
        painter.setBrush(isChief ? palette::panelText : palette::blue);
        painter.drawPolygon(right);
        painter.setBrush(palette::panelLight);
        painter.drawPolygon(left);
        painter.restore();
    }
    auto const letter = Plain(17, true);
    PaintText(painter, QStringLiteral("N"), letter,
        centre + QPointF(-WidthOf(QStringLiteral("N"), letter) / 2, -radius - 5));
}

/// Two bars of five fields: in the sheet's unit, and in miles where that is kilometres.
static void PaintScale(
    QPainter& painter, QPointF from, qreal pixelsPerUnit, int length, QString const& unit)
{
    constexpr qreal height = 7;
    qreal const width = length * pixelsPerUnit;
    painter.setPen(QPen(palette::panelText, 1));
    for (int field = 0; field < 5; ++field) {
        painter.setBrush(field % 2 == 0 ? palette::panelText : palette::panelLight);
        painter.drawRect(QRectF(from.x() + field * width / 5, from.y(), width / 5, height));
    }
    auto const lettering = Plain(15);
    PaintText(painter, QStringLiteral("0"), lettering, from + QPointF(-3, -5));
    auto const whole = QStringLiteral("%1 %2").arg(length).arg(unit);
    PaintText(painter, whole, lettering, from + QPointF(width - WidthOf(whole, lettering) / 2, -5));
    if (unit != QStringLiteral("km"))
        return;
    constexpr qreal kmPerMile = 1.609344;
    auto const miles = static_cast<int>(length / kmPerMile / 5) * 5;
    qreal const end = miles * kmPerMile * pixelsPerUnit;
    painter.drawLine(
        QPointF(from.x(), from.y() + height + 5), QPointF(from.x() + end, from.y() + height + 5));
    for (qreal const x : { 0.0, end / 2, end })
        painter.drawLine(QPointF(from.x() + x, from.y() + height + 5),
            QPointF(from.x() + x, from.y() + height + 11));
    auto const text = QStringLiteral("%1 miles").arg(miles);
    PaintText(
        painter, text, lettering, from + QPointF(end - WidthOf(text, lettering) / 2, height + 26));
}

static QRectF BoxArea(QSize const& sheet, QSizeF const& size, QString const& corner)
{
    constexpr qreal margin = frameWidth + 18;
    bool const isWest = corner.endsWith(QChar('W')), isNorth = corner.startsWith(QChar('N'));
    return { { isWest ? margin : sheet.width() - margin - size.width(),
                 isNorth ? margin : sheet.height() - margin - size.height() },
        size };
}

static void PaintPanel(QPainter& painter, QRectF const& area, qreal header)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(10, 20, 60, 60));
    painter.drawRoundedRect(area.translated(4, 5), 9, 9);
    QLinearGradient ground(area.topLeft(), area.bottomLeft());
    ground.setColorAt(0, palette::panelLight);
    ground.setColorAt(1, palette::panelDark);
    painter.setBrush(ground);
    painter.setPen(QPen(palette::panelText, 1.6));
    painter.drawRoundedRect(area, 9, 9);
    QPainterPath clip;
    clip.addRoundedRect(area.adjusted(1, 1, -1, -1), 8, 8);
    painter.save();
    painter.setClipPath(clip);
    QLinearGradient head(area.topLeft(), area.topLeft() + QPointF(0, header));
    head.setColorAt(0, palette::panelHeader);
    head.setColorAt(1, palette::panelDark);
    painter.fillRect(QRectF(area.topLeft(), QSizeF(area.width(), header)), head);
    painter.restore();
    painter.setPen(QPen(palette::panelBorder, 1.2));
    painter.drawLine(area.topLeft() + QPointF(1, header), area.topRight() + QPointF(-1, header));
}

QRectF PaintTitleBox(QPainter& painter, Projection const& projection, TitleBox const& box)
{
    constexpr qreal edge = 18, header = 78, rowHeight = 25, sample = 46, compass = 44;
    auto const title = Plain(29, true);
    auto subtitle = Plain(17);
    subtitle.italic = true;
    auto const text = Plain(16);
    qreal const pixelsPerUnit
        = projection.PixelsPerKm() / (box.unit == QStringLiteral("km") ? 1 : 1000);
    qreal legendWidth = 0;
    for (auto const& row : box.legend)
        legendWidth = std::max(legendWidth, sample + 12 + WidthOf(row.text, text));
    qreal const scaleWidth = box.scale * pixelsPerUnit + 60;
    qreal const body = std::max(legendWidth, scaleWidth) + 24 + 2 * compass;
    qreal const width
        = std::max({ WidthOf(box.title, title), WidthOf(box.subtitle, subtitle), body }) + 2 * edge;
    qreal const legendHeight = static_cast<qreal>(box.legend.size()) * rowHeight;
    qreal const height = header + 14 + std::max(legendHeight + 74, 2 * compass + 50);
    auto const area = BoxArea(projection.Size(), { width, height }, box.corner);
    PaintPanel(painter, area, header);
    PaintText(painter, box.title, title,
        { area.center().x() - WidthOf(box.title, title) / 2, area.top() + 38 });
    PaintText(painter, box.subtitle, subtitle,
        { area.center().x() - WidthOf(box.subtitle, subtitle) / 2, area.top() + 64 });
    qreal y = area.top() + header + 12;
    for (auto const& row : box.legend) {
        row.sample(painter, QRectF(area.left() + edge, y, sample, rowHeight - 3));
        PaintText(painter, row.text, text, { area.left() + edge + sample + 12, y + 17 });
        y += rowHeight;
    }
    PaintScale(painter, { area.left() + edge + 4, y + 28 }, pixelsPerUnit, box.scale, box.unit);
    PaintCompass(
        painter, { area.right() - edge - compass, area.top() + header + 30 + compass }, compass);
    return area.adjusted(-6, -6, 8, 9);
}

/// Those of `step` from `from` on and below `to`.
static std::vector<qreal> Multiples(qreal step, qreal from, qreal to)
{
    std::vector<qreal> found;
    for (auto i = std::lround(std::ceil(from / step)), end = std::lround(std::ceil(to / step));
         i < end; ++i)
        found.push_back(qreal(i) * step);
    return found;
}

static void PaintDegrees(QPainter& painter, Projection const& projection, qreal degrees)
{
    auto const size = projection.Size();
    auto const lettering = Plain(13);
    auto const northWest = projection.SpotAt({ 0, 0 }),
               southEast = projection.SpotAt({ qreal(size.width()), qreal(size.height()) });
    for (qreal const east : Multiples(degrees, northWest.longitude, southEast.longitude)) {
        qreal const x = projection.At({ northWest.latitude, east }).x();
        auto const text = QStringLiteral("%1\u00B0 E").arg(east);
        if (x < 80 || x > size.width() - 80)
            continue;
        PaintText(painter, text, lettering, { x - WidthOf(text, lettering) / 2, 17 });
        PaintText(
            painter, text, lettering, { x - WidthOf(text, lettering) / 2, size.height() - 9.0 });
    }
    for (qreal const north : Multiples(degrees, southEast.latitude, northWest.latitude)) {
        qreal const y = projection.At({ north, northWest.longitude }).y();
        auto const text = QStringLiteral("%1\u00B0 N").arg(north);
        if (y < 80 || y > size.height() - 80)
            continue;
        for (qreal const x : { 17.0, size.width() - 9.0 }) {
            painter.save();
            painter.translate(x, y + WidthOf(text, lettering) / 2);
            painter.rotate(-90);
            PaintText(painter, text, lettering, { 0, 0 });
            painter.restore();
        }
    }
}

void PaintFrame(QPainter& painter, Projection const& projection, qreal degrees)
{
    QRectF const sheet({ 0, 0 }, projection.Size());
    QPainterPath band;
    band.addRect(sheet);
    band.addRect(sheet.adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth));
    painter.fillPath(band, palette::panelDark);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette::panelText, 2));
    painter.drawRect(sheet.adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth));
    painter.setPen(QPen(palette::panelBorder, 1));
    painter.drawRect(
        sheet.adjusted(frameWidth - 5, frameWidth - 5, 5 - frameWidth, 5 - frameWidth));
    painter.setPen(QPen(palette::panelText, 3));
    painter.drawRect(sheet.adjusted(1.5, 1.5, -1.5, -1.5));
    if (degrees > 0)
        PaintDegrees(painter, projection, degrees);
}

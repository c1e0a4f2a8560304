#include "maps.h"

#include "map_sheet.h"
#include "map_styles.h"
#include "palette.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

namespace {

/// A map while it is drawn. The rows of its table are taken by their first field.
class MapSheet {
public:
    MapSheet(int number, QDir const& tables, QDir const& shores, Places const& places)
        : m_number(number)
        , m_tables(tables)
        , m_shores(shores)
        , m_places(places)
        , m_rows(ReadTable(tables.filePath(QStringLiteral("map%1.txt").arg(number))))
    {
        for (auto const& include : Rows(QStringLiteral("include"))) {
            auto const more = ReadTable(tables.filePath(include.Field(1)));
            m_rows.insert(m_rows.end(), more.begin(), more.end());
        }
        auto const& sheet = One(QStringLiteral("sheet"));
        m_projection.emplace(sheet.Number(2), sheet.Number(3), sheet.Number(4), sheet.Number(5),
            static_cast<int>(sheet.Number(1)));
    }

    QImage Draw();
    QStringList const& Complaints() const { return m_complaints; }

private:
    std::vector<TableRow> Rows(QString const& keyword) const;
    TableRow One(QString const& keyword) const;
    std::vector<QPointF> Points(TableRow const& row, int field) const
    {
        return Project(*m_projection, ReadSpots(row, field, m_places));
    }
    std::vector<Height> Heights() const;
    Ground GroundOf() const;
    void PaintRivers(QPainter& painter) const;
    QRectF PaintTitle(QPainter& painter) const;
    void PaintWords(QPainter& painter, Labels& labels);
    std::vector<std::pair<MapPlace const*, PlaceStyle const*>> OwnPlaces() const;
    void PaintSigns(QPainter& painter, Labels& labels);
    void PaintLabels(QPainter& painter, Labels& labels);
    QString Note(QString const& place) const;

    int m_number;
    QDir m_tables, m_shores;
    Places const& m_places;
    std::vector<TableRow> m_rows;
    std::optional<Projection> m_projection;
    QStringList m_complaints;
};

template <class Style> Style const& Known(Style const* style, TableRow const& row, int field)
{
    if (!style)
        row.Refuse(QStringLiteral("there is no style \"%1\"").arg(row.Field(field)));
    return *style;
}

std::vector<TableRow> MapSheet::Rows(QString const& keyword) const
{
    std::vector<TableRow> rows;
    std::copy_if(m_rows.begin(), m_rows.end(), std::back_inserter(rows),
        [&](TableRow const& row) { return row.fields[0] == keyword; });
    return rows;
}

TableRow MapSheet::One(QString const& keyword) const
{
    auto const rows = Rows(keyword);
    if (rows.size() != 1)
        throw TableMistake(QStringLiteral("map%1.txt: there is to be one row \"%2\"")
                               .arg(m_number)
                               .arg(keyword)
                               .toStdString());
    return rows[0];
}

/// Rows of name, metres and spots. Between the spots of a row the land keeps the height. A plan of
/// a town counts from its lowest ground and stretches what there is.
std::vector<Height> MapSheet::Heights() const
{
    auto const relief = One(QStringLiteral("relief"));
    constexpr qreal apart = 26; // pixels
    QRectF const sheet({ 0, 0 }, m_projection->Size());
    auto const near = sheet.adjusted(-500, -500, 500, 500);
    std::vector<Height> heights;
    for (auto const& row : ReadTable(m_tables.filePath(relief.Field(1)))) {
        auto const points = Points(row, 2);
        for (std::size_t i = 0; i < points.size(); ++i) {
            auto const next = points[std::min(i + 1, points.size() - 1)];
            auto const pieces
                = std::max(1, static_cast<int>(QLineF(points[i], next).length() / apart));
            for (int piece = 0; piece < pieces; ++piece) {
                auto const at = points[i] + (next - points[i]) * piece / pieces;
                if (near.contains(at))
                    heights.push_back({ m_projection->SpotAt(at),
                        (row.Number(1) - relief.Number(4)) * relief.Number(5) });
            }
        }
    }
    return heights;
}

Ground MapSheet::GroundOf() const
{
    auto const relief = One(QStringLiteral("relief"));
    Ground ground;
    ground.heights = Heights();
    ground.roughness = relief.Number(2);
    ground.steepness = relief.Number(3);
    for (auto const& row : Rows(QStringLiteral("shores")))
        ground.shores = ReadShores(m_shores.filePath(row.Field(1)));
    for (auto const& shore : ground.shores) // A shore lies at height 0.
        for (std::size_t i = 0; shore.level == 1 && i < shore.spots.size(); i += 12)
            ground.heights.push_back({ shore.spots[i], 5 });
    QRectF const near = QRectF({ 0, 0 }, m_projection->Size()).adjusted(-500, -500, 500, 500);
    std::erase_if(ground.heights,
        [&](Height const& height) { return !near.contains(m_projection->At(height.spot)); });
    for (auto const& row : Rows(QStringLiteral("sea")))
        for (auto const& spot : ReadSpots(row, 1, m_places))
            ground.seas.push_back(spot);
    for (auto const& row : Rows(QStringLiteral("dry"))) {
        auto const corners = ReadSpots(row, 1, m_places);
        for (std::size_t i = 0; i + 1 < corners.size(); i += 2)
            ground.dry.emplace_back(corners[i], corners[i + 1]);
    }
    for (auto const& row : Rows(QStringLiteral("lake")))
        ground.lakes.push_back(ReadSpots(row, 1, m_places));
    for (auto const& row : Rows(QStringLiteral("fertile")))
        ground.fertile.push_back(ReadSpots(row, 1, m_places));
    for (auto const& row : Rows(QStringLiteral("region")))
        ground.regions.push_back({ Known(FindAreaStyle(row.Field(1)), row, 1).fill,
            row.fields.value(3) == QStringLiteral("enclave"), ReadSpots(row, 2, m_places) });
    return ground;
}

/// Rivers of the data set up to a level. The row may name boxes (south, west, north, east) out of
/// which none is taken, for canals and for the beds of today.
void MapSheet::PaintRivers(QPainter& painter) const
{
    auto const& river = *FindLineStyle(QStringLiteral("river"));
    auto const& stream = *FindLineStyle(QStringLiteral("stream"));
    for (auto const& row : Rows(QStringLiteral("rivers"))) {
        auto const corners
            = row.fields.size() > 3 ? ReadSpots(row, 3, m_places) : std::vector<Spot>();
        auto const isLeftOut = [&](Spot const& spot) {
            for (std::size_t i = 0; i + 1 < corners.size(); i += 2)
                if (spot.latitude > corners[i].latitude && spot.latitude < corners[i + 1].latitude
                    && spot.longitude > corners[i].longitude
                    && spot.longitude < corners[i + 1].longitude)
                    return true;
            return false;
        };
        for (auto const& line : ReadShores(m_shores.filePath(row.Field(1)))) {
            if (line.level > row.Number(2) || line.spots.empty()
                || isLeftOut(line.spots[line.spots.size() / 2]))
                continue;
            PaintLine(
                painter, line.level <= 2 ? river : stream, Project(*m_projection, line.spots));
        }
    }
}

QRectF MapSheet::PaintTitle(QPainter& painter) const
{
    auto const row = One(QStringLiteral("title"));
    TitleBox box { row.Field(1), row.Field(2), row.Field(3), {}, static_cast<int>(row.Number(4)),
        row.Field(5) };
    for (auto const& each : Rows(QStringLiteral("legend"))) {
        auto const name = each.Field(1);
        LegendRow legend { {}, each.Field(2) };
        if (auto const* const place = FindPlaceStyle(name))
            legend.sample = [place](QPainter& sample, QRectF const& area) {
                place->paint(sample, area.center(), place->radius);
            };
        else if (auto const* const line = FindLineStyle(name))
            legend.sample = [line](QPainter& sample, QRectF const& area) {
                PaintLine(sample, *line,
                    { QPointF(area.left(), area.center().y()),
                        QPointF(area.right() - 4, area.center().y()) });
            };
        else if (auto const* const style = &Known(FindAreaStyle(name), each, 1))
            legend.sample = [style](QPainter& sample, QRectF const& area) {
                auto const part = area.adjusted(4, 3, -6, -3);
                sample.fillRect(part, style->isSmooth ? Faint(style->fill, 0.5) : style->fill);
                sample.setPen(style->edge.isValid() ? QPen(style->edge, 1.2) : QPen(Qt::NoPen));
                sample.setBrush(Qt::NoBrush);
                sample.drawRect(part);
            };
        box.legend.push_back(std::move(legend));
    }
    return PaintTitleBox(painter, *m_projection, box);
}

void MapSheet::PaintWords(QPainter& painter, Labels& labels)
{
    for (auto const& row : Rows(QStringLiteral("word"))) {
        auto const& style = Known(FindWordStyle(row.Field(1)), row, 1);
        for (auto const& point : Points(row, 2))
            if (!labels.Write(painter, row.Field(4), style.lettering, point, row.Number(3)))
                m_complaints.append(QStringLiteral("%1: \"%2\" lies upon something else")
                                        .arg(row.place, row.Field(4)));
    }
}

QString MapSheet::Note(QString const& place) const
{
    for (auto const& row : Rows(QStringLiteral("note")))
        if (row.Field(1) == place)
            return QStringLiteral(" (%1)").arg(row.Field(2));
    return {};
}

/// The places of this map, what is fixed and what is great first.
std::vector<std::pair<MapPlace const*, PlaceStyle const*>> MapSheet::OwnPlaces() const
{
    std::vector<std::pair<MapPlace const*, PlaceStyle const*>> places;
    for (auto const& [name, place] : m_places) {
        if (!place.maps.contains(QChar('0' + m_number)))
            continue;
        auto const* const style = FindPlaceStyle(place.kind);
        if (!style)
            throw TableMistake(
                QStringLiteral("places.txt: \"%1\" is of no known kind").arg(name).toStdString());
        places.emplace_back(&place, style);
    }
    std::stable_sort(places.begin(), places.end(), [](auto const& a, auto const& b) {
        return std::pair(a.first->side.isEmpty(), -a.second->lettering.size)
            < std::pair(b.first->side.isEmpty(), -b.second->lettering.size);
    });
    return places;
}

void MapSheet::PaintSigns(QPainter& painter, Labels& labels)
{
    for (auto const& [place, style] : OwnPlaces()) {
        auto const at = m_projection->At(place->spot);
        style->paint(painter, at, style->radius);
        labels.Take(QRectF(
            at - QPointF(style->radius, style->radius), QSizeF(style->radius, style->radius) * 2));
    }
}

void MapSheet::PaintLabels(QPainter& painter, Labels& labels)
{
    for (auto const& [place, style] : OwnPlaces())
        if (!labels.WriteBeside(painter, place->Label() + Note(place->name), style->lettering,
                m_projection->At(place->spot), style->radius, place->side))
            m_complaints.append(QStringLiteral("map%1: there is no room for \"%2\"")
                                    .arg(m_number)
                                    .arg(place->name));
}

QImage MapSheet::Draw()
{
    auto image = PaintGround(*m_projection, GroundOf());
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintRivers(painter);
    for (auto const& row : Rows(QStringLiteral("area")))
        PaintArea(painter, Known(FindAreaStyle(row.Field(1)), row, 1), Points(row, 2));
    for (auto const& row : Rows(QStringLiteral("line")))
        PaintLine(painter, Known(FindLineStyle(row.Field(1)), row, 1), Points(row, 2));
    PaintFrame(painter, *m_projection, One(QStringLiteral("sheet")).Number(6));
    Labels labels(QRectF({ 0, 0 }, image.size())
                      .adjusted(frameWidth + 4, frameWidth + 4, -frameWidth - 4, -frameWidth - 4));
    labels.Take(PaintTitle(painter));
    PaintSigns(painter, labels);
    PaintWords(painter, labels);
    PaintLabels(painter, labels);
    return image;
}

/// As good as a file of at most 600 KB can be.
QByteArray Packed(QImage const& image)
{
    constexpr int most = 600000;
    QByteArray bytes;
    for (int quality = 92; quality >= 60; quality -= 2) {
        QBuffer buffer(&bytes);
        bytes.clear();
        QImageWriter writer(&buffer, "jpg");
        writer.setQuality(quality);
        writer.setOptimizedWrite(true);
        if (!writer.write(image) || bytes.size() <= most)
            return bytes;
    }
    return bytes;
}

} // namespace

void DrawMaps(QDir const& tables, QDir const& shores, QDir const& folder, int only)
{
    auto const places = ReadPlaces(tables.filePath(QStringLiteral("places.txt")));
    QStringList complaints;
    for (int number = 1; number <= 9; ++number) {
        if (only != 0 && only != number)
            continue;
        MapSheet sheet(number, tables, shores, places);
        auto const image = sheet.Draw();
        complaints += sheet.Complaints();
        auto const bytes = Packed(image);
        QFile file(folder.filePath(QStringLiteral("map%1.jpg").arg(number)));
        if (bytes.isEmpty() || !file.open(QIODevice::WriteOnly)
            || file.write(bytes) != bytes.size())
            throw TableMistake(file.fileName().toStdString() + ": can't be written");
        std::printf("map%d.jpg: %d x %d pixels, %d KB\n", number, image.width(), image.height(),
            static_cast<int>(bytes.size() / 1000));
    }
    if (!complaints.isEmpty())
        throw TableMistake(complaints.join(QChar('\n')).toStdString());
}

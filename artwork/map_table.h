#pragma once
// The tables from which the maps are drawn: text files of UTF-8, a row a line, fields between bars,
// blanks round them dropped. Empty lines and lines that begin with # count for nothing.

#include <QPointF>
#include <QString>
#include <QStringList>

#include <map>
#include <stdexcept>
#include <vector>

/// What is wrong with a table, with its file and line.
struct TableMistake : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct TableRow {
    QStringList fields;
    QString place; ///< file and line, for messages

    /// A field by its number, from 0; a mistake if there is none.
    QString Field(int number) const;
    qreal Number(int number) const;
    [[noreturn]] void Refuse(QString const& why) const;
};

std::vector<TableRow> ReadTable(QString const& file);

/// Degrees.
struct Spot {
    qreal latitude = 0, longitude = 0;
};

/// A town, mountain or building: a row of places.txt.
struct MapPlace {
    QString name; ///< in the tables; a label leaves out what stands behind a slash
    Spot spot;
    QString kind;
    QString maps; ///< the digits of the maps on which it stands
    QString side; ///< where its label is to stand: E, W, N, S, NE, ...; empty to choose

    QString Label() const { return name.section(QChar('/'), 0, 0).trimmed(); }
};

using Places = std::map<QString, MapPlace>;

Places ReadPlaces(QString const& file);
/// "31.5 35.1; @Hebron; ...": places by their names, or latitude and longitude.
std::vector<Spot> ReadSpots(TableRow const& row, int field, Places const& places);

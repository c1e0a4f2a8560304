#include "map_table.h"

#include <QFile>
#include <QTextStream>

QString TableRow::Field(int number) const
{
    if (number >= fields.size())
        Refuse(QStringLiteral("field %1 is missing").arg(number + 1));
    return fields[number];
}

qreal TableRow::Number(int number) const
{
    bool isNumber = false;
    qreal const value = Field(number).toDouble(&isNumber);
    if (!isNumber)
        Refuse(QStringLiteral("\"%1\" is no number").arg(Field(number)));
    return value;
}

void TableRow::Refuse(QString const& why) const
{
    throw TableMistake((place + QStringLiteral(": ") + why).toStdString());
}

std::vector<TableRow> ReadTable(QString const& file)
{
    QFile table(file);
    if (!table.open(QIODevice::ReadOnly | QIODevice::Text))
        throw TableMistake(file.toStdString() + ": can't be read");
    std::vector<TableRow> rows;
    QTextStream stream(&table);
    QString line;
    for (int number = 1; stream.readLineInto(&line); ++number) {
        line = line.trimmed();
        if (line.isEmpty() || line.startsWith(QChar('#')))
            continue;
        TableRow row { line.split(QChar('|')),
            QStringLiteral("%1, line %2").arg(file).arg(number) };
        for (auto& field : row.fields)
            field = field.trimmed();
        rows.push_back(std::move(row));
    }
    return rows;
}

Places ReadPlaces(QString const& file)
{
    Places places;
    for (auto const& row : ReadTable(file)) {
        MapPlace place { row.Field(0), { row.Number(1), row.Number(2) }, row.Field(3), row.Field(4),
            row.fields.value(5) };
        if (!places.emplace(place.name, place).second)
            row.Refuse(QStringLiteral("\"%1\" stands in the table already").arg(place.name));
    }
    return places;
}

std::vector<Spot> ReadSpots(TableRow const& row, int field, Places const& places)
{
    std::vector<Spot> spots;
    for (auto const& part : row.Field(field).split(QChar(';'), Qt::SkipEmptyParts)) {
        auto const text = part.trimmed();
        if (text.startsWith(QChar('@'))) {
            auto const place = places.find(text.mid(1));
            if (place == places.end())
                row.Refuse(QStringLiteral("there is no place \"%1\"").arg(text.mid(1)));
            spots.push_back(place->second.spot);
            continue;
        }
        auto const numbers = text.split(QChar(' '), Qt::SkipEmptyParts);
        bool isLatitude = false, isLongitude = false;
        Spot const spot { numbers.value(0).toDouble(&isLatitude),
            numbers.value(1).toDouble(&isLongitude) };
        if (numbers.size() != 2 || !isLatitude || !isLongitude)
            row.Refuse(QStringLiteral("\"%1\" is no latitude and longitude").arg(text));
        spots.push_back(spot);
    }
    return spots;
}

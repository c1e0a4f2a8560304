#pragma once
// Lettering on a map: a halo that keeps it readable on any ground, and no two letters in the same
// place.

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>

#include <vector>

struct Lettering {
    qreal size = 16; ///< pixels
    bool bold = false, italic = false, capitals = false, serif = true;
    qreal spacing = 0; ///< pixels between the letters
    QColor colour;
    qreal opacity = 1;
    bool hasHalo = true;
};

/// Keeps track of what is taken on a sheet.
class Labels {
public:
    explicit Labels(QRectF const& room)
        : m_room(room)
    {
    }

    /// Nothing is written there any more.
    void Take(QRectF const& area) { m_taken.push_back(area); }
    /// Text centred on a point, turned by so many degrees. False if something else is there, or it
    /// leaves the room; it is written all the same.
    bool Write(QPainter& painter, QString const& text, Lettering const& lettering,
        QPointF const& centre, qreal angle);
    /// Text beside a sign of this radius: on the named side ("E", "NW"), or where there is room.
    /// False if there is none; then nothing is written.
    bool WriteBeside(QPainter& painter, QString const& text, Lettering const& lettering,
        QPointF const& sign, qreal radius, QString const& side);

private:
    /// `sign`, if there is one, is that of the text itself.
    bool IsFree(QRectF const& area, QPointF const* sign = nullptr) const;

    QRectF m_room;
    std::vector<QRectF> m_taken;
};

QFont FontOf(Lettering const& lettering);
/// Text from a point of its base line.
void PaintText(
    QPainter& painter, QString const& text, Lettering const& lettering, QPointF const& from);

#pragma once
// How the things on the maps look, by the names that the tables give them.

#include "map_labels.h"

#include <QPainterPath>

struct LineStyle {
    char const* name;
    QColor colour;
    qreal width; ///< pixels
    std::initializer_list<qreal> dashes; ///< in widths; none for a whole line
    bool isSmooth, hasArrows, hasCasing;
};

struct AreaStyle {
    char const* name;
    QColor fill, edge; ///< an edge that isn't valid is none
    bool isSmooth, hasHouses;
};

struct WordStyle {
    char const* name;
    Lettering lettering;
};

/// A place: its sign and the lettering of its label.
struct PlaceStyle {
    char const* name;
    qreal radius; ///< of the sign, in pixels
    void (*paint)(QPainter& painter, QPointF const& centre, qreal radius);
    Lettering lettering;
};

// Each gives nothing for a name that it doesn't know.
LineStyle const* FindLineStyle(QString const& name);
AreaStyle const* FindAreaStyle(QString const& name);
WordStyle const* FindWordStyle(QString const& name);
PlaceStyle const* FindPlaceStyle(QString const& name);

void PaintLine(QPainter& painter, LineStyle const& style, std::vector<QPointF> const& points);
void PaintArea(QPainter& painter, AreaStyle const& style, std::vector<QPointF> const& points);

#pragma once
// What every map has round its picture: the frame with its degrees, the box with title, legend,
// scale and compass.

#include "map_ground.h"
#include "map_labels.h"

#include <functional>

/// Draws a sample of a legend's row in a rectangle.
using Sample = std::function<void(QPainter& painter, QRectF const& area)>;

struct LegendRow {
    Sample sample;
    QString text;
};

struct TitleBox {
    QString title, subtitle;
    QString corner; ///< "NW", "NE", "SW", "SE"
    std::vector<LegendRow> legend;
    int scale = 100; ///< the scale bar's length in `unit`
    QString unit; ///< "km" or "m"
};

/// The width of the frame in pixels.
inline constexpr int frameWidth = 26;

/// Paints the box and gives the area that it takes.
QRectF PaintTitleBox(QPainter& painter, Projection const& projection, TitleBox const& box);
/// Paints the frame over the sheet's edges, with the degrees every `degrees` (0 for none).
void PaintFrame(QPainter& painter, Projection const& projection, qreal degrees);

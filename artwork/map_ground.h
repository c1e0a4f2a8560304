#pragma once
// The ground of a map: sea, land tinted by height and shaded from the north-west, lakes.

#include "map_table.h"

#include <QImage>
#include <QPainterPath>

/// Degrees and pixels of a sheet: an equirectangular projection that is true along the sheet's
/// middle latitude.
class Projection {
public:
    /// The height in pixels follows from the width.
    Projection(qreal west, qreal south, qreal east, qreal north, int width);

    QSize Size() const { return m_size; }
    QPointF At(Spot const& spot) const;
    qreal PixelsPerKm() const { return m_pixelsPerLatitude / kmPerDegree; }
    Spot SpotAt(QPointF const& pixel) const;

private:
    static constexpr qreal kmPerDegree = 111.2; // of latitude, on a sphere of 6,371 km

    qreal m_west, m_north, m_pixelsPerLongitude, m_pixelsPerLatitude;
    QSize m_size;
};

/// A line of a shoreline or river file.
struct Shore {
    /// as the data set counts: of shores 1 the sea's, 2 lakes'; of rivers 1 and 2 the great ones
    int level = 0;
    std::vector<Spot> spots;
};

/// "> ... Level 1", then a longitude and latitude a line.
std::vector<Shore> ReadShores(QString const& file);

/// Where heights are known, in metres.
struct Height {
    Spot spot;
    qreal metres;
};

/// A land with its tint.
struct Region {
    QColor tint;
    bool isEnclave; ///< lies within another
    std::vector<Spot> spots;
};

/// What the ground is made of.
struct Ground {
    std::vector<Shore> shores;
    std::vector<Spot> seas; ///< a spot in each sea
    std::vector<Height> heights;
    std::vector<std::vector<Spot>> lakes, fertile;
    std::vector<Region> regions;
    /// south-west and north-east corners of what is water today alone: canals, reservoirs
    std::vector<std::pair<Spot, Spot>> dry;
    qreal roughness = 1; ///< of the hills between the known heights
    qreal steepness = 1; ///< of the light: how much steeper than it is the land looks
};

/// The lines smoothed through their spots.
QPainterPath Smooth(std::vector<QPointF> const& points, bool closed);
std::vector<QPointF> Project(Projection const& projection, std::vector<Spot> const& spots);

/// The painted ground in the sheet's size. A mistake if a sea has no shore.
QImage PaintGround(Projection const& projection, Ground const& ground);

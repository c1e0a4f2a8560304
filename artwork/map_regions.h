#pragma once
// Lands, tribes and provinces: tints with a border between them.

#include "map_ground.h"

/// Tints the land. The outlines in the table may overlap or leave gaps along a common border: there
/// the border is drawn midway.
void PaintRegions(QImage& land, Projection const& projection, std::vector<Region> const& regions);

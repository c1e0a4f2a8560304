#pragma once
// Hills from a table of known heights.

#include "map_ground.h"

/// Land tinted by its height and shaded from the north-west, in the sheet's size, without seas and
/// lakes. Between the known heights it is interpolated (inverse distance weighting), with hills of
/// chance that grow with the height.
QImage PaintRelief(Projection const& projection, Ground const& ground);

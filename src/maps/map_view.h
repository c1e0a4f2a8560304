#pragma once
// How the viewer lays out the viewport, the scroll bars and the map for a window and a picture of
// given sizes. All lengths are pixels.

#include "controls/control.h"

#include <cstdint>
#include <optional>

/// The height of the horizontal scroll bar and the width of the vertical one.
inline constexpr float mapBarThickness = 16;

struct MapBar {
    bool isVisible = false;
    std::int16_t largeChange = 0;
    std::optional<float> length; ///< nothing: the bar keeps the length that it has
    /// nothing: it keeps its range. Held at 32767, the most that a bar can express
    std::optional<std::int16_t> max;
};

struct MapView {
    MapBar horizontal, vertical;
    /// a pixel larger each way than the part of the map that the ranges of the bars leave in it
    Size viewport;
    float mapLeft = 0, mapTop = 0; ///< of the map within the viewport
    bool hasCorner = false; ///< both bars are at the edges and leave a corner free
};

/// `client` is the window's client area, `map` the picture. The map hangs from the top left corner
/// on each axis on which it scrolls and is centred on the others. A bar comes up where the map
/// wouldn't fit beside the other bar, be that bar visible or not, so the range of a single bar may
/// be 0 or negative.
MapView ArrangeMap(Size client, Size map);

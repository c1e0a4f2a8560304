#pragma once
// The layout of viewport, scroll bars and map for given sizes of window and picture, in pixels.

#include "controls/control.h"

#include <cstdint>
#include <optional>

/// The height of the horizontal scroll bar and the width of the vertical one.
inline constexpr float mapBarThickness = 16;

struct MapBar {
    bool isVisible = false;
    std::int16_t largeChange = 0;
    std::optional<float> length; ///< nothing: unchanged
    std::optional<std::int16_t> max; ///< at most 32767; nothing: unchanged
};

struct MapView {
    MapBar horizontal, vertical;
    /// a pixel larger each way than the part of the map that the ranges of the bars leave in it
    Size viewport;
    float mapLeft = 0, mapTop = 0; ///< of the map within the viewport
    bool hasCorner = false; ///< both bars are at the edges and leave a corner free
};

/// `client` is the window's client area, `map` the picture. On an axis with a bar the map starts at
/// 0, on others it is centred. A bar is shown if the map wouldn't fit beside the other bar, even if
/// that one isn't visible; so the range of a single bar may be 0 or negative.
MapView ArrangeMap(Size client, Size map);

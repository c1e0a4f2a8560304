#pragma once
// A surface of pixels that controls paint themselves on with plain code.

#include "controls/control.h"

#include <vector>

class Canvas {
public:
    /// In pixels; a size below 0 counts as 0.
    Canvas(int width, int height, Colour ground) { Clear(width, height, ground); }

    /// Takes this size, all pixels in `ground`. Keeps its memory if that is enough.
    void Clear(int width, int height, Colour ground);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    /// The pixels row by row from the top, each a colour value with red in the low byte.
    std::vector<Colour> const& Pixels() const { return m_pixels; }

    /// A row of pixels from `left` to `right` (exclusive), cut to the surface.
    void HorizontalLine(int left, int right, int y, Colour colour);
    /// A column of pixels from `top` to `bottom` (exclusive), cut to the surface.
    void VerticalLine(int x, int top, int bottom, Colour colour);

private:
    int m_width, m_height;
    std::vector<Colour> m_pixels;
};

/// The pixels of a length in twips: a fifteenth, halves to even.
int Pixels(float twips);

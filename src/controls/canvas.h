#pragma once
// A surface of pixels that controls paint themselves on with plain code.

#include "controls/control.h"

#include <vector>

class Canvas {
public:
    /// In pixels; a size below 0 counts as 0. All pixels begin in `ground`.
    Canvas(int width, int height, Colour ground);

    /// Begins anew in another size, within the memory that it has where that is enough.
    void Clear(int width, int height, Colour ground);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    /// The pixels row by row from the top, each a colour value with red in the low byte.
    std::vector<Colour> const& Pixels() const { return m_pixels; }

    /// A row of pixels from `left` up to, and without, `right`; what is outside the surface is
    /// left out.
    void HorizontalLine(int left, int right, int y, Colour colour);
    /// A column of pixels from `top` up to, and without, `bottom`.
    void VerticalLine(int x, int top, int bottom, Colour colour);

private:
    int m_width, m_height;
    std::vector<Colour> m_pixels;
};

/// The pixels of a length in twips: a fifteenth, halves to even.
int Pixels(float twips);

#include "controls/canvas.h"

#include "base/rounding.h"

#include <algorithm>

void Canvas::Clear(int width, int height, Colour ground)
{
    m_width = std::max(0, width);
    m_height = std::max(0, height);
    m_pixels.assign(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height), ground);
}

void Canvas::HorizontalLine(int left, int right, int y, Colour colour)
{
    if (y < 0 || y >= m_height)
        return;
    left = std::clamp(left, 0, m_width);
    right = std::clamp(right, left, m_width);
    auto const row = m_pixels.begin() + static_cast<std::ptrdiff_t>(y) * m_width;
    std::fill(row + left, row + right, colour);
}

void Canvas::VerticalLine(int x, int top, int bottom, Colour colour)
{
    for (int y = top; y < bottom; ++y)
        HorizontalLine(x, x + 1, y, colour);
}

int Pixels(float twips)
{
    return static_cast<int>(RoundToEven(static_cast<double>(twips) / 15));
}

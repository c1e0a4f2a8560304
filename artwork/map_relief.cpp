#include "map_relief.h"

#include "brushes.h"

#include <QColor>

#include <algorithm>
#include <cmath>

// pixels of the sheet between two heights: finer than that hills are no hills any more
static constexpr int step = 3;

namespace {

struct Known {
    qreal x, y, metres; // in steps
};

/// Smooth chance between -1 and 1 over the plane, the same at each run (value noise in octaves).
class Noise {
public:
    Noise()
    {
        Chance chance(20260);
        for (auto& value : m_values)
            value = static_cast<float>(chance.Between(-1, 1));
    }
    float At(float x, float y, int octaves) const
    {
        float sum = 0, share = 0.5F;
        for (int i = 0; i < octaves; ++i) {
            // Ridged: hills have crests and valleys.
            sum += share * (1 - 2 * std::abs(Smooth(x, y)));
            x = x * 1.93F + 17.3F;
            y = y * 2.07F + 5.1F;
            share *= 0.52F;
        }
        return sum;
    }

private:
    float Value(int x, int y) const
    {
        return m_values[static_cast<std::size_t>((x & 63) * 64 + (y & 63))];
    }
    float Smooth(float x, float y) const
    {
        auto const left = std::floor(x), top = std::floor(y);
        auto const ease = [](float t) { return t * t * (3 - 2 * t); };
        float const u = ease(x - left), v = ease(y - top);
        int const i = static_cast<int>(left), j = static_cast<int>(top);
        float const upper = std::lerp(Value(i, j), Value(i + 1, j), u);
        float const lower = std::lerp(Value(i, j + 1), Value(i + 1, j + 1), u);
        return std::lerp(upper, lower, v);
    }

    float m_values[64 * 64];
};

/// A grid of heights in metres.
struct Grid {
    int width, height;
    std::vector<float> metres;
    float At(int x, int y) const
    {
        auto const row = std::size_t(std::clamp(y, 0, height - 1));
        return metres[row * std::size_t(width) + std::size_t(std::clamp(x, 0, width - 1))];
    }
};

float Interpolated(std::vector<Known> const& heights, int x, int y)
{
    double sum = 0, weights = 1e-12;
    for (auto const& known : heights) {
        double const dx = known.x - x, dy = known.y - y;
        double const square = dx * dx + dy * dy + 8;
        double const weight = 1 / (square * square);
        sum += weight * known.metres;
        weights += weight;
    }
    return static_cast<float>(sum / weights);
}

Grid Heights(Projection const& projection, Ground const& ground)
{
    std::vector<Known> heights;
    for (auto const& height : ground.heights) {
        auto const at = projection.At(height.spot) / step;
        heights.push_back({ at.x(), at.y(), height.metres });
    }
    Noise const noise;
    auto const size = projection.Size() / step + QSize(2, 2);
    Grid grid { size.width(), size.height(), {} };
    auto const length = static_cast<float>(110.0 / step);
    for (int y = 0; y < grid.height; ++y)
        for (int x = 0; x < grid.width; ++x) {
            float const plain = Interpolated(heights, x, y);
            float const hills
                = noise.At(static_cast<float>(x) / length, static_cast<float>(y) / length, 5);
            float const rough
                = static_cast<float>(ground.roughness) * (14 + 0.20F * std::abs(plain));
            grid.metres.push_back(plain + rough * hills);
        }
    return grid;
}

struct Tint {
    float metres;
    QColor colour;
};

constexpr Tint tints[] = { { -450, { 206, 212, 170 } }, { -50, { 214, 221, 178 } },
    { 60, { 223, 229, 190 } }, { 350, { 236, 231, 198 } }, { 800, { 233, 218, 180 } },
    { 1400, { 219, 197, 156 } }, { 2200, { 206, 184, 150 } }, { 3200, { 240, 236, 230 } } };

void Paint(QImage& image, int x, int y, float metres, float light)
{
    auto const* upper = std::find_if(std::begin(tints), std::end(tints) - 1,
        [&](Tint const& tint) { return metres < tint.metres; });
    auto const* lower = upper == std::begin(tints) ? upper : upper - 1;
    float const span = upper->metres - lower->metres;
    float const share = span > 0 ? std::clamp((metres - lower->metres) / span, 0.0F, 1.0F) : 0;
    auto const shaded = [&](int from, int to) {
        return std::clamp(
            static_cast<int>(
                std::lerp(static_cast<float>(from), static_cast<float>(to), share) * light),
            0, 255);
    };
    image.setPixel(x, y,
        qRgb(shaded(lower->colour.red(), upper->colour.red()),
            shaded(lower->colour.green(), upper->colour.green()),
            shaded(lower->colour.blue(), upper->colour.blue())));
}

} // namespace

QImage PaintRelief(Projection const& projection, Ground const& ground)
{
    auto const grid = Heights(projection, ground);
    // Steeper than it is, so that it can be seen: a slope of a metre in 22 pixels is lit or shaded
    // by a hundredth.
    constexpr float steepness = 0.0022F;
    QImage image(grid.width, grid.height, QImage::Format_RGB32);
    for (int y = 0; y < grid.height; ++y)
        for (int x = 0; x < grid.width; ++x) {
            float const east = grid.At(x + 1, y) - grid.At(x - 1, y);
            float const south = grid.At(x, y + 1) - grid.At(x, y - 1);
            float const lit
                = std::tanh((east + south) * steepness * static_cast<float>(ground.steepness));
            Paint(image, x, y, grid.At(x, y), 1 + 0.20F * lit);
        }
    return image.scaled(image.size() * step, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .copy(QRect(QPoint(0, 0), projection.Size()))
        .convertToFormat(QImage::Format_RGB32);
}

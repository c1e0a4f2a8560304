#include "map_regions.h"

#include <QPainter>

#include <algorithm>

static constexpr int cell = 4; // pixels: borders are found on a grid of cells and smoothed

namespace {

struct Field {
    int width, height;
    std::vector<float> values;
    float& At(int x, int y) { return values[std::size_t(y) * std::size_t(width) + std::size_t(x)]; }
};

/// The mean over a square of cells, which blurs.
void Blur(Field& field, int radius)
{
    auto const pass = [&](bool across) {
        auto const before = field.values;
        int const length = across ? field.width : field.height,
                  lines = across ? field.height : field.width;
        for (int line = 0; line < lines; ++line) {
            auto const index = [&](int at) {
                int const held = std::clamp(at, 0, length - 1);
                return static_cast<std::size_t>(
                    across ? line * field.width + held : held * field.width + line);
            };
            float sum = 0;
            for (int at = -radius; at <= radius; ++at)
                sum += before[index(at)];
            for (int at = 0; at < length; ++at) {
                field.values[index(at)] = sum / static_cast<float>(2 * radius + 1);
                sum += before[index(at + radius + 1)] - before[index(at - radius)];
            }
        }
    };
    for (bool const across : { true, false, true, false })
        pass(across);
}

Field FieldOf(Projection const& projection, Region const& region)
{
    auto const size = projection.Size() / cell + QSize(1, 1);
    QImage mask(size, QImage::Format_Grayscale8);
    mask.fill(0);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(1.0 / cell, 1.0 / cell);
    painter.fillPath(Smooth(Project(projection, region.spots), true), Qt::white);
    painter.end();
    Field field { size.width(), size.height(), {} };
    for (int y = 0; y < field.height; ++y)
        for (int x = 0; x < field.width; ++x)
            field.values.push_back(static_cast<float>(mask.constScanLine(y)[x]) / 255);
    Blur(field, 5);
    if (region.isEnclave)
        for (auto& value : field.values)
            value *= 2; // At its own border it is a match for the land about it.
    return field;
}

/// Each cell goes to the region that has most of the land about it. A cell with little of any is
/// nobody's.
void Divide(std::vector<Field>& fields)
{
    constexpr float least = 0.3F;
    for (std::size_t i = 0; i < fields[0].values.size(); ++i) {
        auto const owner = std::max_element(fields.begin(), fields.end(),
            [i](Field const& a, Field const& b) { return a.values[i] < b.values[i]; });
        bool const isOwned = owner->values[i] > least;
        for (auto field = fields.begin(); field != fields.end(); ++field)
            field->values[i] = isOwned && field == owner ? 1.0F : 0.0F;
    }
}

QImage Enlarged(Field& field, QSize const& size)
{
    QImage mask(field.width, field.height, QImage::Format_Grayscale8);
    for (int y = 0; y < field.height; ++y)
        for (int x = 0; x < field.width; ++x)
            mask.scanLine(y)[x] = static_cast<uchar>(255 * field.At(x, y));
    return mask.scaled(mask.size() * cell, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .copy(QRect(QPoint(0, 0), size))
        .convertToFormat(QImage::Format_Grayscale8);
}

QRgb Tinted(QRgb ground, QColor const& tint, float share)
{
    auto const mix = [share](int from, int to) {
        return static_cast<int>(static_cast<float>(from) + static_cast<float>(to - from) * share);
    };
    return qRgb(mix(qRed(ground), tint.red()), mix(qGreen(ground), tint.green()),
        mix(qBlue(ground), tint.blue()));
}

/// A light tint within, a stronger band along the border, a line on it.
void PaintRegion(QImage& land, QColor const& tint, QImage const& mask, QImage const& band)
{
    constexpr QColor line { 132, 26, 52 };
    for (int y = 0; y < land.height(); ++y) {
        auto* const pixels = reinterpret_cast<QRgb*>(land.scanLine(y));
        for (int x = 0; x < land.width(); ++x) {
            int const inside = mask.constScanLine(y)[x];
            if (inside < 90)
                continue;
            if (inside < 165) {
                pixels[x] = Tinted(pixels[x], line, 0.5F);
                continue;
            }
            float const edge = 1 - static_cast<float>(band.constScanLine(y)[x]) / 255;
            pixels[x] = Tinted(pixels[x], tint, 0.2F + 0.6F * edge);
        }
    }
}

} // namespace

void PaintRegions(QImage& land, Projection const& projection, std::vector<Region> const& regions)
{
    if (regions.empty())
        return;
    std::vector<Field> fields;
    fields.reserve(regions.size());
    for (auto const& region : regions)
        fields.push_back(FieldOf(projection, region));
    Divide(fields);
    for (std::size_t i = 0; i < regions.size(); ++i) {
        Field smooth = fields[i], wide = fields[i];
        Blur(smooth, 1);
        Blur(wide, 4);
        PaintRegion(
            land, regions[i].tint, Enlarged(smooth, land.size()), Enlarged(wide, land.size()));
    }
}

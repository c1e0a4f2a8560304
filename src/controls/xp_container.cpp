#include "controls/xp_container.h"

#include "base/rounding.h"
#include "controls/colour.h"

#include <algorithm>

/// Header light and dark, back light and dark, border, text.
struct PanelTheme {
    Colour headerLight, headerDark, backLight, backDark, border, text;
};

static constexpr Colour Hex(unsigned value)
{
    return Rgb(value >> 16, (value >> 8) & 0xFF, value & 0xFF);
}

static constexpr PanelTheme themes[] = {
    { Hex(0xD3E0F7), Hex(0xA7C5ED), Hex(0xEFF4FC), Hex(0xDCE8FA), Hex(0xADC1DC), Hex(0x022D7B) },
    { Hex(0xD3DCEC), Hex(0xA8BADA), Hex(0xEFF2F8), Hex(0xDDE5F1), Hex(0xA0B4D6), Hex(0x172A4B) },
    { Hex(0xC8E5D8), Hex(0x92CBB1), Hex(0xEBF5F1), Hex(0xD5EBE1), Hex(0x88C6AA), Hex(0x003B21) },
    { Hex(0xE8EAE0), Hex(0xD1D6C2), Hex(0xF7F8F4), Hex(0xEDEFE7), Hex(0xCDD3BC), Hex(0x414732) },
    { Hex(0xC8E3F1), Hex(0x92C9E4), Hex(0xEBF5FA), Hex(0xD5EAF5), Hex(0x88C4E2), Hex(0x003955) },
    { Hex(0xE3F2DA), Hex(0xC8E5B5), Hex(0xF5FAF1), Hex(0xEAF5E3), Hex(0xC3E3AE), Hex(0x385724) },
    { Hex(0xFDE2D2), Hex(0xFAC6A7), Hex(0xFEF5EF), Hex(0xFDE9DD), Hex(0xFAC09F), Hex(0x6D3616) },
    { Hex(0xD6E3E3), Hex(0xAEC9C9), Hex(0xF0F5F5), Hex(0xE0EAEA), Hex(0xA6C4C4), Hex(0x1D3939) },
    { Hex(0xDFD7EA), Hex(0xBFB0D5), Hex(0xF3F1F7), Hex(0xE6E1EF), Hex(0xB9A9D1), Hex(0x2F2046) },
    { Hex(0xFBD2D6), Hex(0xF8A6AE), Hex(0xFEEFF0), Hex(0xFCDDE0), Hex(0xF79EA7), Hex(0x6A151D) },
    { Hex(0xE9EAEC), Hex(0xD3D6D9), Hex(0xF7F7F8), Hex(0xEEEFF1), Hex(0xCFD2D6), Hex(0x44474A) },
    { Hex(0xFCFAE4), Hex(0xF4EEB9), Hex(0xFDFCEE), Hex(0xFAF7DC), Hex(0xEAE195), Hex(0xE1D566) },
};

XPContainer::XPContainer(
    Form& form, Control& container, char const* name, Bounds bounds, TextView caption)
    : Control(form, container, name, bounds)
    , HeaderLightColor(*this, "HeaderLightColor", themes[0].headerLight)
    , HeaderDarkColor(*this, "HeaderDarkColor", themes[0].headerDark)
    , BackLightColor(*this, "BackLightColor", themes[0].backLight)
    , BackDarkColor(*this, "BackDarkColor", themes[0].backDark)
    , BorderColor(*this, "BorderColor", themes[0].border)
    , TextColor(*this, "TextColor", themes[0].text)
    , Caption(*this, "Caption", ::Text(caption))
    , Style(*this, "Style", 0)
    , Theme(*this, "Theme", 0)
{
}

void XPContainer::Assigned(PropertyBase const& property, bool)
{
    if (&property != &Theme || Theme < 0 || Theme >= static_cast<int>(std::size(themes)))
        return;
    auto const& theme = themes[Theme()];
    HeaderLightColor = theme.headerLight;
    HeaderDarkColor = theme.headerDark;
    BackLightColor = theme.backLight;
    BackDarkColor = theme.backDark;
    BorderColor = theme.border;
    TextColor = theme.text;
}

/// One part of a colour on its way down the rows of a gradient: a running value, rounded for each
/// row alone.
class RunningPart {
public:
    RunningPart(Colour first, Colour second, int shift, int steps)
        : m_value(static_cast<float>((first >> shift) & 0xFF))
        , m_step(
              (m_value - static_cast<float>((second >> shift) & 0xFF)) / static_cast<float>(steps))
    {
    }

    /// The present row's value, held within 0 to 255; advances to the next row.
    unsigned Next()
    {
        auto const rounded = RoundToEven(static_cast<double>(m_value));
        m_value -= m_step;
        return static_cast<unsigned>(std::clamp<std::int64_t>(rounded, 0, 255));
    }

private:
    float m_value, m_step;
};

/// Rows of a gradient that reaches `second` after `steps` rows and continues after it. With no step
/// there is no gradient, and nothing is painted.
static void PaintGradient(
    Canvas& canvas, int left, int right, int top, int rows, int steps, Colour first, Colour second)
{
    if (steps <= 0)
        return;
    first = ResolvedColour(first);
    second = ResolvedColour(second);
    RunningPart red(first, second, 0, steps), green(first, second, 8, steps),
        blue(first, second, 16, steps);
    for (int row = 0; row < rows; ++row) {
        unsigned const r = red.Next(), g = green.Next(), b = blue.Next();
        canvas.HorizontalLine(left, right, top + row, Rgb(r, g, b));
    }
}

Canvas XPContainer::Surface() const
{
    Canvas canvas(0, 0, 0);
    PaintOn(canvas);
    return canvas;
}

void XPContainer::PaintOn(Canvas& canvas) const
{
    int const width = Pixels(Width);
    int const height = Pixels(Height);
    canvas.Clear(width, height, ResolvedColour(BackLightColor));
    int const inside = width - 2;
    if (Style == 0) {
        int const bodyTop = headerHeight + 1;
        int const steps = height - (headerHeight + 2) - 1;
        PaintGradient(
            canvas, 0, inside, bodyTop, height - bodyTop, steps, BackLightColor, BackDarkColor);
    } else {
        PaintGradient(canvas, 0, width, 0, height, height - 1, BackLightColor, BackDarkColor);
    }
    auto const border = ResolvedColour(BorderColor);
    canvas.HorizontalLine(0, width, 0, border);
    canvas.HorizontalLine(0, width, height - 1, border);
    canvas.VerticalLine(0, 0, height, border);
    canvas.VerticalLine(width - 1, 0, height, border);
    // The strip is painted on the panel, over the border where a panel is as low as the strip.
    if (Style == 0)
        PaintGradient(canvas, 1, 1 + inside, 1, headerHeight, headerHeight - 1, HeaderLightColor,
            HeaderDarkColor);
}

// The panel's pixels and its themes.

#include "controls/log_form.h"
#include "controls/xp_container.h"

using testing::ElementsAre;

namespace {

class PanelTest : public FormsTest {
protected:
    PanelTest()
    {
        panel.HeaderLightColor = red;
        panel.HeaderDarkColor = darkRed;
        panel.BorderColor = border;
    }

    static constexpr Colour red = Rgb(220, 0, 0), darkRed = Rgb(0, 0, 0), border = Rgb(1, 2, 3),
                            white = Rgb(255, 255, 255);

    /// The panel at this size, in pixels.
    Canvas Painted(int width, int height)
    {
        panel.Width = static_cast<float>(width * 15);
        panel.Height = static_cast<float>(height * 15);
        auto surface = panel.Surface();
        EXPECT_EQ(surface.Width(), width);
        EXPECT_EQ(surface.Height(), height);
        return surface;
    }
    static Colour At(Canvas const& surface, int x, int y)
    {
        return surface.Pixels()[static_cast<std::size_t>(y * surface.Width() + x)];
    }
    void SetBody(Colour light, Colour dark)
    {
        panel.BackLightColor = light;
        panel.BackDarkColor = dark;
    }
    XPContainer panel { a, a, "panel", { 0, 0, 2475, 1920 }, u"Panel" };
};

} // namespace

TEST_F(PanelTest, StripAndBodyStandWithinTheBorder)
{
    SetBody(Rgb(140, 14, 0), Rgb(0, 0, 28));
    auto const surface = Painted(10, 40);
    for (int x = 0; x < 10; ++x)
        for (int y = 0; y < 40; ++y)
            if (x == 0 || x == 9 || y == 0 || y == 39) {
                EXPECT_EQ(At(surface, x, y), border) << x << ", " << y;
            }
    struct {
        char const* about;
        int x, y;
        Colour colour;
    } const rows[] = {
        { "the strip's first row", 1, 1, red },
        { "its right end", 8, 1, red },
        { "half way down", 5, 12, Rgb(110, 0, 0) },
        { "its last row", 5, 23, darkRed },
        { "the body's first row", 1, 24, Rgb(140, 14, 0) },
        { "a step of fourteen further", 7, 25, Rgb(130, 13, 2) },
        { "the second colour, one row above the border", 5, 38, Rgb(0, 0, 28) },
        { "the body's lines end a column before the border", 8, 38, Rgb(140, 14, 0) },
    };
    for (auto const& row : rows)
        EXPECT_EQ(At(surface, row.x, row.y), row.colour) << row.about;
}

TEST_F(PanelTest, AnyOtherStyleHasOneGradientOverAll)
{
    SetBody(Rgb(0, 100, 200), Rgb(200, 100, 0));
    for (int const style : { 1, 2, -1 }) {
        panel.Style = style;
        auto const surface = Painted(6, 11);
        EXPECT_EQ(At(surface, 3, 1), Rgb(20, 100, 180))
            << "the gradient starts in row 0, under the border";
        EXPECT_EQ(At(surface, 4, 5), Rgb(100, 100, 100)) << "up to the border";
        EXPECT_EQ(At(surface, 3, 9), Rgb(180, 100, 20));
        EXPECT_EQ(At(surface, 3, 10), border);
    }
}

TEST_F(PanelTest, EachRowIsRoundedForItselfHalvesToEven)
{
    panel.Style = 1;
    SetBody(Rgb(0, 255, 0), Rgb(2, 245, 0)); // steps of a half and of two and a half
    auto const surface = Painted(4, 5);
    EXPECT_EQ(At(surface, 1, 1), Rgb(0, 252, 0));
    EXPECT_EQ(At(surface, 1, 2), Rgb(1, 250, 0));
    EXPECT_EQ(At(surface, 1, 3), Rgb(2, 248, 0));
}

TEST_F(PanelTest, APanelTooSmallPaintsWhatItCan)
{
    struct {
        char const* about;
        int style, width, height, x, y;
        Colour colour;
    } const rows[] = {
        { "a body of a single row has no gradient, but the border", 0, 10, 26, 0, 24, border },
        { "and the border's foot", 0, 10, 26, 5, 25, border },
        { "as low as the strip, which lies above the border", 0, 10, 24, 5, 23, darkRed },
        { "lower than the strip, which is cut", 0, 10, 12, 5, 11, Rgb(120, 0, 0) },
        { "beside the cut strip", 0, 10, 12, 0, 11, border },
        { "a row alone", 0, 10, 1, 5, 0, border },
        { "a row alone without a strip", 1, 10, 1, 5, 0, border },
        { "two columns, of nothing but border", 0, 2, 40, 1, 20, border },
        { "a column alone", 0, 1, 40, 0, 20, border },
        { "a pixel", 1, 1, 1, 0, 0, border },
    };
    for (auto const& row : rows) {
        panel.Style = row.style;
        auto const surface = Painted(row.width, row.height);
        EXPECT_EQ(At(surface, row.x, row.y), row.colour) << row.about;
    }
    for (int const style : { 0, 1 }) {
        panel.Style = style;
        Painted(0, 40);
        Painted(40, 0);
        Painted(0, 0);
    }
}

TEST_F(PanelTest, SystemColoursArePaintedAsWhatTheyStandFor)
{
    constexpr Colour window = 0x80000005, buttonFace = 0x8000000F;
    SetBody(window, window);
    panel.BorderColor = buttonFace;
    auto const surface = Painted(10, 60);
    EXPECT_EQ(At(surface, 5, 40), white);
    EXPECT_EQ(At(surface, 0, 0), Rgb(240, 240, 240));
    EXPECT_EQ(panel.BorderColor, buttonFace) << "the property keeps what it was given";
}

TEST_F(PanelTest, AThemeSetsSixColoursOneByOne)
{
    a.Show();
    std::vector<std::string> assigned;
    host.onAssigned = [&](Control& control, PropertyBase const& property) {
        if (&control == &panel)
            assigned.push_back(property.Name());
    };
    panel.Theme = 11;
    EXPECT_THAT(assigned,
        ElementsAre("Theme", "HeaderLightColor", "HeaderDarkColor", "BackLightColor",
            "BackDarkColor", "BorderColor", "TextColor"));
    auto const colours = [&] {
        return std::vector<Colour> { panel.HeaderLightColor, panel.HeaderDarkColor,
            panel.BackLightColor, panel.BackDarkColor, panel.BorderColor, panel.TextColor };
    };
    auto const eleven = colours();
    EXPECT_THAT(eleven,
        ElementsAre(Rgb(0xFC, 0xFA, 0xE4), Rgb(0xF4, 0xEE, 0xB9), Rgb(0xFD, 0xFC, 0xEE),
            Rgb(0xFA, 0xF7, 0xDC), Rgb(0xEA, 0xE1, 0x95), Rgb(0xE1, 0xD5, 0x66)));
    for (int const none : { 12, 1000, -1 }) {
        panel.Theme = none;
        EXPECT_EQ(panel.Theme, none);
        EXPECT_EQ(colours(), eleven) << none;
    }
    panel.Theme = 6;
    panel.TextColor = white;
    EXPECT_EQ(panel.Theme, 6) << "a colour of its own leaves the theme as it is";
    EXPECT_EQ(panel.BorderColor, Rgb(0xFA, 0xC0, 0x9F));
    panel.Theme = 6;
    EXPECT_EQ(panel.TextColor, Rgb(0x6D, 0x36, 0x16))
        << "set again, the theme sets its colours again";
}

#pragma once
// The themed panel: a container with a one-pixel border, a vertical gradient and a header strip. It
// paints itself, but for its caption, which a host puts over the strip (`captionLeft`, Tahoma 8.25
// bold, in `TextColor`).

#include "controls/canvas.h"

class XPContainer final : public Control {
public:
    static constexpr int headerHeight = 23; ///< pixels, below the border's first row
    static constexpr int captionLeft = 11; ///< pixels from the panel's left edge

    XPContainer(Form& form, Control& container, char const* name, Bounds bounds, TextView caption);

    char const* Kind() const override { return "XPContainer"; }

    /// The panel painted at its present size.
    Canvas Surface() const;
    /// The same, on a canvas that takes the panel's size.
    void PaintOn(Canvas& canvas) const;

    Property<Colour> HeaderLightColor, HeaderDarkColor, BackLightColor, BackDarkColor, BorderColor,
        TextColor;
    Property<::Text> Caption;
    Property<int> Style; ///< 0 with a header strip, anything else without
    Property<int> Theme; ///< setting it overwrites the six colours by the theme's; 12 themes from 0

protected:
    void Assigned(PropertyBase const& property, bool changed) override;
};

#pragma once
// The colours of all pictures: the blues of the program's panels, night behind them, and the lamp's
// warm light.

#include <QColor>

namespace palette {

inline constexpr QColor night { 6, 11, 38 };
inline constexpr QColor deepBlue { 16, 30, 88 };
inline constexpr QColor panelText { 2, 45, 123 }; // #022D7B
inline constexpr QColor strongBlue { 0, 0, 192 }; // #0000C0, the panels' border
inline constexpr QColor blue { 58, 96, 176 };
inline constexpr QColor panelBorder { 173, 193, 220 }; // #ADC1DC
inline constexpr QColor panelHeader { 167, 197, 237 }; // #A7C5ED
inline constexpr QColor panelDark { 220, 232, 250 }; // #DCE8FA
inline constexpr QColor panelLight { 239, 244, 252 }; // #EFF4FC
inline constexpr QColor paper { 253, 250, 241 };
inline constexpr QColor paperShade { 226, 215, 189 };
inline constexpr QColor dawn { 250, 203, 142 };
inline constexpr QColor flame { 255, 214, 110 };
inline constexpr QColor flameHeart { 255, 250, 224 };
inline constexpr QColor clay { 190, 112, 64 };
inline constexpr QColor clayDark { 112, 56, 32 };
inline constexpr QColor clayLight { 228, 160, 104 };
inline constexpr QColor gold { 224, 172, 72 };

} // namespace palette

/// The colour with another opacity, 0 to 1.
inline QColor Faint(QColor colour, qreal opacity)
{
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
}

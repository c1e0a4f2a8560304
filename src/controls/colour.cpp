#include "controls/colour.h"

#include <iterator>

static constexpr Colour systemMark = 0x80000000;

static constexpr Colour systemColours[] = {
    Rgb(227, 227, 227), // scroll bar
    Rgb(0, 0, 0), // desktop
    Rgb(49, 106, 197), // title bar of the active window
    Rgb(160, 160, 160), // title bar of other windows
    Rgb(240, 240, 240), // menu
    Rgb(255, 255, 255), // window
    Rgb(105, 105, 105), // window frame
    Rgb(0, 0, 0), // text of menus
    Rgb(0, 0, 0), // text of windows
    Rgb(255, 255, 255), // text of the active title bar
    Rgb(240, 240, 240), // border of the active window
    Rgb(240, 240, 240), // border of other windows
    Rgb(160, 160, 160), // ground of windows within windows
    Rgb(49, 106, 197), // selection
    Rgb(255, 255, 255), // text of a selection
    Rgb(240, 240, 240), // face of buttons
    Rgb(160, 160, 160), // shadow of buttons
    Rgb(109, 109, 109), // text of what is disabled
    Rgb(0, 0, 0), // text of buttons
    Rgb(0, 0, 0), // text of other title bars
    Rgb(255, 255, 255), // highlight of buttons
    Rgb(105, 105, 105), // dark shadow of buttons
    Rgb(227, 227, 227), // light edge of buttons
    Rgb(0, 0, 0), // text of tool tips
    Rgb(255, 255, 225), // ground of tool tips
};

Colour ResolvedColour(Colour colour)
{
    if ((colour & 0xFF000000) != systemMark)
        return colour & 0xFFFFFF;
    auto const number = colour & 0xFFFFFF;
    return number < std::size(systemColours) ? systemColours[number] : Rgb(0, 0, 0);
}

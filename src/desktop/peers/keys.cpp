#include "desktop/peers/keys.h"

#include "controls/control.h"

#include <QKeyEvent>

struct KeyPair {
    Qt::Key key;
    int code;
};

static constexpr KeyPair keys[] = { { Qt::Key_Backspace, 8 }, { Qt::Key_Tab, 9 },
    { Qt::Key_Backtab, 9 }, { Qt::Key_Return, keyEnter }, { Qt::Key_Enter, keyEnter },
    { Qt::Key_Shift, 16 }, { Qt::Key_Control, 17 }, { Qt::Key_Alt, 18 }, { Qt::Key_Pause, 19 },
    { Qt::Key_CapsLock, 20 }, { Qt::Key_Escape, keyEscape }, { Qt::Key_PageUp, 33 },
    { Qt::Key_PageDown, 34 }, { Qt::Key_End, 35 }, { Qt::Key_Home, 36 }, { Qt::Key_Left, 37 },
    { Qt::Key_Up, 38 }, { Qt::Key_Right, 39 }, { Qt::Key_Down, 40 }, { Qt::Key_Insert, 45 },
    { Qt::Key_Delete, 46 } };

int KeyCodeOf(QKeyEvent const& event)
{
    int const key = event.key();
    bool const isItself = key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9)
        || (key >= Qt::Key_A && key <= Qt::Key_Z);
    if (isItself)
        return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return key - Qt::Key_F1 + 112;
    for (auto const& pair : keys)
        if (pair.key == key)
            return pair.code;
    return 0;
}

int ShiftOf(QKeyEvent const& event)
{
    auto const held = event.modifiers();
    return (held & Qt::ShiftModifier ? shiftKey : 0) + (held & Qt::ControlModifier ? controlKey : 0)
        + (held & Qt::AltModifier ? altKey : 0);
}

bool IsModifier(QKeyEvent const& event)
{
    switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_Mode_switch:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
        return true;
    default:
        return false;
    }
}

bool IsStruckWithAlt(QKeyEvent const& event)
{
    // Where AltGr counts as a modifier, it is a group switch, or Ctrl and Alt together.
    auto const held = event.modifiers();
    bool const isAlt
        = (held & Qt::AltModifier) && !(held & (Qt::ControlModifier | Qt::GroupSwitchModifier));
    return isAlt && !event.text().isEmpty() && event.text().front().isPrint();
}

char16_t CharacterOf(QKeyEvent const& event)
{
    if (IsStruckWithAlt(event))
        return u'\0';
    return event.text().size() == 1 ? event.text().front().unicode() : u'\0';
}

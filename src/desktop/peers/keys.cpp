#include "desktop/peers/keys.h"

#include "controls/control.h"

#include <QKeyEvent>

struct KeyPair {
    Qt::Key key;
    int code;
};

static constexpr KeyPair keys[] = { { Qt::Key_Backspace, keyBackspace }, { Qt::Key_Tab, keyTab },
    { Qt::Key_Backtab, keyTab }, { Qt::Key_Return, keyEnter }, { Qt::Key_Enter, keyEnter },
    { Qt::Key_Shift, keyShift }, { Qt::Key_Control, keyControl }, { Qt::Key_Alt, keyAlt },
    { Qt::Key_Pause, keyPause }, { Qt::Key_CapsLock, keyCapsLock }, { Qt::Key_Escape, keyEscape },
    { Qt::Key_PageUp, keyPageUp }, { Qt::Key_PageDown, keyPageDown }, { Qt::Key_End, keyEnd },
    { Qt::Key_Home, keyHome }, { Qt::Key_Left, keyLeft }, { Qt::Key_Up, keyUp },
    { Qt::Key_Right, keyRight }, { Qt::Key_Down, keyDown }, { Qt::Key_Insert, keyInsert },
    { Qt::Key_Delete, keyDelete }, { Qt::Key_Plus, keyPlus }, { Qt::Key_Equal, keyPlus },
    { Qt::Key_Minus, keyMinus } };

int KeyCodeOf(QKeyEvent const& event)
{
    int const key = event.key();
    bool const isItself = key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9)
        || (key >= Qt::Key_A && key <= Qt::Key_Z);
    if (isItself)
        return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return key - Qt::Key_F1 + keyF1;
    if (event.modifiers() & Qt::KeypadModifier && (key == Qt::Key_Plus || key == Qt::Key_Minus))
        return key == Qt::Key_Plus ? keyAdd : keySubtract;
    for (auto const& pair : keys)
        if (pair.key == key)
            return pair.code;
    return 0;
}

int ShiftOf(QKeyEvent const& event)
{
    auto const held = event.modifiers();
    return (held & Qt::ShiftModifier ? shiftHeld : 0)
        + (held & Qt::ControlModifier ? controlHeld : 0) + (held & Qt::AltModifier ? altHeld : 0);
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

bool IsTypedWithAlt(QKeyEvent const& event)
{
    // Where AltGr counts as a modifier, it is a group switch, or Ctrl and Alt together.
    auto const held = event.modifiers();
    bool const isAlt
        = (held & Qt::AltModifier) && !(held & (Qt::ControlModifier | Qt::GroupSwitchModifier));
    return isAlt && !event.text().isEmpty() && event.text().front().isPrint();
}

char16_t CharacterOf(QKeyEvent const& event)
{
    if (IsTypedWithAlt(event))
        return u'\0';
    return event.text().size() == 1 ? event.text().front().unicode() : u'\0';
}

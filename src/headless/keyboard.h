#pragma once
// What a keyboard does to the controls: typing, editing keys, Tab, shortcuts, default and cancel
// buttons, the keys of lists, bars and trees.

#include "controls/input.h"

/// Types a text at the caret, over the selection, a character at a time; CR LF is one Enter.
Refusal Type(Input& input, TextInput& box, TextView text);

/// Presses and releases a key (its virtual key code: 13 Enter, 27 Escape, 37 to 40 the arrows,
/// letters by their capitals) on a control, which gets the focus if it can hold it, or on a form on
/// which nothing has the focus. `shift` is a sum of Shift values.
Refusal Press(Input& input, Screen& screen, Control& target, int keyCode, int shift);

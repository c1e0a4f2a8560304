#pragma once
// The keys that work inside a text: moving the caret, selecting, deleting, the clipboard.

#include "controls/input.h"

/// True if the key means something inside a text; then it has been done.
bool PressInText(Input& input, Host& host, TextInput& box, int keyCode, int shift);

/// Replaces the selection of a box that can be written in, as typing does.
Refusal ReplaceByUser(Input& input, TextInput& box, TextView text);

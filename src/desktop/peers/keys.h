#pragma once
// Keys as the model counts them.

#include "controls/key_codes.h"

class QKeyEvent;

/// The virtual key code; 0 for a key that has none.
int KeyCodeOf(QKeyEvent const& event);
/// The modifiers as a sum of Shift values.
int ShiftOf(QKeyEvent const& event);
/// True for Shift, Ctrl and their like, which do nothing by themselves.
bool IsModifier(QKeyEvent const& event);
/// True for a character with Alt, which is meant for a menu. AltGr isn't Alt.
bool IsTypedWithAlt(QKeyEvent const& event);
/// The character that the key types; 0 if it types none or more than one.
char16_t CharacterOf(QKeyEvent const& event);

#pragma once
// Virtual key codes, as key events carry them. A letter's code is its capital, a digit's the digit.

enum KeyCode : int {
    keyBackspace = 8,
    keyTab = 9,
    keyEnter = 13,
    keyShift = 16,
    keyControl,
    keyAlt,
    keyPause,
    keyCapsLock,
    keyEscape = 27,
    keySpace = 32,
    keyPageUp,
    keyPageDown,
    keyEnd,
    keyHome,
    keyLeft,
    keyUp,
    keyRight,
    keyDown,
    keyInsert = 45,
    keyDelete,
    keyLeftSystem = 91,
    keyRightSystem,
    keyAdd = 107, // of the number pad
    keySubtract = 109,
    keyF1 = 112,
    keyF4 = keyF1 + 3,
    keyNumLock = 144,
    keyScrollLock,
    keyLeftShift = 160, // the first of six: Shift, Ctrl and Alt, each left and right
    keyRightAlt = 165,
    keyPlus = 187, // beside the letters, shifted or not
    keyMinus = 189
};

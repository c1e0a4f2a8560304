#pragma once
// The dialog that explains the lesson screen and how to work through a lesson.

#include "dialogs/long_text_dialog.h"

class frmGettingStarted final : public LongTextDialog {
public:
    explicit frmGettingStarted(Screen& screen); // outlives the form
};

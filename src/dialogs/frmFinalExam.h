#pragma once
// The dialog with the final exam, an appeal to the reader.

#include "dialogs/long_text_dialog.h"

class frmFinalExam final : public LongTextDialog {
public:
    explicit frmFinalExam(Screen& screen); // outlives the form
};

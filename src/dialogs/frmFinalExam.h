#pragma once
// The dialog with the final exam, an appeal to the reader.

#include "controls/button.h"
#include "controls/form.h"
#include "controls/rich_text_box.h"

class frmFinalExam final : public Form {
public:
    explicit frmFinalExam(Screen& screen); // outlives the form

private:
    void Form_Load() override;
    void Command1_Click();

    RichTextBox RichTextBox1 { *this, *this, "RichTextBox1", { 240, 195, 8670, 6450 } };
    CommandButton Command1 { *this, *this, "Command1", { 8145, 6840, 735, 315 }, u"OK" };
};

#pragma once
// The dialog that explains the lesson screen and how to work through a lesson.

#include "controls/button.h"
#include "controls/form.h"
#include "controls/rich_text_box.h"

class frmGettingStarted final : public Form {
public:
    explicit frmGettingStarted(Screen& screen); // outlives the form

private:
    void Form_Load() override;
    void Command1_Click();

    RichTextBox RichTextBox1 { *this, *this, "RichTextBox1", { 165, 255, 9570, 7320 } };
    CommandButton Command1 { *this, *this, "Command1", { 8895, 7755, 840, 315 }, u"OK" };
};

#include "dialogs/frmFinalExam.h"

#include "dialogs/long_text.h"

frmFinalExam::frmFinalExam(Screen& screen)
    : Form(screen, "frmFinalExam", u"The Final Exam", 9165, 7335)
{
    border = BorderStyle::Dialog;
    minimiseButton = false;
    maximiseButton = false;
    centred = true;
    Picture = u":dialog";
    inTaskbar = false;
    RichTextBox1.Locked = true;
    RichTextBox1.TabIndex = 1;
    Command1.TabIndex = 0;
    Command1.Default = true;
    Command1.Cancel = true;
    Command1.Click = [this] { Command1_Click(); };
}

void frmFinalExam::Form_Load()
{
    WriteLongText(RichTextBox1, finalExamText);
}

void frmFinalExam::Command1_Click()
{
    Unload(*this);
}

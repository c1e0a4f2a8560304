#include "dialogs/frmGettingStarted.h"

#include "dialogs/long_text.h"

frmGettingStarted::frmGettingStarted(Screen& screen)
    : Form(screen, "frmGettingStarted", u"Getting Started", 9900, 8205)
{
    border = BorderStyle::Dialog;
    minimiseButton = false;
    maximiseButton = false;
    centred = true;
    Picture = u":getting-started";
    RichTextBox1.FontName = u"Arial";
    RichTextBox1.Locked = true;
    RichTextBox1.TabIndex = 1;
    Command1.TabIndex = 0;
    Command1.Default = true;
    Command1.Cancel = true;
    Command1.Click = [this] { Command1_Click(); };
}

void frmGettingStarted::Form_Load()
{
    WriteLongText(RichTextBox1, gettingStartedText);
}

void frmGettingStarted::Command1_Click()
{
    Unload(*this);
}

#include "dialogs/long_text_dialog.h"

LongTextDialog::LongTextDialog(Screen& screen, Design const& design)
    : Form(screen, design.name, design.caption, design.client.width, design.client.height)
    , RichTextBox1(*this, *this, "RichTextBox1", design.textBox)
    , Command1(*this, *this, "Command1", design.button, u"OK")
    , m_text(design.text)
{
    border = BorderStyle::Dialog;
    minimiseButton = false;
    maximiseButton = false;
    centred = true;
    RichTextBox1.Locked = true;
    RichTextBox1.isReadingPane = true;
    RichTextBox1.TabIndex = 1;
    Command1.TabIndex = 0;
    Command1.Default = true;
    Command1.Cancel = true;
    Command1.Click = [this] { Command1_Click(); };
}

void LongTextDialog::Form_Load()
{
    WriteLongText(RichTextBox1, m_text);
}

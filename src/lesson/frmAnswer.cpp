#include "lesson/frmAnswer.h"

#include "controls/screen.h"

frmAnswer::frmAnswer(Screen& screen)
    : Form(screen, "frmAnswer", u" Answers from Sparrowfield", 5370, 2000)
{
    border = BorderStyle::Dialog;
    minimiseButton = false;
    maximiseButton = false;
    inTaskbar = false;
    BackColor = Rgb(255, 255, 255);
    Picture = u":answer";
    Label1.AutoSize = true;
    Label1.WordWrap = true;
    Label1.FontSize = 9.75F;
    Label1.isReadingPane = true;
    OKButton.Default = true;
    OKButton.Cancel = true;
    Label1.Click = [this] { Label1_Click(); };
    OKButton.Click = [this] { OKButton_Click(); };
}

void frmAnswer::FitText()
{
    if (IsLoaded())
        SetText(Text(Label1.Caption));
}

void frmAnswer::SetText(TextView text)
{
    Load(*this);
    Label1.Caption = Text(text);
    OKButton.Top = Label1.Height + 400 - 30;
    if (Contains(text, u"Answers will vary"))
        OKButton.Top = OKButton.Top + 300;
    Height = OKButton.Top + 800;
    Height = Height + 50;
}

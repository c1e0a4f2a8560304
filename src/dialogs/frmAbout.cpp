#include "dialogs/frmAbout.h"

frmAbout::frmAbout(Screen& screen)
    : Form(screen, "frmAbout", u"About Sparrowfield Interactive Bible Study", 7710, 2340)
{
    border = BorderStyle::Dialog;
    minimiseButton = false;
    maximiseButton = false;
    inTaskbar = false;
    centred = true;
    Picture = u":dialog";
    // the picture's own ground, around which the box is a little larger
    picIcon.BackColor = Rgb(16, 30, 88);
    for (Label* label : { &lblTitle, &lblVersion }) {
        label->FontSize = 9.75F;
        label->ForeColor = Rgb(0, 0, 192);
    }
    lblTitle.FontBold = true;
    lblVersion.FontBold = true;
    Label2.FontSize = 9.75F;
    Label2.FontBold = true;
    Label2.WordWrap = true;
    Label2.Caption = u"\u00A9 Sparrowfield House. Uses Qt (LGPL v3). In the public domain: "
                     u"SQLite, the King James Version and the World English Bible.";
    cmdOK.Default = true;
    cmdOK.Cancel = true;
    cmdOK.TabIndex = 0;
    cmdOK.Click = [this] { cmdOK_Click(); };
}

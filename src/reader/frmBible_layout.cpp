// The layout of the reader, in twips. Places inside a panel are relative to it. Each line may use
// what the lines before it have set.

#include "base/rounding.h"
#include "reader/frmBible.h"

void frmBible::Form_Resize()
{
    if (WindowState == FormState::Minimised)
        return;
    PlaceNavigation();
    PlaceContents();
    ProgressBar1.Top = ScaleHeight - StatusBar1.Height + 70;
    ProgressBar1.Left = 1500;
    ProgressBar1.Width = ScaleWidth - 1500 - 300;
}

void frmBible::PlaceNavigation()
{
    XPContainer3.Top = 90;
    XPContainer3.Left = 90;
    XPContainer3.Height = 820;
    XPContainer3.Width = ScaleWidth - 180;
    cboVersion.Left = 90;
    cboVersion.Top = 420;
    txtVerse.Left = cboVersion.Left + cboVersion.Width + 90;
    txtVerse.Top = cboVersion.Top();
    txtVerse.Height = cboVersion.Height();
    cmdOkay.Height = txtVerse.Height();
    cmdOkay.Left = txtVerse.Left + txtVerse.Width + 30;
    cmdOkay.Top = txtVerse.Top();
    cmdNext.Top = cmdOkay.Top();
    cmdNext.Left = XPContainer3.Width - cmdNext.Width - 90;
    cmdNext.Height = cmdOkay.Height();
    cmdPrev.Top = cmdOkay.Top();
    cmdPrev.Left = cmdNext.Left - cmdPrev.Width - 90;
    cmdPrev.Height = cmdOkay.Height();
}

void frmBible::PlaceContents()
{
    // Of the width without four gaps the index gets 0.65 quarters, the text 2, the notes the rest.
    auto const quarter
        = static_cast<float>(RoundToInt16(static_cast<double>((ScaleWidth - 360) / 4)));
    XPContainer1.Left = 90;
    XPContainer1.Top = XPContainer3.Height + 180;
    XPContainer1.Width = quarter * 0.65F;
    XPContainer1.Height = ScaleHeight - StatusBar1.Height - 270 - XPContainer3.Height;
    TreeView1.Left = 90;
    TreeView1.Top = 450;
    TreeView1.Width = XPContainer1.Width - 180;
    TreeView1.Height = XPContainer1.Height - 360 - 180;
    XPContainer2.Left = XPContainer1.Width + XPContainer1.Left + 90;
    XPContainer2.Top = XPContainer1.Top();
    XPContainer2.Width = quarter * 2;
    XPContainer2.Height = XPContainer1.Height();
    Text1.Left = 90;
    Text1.Width = XPContainer2.Width - 180;
    Text1.Top = 450;
    Text1.Height = XPContainer2.Height - 360 - 180;
    XPContainer4.Left = XPContainer2.Width + XPContainer2.Left + 90;
    XPContainer4.Top = XPContainer1.Top();
    XPContainer4.Height = XPContainer1.Height();
    XPContainer4.Width = ScaleWidth - 90 - XPContainer4.Left;
    txtNotes.Top = 450;
    txtNotes.Left = 90;
    txtNotes.Width = XPContainer4.Width - 180;
    txtNotes.Height = XPContainer4.Height - 360 - 180;
    cmdPrint.Top = txtNotes.Top - 140 - cmdPrint.Height;
    cmdPrint.Left = txtNotes.Left + txtNotes.Width - cmdPrint.Width - 50;
}

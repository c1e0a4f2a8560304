// The layout of frmMain, in twips. Places inside a panel or Image2 are relative to it. Each line
// may use what the lines before it have set.

#include "lesson/frmMain.h"

#include "controls/screen.h"

#include <algorithm>

void frmMain::Form_Resize()
{
    if (WindowState == FormState::Minimised)
        return;
    GrowToSmallest();
    ShrinkToScreen();
    float const w = Width;
    float const h = Height;
    Frame1.Left = (w - Frame1.Width) / 2;
    Frame1.Top = (h - Frame1.Height) / 2;
    float const margin = XPContainer3.Left;
    float const usable = h - StatusBar1.Height;
    HideForLayout();
    ProgressBar1.Top = usable + 75 - 690 - ProgressBar1.Height / 2;
    ProgressBar1.Left = w - 5025 + 700;
    // The rows where the panels of each column meet. On the first run the tree is still at the
    // place of its design.
    float const base = usable - 2 * margin;
    float const leftSplit = XPContainer3.Top + 33 * (base - XPContainer3.Top) / 100;
    float const rightSplit = TreeView1.Top + 28 * (base - TreeView1.Top) / 100;
    PlaceLeftColumn(w, base, leftSplit);
    PlaceRightColumn(w, base, rightSplit);
    PlacePageArea();
    lblStudy.Width = w - 700;
    ShowAfterLayout();
}

void frmMain::HideForLayout()
{
    for (Control* control : MovedControls())
        control->Visible = false;
    Image1.Tag = Image1.Visible ? u"True" : u"False";
    Image1.Visible = false;
    Text3.Tag = Text3.Visible ? u"True" : u"False";
    Text3.Visible = false;
    lblStudy.Visible = false;
}

void frmMain::PlaceLeftColumn(float w, float base, float leftSplit)
{
    float const margin = XPContainer3.Left;
    float const gap = margin / 2;
    XPContainer3.Width = w / 2 - gap - margin;
    XPContainer3.Height = leftSplit - gap - XPContainer3.Top;
    Text4.Top = 350;
    Text4.Left = 20;
    Text4.Width = XPContainer3.Width - 40;
    Text4.Height = XPContainer3.Height - 350 - 20;
    XPContainer2.Left = XPContainer3.Left();
    XPContainer2.Width = XPContainer3.Width();
    XPContainer2.Top = leftSplit + gap;
    XPContainer2.Height = base - XPContainer2.Top - 500;
    Image2.Left = 20;
    Image2.Top = 350;
    Image2.Width = XPContainer2.Width - 40;
    Image2.Height = XPContainer2.Height - 350 - 20;
}

void frmMain::PlaceRightColumn(float w, float base, float rightSplit)
{
    float const margin = XPContainer3.Left;
    float const gap = margin / 2;
    XPContainer4.Left = w / 2 + gap;
    XPContainer4.Width = (w - margin - XPContainer4.Left) / 2 - gap;
    XPContainer4.Height = rightSplit - gap - XPContainer4.Top;
    TreeView1.Top = 350;
    TreeView1.Left = 70;
    TreeView1.Width = XPContainer4.Width - 40 - 50;
    TreeView1.Height = XPContainer4.Height - 350 - 20;
    XPContainer5.Height = XPContainer4.Height();
    XPContainer5.Width = XPContainer4.Width();
    XPContainer5.Left = XPContainer4.Width + XPContainer4.Left + gap;
    TreeView2.Top = 350;
    TreeView2.Height = TreeView1.Height();
    TreeView2.Width = TreeView1.Width();
    TreeView2.Left = 70;
    XPContainer1.Left = XPContainer4.Left();
    XPContainer1.Width = 2 * XPContainer4.Width + gap;
    XPContainer1.Top = rightSplit + gap;
    XPContainer1.Height = base - XPContainer1.Top - 500 + 10;
    Text1.Top = 350;
    Text1.Left = 20;
    Text1.Width = XPContainer1.Width - 40;
    Text1.Height = XPContainer1.Height - Text1.Top - 20;
}

void frmMain::PlacePageArea()
{
    Command2.Left = 20;
    Command2.Top = XPContainer2.Height - Command2.Height - 60 - 300;
    Command1.Top = Command2.Top();
    Command1.Left = Image2.Width + Image2.Left - Command1.Width - 20;
    Command1.Height = Command2.Height();
    ctlScrollbar.Left = Command2.Width + 10 - 256;
    ctlScrollbar.Top = Command2.Top();
    ctlScrollbar.Width = Image2.Width - Command2.Width - Command1.Width - 10 + 512 - 10;
    ctlScrollbar.Height = Command2.Height();
    Text2.Top = 110;
    Text2.Width = Image2.Width - Text2.Left - 320;
    SetPageTextHeight();
    lblPageTitle.Top = Text2.Top();
    Image1.Top = Command1.Top - Image1.Height - 100;
    Image1.Left = Image2.Width - Image1.Width - 200 - Text3.Left;
    Text3.Left = Text2.Left();
    Text3.Width = Text2.Width();
    Text3.Top = Text2.Height + 15 + Text2.Top + 90;
    Text3.Height = Image1.Top - Text3.Top;
}

/// Half the panel, but no more than a text is comfortable to read in: the rest is for the answer.
void frmMain::SetPageTextHeight()
{
    constexpr float highest = 3200;
    Text2.Height = std::min(XPContainer2.Height / 2 - 650, highest);
}

void frmMain::ShowAfterLayout()
{
    for (Control* control : MovedControls())
        control->Visible = true;
    Image1.Visible = Image1.Tag() == u"True";
    Text3.Visible = Text3.Tag() == u"True";
    lblStudy.Visible = true;
}

/// Those that are hidden while they are moved and always shown afterwards.
std::array<Control*, 9> frmMain::MovedControls()
{
    return { &Text4, &TreeView1, &TreeView2, &Text1, &Command1, &Command2, &ctlScrollbar, &Text2,
        &lblPageTitle };
}

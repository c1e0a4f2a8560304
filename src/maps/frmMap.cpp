#include "maps/frmMap.h"

#include "base/rounding.h"
#include "controls/key_codes.h"
#include "controls/screen.h"

#include <algorithm>

static constexpr Colour mapGround = Rgb(192, 192, 255);

frmMap::frmMap(Screen& screen, FileSystem const& files)
    : Form(screen, "frmMap", u" Bible Maps", 573, 509, ScaleMode::Pixels)
    , m_files(files)
{
    opensAs = FormState::Maximised;
    BackColor = Rgb(224, 224, 224);
    icon = "map-icon";
    MouseIcon = u":pan";
    // twips: the steps of the bars rely on a window that isn't squeezed to nothing
    constexpr float narrowest = 1500;
    smallest = { narrowest, 0 };
    Picture1.BackColor = mapGround;
    Picture1.Border = true;
    Picture2.BackColor = mapGround;
    Picture2.AutoSize = true;
    Picture3.AutoSize = true;
    Picture3.Enabled = false;
    Picture3.Visible = false;
    Picture3.MousePointer = pointerSizeDiagonal;
    Timer1.Enabled = false;
    Picture1.accessibleName = u"Viewer";
    Picture2.accessibleName = u"Map";
    HScroll1.accessibleName = u"Move the map across";
    VScroll1.accessibleName = u"Move the map up and down";
    int place = 0;
    for (PictureBox* const box : { &Picture1, &Picture2, &Picture3 }) {
        box->TabStop = true;
        box->TabIndex = place++;
        box->KeyDown = [this](int keyCode, int) { HandleMapKey(keyCode); };
    }
    for (ScrollBar* const bar :
        { static_cast<ScrollBar*>(&HScroll1), static_cast<ScrollBar*>(&VScroll1) }) {
        bar->TabIndex = place++;
        bar->SmallChange = 20;
        bar->GotFocus = [this] { Picture2.SetFocus(); };
    }
    HScroll1.Change = HScroll1.Scroll
        = [this] { Picture2.Left = -static_cast<float>(HScroll1.Value); };
    VScroll1.Change = VScroll1.Scroll
        = [this] { Picture2.Top = -static_cast<float>(VScroll1.Value); };
    Picture2.MouseDown = [this](float x, float y) { Picture2_MouseDown(x, y); };
    Picture2.MouseMove = [this](float x, float y) { Picture2_MouseMove(x, y); };
    Picture2.MouseUp = [this](float, float) { Picture2_MouseUp(); };
    Timer1.Tick = [this] { Timer1_Timer(); };
}

void frmMap::Form_Resize()
{
    if (WindowState() != FormState::Minimised)
        ArrangeMapView();
}

void frmMap::LoadMyPicture(TextView filename)
{
    Picture2.Visible = false;
    Picture2.Picture = Text(filename);
    ArrangeMapView();
    if (Picture2.Width == 0)
        TellWhyEmpty(filename);
}

void frmMap::TellWhyEmpty(TextView filename) const
{
    auto const size = m_files.FileSize(filename);
    Failure const failure { Text(filename), 0, u"the file is no picture that can be shown" };
    GetScreen().Message((size ? failure : size.failure()).Message());
}

void frmMap::ArrangeMapView()
{
    for (Control* const control :
        std::initializer_list<Control*> { &Picture1, &Picture2, &Picture3, &HScroll1, &VScroll1 })
        control->Visible = false;
    float const width = ScaleWidth, height = ScaleHeight;
    auto const view = ArrangeMap({ width, height }, { Picture2.Width, Picture2.Height });
    Picture1.Left = 0;
    Picture1.Top = 0;
    VScroll1.Value = 0;
    HScroll1.Value = 0;
    VScroll1.Top = 0;
    HScroll1.Left = 0;
    VScroll1.Left = width - VScroll1.Width;
    HScroll1.Top = height - HScroll1.Height;
    ArrangeBar(VScroll1, VScroll1.Height, view.vertical);
    ArrangeBar(HScroll1, HScroll1.Width, view.horizontal);
    Picture1.Height = view.viewport.height;
    Picture1.Width = view.viewport.width;
    Picture2.Left = view.mapLeft;
    Picture2.Top = view.mapTop;
    if (view.hasCorner) {
        Picture3.Left = width - Picture3.Width;
        Picture3.Top = height - Picture3.Height;
        Picture3.Visible = WindowState() != FormState::Maximised;
    }
    Picture1.Visible = true;
    Picture2.Visible = true;
}

void frmMap::ArrangeBar(ScrollBar& bar, Property<float>& length, MapBar const& arranged)
{
    bar.LargeChange = arranged.largeChange;
    bar.Visible = arranged.isVisible;
    if (arranged.max)
        bar.Max = *arranged.max;
    if (arranged.length)
        length = *arranged.length;
}

void frmMap::Picture2_MouseDown(float x, float y)
{
    if (!HScroll1.Visible && !VScroll1.Visible)
        return;
    isDragging = true;
    MousePointer = pointerCustom;
    dragAnchorX = dragPointerX = x;
    dragAnchorY = dragPointerY = y;
    Timer1.Enabled = true;
}

void frmMap::Picture2_MouseMove(float x, float y)
{
    if (!isDragging)
        return;
    dragPointerX = x;
    dragPointerY = y;
}

void frmMap::EndDrag()
{
    isDragging = false;
    MousePointer = pointerDefault;
    Timer1.Enabled = false;
}

void frmMap::Timer1_Timer()
{
    if (!isDragging || (dragPointerX == dragAnchorX && dragPointerY == dragAnchorY))
        return;
    BringBack(VScroll1, dragAnchorY - dragPointerY);
    BringBack(HScroll1, dragAnchorX - dragPointerX);
}

/// Moves the map along one axis by the distance of the grabbed point from the pointer.
void frmMap::BringBack(ScrollBar& bar, float strayed)
{
    auto const moved = RoundToInt16(strayed + static_cast<float>(bar.Value));
    auto const value = std::min(std::max<std::int16_t>(moved, 0), bar.Max());
    if (bar.Visible && bar.Value != value)
        bar.Value = value;
}

/// A step of a view, less the part that both views have in common.
static void Page(ScrollBar& bar, int direction)
{
    if (!bar.Visible)
        return;
    int const wanted = bar.Value + direction * bar.LargeChange;
    bar.Value = static_cast<std::int16_t>(
        direction < 0 ? std::max<int>(wanted, bar.Min) : std::min<int>(wanted, bar.Max));
}

void frmMap::HandleMapKey(int keyCode)
{
    if (keyCode == keyUp)
        Page(VScroll1, -1);
    else if (keyCode == keyDown)
        Page(VScroll1, 1);
    else if (keyCode == keyLeft)
        Page(HScroll1, -1);
    else if (keyCode == keyRight)
        Page(HScroll1, 1);
    else if (keyCode == keyEscape)
        Unload(*this);
}

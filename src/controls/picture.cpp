#include "controls/picture.h"

#include "controls/screen.h"

Image::Image(Form& form, Control& container, char const* name, Bounds bounds, TextView picture)
    : Control(form, container, name, bounds)
    , Picture(*this, "Picture", ::Text(picture))
    , Stretch(*this, "Stretch", false)
    , TabStop(*this, "TabStop", false)
{
}

PictureBox::PictureBox(
    Form& form, Control& container, char const* name, Bounds bounds, TextView picture)
    : Control(form, container, name, bounds)
    , Picture(*this, "Picture", ::Text(picture))
    , AutoSize(*this, "AutoSize", false)
    , TabStop(*this, "TabStop", false)
    , BackColor(*this, "BackColor", Rgb(240, 240, 240))
    , Border(*this, "Border", false)
    , MousePointer(*this, "MousePointer", pointerDefault)
    , scale(form.scale)
{
}

float PictureBox::TwipsPerUnit() const
{
    return scale == ScaleMode::Pixels ? 15 : 1;
}

void PictureBox::Assigned(PropertyBase const& property, bool)
{
    if (!AutoSize || &property != &Picture)
        return;
    auto const pixels = ParentForm().GetScreen().GetHost().PictureSize(Picture);
    float const unitsPerPixel = 15 / Container()->TwipsPerUnit();
    Width = pixels ? pixels->width * unitsPerPixel : 0;
    Height = pixels ? pixels->height * unitsPerPixel : 0;
}

ImageList::ImageList(Form& form, char const* name, std::initializer_list<Entry> entries)
    : Control(form, form, name, {})
    , m_entries(entries)
{
    Visible.AssignSilently(false);
}

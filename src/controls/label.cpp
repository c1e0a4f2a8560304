#include "controls/label.h"

#include "controls/screen.h"

Label::Label(Form& form, Control& container, char const* name, Bounds bounds, TextView caption)
    : TextControl(form, container, name, bounds)
    , Caption(*this, "Caption", ::Text(caption))
    , Alignment(*this, "Alignment", TextAlignment::Left)
    , Transparent(*this, "Transparent", true)
    , AutoSize(*this, "AutoSize", false)
    , WordWrap(*this, "WordWrap", false)
    , MousePointer(*this, "MousePointer", pointerDefault)
{
}

void Label::Assigned(PropertyBase const& property, bool)
{
    bool const measured = &property == &Caption || (&property == &Width && WordWrap)
        || &property == &FontName || &property == &FontSize || &property == &FontBold;
    if (!AutoSize || !measured)
        return;
    Font const font { FontName, FontSize * LetterScale(), FontBold };
    auto const size
        = ParentForm().GetScreen().GetHost().MeasureText(font, Caption, WordWrap ? Width() : 0);
    Height = size.height;
    if (!WordWrap)
        Width = size.width;
}

Shape::Shape(Form& form, Control& container, char const* name, Bounds bounds, Colour fill)
    : Control(form, container, name, bounds)
    , FillColor(*this, "FillColor", fill)
{
}

Line::Line(Form& form, Control& container, char const* name, Bounds bounds, Colour colour)
    : Control(form, container, name, bounds)
    , BorderColor(*this, "BorderColor", colour)
{
}

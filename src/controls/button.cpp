#include "controls/button.h"

CommandButton::CommandButton(
    Form& form, Control& container, char const* name, Bounds bounds, TextView caption)
    : TextControl(form, container, name, bounds)
    , Caption(*this, "Caption", ::Text(caption))
    , Default(*this, "Default", false)
    , Cancel(*this, "Cancel", false)
{
}

CheckBox::CheckBox(
    Form& form, Control& container, char const* name, Bounds bounds, TextView caption)
    : TextControl(form, container, name, bounds)
    , Caption(*this, "Caption", ::Text(caption))
    , Value(*this, "Value", 0, [](Control const&, int value) { return value == 0 ? 0 : 1; })
{
}

void CheckBox::Assigned(PropertyBase const& property, bool changed)
{
    if (&property == &Value && changed)
        Raise(Click);
}

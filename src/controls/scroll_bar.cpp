#include "controls/scroll_bar.h"

#include "controls/form.h"

#include <algorithm>

ScrollBar::ScrollBar(Form& form, Control& container, char const* name, Bounds bounds)
    : Control(form, container, name, bounds)
    , Min(*this, "Min", 0)
    , Max(*this, "Max", 32767)
    , Value(*this, "Value", 0,
          [](Control const& control, std::int16_t value) {
              auto const& bar = static_cast<ScrollBar const&>(control);
              auto const [low, high] = std::minmax(bar.Min(), bar.Max());
              return std::clamp(value, low, high);
          })
    , SmallChange(*this, "SmallChange", 1)
    , LargeChange(*this, "LargeChange", 1)
{
}

void ScrollBar::Assigned(PropertyBase const& property, bool changed)
{
    if (&property == &Value && changed)
        Raise(m_dragging ? Scroll : Change);
}

ProgressBar::ProgressBar(Form& form, Control& container, char const* name, Bounds bounds)
    : Control(form, container, name, bounds)
    , Min(*this, "Min", 0)
    , Max(*this, "Max", 100)
    , Value(*this, "Value", 0, [](Control const& control, std::int64_t value) {
        auto const& bar = static_cast<ProgressBar const&>(control);
        return bar.Max < bar.Min ? bar.Min() : std::clamp(value, bar.Min(), bar.Max());
    })
{
}

StatusBar::StatusBar(Form& form, char const* name, Bounds bounds)
    : TextControl(form, form, name, bounds)
    , Panel1(*this, "Panel1")
    , Panel2(*this, "Panel2")
    , Panel1Width(*this, "Panel1Width", 0, NotBelowZero)
{
}

void StatusBar::FormResized(Size client)
{
    Left = 0;
    Top = std::max(0.0F, client.height - Height);
    Width = client.width;
}

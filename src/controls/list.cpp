#include "controls/list.h"

#include "controls/form.h"

ComboBox::ComboBox(
    Form& form, Control& container, char const* name, Bounds bounds, std::vector<::Text> entries)
    : TextControl(form, container, name, bounds)
    , List(*this, "List", std::move(entries))
    , ListIndex(*this, "ListIndex", -1,
          [](Control const& control, int index) {
              auto const& list = static_cast<ComboBox const&>(control).List();
              return index >= 0 && index < static_cast<int>(list.size()) ? index : -1;
          })
    , Text(*this, "Text", [](Control const& control) {
        auto const& box = static_cast<ComboBox const&>(control);
        return box.ListIndex < 0 ? ::Text() : box.List()[static_cast<std::size_t>(box.ListIndex())];
    })
{
}

void ComboBox::Assigned(PropertyBase const& property, bool)
{
    if (&property == &ListIndex)
        Raise(Click);
}

FileListBox::FileListBox(Form& form, char const* name, TextView pattern,
    std::function<std::vector<::Text>(TextView)> list)
    : Control(form, form, name, {})
    , Pattern(*this, "Pattern", ::Text(pattern))
    , List(*this, "List")
    , m_list(std::move(list))
{
    Visible.AssignSilently(false);
}

void FileListBox::Reset()
{
    Control::Reset();
    List.AssignSilently(m_list(Pattern));
}

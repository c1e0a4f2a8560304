#include "controls/menu.h"

#include "controls/form.h"

Menu::Menu(Form& form, char const* name, TextView caption)
    : Control(form, form, name, {})
    , Caption(*this, "Caption", ::Text(caption))
{
    form.m_menus.push_back(this);
}

MenuEntry::MenuEntry(Form& form, Menu& menu, char const* name, TextView caption, TextView shortcut)
    : Control(form, menu, name, {})
    , Caption(*this, "Caption", ::Text(caption))
    , Shortcut(*this, "Shortcut", ::Text(shortcut))
{
    menu.m_entries.push_back(this);
}

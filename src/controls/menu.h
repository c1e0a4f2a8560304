#pragma once
// Menus of a form's menu bar, and their entries. "&" in a caption marks the access key, the caption
// "-" a separator.

#include "controls/control.h"

#include <vector>

class Menu;

/// An entry of a menu. It has no place of its own and never holds the focus.
class MenuEntry final : public Control {
public:
    /// `shortcut` is written as it is shown, such as "Ctrl+X"; empty for none.
    MenuEntry(Form& form, Menu& menu, char const* name, TextView caption, TextView shortcut = {});

    char const* Kind() const override { return "MenuEntry"; }
    bool IsSeparator() const { return Caption() == u"-"; }

    Property<::Text> Caption;
    Property<::Text> Shortcut;
};

/// A menu of the menu bar. Menus and entries are shown in the order of construction.
class Menu final : public Control {
public:
    Menu(Form& form, char const* name, TextView caption);

    char const* Kind() const override { return "Menu"; }
    std::vector<MenuEntry*> const& Entries() const { return m_entries; }

    Property<::Text> Caption;

private:
    friend class MenuEntry;
    std::vector<MenuEntry*> m_entries;
};

#pragma once
// The menus that both main screens carry behind their own: the ways to the maps, the Bible reader,
// the final exam and the help dialogs. Each screen has menus of its own; the two differ in a few
// entries and in the order of the help menu.

#include "controls/form.h"
#include "controls/menu.h"
#include "maps/bible_maps.h"
#include "maps/frmMap.h"

#include <memory>
#include <string_view>
#include <vector>

enum class ReferenceScreen { Lesson, Catalogue };

/// The forms that the entries open. They outlive the menus. Both screens share one viewer of the
/// maps.
struct ReferenceForms {
    Form& finalExam;
    Form& about;
    Form& welcome;
    Form& gettingStarted;
    Form& video;
    Form& bible;
    frmMap& map;
};

class ReferenceMenus {
public:
    /// Adds the menus behind those that the form already has. An entry without a form is disabled.
    ReferenceMenus(Form& form, ReferenceScreen screen, ReferenceForms const& forms);

private:
    /// A row of a menu's table.
    struct Row {
        char const* name;
        TextView caption;
    };
    Menu& AddMenu(char const* name, TextView caption);
    void AddEntries(Menu& menu, std::initializer_list<Row> rows);
    void Open(std::string_view entry, Form& target);
    void AddMaps();
    void ShowMap(std::int16_t n, TextView title);

    Form& m_form;
    frmMap& m_map;
    std::vector<std::unique_ptr<Menu>> m_menus;
    std::vector<std::unique_ptr<MenuEntry>> m_entries;
};

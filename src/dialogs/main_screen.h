#pragma once
// What the lesson screen and the catalogue have in common: the black background and the menus,
// which differ in a few entries and in the order of the Help menu.

#include "controls/form.h"
#include "controls/menu.h"
#include "maps/bible_maps.h"
#include "maps/frmMap.h"

#include <memory>
#include <vector>

/// The forms that the menu entries open. They outlive the screens.
struct ReferenceForms {
    Form& finalExam;
    Form& about;
    Form& welcome;
    Form& gettingStarted;
    Form& video;
    Form& bible;
    frmMap& map;
};

class MainScreen : public Form {
protected:
    enum class Role { Lesson, Catalogue };

    MainScreen(Screen& screen, char const* name, TextView caption, Size client, Role role,
        ReferenceForms const& forms);

    Menu mnuFile { *this, "mnuFile", u"&File" };
    MenuEntry mnuFileSave { *this, mnuFile, "mnuFileSave", u"&Save My Answers" };
    MenuEntry mnuFileClose { *this, mnuFile, "mnuFileClose", u"&Choose Another Study" };
    MenuEntry mnuFileSeparator { *this, mnuFile, "mnuFileSeparator", u"-" };
    MenuEntry mnuFileExit { *this, mnuFile, "mnuFileExit", u"E&xit" };
    Menu mnuEdit { *this, "mnuEdit", u"&Edit" };
    MenuEntry mnuEditCut { *this, mnuEdit, "mnuEditCut", u"Cut", u"Ctrl+X" };
    MenuEntry mnuEditCopy { *this, mnuEdit, "mnuEditCopy", u"Copy", u"Ctrl+C" };
    MenuEntry mnuEditPaste { *this, mnuEdit, "mnuEditPaste", u"Paste", u"Ctrl+V" };
    MenuEntry mnuEditSeparator { *this, mnuEdit, "mnuEditSeparator", u"-" };
    MenuEntry mnuEditDeleteLesson;
    MenuEntry* mnuHelpVideo = nullptr; // only in the catalogue

private:
    /// An entry that opens a form; disabled if it has none.
    struct Row {
        char const* name;
        TextView caption;
        Form* target;
    };
    Menu& AddMenu(char const* name, TextView caption);
    MenuEntry& AddEntry(Menu& menu, char const* name, TextView caption);
    MenuEntry& AddEntry(Menu& menu, Row const& row);
    void AddMaps(frmMap& viewer);

    std::vector<std::unique_ptr<Menu>> m_menus; // those after Edit
    std::vector<std::unique_ptr<MenuEntry>> m_entries;
};

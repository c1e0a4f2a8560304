#include "dialogs/main_screen.h"

MainScreen::MainScreen(Screen& screen, char const* name, TextView caption, Size client, Role role,
    ReferenceForms const& forms)
    : Form(screen, name, caption, client.width, client.height)
    , mnuEditDeleteLesson(*this, mnuEdit, "mnuEditDeleteLesson",
          role == Role::Lesson ? u"&Delete Answers For This Lesson"
                               : u"Delete Answers For This Lesson")
{
    opensAs = FormState::Maximised;
    centred = true;
    BackColor = Rgb(0, 0, 0);
    AddMaps(forms.map);
    AddEntry(AddMenu("mnuBible", u"&Bible"), { "mnuBibleReader", u"Bible &Reader", &forms.bible });
    Menu& options = AddMenu("mnuOptions", u"&Options");
    if (role == Role::Catalogue) {
        AddEntry(options, { "mnuDeleteAnswers", u"&Delete Answers For This Study", nullptr });
        AddEntry(options, "mnuOptionSeparator2", u"-");
    }
    AddEntry(options, { "mnuOptionFinal", u"The &Final Exam...", &forms.finalExam });
    Menu& help = AddMenu("mnuHelp", u"&Help");
    Row const about { "mnuHelpAbout", u"&About...", &forms.about };
    Row const welcome { "mnuHelpWelcome", u"&Welcome...", &forms.welcome };
    Row const gettingStarted { "mnuGettingStarted", u"&Getting Started...", &forms.gettingStarted };
    if (role == Role::Lesson) {
        for (Row const& row : { about, welcome, gettingStarted })
            AddEntry(help, row);
    } else {
        AddEntry(help, gettingStarted);
        mnuHelpVideo = &AddEntry(help, { "mnuHelpVideo", u"Welcome &Video...", &forms.video });
        AddEntry(help, welcome);
        AddEntry(help, about);
    }
}

Menu& MainScreen::AddMenu(char const* name, TextView caption)
{
    return *m_menus.emplace_back(std::make_unique<Menu>(*this, name, caption));
}

MenuEntry& MainScreen::AddEntry(Menu& menu, char const* name, TextView caption)
{
    return *m_entries.emplace_back(std::make_unique<MenuEntry>(*this, menu, name, caption));
}

MenuEntry& MainScreen::AddEntry(Menu& menu, Row const& row)
{
    MenuEntry& entry = AddEntry(menu, row.name, row.caption);
    entry.Enabled = row.target != nullptr;
    if (row.target)
        entry.Click = [target = row.target] { target->Show(); };
    return entry;
}

void MainScreen::AddMaps(frmMap& viewer)
{
    Menu& menu = AddMenu("mnuMaps", u"&Maps");
    for (BibleMap const& map : bibleMaps) {
        auto const caption = u"&" + FromNumber(map.number) + u" " + Text(map.title);
        AddEntry(menu, map.menuEntry, caption).Click = [&viewer, &map] {
            Load(viewer);
            viewer.Caption = Text(map.title);
            viewer.LoadMyPicture(MapFile(map.number));
            viewer.Show();
        };
    }
}

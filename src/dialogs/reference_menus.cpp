#include "dialogs/reference_menus.h"

ReferenceMenus::ReferenceMenus(Form& form, ReferenceScreen screen, ReferenceForms const& forms)
    : m_form(form)
    , m_map(forms.map)
{
    AddMaps();
    AddEntries(AddMenu("mnuBible", u"&Bible"), { { "mnuBibleReader", u"Bible &Reader" } });
    Menu& options = AddMenu("mnuOptions", u"&Options");
    if (screen == ReferenceScreen::Catalogue)
        AddEntries(options,
            { { "mnuDeleteAnswers", u"&Delete Answers For This Study" },
                { "mnuOptionSeparator2", u"-" } });
    AddEntries(options, { { "mnuOptionFinal", u"The &Final Exam..." } });
    Menu& help = AddMenu("mnuHelp", u"&Help");
    if (screen == ReferenceScreen::Lesson)
        AddEntries(help,
            { { "mnuHelpAbout", u"&About..." }, { "mnuHelpWelcome", u"&Welcome..." },
                { "mnuGettingStarted", u"&Getting Started..." } });
    else
        AddEntries(help,
            { { "mnuGettingStarted", u"&Getting Started..." },
                { "mnuHelpVideo", u"Welcome &Video..." }, { "mnuHelpWelcome", u"&Welcome..." },
                { "mnuHelpAbout", u"&About..." } });
    Open("mnuOptionFinal", forms.finalExam);
    Open("mnuHelpAbout", forms.about);
    Open("mnuHelpWelcome", forms.welcome);
    Open("mnuGettingStarted", forms.gettingStarted);
    Open("mnuBibleReader", forms.bible);
    if (screen == ReferenceScreen::Catalogue)
        Open("mnuHelpVideo", forms.video);
}

Menu& ReferenceMenus::AddMenu(char const* name, TextView caption)
{
    return *m_menus.emplace_back(std::make_unique<Menu>(m_form, name, caption));
}

void ReferenceMenus::AddEntries(Menu& menu, std::initializer_list<Row> rows)
{
    for (Row const& row : rows) {
        auto& entry = m_entries.emplace_back(
            std::make_unique<MenuEntry>(m_form, menu, row.name, row.caption));
        entry->Enabled = entry->IsSeparator();
    }
}

void ReferenceMenus::Open(std::string_view entry, Form& target)
{
    Control* const found = m_form.FindControl(entry);
    found->Enabled = true;
    found->Click = [&target] { target.Show(); };
}

void ReferenceMenus::AddMaps()
{
    Menu& menu = AddMenu("mnuMaps", u"&Maps");
    for (BibleMap const& map : bibleMaps) {
        auto const caption = u"&" + FromNumber(map.number) + u" " + Text(map.title);
        auto& entry = m_entries.emplace_back(
            std::make_unique<MenuEntry>(m_form, menu, map.menuEntry, caption));
        entry->Click = [this, &map] { ShowMap(static_cast<std::int16_t>(map.number), map.title); };
    }
}

void ReferenceMenus::ShowMap(std::int16_t n, TextView title)
{
    Load(m_map);
    m_map.Caption = Text(title);
    m_map.LoadMyPicture(MapFile(n));
    m_map.Show();
}

#include "catalogue/frmContents.h"

#include "catalogue/catalogue_nodes.h"
#include "controls/screen.h"
#include "platform/settings.h"

#include <algorithm>

static constexpr Colour titleBlue = Rgb(0, 0, 192);

frmContents::frmContents(Screen& screen, FileSystem& files, SettingsStore& settings,
    frmMain& lesson, ReferenceForms const& reference)
    : MainScreen(screen, "frmContents", u"Sparrowfield Interactive Bible Studies", { 11085, 8190 },
        Role::Catalogue, reference)
    , m_files(files)
    , m_settings(settings)
    , m_lesson(lesson)
    , m_welcome(reference.welcome)
    , File1(*this, "File1", u"*-1.dat", [this](TextView pattern) { return m_files.List(pattern); })
{
    smallest = { 8000, 6700 };
    Picture = u":catalogue";
    Image2.Picture = u":logo";
    for (MenuEntry* entry : { &mnuFileSave, &mnuFileClose, &mnuEditCut, &mnuEditCopy, &mnuEditPaste,
             &mnuEditDeleteLesson })
        entry->Enabled = false;
    XPContainer1.HeaderLightColor = Rgb(255, 255, 255);
    XPContainer1.BackLightColor = Rgb(255, 255, 255);
    XPContainer1.BackDarkColor = Rgb(255, 255, 255);
    XPContainer1.BorderColor = titleBlue;
    TreeView1.FontName = u"Times New Roman";
    TreeView1.FontSize = 11.25F;
    TreeView1.Images = &ImageList1;
    lblBack.Transparent = false;
    for (TextBox* box : { &lblStudy, &txtDesc }) {
        box->FontName = u"Times New Roman";
        box->FontSize = 14.25F;
        box->MultiLine = true;
        box->Locked = true;
        box->Border = false;
    }
    lblStudy.ForeColor = titleBlue;
    txtDesc.ScrollBar = true;
    txtDesc.isReadingPane = true;
    txtDesc.Text = u"Click on the name of a Bible study to see a description of the study and a "
                   u"list of all the lessons for that study.  Then click on a lesson to "
                   u"begin.\r\n";
    lblBack.Visible = false;
    Picture1.Visible = false;
    lblStudy.Visible = false;
    TreeView1.TabIndex = 0;
    TreeView1.accessibleName = u"Studies and lessons";
    lblStudy.accessibleName = u"Title of the study";
    txtDesc.accessibleName = u"Description of the study";

    TreeView1.NodeClick = [this](Node& node) { TreeView1_NodeClick(node); };
    TreeView1.NodeToolTip = [this](Node const& node) { return ProgressOf(node); };
    mnuFileExit.Click = [this] { mnuFileExit_Click(); };
}

void frmContents::Form_Load()
{
    txtDesc.Tag = u"False";
    mnuHelpVideo->Enabled = m_files.FileExists(m_files.ApplicationFolder() + u"\\sparrowfield.wmv");
    TreeView1.Clear();
    TreeView1.BackColor = catalogueBackColor;
    Node* last[catalogueLevels] {};
    BuildCatalogue(m_files, File1.List(), [&](CatalogueNode const& node) {
        last[node.level] = &TreeView1.Add(
            node.level == 0 ? nullptr : last[node.level - 1], node.key, node.text, node.look);
    });
}

/// Lengths are twips; a value used on the right is the one just set.
void frmContents::Form_Resize()
{
    if (WindowState == FormState::Minimised)
        return;
    if (WindowState != FormState::Maximised) {
        ShrinkToScreen();
        GrowToSmallest();
    }
    Image2.Left = ScaleWidth - Image2.Width - 15 - 600;
    XPContainer1.Width = Width - 2 * XPContainer1.Left;
    XPContainer1.Height = Height - StatusBar1.Height - XPContainer1.Top - 1100;
    TreeView1.Left = 30;
    TreeView1.Top = 370;
    TreeView1.Width = XPContainer1.Width * 0.55F - 370;
    TreeView1.Height = XPContainer1.Height - 370 - 20;
    lblBack.Left = TreeView1.Width + 1;
    lblBack.Top = 370;
    lblBack.Width = XPContainer1.Width - TreeView1.Width - 5;
    lblBack.Height = XPContainer1.Height - lblBack.Top - 50;
    Picture1.Left = TreeView1.Width + 170;
    Picture1.Top = 510;
    lblStudy.Left = TreeView1.Width + 170 + Picture1.Width + 50;
    lblStudy.Top = 510;
    lblStudy.Width = XPContainer1.Width - lblStudy.Left - 20 - 20;
    txtDesc.Left = TreeView1.Width + 170;
    txtDesc.Top = txtDesc.Tag() == u"True" ? lblStudy.Top + 450 + 290 : 370;
    txtDesc.Width = XPContainer1.Width - TreeView1.Width - 230;
    txtDesc.Height = XPContainer1.Height - txtDesc.Top - 50;
}

/// True for a part of a lesson, false for a lesson or a study.
static bool IsPart(Node const& node)
{
    return Contains(node.Key(), u':');
}

void frmContents::TreeView1_NodeClick(Node& node)
{
    if (IsPart(node)) {
        OpenLesson(node.Key());
        return;
    }
    node.SetExpanded(!node.Expanded());
    if (!node.Tag().empty())
        ShowDescription(node);
}

void frmContents::ShowDescription(Node const& study)
{
    lblBack.Visible = true;
    lblStudy.Text = Text(study.Caption());
    lblStudy.Visible = true;
    txtDesc.Text = Text(study.Tag());
    txtDesc.Tag = u"True";
    txtDesc.Top = lblStudy.Top + 450 + 290;
    txtDesc.Visible = true;
    Picture1.Visible = true;
    Form_Resize();
}

void frmContents::OpenLesson(TextView studyKey)
{
    Text const key(studyKey); // The lesson unloads this form, and the node with it.
    if (ReadSetting(m_settings, u"Parameters", u"showhelp", u"true") == u"true" && !welcomeShown) {
        Unload(m_welcome); // A window that is open already can't be shown modally.
        m_welcome.ShowModal();
        welcomeShown = true;
        if (!IsLoaded())
            return; // The program came to its end meanwhile.
    }
    m_lesson.SetStudy(key);
    m_lesson.Show();
    if (m_lesson.IsLoaded())
        Unload(*this);
}

/// A line for each part that has answers, of a lesson or of the part itself; empty for a study.
Text frmContents::ProgressOf(Node const& node) const
{
    if (IsPart(node))
        return ProgressOfPart(node);
    Text lines;
    for (Node const* child : node.Children())
        if (IsPart(*child))
            if (Text const line = ProgressOfPart(*child); !line.empty())
                lines += (lines.empty() ? u"" : u"\n") + line;
    return lines;
}

/// "Part One: 7 pages answered, last at page 5"; empty if nothing is answered.
Text frmContents::ProgressOfPart(Node const& part) const
{
    auto const [answered, lastPage] = m_lesson.ProgressOf(part.Key());
    if (answered == 0)
        return {};
    Text line = Text(part.Caption()) + u": " + FromNumber(answered)
        + (answered == 1 ? u" page answered" : u" pages answered");
    if (lastPage)
        line += u", last at page " + FromNumber(*lastPage);
    return line;
}

void frmContents::mnuFileExit_Click()
{
    Unload(m_lesson);
    Unload(*this);
}

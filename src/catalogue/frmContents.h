#pragma once
// The catalogue: the tree of the studies found in the current directory, with the description of a
// study beside it, and the way into a lesson.

#include "catalogue/catalogue_nodes.h"
#include "controls/label.h"
#include "controls/list.h"
#include "controls/picture.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "controls/tree_view.h"
#include "controls/xp_container.h"
#include "dialogs/main_screen.h"
#include "lesson/frmMain.h"
#include "platform/file_system.h"
#include "platform/settings_store.h"

class frmContents final : public MainScreen {
public:
    /// All outlive the form.
    frmContents(Screen& screen, FileSystem& files, SettingsStore& settings, frmMain& lesson,
        ReferenceForms const& reference);

private:
    void Form_Load() override;
    void Form_Resize() override;
    void TreeView1_NodeClick(Node& node);
    void mnuFileExit_Click();
    void ShowDescription(Node const& study);
    void OpenLesson(TextView studyKey);
    Text ProgressOf(Node const& node) const;
    Text ProgressOfPart(Node const& part) const;

    FileSystem& m_files;
    SettingsStore& m_settings;
    frmMain& m_lesson;
    Form& m_welcome;
    bool welcomeShown = false; // on the way into a lesson, in this run of the program

    Image Image2 { *this, *this, "Image2", { 6000, 240, 4710, 1455 } }; // the logo
    XPContainer XPContainer1 { *this, *this, "XPContainer1", { 840, 1980, 6975, 5325 },
        u"Choose a Study" };
    TreeView TreeView1 { *this, XPContainer1, "TreeView1", { 60, 375, 2520, 4650 } };
    // white background of the description
    Label lblBack { *this, XPContainer1, "lblBack", { 2775, 405, 1185, 1440 } };
    Image Picture1 { *this, XPContainer1, "Picture1", { 2775, 555, 525, 315 }, u":lamp" };
    // the chosen study's title
    TextBox lblStudy { *this, XPContainer1, "lblStudy", { 3840, 480, 2895, 735 } };
    // its description, or the prompt
    TextBox txtDesc { *this, XPContainer1, "txtDesc", { 2955, 1320, 3645, 3765 } };
    StatusBar StatusBar1 { *this, "StatusBar1", { 0, 7890, 11085, 300 } };
    FileListBox File1;
    ImageList ImageList1 { *this, "ImageList1",
        { { "", "" }, { "", "" }, { "", ":lesson" }, { "", ":study" } } };
};

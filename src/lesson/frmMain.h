#pragma once
// The lesson screen: one part of one lesson of a study, page by page, with its introduction and its
// passages beside it. study/ reads the files and knows what a page and an answer look like.

#include "controls/button.h"
#include "controls/label.h"
#include "controls/picture.h"
#include "controls/rich_text_box.h"
#include "controls/scroll_bar.h"
#include "controls/timer.h"
#include "controls/tree_view.h"
#include "controls/xp_container.h"
#include "dialogs/main_screen.h"
#include "documents/lesson_section.h"
#include "lesson/frmAnswer.h"
#include "platform/file_system.h"
#include "study/answer_store.h"
#include "study/lesson_file.h"
#include "study/verse_file.h"

#include <array>
#include <cstdint>
#include <vector>

/// The background of the panels.
inline constexpr Colour panelColor = 0xFCF4EF;

class frmMain final : public MainScreen {
public:
    /// All outlive the form.
    frmMain(Screen& screen, FileSystem& files, AnswerStore& store, frmAnswer& answer,
        ReferenceForms const& reference);

    /// The screen to return to: set once, before the first showing.
    void SetCatalogue(Form& catalogue) { m_catalogue = &catalogue; }

    /// The lesson that the next showing opens, "<file name>:<lesson number>".
    void SetStudy(TextView key) { studyKey = key; }

    /// What is stored of a part of a lesson. Doesn't read its files.
    LessonProgress ProgressOf(TextView key) const;

    /// Writes the page number and the answers in memory into a store that was begun anew.
    void RestoreInNewStore();
    /// Stores what has been typed since the last store.
    void StoreTyped() { tmrStore.Fire(); }

private:
    // The load, in frmMain_load.cpp.
    void Design();
    void SetNamesAndTabOrder();
    void ConnectHandlers();
    void Form_Load() override;
    Outcome<Done> TryToLoad();
    Outcome<Done> LoadLesson();
    Outcome<Done> LoadIntroduction(LessonReader& reader);
    Outcome<Done> LoadPages(LessonReader& reader);
    Outcome<Done> FillMainScriptures(TextView name);
    Outcome<Done> FillSupplementalScriptures(TextView name);
    Outcome<Done> FillScriptures(TreeView& tree, TextView name);
    void AddHeading(TreeView& tree, int number, TextView heading);
    void AppendVerse(VerseFileItem const& item);
    void AppendIntroduction();
    void Resume(TextView storedPage);
    void GiveUp(Failure const& failure);
    Text SectionOf(TextView key) const;

    // The layout, in frmMain_layout.cpp.
    void Form_Resize() override;
    void HideForLayout();
    void PlaceLeftColumn(float w, float base, float leftSplit);
    void PlaceRightColumn(float w, float base, float rightSplit);
    void PlacePageArea();
    void SetPageTextHeight();
    void ShowAfterLayout();
    std::array<Control*, 9> MovedControls();

    // The pages, in frmMain.cpp.
    void ShowLessonPage(int page);
    void Command1_Click(); // "Next >"
    void Command2_Click(); // "< Prev"
    void ctlScrollbar_Change();
    void TellPage();
    void Image1_Click();
    void Text3_GotFocus() { EnableClipboardEntries(true); }
    void Text3_LostFocus();
    void Text3_Change() { Command1.Enabled = HasAnswer(); }
    void ShowPassage(Node const& node);
    bool HasAnswer() const { return !Trim(Text3.Text).empty(); }
    void StoreAnswer();
    void StartStoreTimer();
    void ShowSaved(bool isSaved);
    void tmrStore_Timer();
    void EnableClipboardEntries(bool enabled);
    void PrintLesson(bool withPublisher);

    void mnuFileSave_Click();
    void mnuFileClose_Click();
    void mnuFileExit_Click();
    void mnuEditCut_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuEditDeleteLesson_Click();

    FileSystem& m_files;
    AnswerStore& m_store;
    frmAnswer& m_answerForm;
    Form* m_catalogue = nullptr;

    Text studyKey;
    Text m_section; // of the settings store, with the answers of the lesson
    Text lessonNumber;
    LessonHeading m_heading;
    Text studyPrefix;
    std::vector<Text> pages; // page n has index n - 1
    std::vector<Text> answers; // the publisher's, same index
    int m_answerPage = 0; // the page whose answer Text3 was given; 0 for none

    Label lblStudy { *this, *this, "lblStudy", { 225, 30, 11280, 360 } }; // the study's title
    XPContainer XPContainer3 { *this, *this, "XPContainer3", { 240, 480, 5535, 2055 },
        u"Introduction" };
    RichTextBox Text4 { *this, XPContainer3, "Text4", { 120, 480, 5265, 1440 } };
    XPContainer XPContainer2 { *this, *this, "XPContainer2", { 240, 2760, 5535, 5055 },
        u"Study Questions" };
    PictureBox Image2 { *this, XPContainer2, "Image2", { 0, 480, 5490, 4455 } }; // the page area
    Label lblPageTitle { *this, Image2, "lblPageTitle", { 15, 60, 390, 315 }, u"12." };
    TextBox Text2 { *this, Image2, "Text2", { 480, 120, 4695, 1695 } }; // the question
    RichTextBox Text3 { *this, Image2, "Text3", { 240, 1920, 5040, 1380 } }; // the user's answer
    Image Image1 { *this, Image2, "Image1", { 4680, 3600, 525, 315 }, u":lamp" };
    HScrollBar ctlScrollbar { *this, Image2, "ctlScrollbar", { 720, 4035, 4050, 255 } };
    CommandButton Command2 { *this, Image2, "Command2", { 15, 4035, 675, 255 }, u"< Prev" };
    CommandButton Command1 { *this, Image2, "Command1", { 4740, 4035, 675, 255 }, u"Next >" };
    XPContainer XPContainer4 { *this, *this, "XPContainer4", { 6000, 480, 2655, 2655 },
        u"Main Bible Texts" };
    TreeView TreeView1 { *this, XPContainer4, "TreeView1", { 120, 480, 2340, 2055 } };
    XPContainer XPContainer5 { *this, *this, "XPContainer5", { 8880, 480, 2655, 2655 },
        u"Supplementary Verses" };
    TreeView TreeView2 { *this, XPContainer5, "TreeView2", { 120, 480, 2415, 2055 } };
    XPContainer XPContainer1 { *this, *this, "XPContainer1", { 6000, 3360, 5535, 4455 },
        u"Scripture Text" };
    RichTextBox Text1 { *this, XPContainer1, "Text1", { 120, 480, 5280, 3840 } };
    StatusBar StatusBar1 { *this, "StatusBar1", { 0, 8010, 11745, 300 } };
    ProgressBar ProgressBar1 { *this, *this, "ProgressBar1", { 7605, 8085, 3840, 195 } };
    PictureBox Frame1 { *this, *this, "Frame1", { 3810, 3750, 4230, 1050 } }; // the loading panel
    Label Label2 { *this, Frame1, "Label2", { 180, 120, 900, 240 }, u"Loading:" };
    Label Label1 { *this, Frame1, "Label1", { 1110, 120, 3000, 240 }, u"Study title goes here" };
    ProgressBar ProgressBar2 { *this, Frame1, "ProgressBar2", { 180, 540, 3870, 255 } };
    Timer tmrStore { *this, "tmrStore", 1000 }; // runs from a change by the user until it is stored
    ImageList ImageList2 { *this, "ImageList2",
        { { "folder", ":folder" }, { "openfolder", ":openfolder" }, { "book", ":book" } } };
};

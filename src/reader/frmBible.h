#pragma once
// The Bible reader: two translations, a tree of books and chapters, the page for a reference, and a
// note for each chapter. Every way through the Bible puts a reference into txtVerse and looks it
// up: reference.h parses it, chapter_page.h builds the page, chapter_notes.h stores the notes.

#include "bible/chapter_notes.h"
#include "bible/reference.h"
#include "controls/button.h"
#include "controls/list.h"
#include "controls/media.h"
#include "controls/menu.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "controls/timer.h"
#include "controls/tree_view.h"
#include "controls/xp_container.h"
#include "platform/file_system.h"
#include "platform/settings_store.h"

#include <functional>
#include <optional>
#include <vector>

class frmBible final : public Form {
public:
    /// All outlive the form.
    frmBible(Screen& screen, FileSystem& files, SettingsStore& settings, ChapterNotes& notes);

    /// The number of the first book whose name begins with `book`, ignoring case; `book` becomes
    /// its name. 0 if there is none; then `book` is in small letters.
    int FindBook(Text& book);
    /// Fills the tree with the books of the translation.
    void LoadBooks();
    /// Stores what has been typed into the note since the last store.
    void StoreTyped() { tmrStore.Fire(); }

private:
    void ConnectHandlers();
    void Form_Load() override;
    void Form_Unload() override;

    // The layout, in frmBible_layout.cpp.
    void Form_Resize() override;
    void PlaceNavigation();
    void PlaceContents();

    // The ways to a reference, in frmBible.cpp.
    void TreeView1_NodeClick(Node& node);
    void cboVersion_Click();
    void cmdPrev_Click() { LookUpText(cmdPrev.ToolTipText); }
    void cmdNext_Click() { LookUpText(cmdNext.ToolTipText); }
    void mnuFileExit_Click() { Unload(*this); }
    void LookUpText(TextView reference);
    void GoThroughHistory(int step); // -1 back, 1 on
    void Remember();
    void ForEachIndexLine(std::function<void(TextView line)> const& take);
    void ExpandBookNode(TextView name);
    void SetTranslation(TextView identifier);
    Text AboutTranslation() const;
    void UpdateChapterButtons();
    std::string ReadData(TextView path, std::uint64_t atMost);

    // The lookup, the page and the notes, in frmBible_lookup.cpp.
    void cmdOkay_Click(); // "Find Verse"
    bool LookUp();
    void NormaliseBox();
    bool BuildChapterPage(int bookNumber, WantedVerses const& wanted);
    void ShowPage(TextView html, TextView missing);
    void SelectReference();
    bool ShouldContinue() const;
    void EnsureFolder(TextView path);
    void SaveNotes(bool tell);
    void LoadNotes();
    bool HasNote() const;
    void txtNotes_Change() { cmdPrint.Enabled = HasNote(); }
    void tmrStore_Timer();
    void cmdPrint_Click();
    void PrintNotes();
    void PrintNotesOfBook();

    FileSystem& m_files;
    SettingsStore& m_settings;
    ChapterNotes& m_notes;

    Text translation; // "kjv" or "nasb"
    Text pagePath; // of the temporary page, for one opening of the form
    Text driveLetter; // of the notes folder
    Text bookName; // of the last reference found, as the index spells it
    Text chapter; // of that reference as typed, empty for a whole book
    Text verse; // of that reference as typed, empty for a whole chapter
    Text chapterCount; // of the current book, as in the index
    std::optional<Text> m_noteFile; // of the note in the box; nothing if no note has been loaded
    // the references found in this opening, and the place of the one on show
    std::vector<Text> m_history;
    std::size_t m_place = 0;

    Menu mnuFile { *this, "mnuFile", u"&File" };
    MenuEntry mnuFileExit { *this, mnuFile, "mnuFileExit", u"E&xit" };
    StatusBar StatusBar1 { *this, "StatusBar1", { 0, 7725, 8925, 375 } };
    ProgressBar ProgressBar1 { *this, *this, "ProgressBar1", { 1560, 7800, 6975, 255 } };
    XPContainer XPContainer3 { *this, *this, "XPContainer3", { 120, 120, 8655, 855 },
        u"Navigation" };
    TextBox txtVerse { *this, XPContainer3, "txtVerse", { 2520, 465, 1695, 285 } }; // the reference
    CommandButton cmdOkay { *this, XPContainer3, "cmdOkay", { 4305, 495, 1095, 255 },
        u"Find Verse" };
    XPContainer XPContainer1 { *this, *this, "XPContainer1", { 120, 1200, 2415, 6375 }, u"Index" };
    TreeView TreeView1 { *this, XPContainer1, "TreeView1", { 120, 480, 2175, 5775 } };
    XPContainer XPContainer2 { *this, *this, "XPContainer2", { 2640, 1200, 3495, 6375 },
        u"Scripture Text" };
    WebBrowser Text1 { *this, XPContainer2, "Text1", { 120, 480, 3255, 5775 } }; // the page
    XPContainer XPContainer4 { *this, *this, "XPContainer4", { 6240, 1200, 2535, 6375 }, u"Notes" };
    TextBox txtNotes { *this, XPContainer4, "txtNotes", { 120, 480, 2295, 5775 } };
    CommandButton cmdPrev { *this, XPContainer3, "cmdPrev", { 5640, 480, 1455, 255 },
        u"Previous chapter" };
    CommandButton cmdNext { *this, XPContainer3, "cmdNext", { 7320, 480, 1215, 255 },
        u"Next chapter" };
    ComboBox cboVersion { *this, XPContainer3, "cboVersion", { 165, 420, 2175, 315 },
        { u"King James Version", u"New American Standard" } };
    CommandButton cmdPrint { *this, XPContainer4, "cmdPrint", { 1680, 120, 615, 255 }, u"Print" };
    // runs from a change of the note by the user until it is stored
    Timer tmrStore { *this, "tmrStore", 1000 };
    ImageList ImageList1 { *this, "ImageList1",
        { { "folder", ":folder" }, { "openfolder", ":openfolder" }, { "book", ":book" } } };
};

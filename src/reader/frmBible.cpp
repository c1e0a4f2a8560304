#include "reader/frmBible.h"

#include "base/code_page.h"
#include "base/lines.h"
#include "bible/about_line.h"
#include "bible/book_index.h"
#include "bible/note_file.h"
#include "controls/key_codes.h"
#include "controls/screen.h"
#include "platform/settings.h"
#include "reader/chapter_page.h"

#include <algorithm>
#include <iterator>

static constexpr TextView settingsSection = u"biblereader";

// What the tree shows of an index. No real Bible has as many; a reference finds the rest as well.
static constexpr std::int64_t mostChapters = 999; // of a book
static constexpr std::int64_t mostNodes = 20'000;

static Text Capitals(TextView text)
{
    Text capitals(text);
    for (char16_t& character : capitals)
        character = ToUpper(character);
    return capitals;
}

frmBible::frmBible(Screen& screen, FileSystem& files, SettingsStore& settings, ChapterNotes& notes)
    : Form(screen, "frmBible", u"Sparrowfield Bible Reader", 8925, 8100)
    , m_files(files)
    , m_settings(settings)
    , m_notes(notes)
{
    opensAs = FormState::Maximised;
    centred = true;
    queuesActions = true;
    // room for the buttons side by side, and for some lines of text below them
    smallest = { 8500, 5000 };
    BackColor = Rgb(0, 0, 0);
    Picture = u":reader";
    int order = 0;
    for (Control* control : std::initializer_list<Control*> { &StatusBar1, &ProgressBar1,
             &XPContainer3, &txtVerse, &cmdOkay, &XPContainer1, &TreeView1, &XPContainer2, &Text1,
             &XPContainer4, &txtNotes, &cmdPrev, &cmdNext, &cboVersion, &cmdPrint })
        control->TabIndex = order++;
    for (XPContainer* panel : { &XPContainer1, &XPContainer2, &XPContainer3, &XPContainer4 })
        panel->HeaderLightColor = Rgb(255, 255, 255);
    StatusBar1.Panel1Width = 1440;
    ProgressBar1.Visible = false;
    cmdPrint.Enabled = false;
    txtVerse.Text = u"John 3:16";
    txtNotes.MultiLine = true;
    txtNotes.ScrollBar = true;
    txtNotes.Locked = true;
    txtNotes.FontName = u"MS Sans Serif";
    txtNotes.FontSize = 9.75F;
    txtNotes.isReadingPane = true;
    Text1.isReadingPane = true;
    TreeView1.Images = &ImageList1;
    TreeView1.accessibleName = u"Books and chapters";
    txtVerse.accessibleName = u"Reference";
    cboVersion.accessibleName = u"Translation";
    Text1.accessibleName = u"Bible page";
    ProgressBar1.accessibleName = u"Progress of the page";
    tmrStore.Enabled = false;
    ConnectHandlers();
}

void frmBible::ConnectHandlers()
{
    TreeView1.NodeClick = [this](Node& node) { TreeView1_NodeClick(node); };
    txtVerse.KeyUp = [this](int keyCode, int) {
        if (keyCode == keyEnter)
            cmdOkay_Click();
    };
    txtNotes.Change = [this] { txtNotes_Change(); };
    txtNotes.Typed = [this] { tmrStore.Enabled = true; };
    tmrStore.Tick = [this] { tmrStore_Timer(); };
    cboVersion.Click = [this] { cboVersion_Click(); };
    cmdOkay.Click = [this] { cmdOkay_Click(); };
    cmdPrev.Click = [this] { cmdPrev_Click(); };
    cmdNext.Click = [this] { cmdNext_Click(); };
    cmdPrint.Click = [this] { cmdPrint_Click(); };
    mnuFileExit.Click = [this] { mnuFileExit_Click(); };
    shortcuts = { { keyLeft, altHeld, [this] { GoThroughHistory(-1); } },
        { keyRight, altHeld, [this] { GoThroughHistory(1); } },
        { 'P', controlHeld, [this] { PrintNotesOfBook(); } } };
}

void frmBible::Form_Load()
{
    cmdNext.Enabled = false;
    cmdPrev.Enabled = false;
    m_noteFile.reset();
    m_history.clear();
    m_place = 0;
    // There are two translations; a stored word that names neither counts as the second.
    bool const isFirst = ReadSetting(m_settings, settingsSection, u"translation", u"kjv") == u"kjv";
    translation = isFirst ? u"kjv" : u"nasb";
    LoadBooks();
    if (!ShouldContinue())
        return;
    txtVerse.Text = Text(Trim(ReadSetting(m_settings, settingsSection, u"search", u"John 3:16")));
    bookName = GetBookName(txtVerse.Text());
    pagePath = m_files.TemporaryFolder() + u"\\" + m_files.TemporaryName() + u".htm";
    driveLetter = Text(1, ToUpper(pagePath.front()));
    Text const notes = NotesFolder(driveLetter);
    EnsureFolder(notes.substr(0, notes.rfind(u'\\')));
    EnsureFolder(notes);
    ShowPage(EmptyPage(m_files.ApplicationFolder()), {});
    // Its click brings up the page of the last reference.
    cboVersion.ListIndex = isFirst ? 0 : 1;
    StatusBar1.Panel1 = Capitals(translation);
    SelectReference();
}

void frmBible::Form_Unload()
{
    SaveNotes(false);
    static_cast<void>(m_files.Delete(pagePath));
}

/// The bytes of a data file. A missing one is created empty, if possible. One that can't be read,
/// or is larger than `atMost`, counts as empty.
std::string frmBible::ReadData(TextView path, std::uint64_t atMost)
{
    if (m_files.LookFor(path) == Presence::Absent) {
        static_cast<void>(m_files.Create(path, {}));
        return {};
    }
    auto bytes = m_files.ReadAll(path, atMost);
    return bytes ? std::move(*bytes) : std::string();
}

/// Gives a turn before each line, and ends early if the form is to close.
void frmBible::ForEachIndexLine(std::function<void(TextView line)> const& take)
{
    auto const index
        = ReadData(m_files.ApplicationFolder() + u"\\bible" + translation + u".idx", largestIndex);
    std::string_view rest = index;
    if (rest.ends_with('\r'))
        rest.remove_suffix(1); // of a line end that was cut off
    while (!rest.empty()) {
        GetScreen().GetTurns().Give();
        if (!ShouldContinue())
            return;
        take(FromCodePage(TakeLine(rest)));
    }
}

void frmBible::LoadBooks()
{
    TreeView1.Clear();
    ForEachIndexLine([this](TextView line) {
        auto const book = ParseIndexLine(line);
        auto const chapters = book ? ChaptersOf(*book) : std::nullopt;
        Text const key = book ? ToLower(book->name) : Text();
        if (!chapters || std::ssize(TreeView1.Nodes()) >= mostNodes || TreeView1.Find(key))
            return;
        Node& root = TreeView1.Add(key, book->name);
        root.SetImage("folder");
        root.SetSelectedImage("openfolder");
        auto const nodes
            = std::min({ *chapters, mostChapters, mostNodes - std::ssize(TreeView1.Nodes()) });
        for (std::int64_t number = 1; number <= nodes; ++number)
            TreeView1.Add(root, key + u" " + FromNumber(number), u"Chapter " + FromNumber(number))
                .SetImage("book");
    });
}

int frmBible::FindBook(Text& book)
{
    BookSearch search(book);
    book = ToLower(book);
    ForEachIndexLine([&](TextView line) { search.Take(line); });
    if (search.Number() > 0) {
        book = search.Found().name;
        chapterCount = search.Found().chapterCount;
    }
    return search.Number();
}

void frmBible::ExpandBookNode(TextView name)
{
    Text const wanted = ToLower(name);
    Node* opened = nullptr;
    for (Node& node : TreeView1.Nodes()) {
        bool const isWanted = ToLower(node.Caption()) == wanted;
        if (isWanted && !node.Expanded())
            opened = &node;
        node.SetExpanded(isWanted);
    }
    // In a book that was open already the user may have scrolled to a chapter.
    if (opened)
        TreeView1.EnsureVisible(*opened);
}

void frmBible::SetTranslation(TextView identifier)
{
    translation = identifier;
    StatusBar1.Panel1 = Capitals(identifier);
    StatusBar1.Panel2 = AboutTranslation();
    WriteSetting(m_settings, settingsSection, u"translation", identifier);
}

/// The text that the disc says it has in place of the translation; empty if it says nothing.
Text frmBible::AboutTranslation() const
{
    auto const bytes
        = m_files.ReadAll(m_files.ApplicationFolder() + u"\\bible" + translation + u".about");
    return bytes ? AboutLine(*bytes) : Text();
}

void frmBible::UpdateChapterButtons()
{
    cmdPrev.Enabled = false;
    cmdNext.Enabled = false;
    cmdPrev.ToolTipText = u"";
    cmdNext.ToolTipText = u"";
    if (chapter.empty())
        return;
    auto const present = ToInteger(chapter).value_or(0);
    auto const enable = [&](CommandButton& button, std::int64_t number) {
        button.Enabled = true;
        button.ToolTipText = bookName + u" " + FromNumber(number);
    };
    if (present > 1)
        enable(cmdPrev, present - 1);
    if (present < ToInteger(chapterCount).value_or(0))
        enable(cmdNext, present + 1);
}

void frmBible::TreeView1_NodeClick(Node& node)
{
    TreeView1.Select(&node);
    LookUpText(node.Key());
    // Books that were closed above the node have moved it.
    if (IsLoaded() && TreeView1.Selected() == &node)
        TreeView1.EnsureVisible(node);
}

void frmBible::cboVersion_Click()
{
    SetTranslation(cboVersion.ListIndex == 0 ? u"kjv" : u"nasb");
    cmdOkay_Click();
}

void frmBible::LookUpText(TextView reference)
{
    txtVerse.Text = Text(reference);
    cmdOkay_Click();
}

/// Appends the reference that was found to the history, after the place of the one before. The same
/// reference again, as in another translation, changes nothing.
void frmBible::Remember()
{
    // A text too short to be looked up again has found a whole book.
    Text const& reference = txtVerse.Text().size() < 2 ? bookName : txtVerse.Text();
    if (!m_history.empty() && m_history[m_place] == reference)
        return;
    m_history.resize(std::min(m_history.size(), m_place + 1));
    m_history.push_back(reference);
    m_place = m_history.size() - 1;
}

/// The place moves even if the lookup fails, so that the next step goes past that reference.
void frmBible::GoThroughHistory(int step)
{
    if (step < 0 ? m_place == 0 : m_place + 1 >= m_history.size())
        return;
    m_place = step < 0 ? m_place - 1 : m_place + 1;
    txtVerse.Text = m_history[m_place];
    LookUp();
}

// The part of the reader that looks up a reference: its page and its note.

#include "base/code_page.h"
#include "base/nearest_code_page.h"
#include "bible/book_file.h"
#include "bible/not_in_book.h"
#include "bible/note_file.h"
#include "controls/screen.h"
#include "platform/settings.h"
#include "reader/chapter_page.h"
#include "reader/frmBible.h"

#include <algorithm>

/// False if the form was unloaded or closed in a turn of the present work.
bool frmBible::ShouldContinue() const
{
    return IsLoaded() && !IsCloseRequested();
}

void frmBible::cmdOkay_Click()
{
    if (LookUp())
        Remember();
}

/// True if the reference was found.
bool frmBible::LookUp()
{
    if (txtVerse.Text().size() < 2)
        return false;
    SaveNotes(true);
    txtNotes.Locked = true; // until the next note is loaded
    NormaliseBox();
    Text const reference = txtVerse.Text;
    auto const wanted = ReadWantedVerses(reference);
    // With a number that can't be read, the text isn't a reference to any book.
    Text book = wanted.isReadable ? GetBookName(reference) : ToLower(reference);
    int const bookNumber = wanted.isReadable ? FindBook(book) : 0;
    if (!ShouldContinue())
        return false;
    ExpandBookNode(book);
    if (bookNumber == 0) {
        txtVerse.Text = u"";
        txtNotes.Locked = !m_noteFile;
        StatusBar1.Panel2 = AboutTranslation();
        return false;
    }
    bookName = book;
    if (!BuildChapterPage(bookNumber, wanted))
        return false;
    WriteSetting(m_settings, u"biblereader", u"search", txtVerse.Text());
    LoadNotes();
    if (txtVerse.Text() == reference)
        SelectReference();
    return true;
}

/// So that the next reference can be typed over it.
void frmBible::SelectReference()
{
    txtVerse.SelStart = 0;
    txtVerse.SelLength = static_cast<int>(txtVerse.Text().size());
}

void frmBible::NormaliseBox()
{
    txtVerse.Text = Text(Trim(txtVerse.Text()));
    Text text = txtVerse.Text;
    if (!text.empty())
        text.front() = ToUpper(text.front());
    txtVerse.Text = text;
    ReplaceAll(text, u"  ", u" ");
    txtVerse.Text = text;
}

/// Builds and shows the page; false if the form is to close instead.
bool frmBible::BuildChapterPage(int bookNumber, WantedVerses const& wanted)
{
    MousePointer = pointerHourglass;
    XPContainer2.Caption = bookName;
    chapter = wanted.chapter;
    verse = wanted.verse;
    auto const bookFile = ReadData(m_files.ApplicationFolder() + u"\\" + translation + u"\\"
            + translation + FromNumber(bookNumber),
        largestBook);
    PageListener listener;
    listener.begin = [this](int lastLine) {
        ProgressBar1.Min = 0;
        ProgressBar1.Max = lastLine;
        ProgressBar1.Value = 0;
        ProgressBar1.Visible = true;
    };
    listener.line = [this](int line) { ProgressBar1.Value = line; };
    listener.turn = [this] {
        GetScreen().GetTurns().Give();
        return ShouldContinue();
    };
    auto const page = ::BuildChapterPage(
        bookFile, { m_files.ApplicationFolder(), translation == u"nasb", wanted }, listener);
    if (page)
        ShowPage(*page, NotInBook({ bookName, chapterCount }, wanted, bookFile));
    MousePointer = pointerDefault;
    ProgressBar1.Visible = false;
    return page.has_value();
}

/// `missing` is what there is to say of the reference, empty for nothing.
void frmBible::ShowPage(TextView html, TextView missing)
{
    auto bytes = ToCodePage(html);
    auto const& page = bytes ? *bytes : ToNearestCodePage(html).bytes;
    auto written = m_files.WriteTemporary(pagePath, page);
    if (auto const folder = m_files.TemporaryFolder(); !written && !m_files.FolderExists(folder)) {
        // It couldn't be made when the program started.
        EnsureFolder(driveLetter + u":");
        EnsureFolder(folder);
        written = m_files.WriteTemporary(pagePath, page);
    }
    if (written) {
        StatusBar1.Panel2 = missing.empty() ? AboutTranslation() : Text(missing);
        Text1.Navigate(u"file://" + pagePath);
    } else {
        StatusBar1.Panel2 = u"The page can't be shown: " + written.failure().Message();
    }
    UpdateChapterButtons();
}

/// Creates one level. Where that can't be, the notes fail when they are written.
void frmBible::EnsureFolder(TextView path)
{
    if (!m_files.FolderExists(path))
        static_cast<void>(m_files.CreateFolder(path));
}

static constexpr TextView noteFails
    = u"Your note can't be saved now. It is kept, and will be tried again.\r\n\r\n";

void frmBible::SaveNotes(bool tell)
{
    tmrStore.Enabled = false;
    if (!m_noteFile)
        return;
    if (auto const failure = m_notes.Leave(txtNotes.Text(), tell))
        GetScreen().Message(Text(noteFails) + failure->Message());
}

/// A second after the user changed the note.
void frmBible::tmrStore_Timer()
{
    auto const [isOver, failure]
        = m_noteFile ? m_notes.QueueTyped(txtNotes.Text()) : TypedOutcome { true, {} };
    tmrStore.Enabled = !isOver;
    if (failure)
        GetScreen().Message(Text(noteFails) + failure->Message());
}

void frmBible::LoadNotes()
{
    m_noteFile = NoteFile(NotesFolder(driveLetter) + u"\\", bookName, chapter);
    txtNotes.Text = u"";
    cmdPrint.Enabled = false;
    XPContainer4.Caption = u"Notes for " + bookName + (chapter.empty() ? u"" : u" " + chapter);
    txtNotes.Locked = !m_noteFile;
    if (m_noteFile)
        txtNotes.Text = m_notes.Fill(*m_noteFile);
    cmdPrint.Enabled = HasNote();
    if (!m_noteFile)
        GetScreen().Message(
            u"There can be no note on \u201C" + bookName + u"\u201D: a file can't bear that name.");
}

/// True if the box has more than blanks and line ends.
bool frmBible::HasNote() const
{
    return txtNotes.Text().find_first_not_of(u" \r\n") != Text::npos;
}

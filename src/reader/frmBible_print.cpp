// The part of the reader that prints notes.

#include "base/rounding.h"
#include "bible/note_file.h"
#include "controls/screen.h"
#include "documents/paper/print_document.h"
#include "reader/frmBible.h"
#include "reader/print_wrapped.h"

void frmBible::cmdPrint_Click()
{
    cmdPrint.Enabled = false;
    MousePointer = pointerHourglass;
    PrintNotes();
    MousePointer = pointerDefault;
    cmdPrint.Enabled = true;
}

void frmBible::PrintNotes()
{
    Printer& printer = GetScreen().GetHost().DefaultPrinter();
    printer.SetFont({ u"Arial", 10, false });
    auto const rightMargin
        = RoundToEven(static_cast<double>(printer.ScaleWidth() - txtNotes.Width + 100));
    PrintWrapped(printer, txtNotes.Text(), 100, static_cast<std::int32_t>(rightMargin));
    printer.EndDoc();
}

/// Prints all notes on the book of the page, each under its chapter.
void frmBible::PrintNotesOfBook()
{
    Document document { {}, u"Notes on " + bookName, {} };
    auto const folder = NotesFolder(driveLetter) + u'\\';
    auto names = m_files.List(folder + u"*.dat");
    for (Text const& path : m_notes.UnstoredPaths(txtNotes.Text()))
        names.push_back(path.substr(folder.size()));
    for (Text const& name : NotesOnBook(std::move(names), bookName)) {
        auto const note = m_notes.Current(folder + name, txtNotes.Text());
        if (!note) {
            GetScreen().Message(
                u"The notes haven't been printed.\r\n\r\n" + note.failure().Message());
            return;
        }
        if (!Trim(*note).empty())
            document.sections.push_back(
                { ChapterOfNote(name).value_or(name), {}, { { {}, {}, {}, *note, {} } } });
    }
    if (document.sections.empty()) {
        GetScreen().Message(u"There are no notes on " + bookName + u" yet.");
        return;
    }
    MousePointer = pointerHourglass;
    PrintDocument(GetScreen().GetHost().DefaultPrinter(), document);
    MousePointer = pointerDefault;
}

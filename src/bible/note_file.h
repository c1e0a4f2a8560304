#pragma once
// The files of one note. A note with characters outside the code page is stored in UTF-8 in a
// second file, and its nearest form in the usual one (docs/formats/notes.md). Whenever writing
// fails, either the old note or the new one can still be read whole.

#include "base/failure.h"
#include "platform/file_system.h"

#include <optional>
#include <vector>

/// The folder of the notes on a drive, given by its letter, without a separator at its end.
Text NotesFolder(TextView driveLetter);

/// The path of the note on a chapter: the folder (with a separator at its end), the book, the
/// chapter as typed and ".dat". Nothing if book and chapter don't make a file name: one that begins
/// with "." or a blank, or has a character that file names can't have.
std::optional<Text> NoteFile(TextView folder, TextView bookName, TextView chapter);

/// The chapter of a note by the bare name of its file: "John 3" for "John3.dat", "2 John" for "2
/// John.dat". Nothing for a file with another ending, as that of an exact form.
std::optional<Text> ChapterOfNote(TextView fileName);

/// Those of the bare names that are of notes on a book, each once, in the order of their chapters;
/// a note on the whole book comes first.
std::vector<Text> NotesOnBook(std::vector<Text> fileNames, TextView bookName);

/// The note at a path; empty if there is none. Fails also if the system can't tell whether there is
/// one.
Outcome<Text> ReadNote(FileSystem const& files, Text const& path);

/// Writes a note; its folders are made if they are missing.
Outcome<Done> WriteNote(FileSystem& files, Text const& path, TextView text);

/// Renames whatever is at the paths of the note's files.
Outcome<Done> SetNoteAside(FileSystem& files, Text const& path);

/// Writes again what is missing of a note that is shown and hasn't been changed: all of it if its
/// file is missing, the exact form if only that is. A note that another program has put there
/// stays. Fails silently.
void RestoreNote(FileSystem& files, Text const& path, TextView text);

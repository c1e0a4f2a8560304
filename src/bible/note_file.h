#pragma once
// The files of one note. A note that the code page can't hold is stored in UTF-8 in a file of its
// own, and its nearest form in the usual one (docs/formats/notes.md). Whichever step fails, the old
// note or the new one can be read whole.

#include "base/failure.h"
#include "platform/file_system.h"

#include <optional>

/// The path of the note on a chapter: the folder (with a separator at its end), the book, the
/// chapter as typed and ".dat". Nothing if such a file can't be: a part of a path, a character that
/// names can't hold, "." or blanks at the ends.
std::optional<Text> NoteFile(TextView folder, TextView bookName, TextView chapter);

/// The note at a path; empty if there is none. Fails also where it can't be told whether there is
/// one.
Outcome<Text> ReadNote(FileSystem const& files, Text const& path);

/// Writes a note; its folders are made if they are missing.
Outcome<Done> WriteNote(FileSystem& files, Text const& path, TextView text);

/// Gives the note's files, or whatever has their names, other names.
Outcome<Done> SetNoteAside(FileSystem& files, Text const& path);

/// Writes what is missing of a note that is shown and hasn't been changed: all of it if its file is
/// missing, the exact form if only that is. A note that another program has put there stays. Fails
/// silently.
void RestoreNote(FileSystem& files, Text const& path, TextView text);

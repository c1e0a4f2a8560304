#pragma once
// The reader's notes: a text file for each chapter in a folder of the user's. No note is lost when the disk fails: what can't be
// written is kept here and tried again. The form of the files stands in docs/formats/notes.md.

#include "base/failure.h"
#include "platform/file_system.h"

#include <map>
#include <optional>
#include <set>

/// The path of the note on a chapter: the folder (with a separator at its end), the book, the chapter as typed and ".dat".
/// Nothing if such a file can't be: a part of a path, a character that names can't hold, "." or blanks at the ends.
std::optional<Text> NoteFile(TextView folder, TextView bookName, TextView chapter);

class ChapterNotes {
public:
    /// `files` outlives the notes.
    explicit ChapterNotes(FileSystem& files)
        : m_files(files)
    {
    }

    /// The note at a path: a text that waits to be written, else what the file holds; empty if there is neither or it can't be
    /// read. A file that couldn't be read is never overwritten: an empty text doesn't replace it, and for any other it
    /// is given another name first.
    Text Load(TextView path);

    /// Writes a note, and with it all that waits. A text that the code page lacks stands exactly in a file beside. A
    /// text that can't be written waits here. Gives the failure that the user is to be told: the first one since
    /// nothing waited.
    /// Where the user isn't to be told now (`tell` false), he is at the next time.
    std::optional<Failure> Save(TextView path, TextView text, bool tell);

    /// A note that is as it was: its file is left alone, but made, empty, if there is none. Fails silently.
    void KeepPlace(TextView path);

    /// Tries to write all that waits, for the end of the program. Gives the first failure.
    std::optional<Failure> RetryPending();

private:
    Outcome<Text> Stored(Text const& path) const;
    std::optional<Failure> Write(Text const& path, TextView text);

    FileSystem& m_files;
    std::map<Text, Text> m_pending; // what was typed and isn't written yet, by its path
    std::set<Text> m_unseen; // files that couldn't be read
    bool m_told = false;
};

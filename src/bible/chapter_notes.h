#pragma once
// The reader's notes, a text file for each chapter in a folder of the user's. How the text in the
// box of a note is kept, even if the disk fails, is the work of platform/edited_texts.h, and the
// files of a note that of note_file.h. The rules are in docs/formats/notes.md.

#include "base/failure.h"
#include "platform/edited_texts.h"
#include "platform/file_system.h"
#include "platform/writer.h"

#include <optional>
#include <vector>

class ChapterNotes : private TextStorage {
public:
    /// Both outlive the notes. The writer works only on the files of notes.
    ChapterNotes(FileSystem& files, Writer& writer)
        : m_files(files)
        , m_texts(*this, writer)
    {
    }

    /// The text for the box of the note at a path. A file that couldn't be read is never
    /// overwritten: an empty text doesn't replace it, and before any other is written it is given
    /// another name.
    Text Fill(TextView path) { return m_texts.Fill({ Text(path), {} }); }

    // As in EditedTexts. If a part of an unchanged note has gone, Leave writes it from the box.
    std::optional<Failure> Leave(TextView text, bool tell) { return m_texts.Leave(text, tell); }
    TypedOutcome QueueTyped(TextView text) { return m_texts.QueueTyped(text); }
    Outcome<Done> RetryPending() { return m_texts.RetryPending(); }

    /// The note at a path as Fill would give it, where the box shows `boxText`.
    Outcome<Text> Current(TextView path, TextView boxText)
    {
        return m_texts.Current({ Text(path), {} }, boxText);
    }

    /// The paths of the notes that aren't stored as they are, where the box shows `boxText`.
    std::vector<Text> UnstoredPaths(TextView boxText) const;

private:
    Outcome<Text> Read(Key const& path) const override;
    Outcome<Done> Write(Key const& path, TextView text) override;
    Outcome<std::optional<Text>> Rescue(Key const& path, TextView text) override;
    void Restore(Key const& path, TextView text) override;

    FileSystem& m_files;
    EditedTexts m_texts;
};

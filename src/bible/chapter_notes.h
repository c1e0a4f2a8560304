#pragma once
// The reader's notes, a text file for each chapter in a folder of the user's, and the box in which
// one of them is typed. No note is lost when the disk fails: what can't be written is kept here and
// tried again. The files of a note are note_file.h's work, the rules stand in
// docs/formats/notes.md.

#include "base/failure.h"
#include "platform/file_system.h"
#include "platform/writer.h"

#include <deque>
#include <map>
#include <optional>
#include <set>

class ChapterNotes {
public:
    /// Both outlive the notes. The writer works on the files of notes alone.
    ChapterNotes(FileSystem& files, Writer& writer)
        : m_files(files)
        , m_writer(writer)
    {
    }

    /// The text for the box of the note at a path, with CR LF line ends: one that waits to be
    /// written, else what the file holds; empty if there is neither or it can't be read. It becomes
    /// the base of the box. A file that couldn't be read is never overwritten: an empty text
    /// doesn't replace it, and for any other it is given another name first.
    Text Fill(TextView path);

    /// The user leaves the box with this text. It is written and becomes the base. A text that
    /// equals the base leaves the file alone, be it another copy's now, but for what has gone of
    /// it: then it is written from the box. All that waits is tried again. Gives the failure that
    /// the user is to be told: the first one since nothing waited. Where the user isn't to be told
    /// now (`tell` false), he is at the next time.
    std::optional<Failure> Leave(TextView text, bool tell);

    /// Hands a text that is being typed to the writer, by the rule of Leave, but waits for nothing.
    /// To be asked again as long as that isn't over.
    TypedOutcome QueueTyped(TextView text);

    /// Tries to write all that waits, for the end of the program. Gives the first failure.
    std::optional<Failure> RetryPending();

private:
    struct Box {
        Text path, base;
    };
    /// A note on its way to the disk.
    struct Writing {
        Text path, text;
        bool isUnseen; // the file that is there couldn't be read
        std::optional<Failure> failure;
    };

    static void Write(FileSystem& files, Writing& writing);
    Text Shown(Text const& path);
    Writing WritingOf(Text const& path) const;
    void Finish(Writing const& writing);
    std::optional<Failure> Collect();
    std::optional<Failure> ToBeTold(std::optional<Failure> failure, bool tell);

    FileSystem& m_files;
    Writer& m_writer;
    std::optional<Box> m_box;
    std::map<Text, Text> m_pending; // what was typed and isn't known to be written, by its path
    std::set<Text> m_unseen; // files that couldn't be read
    std::deque<Writing> m_typed; // in the writer's hands
    bool m_told = false;
};

#include "bible/chapter_notes.h"

#include "bible/note_file.h"

std::vector<Text> ChapterNotes::UnstoredPaths(TextView boxText) const
{
    std::vector<Text> paths;
    for (PendingText const& unstored : m_texts.Unstored(boxText))
        paths.push_back(unstored.key.first);
    return paths;
}

Outcome<Text> ChapterNotes::Read(Key const& path) const
{
    return ReadNote(m_files, path.first);
}

Outcome<Done> ChapterNotes::Write(Key const& path, TextView text)
{
    return WriteNote(m_files, path.first, text);
}

Outcome<std::optional<Text>> ChapterNotes::Rescue(Key const& path, TextView text)
{
    // The file may still be all right: an emptied box doesn't replace it.
    if (text.empty())
        return std::optional<Text>();
    if (auto const aside = SetNoteAside(m_files, path.first); !aside)
        return aside.failure();
    return std::optional(Text());
}

void ChapterNotes::Restore(Key const& path, TextView text)
{
    RestoreNote(m_files, path.first, text);
}

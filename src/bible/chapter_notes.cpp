#include "bible/chapter_notes.h"

#include "bible/note_file.h"

Text ChapterNotes::Fill(TextView path)
{
    static_cast<void>(Collect());
    m_box = Box { Text(path), WithLineEnds(Shown(Text(path))) };
    return m_box->base;
}

Text ChapterNotes::Shown(Text const& path)
{
    if (auto const pending = m_pending.find(path); pending != m_pending.end())
        return pending->second;
    auto stored = ReadNote(m_files, path);
    if (!stored) {
        m_unseen.insert(path);
        return {};
    }
    m_unseen.erase(path);
    return std::move(*stored);
}

std::optional<Failure> ChapterNotes::Leave(TextView text, bool tell)
{
    static_cast<void>(Collect());
    if (!m_box)
        return std::nullopt;
    if (text == m_box->base && !m_pending.contains(m_box->path)) {
        if (!m_unseen.contains(m_box->path))
            RestoreNote(m_files, m_box->path, text);
        static_cast<void>(RetryPending());
        return std::nullopt;
    }
    m_pending[m_box->path] = text;
    return ToBeTold(RetryPending(), tell);
}

/// The first failure since nothing waited of which the user has been told.
std::optional<Failure> ChapterNotes::ToBeTold(std::optional<Failure> failure, bool tell)
{
    bool const isNews = failure && !m_told;
    m_told = failure && (m_told || tell);
    return isNews && tell ? std::move(failure) : std::nullopt;
}

TypedOutcome ChapterNotes::QueueTyped(TextView text)
{
    if (!m_writer.IsIdle())
        return { false, {} };
    bool isNews = !m_typed.empty();
    auto failure = Collect();
    auto const pending = m_box ? m_pending.find(m_box->path) : m_pending.end();
    if (m_box && text != (pending == m_pending.end() ? m_box->base : pending->second)) {
        m_pending[m_box->path] = text;
        Writing& writing = m_typed.emplace_back(WritingOf(m_box->path));
        m_writer.Later([&files = m_files, &writing] { Write(files, writing); });
        isNews = m_writer.IsIdle();
        if (isNews)
            failure = Collect();
    }
    return { m_typed.empty(), isNews ? ToBeTold(std::move(failure), true) : std::nullopt };
}

ChapterNotes::Writing ChapterNotes::WritingOf(Text const& path) const
{
    return { path, m_pending.at(path), m_unseen.contains(path), {} };
}

void ChapterNotes::Write(FileSystem& files, Writing& writing)
{
    // A file that couldn't be read may still be all right: an emptied box doesn't put it away.
    if (writing.isUnseen && writing.text.empty())
        return;
    if (writing.isUnseen)
        writing.failure = SetNoteAside(files, writing.path);
    if (writing.failure)
        return;
    writing.isUnseen = false;
    writing.failure = WriteNote(files, writing.path, writing.text);
}

/// Takes up what became of a note: written, it is the base of its box and waits no longer.
void ChapterNotes::Finish(Writing const& writing)
{
    if (!writing.isUnseen)
        m_unseen.erase(writing.path);
    if (writing.failure)
        return;
    if (m_box && m_box->path == writing.path)
        m_box->base = writing.text;
    auto const pending = m_pending.find(writing.path);
    if (pending != m_pending.end() && pending->second == writing.text)
        m_pending.erase(pending);
}

/// Takes up what became of the notes that the writer was given, and gives the first failure.
std::optional<Failure> ChapterNotes::Collect()
{
    if (!m_typed.empty()) // What else the writer is at work on is no note.
        m_writer.Wait();
    std::optional<Failure> first;
    for (Writing const& writing : m_typed) {
        Finish(writing);
        if (writing.failure && !first)
            first = writing.failure;
    }
    m_typed.clear();
    return first;
}

std::optional<Failure> ChapterNotes::RetryPending()
{
    static_cast<void>(Collect());
    std::optional<Failure> first;
    for (auto next = m_pending.begin(); next != m_pending.end();) {
        auto writing = WritingOf((next++)->first);
        Write(m_files, writing);
        Finish(writing);
        if (writing.failure && !first)
            first = writing.failure;
    }
    m_told = m_told && !m_pending.empty();
    return first;
}

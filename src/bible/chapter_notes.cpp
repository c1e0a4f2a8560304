#include "bible/chapter_notes.h"

#include "base/code_page.h"
#include "base/nearest_form.h"

#include <algorithm>

// A note that the code page can't hold stands in UTF-8 in a file of its own, and its nearest form in the usual one. Each step
// of writing replaces one file, and after each the old note or the new one can be read whole: the exact text that
// counts is the one whose nearest form the usual file holds.
static constexpr TextView exactEnding = u".utf8";
static constexpr TextView nextEnding = u".utf8-next";

std::optional<Text> NoteFile(TextView folder, TextView bookName, TextView chapter)
{
    Text const name = Text(bookName).append(chapter);
    bool const isWritable = std::none_of(name.begin(), name.end(), [](char16_t character) {
        return character < u' ' || character == 0x7F || Contains(u"\\/:*?\"<>|", character);
    });
    if (!isWritable || name.empty() || name.front() == u'.' || name.front() == u' ')
        return std::nullopt;
    return Text(folder) + name + u".dat";
}

static Text Exact(Text const& path)
{
    return path + Text(exactEnding);
}

static Text Next(Text const& path)
{
    return path + Text(nextEnding);
}

Outcome<Text> ChapterNotes::Stored(Text const& path) const
{
    if (!m_files.FileExists(path))
        return Text();
    auto const bytes = m_files.ReadAll(path);
    if (!bytes)
        return bytes.failure();
    for (Text const& file : { Exact(path), Next(path) }) {
        if (!m_files.FileExists(file))
            continue;
        auto const exact = m_files.ReadAll(file);
        if (!exact)
            return exact.failure();
        Text text = FromUtf8(*exact);
        if (NearestCodePage(text).bytes == *bytes)
            return text;
    }
    return FromCodePage(*bytes);
}

Text ChapterNotes::Load(TextView path)
{
    Text const key(path);
    if (auto const pending = m_pending.find(key); pending != m_pending.end())
        return pending->second;
    auto stored = Stored(key);
    if (!stored) {
        m_unseen.insert(key);
        return {};
    }
    m_unseen.erase(key);
    return std::move(*stored);
}

static std::optional<Failure> FailureOf(Outcome<Done> const& outcome)
{
    return outcome ? std::nullopt : std::optional(outcome.failure());
}

/// Deletes a file if there is one.
static std::optional<Failure> Drop(FileSystem& files, Text const& path)
{
    return files.FileExists(path) ? FailureOf(files.Delete(path)) : std::nullopt;
}

/// Where a power cut left the exact form of the present note in the second file alone, it moves to the first before the second is
/// used again.
static std::optional<Failure> Promote(FileSystem& files, Text const& path)
{
    if (!files.FileExists(Next(path)) || !files.FileExists(path))
        return std::nullopt;
    auto const next = files.ReadAll(Next(path));
    if (!next)
        return next.failure();
    auto const bytes = files.ReadAll(path);
    if (!bytes)
        return bytes.failure();
    bool const isPresent = NearestCodePage(FromUtf8(*next)).bytes == *bytes;
    return isPresent ? FailureOf(files.Write(Exact(path), *next)) : std::nullopt;
}

/// The folders of a path, where they are missing: what a full disk kept from being made, or has gone since.
static void EnsureFolders(FileSystem& files, Text const& path)
{
    if (files.FolderExists(path.substr(0, path.rfind(u'\\'))))
        return;
    for (auto end = path.find(u'\\'); end != Text::npos; end = path.find(u'\\', end + 1))
        if (Text const folder = path.substr(0, end); !files.FolderExists(folder))
            static_cast<void>(files.CreateFolder(folder)); // Where that can't be, writing fails.
}

std::optional<Failure> ChapterNotes::Write(Text const& path, TextView text)
{
    EnsureFolders(m_files, path);
    if (m_unseen.contains(path)) {
        for (Text const& file : { path, Exact(path), Next(path) })
            if (m_files.FileExists(file))
                if (auto failure = FailureOf(m_files.SetAside(file)))
                    return failure;
        m_unseen.erase(path);
    }
    if (auto const bytes = ToCodePage(text)) {
        if (auto failure = FailureOf(m_files.Write(path, *bytes)))
            return failure;
        auto failure = Drop(m_files, Exact(path));
        return failure ? failure : Drop(m_files, Next(path));
    }
    auto const exact = ToUtf8(text);
    auto failure = Promote(m_files, path);
    if (!failure)
        failure = FailureOf(m_files.Write(Next(path), exact));
    if (!failure)
        failure = FailureOf(m_files.Write(path, NearestCodePage(text).bytes));
    if (!failure)
        failure = FailureOf(m_files.Write(Exact(path), exact));
    return failure ? failure : Drop(m_files, Next(path));
}

std::optional<Failure> ChapterNotes::Save(TextView path, TextView text, bool tell)
{
    Text const key(path);
    if (text.empty() && m_unseen.contains(key) && !m_pending.contains(key))
        return std::nullopt;
    m_pending[key] = text;
    auto failure = RetryPending();
    bool const isNew = failure && !m_told;
    m_told = failure && (m_told || tell);
    return isNew && tell ? failure : std::nullopt;
}

void ChapterNotes::KeepPlace(TextView path)
{
    if (!m_files.FileExists(path) && !m_pending.contains(Text(path)))
        static_cast<void>(m_files.Write(path, {}));
    static_cast<void>(RetryPending());
}

std::optional<Failure> ChapterNotes::RetryPending()
{
    std::optional<Failure> first;
    for (auto each = m_pending.begin(); each != m_pending.end();) {
        auto failure = Write(each->first, each->second);
        if (!failure) {
            each = m_pending.erase(each);
            continue;
        }
        if (!first)
            first = std::move(failure);
        ++each;
    }
    m_told = m_told && !m_pending.empty();
    return first;
}

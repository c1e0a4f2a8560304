#include "bible/note_file.h"

#include "base/code_page.h"
#include "base/nearest_code_page.h"

#include <algorithm>
#include <cstdint>
#include <set>

// Each step of writing replaces one file. The exact text that counts is the one whose nearest form
// is in the usual file, so after each step either the old note or the new one can be read whole.
static constexpr TextView noteEnding = u".dat";
static constexpr TextView exactEnding = u".utf8";
static constexpr TextView nextEnding = u".utf8-next";

Text NotesFolder(TextView driveLetter)
{
    return Text(driveLetter) + u":\\Program Files\\Sparrowfield Interactive Software\\notes";
}

std::optional<Text> NoteFile(TextView folder, TextView bookName, TextView chapter)
{
    Text const name = Text(bookName).append(chapter);
    bool const isWritable = std::none_of(name.begin(), name.end(), [](char16_t character) {
        return character < u' ' || character == 0x7F || Contains(u"\\/:*?\"<>|", character);
    });
    if (!isWritable || name.empty() || name.front() == u'.' || name.front() == u' ')
        return std::nullopt;
    return Text(folder) + name + Text(noteEnding);
}

std::optional<Text> ChapterOfNote(TextView fileName)
{
    if (!fileName.ends_with(noteEnding))
        return std::nullopt;
    Text chapter(fileName.substr(0, fileName.size() - noteEnding.size()));
    auto const book = static_cast<std::size_t>(
        std::find_if_not(chapter.rbegin(), chapter.rend(), IsDigit).base() - chapter.begin());
    if (book > 0 && book < chapter.size())
        chapter.insert(book, 1, u' ');
    return chapter;
}

std::vector<Text> NotesOnBook(std::vector<Text> fileNames, TextView bookName)
{
    std::set<std::pair<std::int64_t, Text>> found; // each with its chapter
    for (Text& name : fileNames) {
        if (!name.ends_with(noteEnding)
            || ToLower(name.substr(0, bookName.size())) != ToLower(bookName))
            continue;
        auto const chapter
            = TextView(name).substr(0, name.size() - noteEnding.size()).substr(bookName.size());
        if (CountDigits(chapter) == chapter.size())
            found.emplace(ToInteger(chapter).value_or(0), std::move(name));
    }
    std::vector<Text> names;
    for (auto const& each : found)
        names.push_back(each.second);
    return names;
}

static Text Exact(Text const& path)
{
    return path + Text(exactEnding);
}

static Text Next(Text const& path)
{
    return path + Text(nextEnding);
}

static Failure CantTell(Text const& path)
{
    return { path, 0, u"it can't be read" };
}

Outcome<Text> ReadNote(FileSystem const& files, Text const& path)
{
    auto const presence = files.LookFor(path);
    if (presence == Presence::Unknown)
        return CantTell(path);
    if (presence == Presence::Absent)
        return Text();
    auto const bytes = files.ReadAll(path);
    if (!bytes)
        return bytes.failure();
    for (Text const& file : { Exact(path), Next(path) }) {
        auto const beside = files.LookFor(file);
        if (beside == Presence::Unknown)
            return CantTell(file);
        if (beside == Presence::Absent)
            continue;
        auto const exact = files.ReadAll(file);
        if (!exact)
            return exact.failure();
        Text text = FromUtf8(*exact);
        if (ToNearestCodePage(text).bytes == *bytes)
            return text;
    }
    return FromCodePage(*bytes);
}

/// Deletes a file if there is one.
static Outcome<Done> DeleteIfPresent(FileSystem& files, Text const& path)
{
    return files.LookFor(path) == Presence::Absent ? Done() : files.Delete(path);
}

/// If a power cut left the exact form of the present note only in the "next" file, copies it to the
/// exact file before the next one is written again.
static Outcome<Done> Promote(FileSystem& files, Text const& path)
{
    if (!files.FileExists(Next(path)) || !files.FileExists(path))
        return Done();
    auto const next = files.ReadAll(Next(path));
    if (!next)
        return next.failure();
    auto const bytes = files.ReadAll(path);
    if (!bytes)
        return bytes.failure();
    bool const isPresent = ToNearestCodePage(FromUtf8(*next)).bytes == *bytes;
    return isPresent ? files.Write(Exact(path), *next) : Done();
}

/// Makes the folders on the path of a file, from the top, if its own is missing. If that fails, so
/// does writing the file.
static void MakeFolders(FileSystem& files, TextView path)
{
    auto const end = path.rfind(u'\\');
    if (end == TextView::npos || files.FolderExists(path.substr(0, end)))
        return;
    for (auto at = path.find(u'\\'); at != TextView::npos; at = path.find(u'\\', at + 1))
        static_cast<void>(files.CreateFolder(path.substr(0, at)));
}

Outcome<Done> WriteNote(FileSystem& files, Text const& path, TextView text)
{
    MakeFolders(files, path);
    if (auto const bytes = ToCodePage(text)) {
        auto done = files.Write(path, *bytes);
        if (done)
            done = DeleteIfPresent(files, Exact(path));
        return done ? DeleteIfPresent(files, Next(path)) : done;
    }
    auto const exact = ToUtf8(text);
    auto done = Promote(files, path);
    if (done)
        done = files.Write(Next(path), exact);
    if (done)
        done = files.Write(path, ToNearestCodePage(text).bytes);
    if (done)
        done = files.Write(Exact(path), exact);
    return done ? DeleteIfPresent(files, Next(path)) : done;
}

Outcome<Done> SetNoteAside(FileSystem& files, Text const& path)
{
    Outcome<Done> done = Done();
    for (Text const& file : { path, Exact(path), Next(path) })
        if (done && files.LookFor(file) != Presence::Absent)
            done = files.SetAside(file);
    return done;
}

void RestoreNote(FileSystem& files, Text const& path, TextView text)
{
    auto const presence = files.LookFor(path);
    if (presence == Presence::Unknown)
        return;
    auto const plain = ToCodePage(text);
    auto const bytes = plain ? *plain : ToNearestCodePage(text).bytes;
    if (presence == Presence::Absent) {
        MakeFolders(files, path);
        auto const made = files.Create(path, bytes);
        if (!made || !*made)
            return;
    }
    bool const lacksExact = !plain && files.LookFor(Exact(path)) == Presence::Absent
        && files.LookFor(Next(path)) == Presence::Absent;
    if (!lacksExact)
        return;
    if (auto const stored = files.ReadAll(path); stored && *stored == bytes)
        static_cast<void>(files.Write(Exact(path), ToUtf8(text)));
}

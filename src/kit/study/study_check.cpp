#include "kit/study/study_check.h"

#include "kit/common/files.h"
#include "kit/study/study_file_check.h"
#include "kit/study/verse_file_check.h"
#include "platform/text_lines.h"
#include "study/study_head.h"
#include "study/study_key.h"
#include "study/verse_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <vector>

namespace fs = std::filesystem;

namespace {

/// A file of this name in the folder, exactly or ignoring case, as the program finds it.
std::optional<fs::path> FindFile(fs::path const& folder, Text const& name)
{
    std::error_code error;
    if (fs::is_regular_file(folder / ToUtf8(name), error))
        return folder / ToUtf8(name);
    auto const wanted = ToLowerLatin(name);
    for (auto const& entry : fs::directory_iterator(folder.empty() ? "." : folder, error)) {
        if (ToLowerLatin(FromUtf8(entry.path().filename().string())) == wanted
            && entry.is_regular_file(error))
            return folder / entry.path().filename();
    }
    return std::nullopt;
}

/// The list of lessons in a study file.
std::vector<Text> ReadLessonList(fs::path const& path)
{
    Faults ignored;
    auto const bytes = ReadWhole(path, ignored);
    CheckLines lines(bytes ? *bytes : std::string_view(), {}, ignored);
    lines.Next();
    lines.Next();
    std::vector<Text> lessons;
    while (lines.Next() && ReadLessonLine(lines.Line()))
        lessons.emplace_back(*ReadLessonLine(lines.Line()));
    return lessons;
}

/// Holds a study file against the files that belong to it.
void CheckNeighbours(fs::path const& path, StudyOutline const& outline, Faults& faults)
{
    auto other = path.filename().string();
    char& digit = other[other.size() - 5]; // of "-1.dat"
    digit = digit == '1' ? '2' : '1';
    auto const otherPart = FindFile(path.parent_path(), FromUtf8(other));
    if (!otherPart)
        faults.push_back(
            { path.string(), 0, "expected the other part of the study beside it, " + other });
    else if (ReadLessonList(*otherPart) != outline.lessons)
        faults.push_back({ path.string(), 0, "expected the same lessons as in " + other });
    for (auto const& [name, line] : outline.verseFiles) {
        auto const file = VerseFileName(name);
        if (!FindFile(path.parent_path(), file))
            faults.push_back(
                { path.string(), line, "expected a verse file of this name, " + ToUtf8(file) });
    }
}

} // namespace

/// The number of the first line of a large file that is too long for the program; 0 if there is
/// none. Such a file isn't held in memory.
static int OverlongLine(fs::path const& path)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error) || fs::file_size(path, error) <= TextLines::longestLine
        || error)
        return 0;
    std::ifstream file(path, std::ios::binary);
    std::vector<char> block(std::size_t { 1 } << 16);
    int line = 1;
    for (std::size_t length = 0; file.read(block.data(), std::ssize(block)) || file.gcount() > 0;)
        for (char const byte :
            std::string_view(block.data(), static_cast<std::size_t>(file.gcount()))) {
            length = byte == '\n' ? 0 : length + 1;
            line += byte == '\n';
            if (length > TextLines::longestLine + 1) // One may be a carriage return.
                return line;
        }
    return 0;
}

void CheckFile(fs::path const& path, Faults& faults)
{
    if (auto const line = OverlongLine(path)) {
        faults.push_back({ path.string(), line, "a line is longer than 16 MB" });
        return;
    }
    auto const bytes = ReadWhole(path, faults);
    if (!bytes)
        return;
    auto const name = ToLowerLatin(FromUtf8(path.filename().string()));
    CheckLines lines(*bytes, path.string(), faults);
    if (IsVerseFileName(name))
        CheckVerseLines(lines);
    else if (name.ends_with(partEndings[0]) || name.ends_with(partEndings[1]))
        CheckNeighbours(path, CheckStudyLines(lines), faults);
    else if (name == u"introduction.txt" || name == u"conclusion.txt")
        while (lines.Next()) { }
    else
        faults.push_back({ path.string(), 0,
            "expected the name of a study file (*-1.dat, *-2.dat), a verse file (V-*) or a "
            "general text" });
}

#include "setup/copy_list.h"

// The list has a record for each file: its size in bytes in decimal, a blank, its path relative to
// the copy, a NUL.

#include "platform/posix/folders.h"
#include "platform/posix/whole_file.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <unistd.h>

namespace fs = std::filesystem;

Outcome<Done> WriteCopyList(CopyPlan const& plan, fs::path const& copy)
{
    std::string list;
    for (auto const& file : plan.files)
        list += std::to_string(file.size) + ' ' + file.to.string() + '\0';
    return ReplaceFile(copy / copyListName, list);
}

/// Sizes by name; nothing if there is no list.
static std::optional<std::map<std::string, std::string>> ReadCopyList(fs::path const& copy)
{
    auto const bytes = ReadWholeFile(copy / copyListName);
    if (!bytes)
        return std::nullopt;
    std::map<std::string, std::string> sizes;
    for (std::size_t start = 0; start < bytes->size();) {
        auto const end = std::min(bytes->find('\0', start), bytes->size());
        auto const record = bytes->substr(start, end - start);
        if (auto const blank = record.find(' '); blank != std::string::npos)
            sizes[record.substr(blank + 1)] = record.substr(0, blank);
        start = end + 1;
    }
    return sizes;
}

std::vector<UserFile> FindUserFiles(fs::path const& copy)
{
    std::vector<UserFile> found;
    std::error_code error;
    auto const list
        = fs::is_directory(fs::symlink_status(copy, error)) ? ReadCopyList(copy) : std::nullopt;
    if (!list)
        return found;
    fs::recursive_directory_iterator entries(copy, error); // doesn't follow links
    for (; !error && entries != fs::recursive_directory_iterator(); entries.increment(error)) {
        auto const type = entries->symlink_status(error).type();
        auto const name = entries->path().lexically_relative(copy);
        if (type == fs::file_type::directory || name == copyListName)
            continue;
        auto const listed = list->find(name.string());
        bool const isListed = listed != list->end();
        if (!isListed || type != fs::file_type::regular
            || std::to_string(entries->file_size(error)) != listed->second)
            found.push_back({ name, isListed });
    }
    std::sort(
        found.begin(), found.end(), [](auto const& a, auto const& b) { return a.name < b.name; });
    return found;
}

Outcome<Done> CarryUserFiles(fs::path const& old, fs::path const& fresh)
{
    for (auto const& [name, isChanged] : FindUserFiles(old)) {
        if (isChanged)
            continue;
        auto to = fresh / name;
        if (!IsFreeName(to))
            to = FirstFreeName(to.string() + ".kept-");
        if (auto const made = MakeFolders(to.parent_path()); !made)
            return made.failure();
        std::error_code error;
        fs::create_hard_link(old / name, to, error);
        if (error) // Not every file system has hard links.
            fs::copy(old / name, to, fs::copy_options::copy_symlinks, error);
        if (error)
            return FileFailure(old / name, error.value());
    }
    return Done {};
}

Outcome<fs::path> MoveUserFilesOut(fs::path const& copy, fs::path const& folder)
{
    auto const files = FindUserFiles(copy);
    if (files.empty())
        return fs::path();
    fs::path const kept = FirstFreeName((folder / "Kept files-").string());
    for (auto const& file : files) {
        auto const to = kept / file.name;
        if (auto const made = MakeFolders(to.parent_path()); !made)
            return made.failure();
        if (std::rename((copy / file.name).c_str(), to.c_str()) != 0)
            return FileFailure(copy / file.name);
    }
    return kept;
}

#include "platform/posix/leftover_pages.h"

#include "base/text.h"
#include "platform/posix/descriptor.h"

#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

static bool IsTemporaryName(std::string_view name)
{
    constexpr std::string_view page = "sf", ending = ".htm", fresh = ".new-";
    if (name.starts_with(fresh))
        return name.size() == fresh.size() + 6
            && std::all_of(name.begin() + fresh.size(), name.end(), [](char c) {
                   return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
               });
    if (!name.starts_with(page) || !name.ends_with(ending)
        || name.size() != page.size() + 12 + ending.size())
        return false;
    return std::all_of(name.begin() + page.size(), name.end() - ending.size(),
        [](char c) { return IsDigit(c) || (c >= 'a' && c <= 'f'); });
}

void RemoveLeftoverPages(fs::path const& folder)
{
    constexpr std::time_t day = 24 * 60 * 60;
    Descriptor const open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!open)
        return;
    auto const now = std::time(nullptr);
    std::error_code error;
    fs::directory_iterator entries(folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        auto const name = entries->path().filename().string();
        struct stat status { };
        if (IsTemporaryName(name)
            && ::fstatat(open.Number(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0
            && S_ISREG(status.st_mode) && status.st_uid == ::geteuid()
            && status.st_mtime < now - day)
            ::unlinkat(open.Number(), name.c_str(), 0);
    }
}

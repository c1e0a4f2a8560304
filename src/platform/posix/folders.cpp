#include "platform/posix/folders.h"

#include "platform/posix/descriptor.h"

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

Outcome<Done> MakeFolders(fs::path const& folder)
{
    std::error_code error;
    auto const whole = fs::absolute(folder, error);
    if (fs::is_directory(whole, error) || !whole.has_relative_path())
        return Done {};
    auto const parent = whole.parent_path();
    if (auto made = MakeFolders(parent); !made || !whole.has_filename())
        return made;
    return MakeFolder(whole.string(), parent.string(), FromUtf8(whole.string()));
}

bool IsOwnedByUser(fs::path const& place, fs::file_type type)
{
    struct stat status { };
    std::error_code error;
    return ::lstat(place.c_str(), &status) == 0 && status.st_uid == ::geteuid()
        && fs::symlink_status(place, error).type() == type;
}

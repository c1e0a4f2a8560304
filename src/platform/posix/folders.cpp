#include "platform/posix/folders.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

Failure FolderFailure(TextView path)
{
    if (errno == ENOENT || errno == ENOTDIR)
        return { Text(path), 0, u"its folder doesn't exist" };
    return SystemFailure(path);
}

fs::path FolderOf(fs::path const& file)
{
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

Outcome<Done> MakeFolder(fs::path const& folder, TextView path)
{
    if (::mkdir(folder.c_str(), 0700) == 0) {
        auto const flushed = FlushFolder(FolderOf(folder));
        return flushed ? flushed : Failure { Text(path), 0, flushed.failure().reason };
    }
    if (errno != EEXIST)
        return FolderFailure(path);
    std::error_code error;
    return fs::is_directory(folder, error) ? Outcome<Done>(Done {})
                                           : Failure { Text(path), 0, u"it is not a folder" };
}

Outcome<Done> MakeFolders(fs::path const& folder)
{
    std::error_code error;
    auto const whole = fs::absolute(folder, error);
    if (fs::is_directory(whole, error) || !whole.has_relative_path())
        return Done {};
    if (auto made = MakeFolders(whole.parent_path()); !made || !whole.has_filename())
        return made;
    return MakeFolder(whole, FromUtf8(whole.string()));
}

bool FlushFolder(Descriptor const& folder)
{
    // A file system that keeps no folders to flush says EINVAL or ENOTSUP.
    return ::fsync(folder.Number()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

Outcome<Done> FlushFolder(fs::path const& folder)
{
    Descriptor const opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened && FlushFolder(opened) ? Outcome<Done>(Done {}) : FileFailure(folder);
}

bool IsOwnedByUser(fs::path const& place, fs::file_type type)
{
    struct stat status { };
    std::error_code error;
    return ::lstat(place.c_str(), &status) == 0 && status.st_uid == ::geteuid()
        && fs::symlink_status(place, error).type() == type;
}

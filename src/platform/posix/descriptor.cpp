#include "platform/posix/descriptor.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

bool Descriptor::Close()
{
    return m_number < 0 || ::close(std::exchange(m_number, -1)) == 0;
}

static TextView Reason(int number)
{
    switch (number) {
    case ENOENT:
    case ENOTDIR:
        return u"the file doesn't exist";
    case ENOMEM:
    case EFBIG:
        return u"it is too large";
    case EISDIR:
        return u"a folder stands in its place";
    case EACCES:
    case EPERM:
        return u"the permission for it is missing";
    case ENOSPC:
    case EDQUOT:
        return u"the disk is full";
    case EROFS:
        return u"the disk can't be written to";
    case ENAMETOOLONG:
        return u"its name is too long";
    case ENOTEMPTY:
    case EEXIST:
        return u"something stands in its place";
    default:
        return {};
    }
}

Failure SystemFailure(TextView path, int number)
{
    auto const reason = Reason(number);
    return { Text(path), 0, reason.empty() ? FromUtf8(std::strerror(number)) : Text(reason) };
}

Failure SystemFailure(TextView path)
{
    return SystemFailure(path, errno);
}

bool WriteAll(Descriptor const& file, std::string_view bytes)
{
    while (!bytes.empty()) {
        auto const written = ::write(file.Number(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

Outcome<Descriptor> OpenRegularFile(std::filesystem::path const& file)
{
    auto const path = FromUtf8(file.string());
    struct stat status { };
    // Looked at first: opening some devices does something already.
    if (::stat(file.c_str(), &status) != 0)
        return SystemFailure(path);
    if (S_ISDIR(status.st_mode))
        return SystemFailure(path, EISDIR);
    Failure const notRegular { path, 0, u"it is not a regular file" };
    if (!S_ISREG(status.st_mode))
        return notRegular;
    Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!opened || ::fstat(opened.Number(), &status) != 0)
        return SystemFailure(path);
    if (!S_ISREG(status.st_mode))
        return notRegular;
    return opened;
}

Outcome<std::string> ReadWholeFile(std::filesystem::path const& file, std::uint64_t atMost)
{
    auto const opened = OpenRegularFile(file);
    if (!opened)
        return opened.failure();
    struct stat status { };
    auto const path = FromUtf8(file.string());
    if (::fstat(opened->Number(), &status) != 0)
        return SystemFailure(path);
    if (static_cast<std::uint64_t>(status.st_size) > atMost)
        return SystemFailure(path, EFBIG);
    // One byte more than the file is said to have, so that its end is seen in the same pass.
    std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
    for (std::size_t filled = 0;;) {
        auto const size = ::read(opened->Number(), bytes.data() + filled, bytes.size() - filled);
        if (size < 0 && errno != EINTR)
            return SystemFailure(path);
        filled += size > 0 ? static_cast<std::size_t>(size) : 0;
        if (size == 0) {
            bytes.resize(filled);
            return bytes;
        }
        if (filled > atMost)
            return SystemFailure(path, EFBIG);
        if (filled == bytes.size())
            bytes.resize(bytes.size() * 2);
    }
}

/// A file system that keeps no folders to flush says EINVAL or ENOTSUP.
static bool Flush(Descriptor const& folder)
{
    return ::fsync(folder.Number()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

Outcome<Done> FlushFolder(std::string const& folder)
{
    Descriptor const directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return directory && Flush(directory) ? Outcome<Done>(Done {}) : SystemFailure(FromUtf8(folder));
}

static Failure FolderFailure(TextView path)
{
    if (errno == ENOENT || errno == ENOTDIR)
        return { Text(path), 0, u"its folder doesn't exist" };
    return SystemFailure(path);
}

/// Writes a new file in the folder, readable by its owner alone, and gives it its name by `name`,
/// which gets its present one. Where that fails, the file goes. `name` gives true if it succeeded.
template <class GiveName>
static Outcome<Done> WriteNew(std::string const& folder, std::string_view bytes, TextView path,
    Lasting lasting, GiveName const& name)
{
    Descriptor const directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!directory)
        return FolderFailure(path);
    std::string fresh = folder + "/.new-XXXXXX"; // mkostemp makes it readable by its owner alone.
    Descriptor file(::mkostemp(fresh.data(), O_CLOEXEC));
    if (!file)
        return FolderFailure(path);
    if (WriteAll(file, bytes) && (lasting == Lasting::No || ::fsync(file.Number()) == 0)
        && file.Close() && name(fresh.c_str()))
        return lasting == Lasting::No || Flush(directory) ? Outcome<Done>(Done {})
                                                          : SystemFailure(path);
    auto const failure = SystemFailure(path);
    ::unlink(fresh.c_str());
    return failure;
}

Outcome<Done> ReplaceFile(std::string const& folder, std::string const& name,
    std::string_view bytes, TextView path, Lasting lasting)
{
    auto const place = folder + "/" + name;
    return WriteNew(folder, bytes, path, lasting,
        [&](char const* fresh) { return std::rename(fresh, place.c_str()) == 0; });
}

Outcome<bool> CreateFile(
    std::string const& folder, std::string const& name, std::string_view bytes, TextView path)
{
    auto const place = folder + "/" + name;
    bool isTaken = false;
    auto const made = WriteNew(folder, bytes, path, Lasting::Yes, [&](char const* fresh) {
        if (::renameat2(AT_FDCWD, fresh, AT_FDCWD, place.c_str(), RENAME_NOREPLACE) == 0)
            return true;
        isTaken = errno == EEXIST;
        if (errno != EINVAL && errno != ENOSYS)
            return false;
        // Not every file system can rename in this way; a hard link fails likewise if the name is
        // taken.
        bool const isMade = ::link(fresh, place.c_str()) == 0;
        isTaken = !isMade && errno == EEXIST;
        return isMade && ::unlink(fresh) == 0;
    });
    if (isTaken)
        return false;
    return made ? Outcome<bool>(true) : made.failure();
}

Outcome<Done> MakeFolder(std::string const& folder, std::string const& parent, TextView path)
{
    if (::mkdir(folder.c_str(), 0700) == 0) {
        Descriptor const directory(::open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        return directory && Flush(directory) ? Outcome<Done>(Done {}) : SystemFailure(path);
    }
    int const number = errno;
    struct stat status { };
    if (number == EEXIST && ::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        return Done {};
    errno = number;
    return FolderFailure(path);
}

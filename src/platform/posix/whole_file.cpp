#include "platform/posix/whole_file.h"

#include "platform/posix/folders.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

static Outcome<Done> CheckRegular(struct stat const& status, TextView path)
{
    if (S_ISDIR(status.st_mode))
        return SystemFailure(path, EISDIR);
    return S_ISREG(status.st_mode) ? Outcome<Done>(Done {})
                                   : Failure { Text(path), 0, u"it is not a regular file" };
}

Outcome<RegularFile> OpenRegularFile(fs::path const& file, TextView path)
{
    struct stat status { };
    if (::stat(file.c_str(), &status) != 0)
        return SystemFailure(path);
    if (auto const checked = CheckRegular(status, path); !checked)
        return checked.failure();
    // Another file may have taken its place by now: opening that doesn't wait either.
    Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!opened || ::fstat(opened.Number(), &status) != 0)
        return SystemFailure(path);
    if (auto const checked = CheckRegular(status, path); !checked)
        return checked.failure();
    return RegularFile { std::move(opened), static_cast<std::uint64_t>(status.st_size) };
}

Outcome<std::string> ReadWholeFile(RegularFile const& file, TextView path, std::uint64_t atMost)
{
    if (file.size > atMost)
        return SystemFailure(path, EFBIG);
    // One byte more than the file is said to have, so that its end is seen in the same pass.
    std::string bytes(static_cast<std::size_t>(file.size) + 1, '\0');
    for (std::size_t filled = 0;;) {
        auto const size
            = ReadSome(file.descriptor, { bytes.data() + filled, bytes.size() - filled });
        if (size < 0)
            return SystemFailure(path);
        filled += static_cast<std::size_t>(size);
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

Outcome<std::string> ReadWholeFile(fs::path const& file, std::uint64_t atMost)
{
    auto const path = FromUtf8(file.string());
    auto const opened = OpenRegularFile(file, path);
    return opened ? ReadWholeFile(*opened, path, atMost) : opened.failure();
}

/// Writes a new file in the folder of `file`, readable by its owner alone, and lets `giveName`
/// rename it; that gets its present name, and returns true if it succeeded. On a failure the file
/// is removed.
template <class GiveName>
static Outcome<Done> WriteNew(fs::path const& file, std::string_view bytes, TextView path,
    Lasting lasting, GiveName const& giveName)
{
    auto const folder = FolderOf(file);
    Descriptor const directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!directory)
        return FolderFailure(path);
    auto fresh = (folder / ".new-XXXXXX").string(); // mkostemp lets only its owner read it.
    Descriptor opened(::mkostemp(fresh.data(), O_CLOEXEC));
    if (!opened)
        return FolderFailure(path);
    if (WriteAll(opened, bytes) && (lasting == Lasting::No || ::fsync(opened.Number()) == 0)
        && opened.Close() && giveName(fresh.c_str()))
        return lasting == Lasting::No || FlushFolder(directory) ? Outcome<Done>(Done {})
                                                                : SystemFailure(path);
    auto const failure = SystemFailure(path);
    ::unlink(fresh.c_str());
    return failure;
}

Outcome<Done> ReplaceFile(
    fs::path const& file, std::string_view bytes, TextView path, Lasting lasting)
{
    return WriteNew(file, bytes, path, lasting,
        [&](char const* fresh) { return std::rename(fresh, file.c_str()) == 0; });
}

Outcome<Done> ReplaceFile(fs::path const& file, std::string_view bytes)
{
    return ReplaceFile(file, bytes, FromUtf8(file.string()));
}

Outcome<bool> CreateFile(fs::path const& file, std::string_view bytes, TextView path)
{
    bool isTaken = false;
    auto const made = WriteNew(file, bytes, path, Lasting::Yes, [&](char const* fresh) {
        if (::renameat2(AT_FDCWD, fresh, AT_FDCWD, file.c_str(), RENAME_NOREPLACE) == 0)
            return true;
        isTaken = errno == EEXIST;
        if (errno != EINVAL && errno != ENOSYS)
            return false;
        // Not every file system can rename in this way; a hard link, too, fails if the name is
        // taken.
        bool const isMade = ::link(fresh, file.c_str()) == 0;
        isTaken = !isMade && errno == EEXIST;
        return isMade && ::unlink(fresh) == 0;
    });
    if (isTaken)
        return false;
    return made ? Outcome<bool>(true) : made.failure();
}

bool IsFreeName(fs::path const& place)
{
    std::error_code ignored;
    return !fs::exists(fs::symlink_status(place, ignored));
}

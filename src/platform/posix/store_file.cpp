#include "platform/posix/store_file.h"

#include "platform/posix/folders.h"
#include "platform/posix/whole_file.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

static fs::path JournalOf(fs::path const& file)
{
    return file.string() + "-journal";
}

/// Fails if the file, or one that SQLite may keep beside it, is there and isn't a regular file.
static Outcome<Done> CheckKinds(fs::path const& file)
{
    for (char const* const ending : { "", "-journal", "-wal", "-shm" }) {
        auto const place = file.string() + ending;
        struct stat status { };
        if (::stat(place.c_str(), &status) != 0 || S_ISREG(status.st_mode))
            continue;
        return S_ISDIR(status.st_mode) ? FileFailure(place, EISDIR)
                                       : FileFailure(place, u"it is not a regular file");
    }
    return Done {};
}

Outcome<Done> PrepareStoreFile(fs::path const& file)
{
    // If this fails, so does making the file, with the reason.
    static_cast<void>(MakeFolders(fs::absolute(file).parent_path()));
    // Private from the first moment. A file that exists isn't opened: closing it would drop the
    // locks of every other connection within this process.
    Descriptor const fresh(::open(file.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600));
    return fresh || errno == EEXIST ? CheckKinds(file) : FileFailure(file);
}

bool HasJournal(fs::path const& file)
{
    struct stat status { };
    return ::lstat(JournalOf(file).c_str(), &status) == 0;
}

bool NamesSuperJournal(fs::path const& file)
{
    // The SQLite file format: a journal ends with the name of its super-journal and these bytes.
    static constexpr std::string_view mark = "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7";
    auto const journal = OpenRegularFile(JournalOf(file), {});
    if (!journal || journal->size < mark.size())
        return false;
    char end[mark.size()];
    auto const place = static_cast<off_t>(journal->size - mark.size());
    return ::pread(journal->descriptor.Number(), end, mark.size(), place) == std::ssize(mark)
        && std::string_view(end, mark.size()) == mark;
}

FileIdentity IdentityOf(fs::path const& file)
{
    struct stat status { };
    return ::stat(file.c_str(), &status) == 0 ? FileIdentity(status.st_dev, status.st_ino)
                                              : FileIdentity();
}

Outcome<std::optional<fs::path>> SetStoreAside(fs::path const& file, FileIdentity const& identity,
    std::chrono::steady_clock::time_point deadline)
{
    auto const old = OpenRegularFile(file, FromUtf8(file.string()));
    if (!old)
        return old.failure();
    if (!LockFile(old->descriptor, deadline))
        return errno == EWOULDBLOCK ? FileFailure(file, u"it is in use by another program")
                                    : FileFailure(file);
    if (IdentityOf(file) != identity)
        return std::optional<fs::path>();
    fs::path const aside = FirstFreeName(file.string() + ".damaged-", {},
        [](std::string const& name) { return IsFreeName(name) && IsFreeName(JournalOf(name)); });
    std::error_code error, ignored;
    fs::rename(file, aside, error);
    if (error)
        return FileFailure(file,
            u"it is damaged or not a settings file, and it couldn't be renamed: "
                + FromUtf8(error.message()));
    // The journal belongs to the old file. SQLite would drop it if it were beside the new one.
    fs::rename(JournalOf(file), JournalOf(aside), ignored);
    return std::optional(aside);
}

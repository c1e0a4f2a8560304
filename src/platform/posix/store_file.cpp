#include "platform/posix/store_file.h"

#include "platform/posix/descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

static fs::path JournalOf(fs::path const& file)
{
    return file.string() + "-journal";
}

std::optional<Failure> CheckKinds(fs::path const& file)
{
    for (char const* const ending : { "", "-journal", "-wal", "-shm" }) {
        auto const place = file.string() + ending;
        struct stat status { };
        if (::stat(place.c_str(), &status) != 0 || S_ISREG(status.st_mode))
            continue;
        return S_ISDIR(status.st_mode)
            ? SystemFailure(FromUtf8(place), EISDIR)
            : Failure { FromUtf8(place), 0, u"it is not a regular file" };
    }
    return std::nullopt;
}

bool HasJournal(fs::path const& file)
{
    struct stat status { };
    return ::lstat(JournalOf(file).c_str(), &status) == 0;
}

bool NamesSuperJournal(fs::path const& file)
{
    // The SQLite file format: the name of a super-journal stands at the journal's end, and these
    // bytes behind it.
    static constexpr std::string_view mark = "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7";
    auto const journal = OpenRegularFile(JournalOf(file));
    struct stat status { };
    if (!journal || ::fstat(journal->Number(), &status) != 0
        || status.st_size < static_cast<off_t>(mark.size()))
        return false;
    char end[mark.size()];
    auto const place = status.st_size - static_cast<off_t>(mark.size());
    return ::pread(journal->Number(), end, mark.size(), place) == static_cast<ssize_t>(mark.size())
        && std::string_view(end, mark.size()) == mark;
}

FileIdentity IdentityOf(fs::path const& file)
{
    struct stat status { };
    return ::stat(file.c_str(), &status) == 0 ? FileIdentity(status.st_dev, status.st_ino)
                                              : FileIdentity();
}

/// Waits for the lock until the deadline; it is asked for once at least.
static bool Lock(Descriptor const& file, std::chrono::steady_clock::time_point deadline)
{
    while (::flock(file.Number(), LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR)
            || std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

Outcome<std::optional<fs::path>> SetStoreAside(fs::path const& file, FileIdentity const& identity,
    std::chrono::steady_clock::time_point deadline)
{
    auto const path = FromUtf8(file.string());
    auto const old = OpenRegularFile(file);
    if (!old)
        return old.failure();
    if (!Lock(*old, deadline))
        return errno == EWOULDBLOCK ? Failure { path, 0, u"it is in use by another program" }
                                    : SystemFailure(path);
    if (IdentityOf(file) != identity)
        return std::optional<fs::path>();
    std::error_code error, ignored;
    fs::path aside;
    int number = 0;
    do
        aside = file.string() + ".damaged-" + std::to_string(++number);
    while (fs::exists(fs::symlink_status(aside, ignored))
        || fs::exists(fs::symlink_status(JournalOf(aside), ignored)));
    fs::rename(file, aside, error);
    if (error)
        return Failure { path, 0,
            u"it is damaged or no settings store, and can't be set aside: "
                + FromUtf8(error.message()) };
    // The journal belongs to the old file: on the new one it would be dropped.
    fs::rename(JournalOf(file), JournalOf(aside), ignored);
    return std::optional(aside);
}

#include "setup/publisher_folder.h"

#include "platform/posix/folders.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

static constexpr char const* asideName = ".new-";

static void RemoveLeftovers(fs::path const& folder)
{
    std::error_code error;
    std::vector<fs::path> leftovers;
    fs::directory_iterator entries(folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error))
        if (entries->path().filename().string().starts_with(asideName)
            && IsOwnedByUser(entries->path(), fs::file_type::directory))
            leftovers.push_back(entries->path());
    for (auto const& leftover : leftovers)
        fs::remove_all(leftover, error);
}

Outcome<PublisherFolder> PublisherFolder::Hold(fs::path const& folder)
{
    if (auto const made = MakeFolders(folder); !made)
        return made.failure();
    std::error_code error;
    for (auto const& place : { folder.parent_path(), folder })
        if (fs::is_symlink(fs::symlink_status(place, error)))
            return FileFailure(place, u"it is a link, and Setup doesn't follow links");
    Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW));
    if (!descriptor)
        return FileFailure(folder);
    if (!LockFile(descriptor, {})) {
        if (errno == EWOULDBLOCK)
            return FileFailure(folder, u"another Setup is using this folder");
        // On a file system without locks installing without one is better than never.
    }
    RemoveLeftovers(folder);
    return PublisherFolder(folder, std::move(descriptor));
}

PublisherFolder::PublisherFolder(fs::path folder, Descriptor descriptor)
    : m_folder(std::move(folder))
    , m_descriptor(std::move(descriptor))
{
}

PublisherFolder::~PublisherFolder()
{
    if (m_descriptor)
        ::rmdir(m_folder.c_str());
}

Outcome<fs::path> PublisherFolder::MakeAside() const
{
    std::string pattern = (m_folder / (std::string(asideName) + "XXXXXX")).string();
    if (!::mkdtemp(pattern.data()))
        return FileFailure(m_folder);
    return fs::path(pattern);
}

/// The exchange in two steps, for file systems that can't do it in one. If the program is killed in
/// between, there is no copy until the next installation.
static Outcome<Done> ExchangeInSteps(fs::path const& fresh, fs::path const& target)
{
    fs::path const aside = fresh.string() + "-old";
    if (::rename(target.c_str(), aside.c_str()) != 0)
        return FileFailure(target);
    if (::rename(fresh.c_str(), target.c_str()) != 0) {
        auto const failure = FileFailure(target);
        [[maybe_unused]] auto const isBack = ::rename(aside.c_str(), target.c_str());
        return failure;
    }
    std::error_code ignored; // The next Hold removes what is left.
    fs::remove_all(aside, ignored);
    return Done {};
}

Outcome<Done> PublisherFolder::Exchange(fs::path const& fresh, fs::path const& target) const
{
    std::error_code error;
    if (!fs::exists(fs::symlink_status(target, error))) {
        if (::rename(fresh.c_str(), target.c_str()) != 0)
            return FileFailure(target);
    } else if (::renameat2(AT_FDCWD, fresh.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE)
        != 0) {
        if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP)
            return FileFailure(target);
        if (auto exchanged = ExchangeInSteps(fresh, target); !exchanged)
            return exchanged;
    }
    return FlushFolder(m_folder);
}

Outcome<Done> PublisherFolder::Remove(fs::path const& target) const
{
    std::error_code error;
    auto const status = fs::symlink_status(target, error);
    if (fs::is_symlink(status))
        return ::unlink(target.c_str()) == 0 ? Outcome<Done>(Done {}) : FileFailure(target);
    if (!fs::is_directory(status))
        return FileFailure(target, u"it is not a folder");
    auto const aside = MakeAside();
    if (!aside)
        return aside.failure();
    if (::rename(target.c_str(), aside->c_str()) != 0) {
        auto const failure = FileFailure(target);
        ::rmdir(aside->c_str());
        return failure;
    }
    fs::remove_all(*aside, error);
    if (error)
        return FileFailure(*aside, error.value());
    return FlushFolder(m_folder);
}

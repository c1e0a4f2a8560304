#include "kit/common/files.h"

#include "platform/posix/console.h"
#include "platform/posix/folders.h"
#include "platform/posix/whole_file.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fstream>
#include <random>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr auto ownersRights = fs::perms::owner_read | fs::perms::owner_write;

/// True if the file exists as it would be written.
bool IsUpToDate(fs::path const& path, std::string const& bytes, Readers readers)
{
    std::error_code error;
    if (readers == Readers::Owner && fs::symlink_status(path, error).permissions() != ownersRights)
        return false;
    if (!fs::is_regular_file(path, error) || fs::file_size(path, error) != bytes.size() || error)
        return false;
    auto const present = ReadWholeFile(path);
    return present && *present == bytes;
}

/// `meant` is the name of the file in failures, as the user knows it.
void WriteWhole(
    fs::path const& path, std::string const& bytes, fs::path const& meant, Readers readers)
{
    fs::create_directories(path.parent_path());
    errno = 0;
    std::ofstream file(path, std::ios::binary);
    if (readers == Readers::Owner) // while it is empty
        fs::permissions(path, ownersRights);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw fs::filesystem_error("", meant, std::error_code(errno, std::generic_category()));
}

constexpr char const* workName = ".kit-";
/// The file that marks a work folder as the kit's own, and its content.
constexpr char const *workMarker = "work-of-sparrowfield-kit",
                     *workMarking = "Made by sparrowfield-kit, and removed by it.\n";

/// True for a folder of this user, not a link, that holds our marker.
bool IsOwnWorkFolder(fs::path const& folder)
{
    auto const marker = folder / workMarker;
    if (!IsOwnedByUser(folder, fs::file_type::directory)
        || !IsOwnedByUser(marker, fs::file_type::regular))
        return false;
    auto const marking = ReadWholeFile(marker);
    return marking && *marking == workMarking;
}

/// Removes the folders of killed runs. A folder younger than an hour may still be in use.
void RemoveLeftovers(fs::path const& target)
{
    std::error_code ignored;
    auto const old = fs::file_time_type::clock::now() - std::chrono::hours(1);
    for (auto const& entry : fs::directory_iterator(target, ignored)) {
        if (entry.path().filename().string().starts_with(workName) && IsOwnWorkFolder(entry.path())
            && entry.last_write_time(ignored) < old)
            fs::remove_all(entry.path(), ignored);
    }
}

/// A temporary folder inside the target. Both are removed at the end: this one with everything in
/// it, the target if it was made for this and is still empty.
class WorkFolder {
public:
    explicit WorkFolder(fs::path target)
        : m_target(std::move(target))
        , m_madeTarget(fs::create_directory(m_target))
    {
        RemoveLeftovers(m_target);
        m_path = m_target / (workName + std::to_string(std::random_device {}()));
        std::error_code error;
        if (!fs::create_directory(m_path, error)) {
            RemoveMadeTarget();
            throw fs::filesystem_error("", m_target, error);
        }
        fs::permissions(m_path, fs::perms::owner_all, error);
        std::ofstream(m_path / workMarker, std::ios::binary)
            << workMarking; // Without it the folder would be left after a kill.
    }
    ~WorkFolder()
    {
        std::error_code ignored;
        if (!m_isReleased)
            fs::remove_all(m_path, ignored);
        RemoveMadeTarget();
    }
    WorkFolder(WorkFolder const&) = delete;
    WorkFolder& operator=(WorkFolder const&) = delete;

    fs::path const& Path() const { return m_path; }
    /// Leaves the folder to the user.
    void Release()
    {
        std::error_code ignored;
        m_isReleased = true;
        fs::remove(m_path / workMarker, ignored);
    }

private:
    void RemoveMadeTarget()
    {
        std::error_code ignored;
        if (m_madeTarget)
            fs::remove(m_target, ignored); // fails unless it is empty
    }

    fs::path m_target;
    bool m_madeTarget;
    bool m_isReleased = false;
    fs::path m_path;
};

/// Exchanges files one by one. The old file is kept under a second name, so no name is missing at
/// any time.
class Exchange {
public:
    Exchange(fs::path target, fs::path const& work)
        : m_target(std::move(target))
        , m_new(work / "new")
        , m_old(work / "old")
    {
    }

    fs::path const& Old() const { return m_old; }

    void Move(fs::path const& name)
    {
        auto const place = m_target / name;
        try {
            if (name.has_parent_path() && fs::create_directory(place.parent_path()))
                m_madeFolders.push_back(place.parent_path());
            bool const isThere = fs::exists(place);
            if (isThere)
                SetAside(name);
            fs::rename(m_new / name, place);
            m_moved.push_back({ name, isThere });
        } catch (fs::filesystem_error const& error) {
            throw fs::filesystem_error("", place, error.code()); // the name that the user knows
        }
    }

    /// False if something couldn't be put back; it is still among the files set aside.
    bool PutBack()
    {
        std::error_code error;
        bool isWhole = true;
        for (auto const& [name, wasThere] : m_moved) {
            if (wasThere)
                fs::rename(m_old / name, m_target / name, error);
            else
                fs::remove(m_target / name, error);
            isWhole &= !error;
        }
        for (auto folder = m_madeFolders.rbegin(); folder != m_madeFolders.rend(); ++folder)
            fs::remove(*folder, error);
        return isWhole;
    }

private:
    struct Moved {
        fs::path name;
        bool wasThere;
    };

    void SetAside(fs::path const& name)
    {
        if (fs::is_directory(m_target / name))
            throw fs::filesystem_error("", std::make_error_code(std::errc::is_a_directory));
        fs::create_directories((m_old / name).parent_path());
        std::error_code error;
        fs::create_hard_link(m_target / name, m_old / name, error);
        if (error) // Not every file system has hard links.
            fs::copy_file(m_target / name, m_old / name);
    }

    fs::path m_target, m_new, m_old;
    std::vector<fs::path> m_madeFolders;
    std::vector<Moved> m_moved;
};

/// Writes the files into a work folder and exchanges them. If it throws with a second path, some
/// files couldn't be put back, and the old ones are there.
void WriteAndExchange(fs::path const& target, OutputFiles const& files,
    std::vector<fs::path> const& names, Readers readers)
{
    DeferredInterrupt const untilDone;
    WorkFolder work(target);
    for (auto const& name : names)
        WriteWhole(work.Path() / "new" / name, files.at(name), target / name, readers);
    Exchange exchange(target, work.Path());
    try {
        for (auto const& name : names)
            exchange.Move(name);
    } catch (fs::filesystem_error const& error) {
        if (exchange.PutBack())
            throw;
        work.Release();
        throw fs::filesystem_error("", error.path1(), exchange.Old(), error.code());
    }
}

} // namespace

std::optional<std::string> ReadWhole(fs::path const& path, Faults& faults, std::uint64_t atMost)
{
    auto bytes = ReadWholeFile(path, atMost);
    if (bytes)
        return std::move(*bytes);
    faults.push_back(ToFault(bytes.failure()));
    return std::nullopt;
}

/// True for a relative name that doesn't lead out of its folder.
static bool StaysInside(fs::path const& name)
{
    return !name.empty() && name.is_relative() && name.has_filename()
        && std::none_of(name.begin(), name.end(),
            [](fs::path const& part) { return part == ".." || part == "."; });
}

Outcome<Replaced> ReplaceFiles(fs::path const& target, OutputFiles const& files, Readers readers)
{
    auto const fail = [](fs::path const& path, std::string const& reason) {
        return FileFailure(path, FromUtf8(reason));
    };
    for (auto const& [name, bytes] : files)
        if (!StaysInside(name))
            return fail(name, "its name leads out of the folder; nothing was changed");
    try {
        std::vector<fs::path> changed;
        for (auto const& [name, bytes] : files)
            if (!IsUpToDate(target / name, bytes, readers))
                changed.push_back(name);
        if (!changed.empty())
            WriteAndExchange(target, files, changed, readers);
        return Replaced { changed.size(), files.size() - changed.size() };
    } catch (fs::filesystem_error const& error) {
        return fail(error.path1().empty() ? target : error.path1(),
            error.code().message()
                + (error.path2().empty() ? "; nothing was changed"
                                         : "; some files couldn't be put back, the old ones are in "
                            + error.path2().string()));
    }
}

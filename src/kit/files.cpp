#include "kit/files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <random>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::string Reason(int number)
{
    return number != 0 ? std::strerror(number) : "it can't be read";
}

bool HasContent(fs::path const& path, std::string const& bytes)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error) || fs::file_size(path, error) != bytes.size() || error)
        return false;
    Faults ignored;
    return ReadWhole(path, ignored) == bytes;
}

/// `meant` is the file as the user knows it.
void WriteWhole(fs::path const& path, std::string const& bytes, fs::path const& meant)
{
    fs::create_directories(path.parent_path());
    errno = 0;
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw fs::filesystem_error("", meant, std::error_code(errno, std::generic_category()));
}

/// A folder for work inside of the target, removed with all that is left in it; and the target itself, if it was made
/// for this and nothing has come into it.
class WorkFolder {
public:
    explicit WorkFolder(fs::path target)
        : m_target(std::move(target))
        , m_madeTarget(fs::create_directory(m_target))
    {
        m_path = m_target / (".kit-" + std::to_string(std::random_device {}()));
        std::error_code error;
        if (!fs::create_directory(m_path, error)) {
            RemoveMadeTarget();
            throw fs::filesystem_error("", m_target, error);
        }
    }
    ~WorkFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
        RemoveMadeTarget();
    }
    WorkFolder(WorkFolder const&) = delete;
    WorkFolder& operator=(WorkFolder const&) = delete;

    fs::path const& Path() const { return m_path; }

private:
    void RemoveMadeTarget()
    {
        std::error_code ignored;
        if (m_madeTarget)
            fs::remove(m_target, ignored); // Only an empty folder goes.
    }

    fs::path m_target;
    bool m_madeTarget;
    fs::path m_path;
};

/// Moves the files into the target one by one, and back again unless all of them arrived.
class Exchange {
public:
    Exchange(fs::path const& target, fs::path const& work)
        : m_target(target)
        , m_new(work / "new")
        , m_old(work / "old")
    {
    }
    ~Exchange()
    {
        std::error_code ignored;
        if (m_isDone)
            return;
        for (auto const& name : m_moved)
            fs::remove(m_target / name, ignored);
        for (auto const& name : m_setAside)
            fs::rename(m_old / name, m_target / name, ignored);
        for (auto folder = m_madeFolders.rbegin(); folder != m_madeFolders.rend(); ++folder)
            fs::remove(*folder, ignored);
    }
    Exchange(Exchange const&) = delete;
    Exchange& operator=(Exchange const&) = delete;

    void Move(fs::path const& name)
    {
        if (name.has_parent_path() && fs::create_directory(m_target / name.parent_path()))
            m_madeFolders.push_back(m_target / name.parent_path());
        if (fs::exists(m_target / name)) {
            if (fs::is_directory(m_target / name))
                throw fs::filesystem_error("", m_target / name, std::make_error_code(std::errc::is_a_directory));
            fs::create_directories((m_old / name).parent_path());
            fs::rename(m_target / name, m_old / name);
            m_setAside.push_back(name);
        }
        fs::rename(m_new / name, m_target / name);
        m_moved.push_back(name);
    }
    void Done() { m_isDone = true; }

private:
    fs::path m_target, m_new, m_old;
    std::vector<fs::path> m_madeFolders, m_setAside, m_moved;
    bool m_isDone = false;
};

}

std::optional<std::string> ReadWhole(fs::path const& path, Faults& faults)
{
    std::error_code error;
    if (fs::is_directory(path, error)) {
        faults.push_back({ path.string(), 0, "it is a folder" });
        return std::nullopt;
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes;
    if (file) {
        bytes.resize(static_cast<std::size_t>(std::max<std::streamoff>(file.tellg(), 0)));
        file.seekg(0);
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    if (!file) {
        faults.push_back({ path.string(), 0, Reason(errno) });
        return std::nullopt;
    }
    return bytes;
}

std::optional<Replaced> ReplaceFiles(fs::path const& target, OutputFiles const& files, Faults& faults)
{
    try {
        std::vector<fs::path> changed;
        for (auto const& [name, bytes] : files) {
            if (!HasContent(target / name, bytes))
                changed.push_back(name);
        }
        if (!changed.empty()) {
            WorkFolder const work(target);
            for (auto const& name : changed)
                WriteWhole(work.Path() / "new" / name, files.at(name), target / name);
            Exchange exchange(target, work.Path());
            for (auto const& name : changed)
                exchange.Move(name);
            exchange.Done();
        }
        return Replaced { changed.size(), files.size() - changed.size() };
    } catch (fs::filesystem_error const& error) {
        auto const& path = error.path1().empty() ? target : error.path1();
        faults.push_back({ path.string(), 0, error.code().message() + "; nothing was changed" });
        return std::nullopt;
    }
}

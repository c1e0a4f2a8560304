#include "setup/copy_plan.h"

#include "platform/posix/descriptor.h"
#include "setup/copy_list.h"
#include "setup/places.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace {

/// Files occupy whole blocks of the disk, of so many bytes.
constexpr std::uint64_t block = 4096;
/// Left free for the user's other work and the file system's own records.
constexpr std::uint64_t reserve = 16 << 20;

constexpr char const* discProgram = "sparrowfield";

class Planner {
public:
    explicit Planner(fs::path disc)
        : m_disc(std::move(disc))
    {
    }

    Outcome<CopyPlan> Plan()
    {
        std::error_code error;
        m_program
            = fs::is_regular_file(m_disc / discProgram, error) ? discProgram : installedProgram;
        if (!fs::is_regular_file(m_disc / m_program, error))
            return FileFailure(m_disc / discProgram,
                u"the program is missing; please start Setup.exe from the disc");
        auto const added = AddFolder({});
        return added ? Outcome<CopyPlan>(std::move(m_plan)) : added.failure();
    }

private:
    Outcome<Done> AddFolder(fs::path const& below)
    {
        std::error_code error;
        std::vector<fs::path> names;
        fs::directory_iterator entries(m_disc / below, error);
        for (; !error && entries != fs::directory_iterator(); entries.increment(error))
            names.push_back(entries->path().filename());
        if (error)
            return FileFailure(m_disc / below, error.value());
        std::sort(names.begin(), names.end());
        for (auto const& name : names)
            if (!name.string().starts_with(".new-") && below / name != copyListName)
                if (auto added = AddEntry(below / name); !added)
                    return added;
        return Done {};
    }

    Outcome<Done> AddEntry(fs::path const& below)
    {
        std::error_code error;
        fs::path const place = m_disc / below;
        if (fs::symlink_status(place, error).type() == fs::file_type::directory) {
            m_plan.folders.push_back(below);
            return AddFolder(below);
        }
        // A link whose target can't be reached counts as one that leads off the disc.
        auto const whole = fs::canonical(place, error);
        if (error || !IsInside(whole, m_disc) || !fs::is_regular_file(whole, error))
            return Done {};
        return AddFile(whole, below);
    }

    Outcome<Done> AddFile(fs::path const& place, fs::path const& below)
    {
        std::error_code error;
        auto const size = fs::file_size(place, error);
        if (error)
            return FileFailure(place, error.value());
        bool const isTheProgram = below == m_program;
        if (!isTheProgram && below == installedProgram)
            return Done {}; // The program gets this name.
        bool const isProgram = isTheProgram
            || (fs::status(place, error).permissions() & fs::perms::owner_exec) != fs::perms::none;
        m_plan.files.push_back(
            { place, isTheProgram ? fs::path(installedProgram) : below, size, isProgram });
        m_plan.bytes += size;
        return Done {};
    }

    fs::path m_disc;
    fs::path m_program;
    CopyPlan m_plan;
};

} // namespace

Outcome<CopyPlan> PlanCopy(fs::path const& disc)
{
    std::error_code error;
    auto whole = fs::canonical(disc, error);
    if (error)
        return FileFailure(disc, error.value());
    return Planner(std::move(whole)).Plan();
}

std::uint64_t NeededSpace(CopyPlan const& plan)
{
    std::uint64_t space = reserve + plan.folders.size() * block;
    for (auto const& file : plan.files)
        space += (file.size + block - 1) / block * block;
    return space;
}

std::uint64_t FreeSpace(fs::path folder)
{
    std::error_code error;
    while (!fs::exists(folder, error) && folder.has_relative_path())
        folder = folder.parent_path();
    auto const space = fs::space(folder, error);
    return error ? 0 : space.available;
}

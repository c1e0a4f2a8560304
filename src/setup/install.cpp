#include "setup/install.h"

#include "platform/posix/temporary_folder.h"
#include "setup/copy_list.h"
#include "setup/menu_entry.h"
#include "setup/publisher_folder.h"
#include "setup/size_text.h"

namespace fs = std::filesystem;

namespace {

/// True if a process that the user may see runs the installed program, which would lose its files.
bool IsCopyRunning(fs::path const& target)
{
    std::error_code error;
    auto const program = fs::canonical(target / installedProgram, error);
    if (error)
        return false;
    fs::directory_iterator entries("/proc", error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        std::error_code hidden;
        if (fs::read_symlink(entries->path() / "exe", hidden) == program && !hidden)
            return true;
    }
    return false;
}

Outcome<Done> CheckNotRunning(SetupPlaces const& places)
{
    if (IsCopyRunning(places.target))
        return FileFailure(
            places.target / installedProgram, u"the program is running; please close it first");
    return Done {};
}

Outcome<Done> CheckInstallable(SetupPlaces const& places, CopyPlan const& plan)
{
    if (RunsFromCopy(places))
        return FileFailure(
            places.disc, u"this is the installed copy; please start Setup.exe on the disc");
    std::error_code error;
    auto const disc = fs::weakly_canonical(places.disc, error);
    auto const target = fs::weakly_canonical(places.target.parent_path(), error);
    if (IsInside(target, disc) || IsInside(disc, target))
        return FileFailure(places.target, u"neither the disc nor the copy may be inside the other");
    auto const status = fs::symlink_status(places.target, error);
    if (fs::exists(status) && !fs::is_directory(status) && !fs::is_symlink(status))
        return FileFailure(places.target, u"it exists and is not a folder");
    auto const needed = NeededSpace(plan), free = FreeSpace(places.target);
    if (free < needed)
        return FileFailure(places.target,
            u"this needs " + SizeText(needed) + u", and " + SizeText(free)
                + u" are free on the disk");
    return CheckNotRunning(places);
}

Outcome<Ending> InstallCopy(
    SetupPlaces const& places, CopyPlan const& plan, Watcher const& shouldContinue)
{
    auto const publisher = PublisherFolder::Hold(places.target.parent_path());
    if (!publisher)
        return publisher.failure();
    auto const made = publisher->MakeAside();
    if (!made)
        return made.failure();
    TemporaryFolder const fresh(*made); // after the exchange: the old copy
    auto copied = CopyFiles(plan, fresh.Path(), shouldContinue);
    if (!copied || *copied == Ending::Cancelled)
        return copied;
    if (auto const carried = CarryUserFiles(places.target, fresh.Path()); !carried)
        return carried.failure();
    if (auto const listed = WriteCopyList(plan, fresh.Path()); !listed)
        return listed.failure();
    if (auto const exchanged = publisher->Exchange(fresh.Path(), places.target); !exchanged)
        return exchanged.failure();
    return Ending::Complete;
}

} // namespace

Outcome<SetupReport> Install(
    SetupPlaces const& places, CopyPlan const& plan, Watcher const& shouldContinue)
{
    if (auto const checked = CheckInstallable(places, plan); !checked)
        return checked.failure();
    auto const ending = InstallCopy(places, plan, shouldContinue);
    if (!ending)
        return ending.failure();
    if (*ending == Ending::Cancelled)
        return SetupReport { Ending::Cancelled, {}, {} };
    return SetupReport { Ending::Complete, AddToMenu(places), {} };
}

Outcome<SetupReport> Uninstall(SetupPlaces const& places)
{
    if (auto const checked = CheckNotRunning(places); !checked)
        return checked.failure();
    auto const parent = places.target.parent_path();
    auto const menuFiles = FindMenuFiles(places);
    fs::path keptIn;
    std::error_code error;
    if (fs::exists(parent, error)) {
        auto const publisher = PublisherFolder::Hold(parent);
        if (!publisher)
            return publisher.failure();
        if (IsInstalled(places)) {
            auto const kept = MoveUserFilesOut(places.target, parent);
            if (!kept)
                return kept.failure();
            keptIn = *kept;
            if (auto const removed = publisher->Remove(places.target); !removed)
                return removed.failure();
        }
    }
    return SetupReport { Ending::Complete, RemoveFromMenu(places, menuFiles), keptIn };
}

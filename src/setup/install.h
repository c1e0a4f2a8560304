#pragma once
// Installing the disc and removing the installed copy, whole or not at all.

#include "setup/copy_files.h"
#include "setup/places.h"

enum class Task { Ask, Install, Uninstall };

/// What was done, and what couldn't be done about the menu entry.
struct SetupReport {
    Ending ending = Ending::Complete;
    std::vector<Failure> menuFaults;
    /// the folder to which the user's own files in the copy were moved; empty if there were none
    std::filesystem::path kept;
};

/// Copies the disc as planned, replaces the installed copy if there is one, and adds the menu
/// entry. The new copy has the files, too, that the user had put into the old one. After a failure
/// or a cancel nothing has changed.
Outcome<SetupReport> Install(
    SetupPlaces const& places, CopyPlan const& plan, Watcher const& shouldContinue);

/// Removes the installed copy, if there is one, and its menu entry and icons. Answers and notes are
/// elsewhere and are kept; files that the user has put into the copy, or changed, are first moved
/// out of it.
Outcome<SetupReport> Uninstall(SetupPlaces const& places);

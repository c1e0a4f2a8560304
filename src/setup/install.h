#pragma once
// Installing the disc and removing the installed copy, whole or not at all.

#include "setup/copy_files.h"
#include "setup/places.h"

/// What was done, and what of the menu entry couldn't be.
struct SetupReport {
    Ending ending = Ending::Complete;
    std::vector<Failure> menuFaults;
    /// the folder with files of the user's that lay in the copy; empty if there were none
    std::filesystem::path kept;
};

/// Copies the disc as planned in place of the copy that may be installed, and adds the menu entry.
/// Files that the user had put into that copy are in the new one too. Where it fails or is
/// cancelled nothing new is left, and an installed copy is as it was.
Outcome<SetupReport> Install(
    SetupPlaces const& places, CopyPlan const& plan, Watcher const& goesOn);

/// Removes the installed copy, if there is one, and what of the menu points to it. The user's
/// answers and notes lie elsewhere and stay; files that he has put into the copy, or changed, are
/// moved out of it before.
Outcome<SetupReport> Uninstall(SetupPlaces const& places);

#pragma once
// Installing the disc and removing the installed copy, whole or not at all.

#include "setup/copy_files.h"
#include "setup/places.h"

/// What was done, and what of the menu entry couldn't be.
struct SetupReport {
    Ending ending = Ending::Complete;
    std::vector<Failure> menuFaults;
};

/// Copies the disc as planned in place of the copy that may be installed, and adds the menu entry.
/// Where it fails or is cancelled nothing new is left, and an installed copy is as it was.
Outcome<SetupReport> Install(
    SetupPlaces const& places, CopyPlan const& plan, Watcher const& goesOn);

/// Removes the installed copy, if there is one, and the menu entry. The user's answers and notes
/// lie elsewhere and stay.
Outcome<SetupReport> Uninstall(SetupPlaces const& places);

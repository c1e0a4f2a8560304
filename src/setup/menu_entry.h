#pragma once
// The program's entry in the user's application menu (Desktop Entry Specification 1.5), and its
// icons.

#include "setup/places.h"

#include "base/failure.h"

#include <string>
#include <vector>

/// The text of the entry that starts the program of a folder, in that folder.
std::string MenuEntry(std::filesystem::path const& folder);

/// Writes the entry, and copies those icons that the installed copy brings. Gives what couldn't be
/// done; one thing that fails doesn't keep the others from being tried.
std::vector<Failure> AddToMenu(SetupPlaces const& places);

/// Takes entry and icons away, and folders of icons that are then empty. What isn't there is no
/// failure.
std::vector<Failure> RemoveFromMenu(SetupPlaces const& places);

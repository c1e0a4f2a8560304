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
/// done; one thing that fails doesn't keep the others from being tried. Where the path of the copy
/// isn't UTF-8, which entries have to be, there is neither entry nor icons, and a failure says so.
std::vector<Failure> AddToMenu(SetupPlaces const& places);

/// What of the menu belongs to the copy, which must still be there to tell: the entry if it starts
/// a program in the folder of the copy, and those icons that are the copy's, or links into it. If
/// the copy has lost an icon, the entry speaks for it.
std::vector<std::filesystem::path> FindMenuFiles(SetupPlaces const& places);

/// Removes these files of the menu, and folders of icons that are then empty. What lies behind a
/// link stays, and is a failure.
std::vector<Failure> RemoveFromMenu(
    SetupPlaces const& places, std::vector<std::filesystem::path> const& files);

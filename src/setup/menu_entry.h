#pragma once
// The program's entry in the user's application menu (Desktop Entry Specification 1.5), and its
// icons.

#include "setup/places.h"

#include "base/failure.h"

#include <string>
#include <vector>

/// The text of the entry that starts the program in a folder, with that folder as current one.
std::string MenuEntry(std::filesystem::path const& folder);

/// Writes the entry, and copies the icons of the installed copy. Tries everything and returns what
/// failed. If the path of the copy isn't UTF-8, as entries have to be, makes neither entry nor
/// icons and says so in a failure.
std::vector<Failure> AddToMenu(SetupPlaces const& places);

/// The files of the menu that belong to the copy, which must still be there: the entry if it starts
/// a program in the copy's folder, and icons that equal the copy's or are links into it. An icon
/// that the copy has lost belongs to it if the entry does.
std::vector<std::filesystem::path> FindMenuFiles(SetupPlaces const& places);

/// Removes these files, and folders of icons that are then empty. What is reached through a link is
/// left alone, and a failure.
std::vector<Failure> RemoveFromMenu(
    SetupPlaces const& places, std::vector<std::filesystem::path> const& files);

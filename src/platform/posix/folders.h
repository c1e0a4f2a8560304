#pragma once
// Folders that the programs make for a user on their way, and whose things are.

#include "base/failure.h"

#include <filesystem>

/// Makes a folder and those above it, each private to the user, where they are missing. Folders
/// that are there keep their rights. Fails with the system's reason and the folder that couldn't be
/// made.
Outcome<Done> MakeFolders(std::filesystem::path const& folder);

/// True if what stands at the place is of this type itself, not by a link, and belongs to this
/// user.
bool IsOwnedByUser(std::filesystem::path const& place, std::filesystem::file_type type);

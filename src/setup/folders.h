#pragma once
// Folders that Setup makes on its way.

#include "base/failure.h"

#include <filesystem>

/// Makes a folder and those above it, private to the user, where they are missing.
Outcome<Done> MakeFolders(std::filesystem::path const& folder);

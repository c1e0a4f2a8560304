#pragma once
// Where Setup copies from and to.

#include "base/text.h"

#include <filesystem>

/// The folder of the installed copy, and the program's name in it, as the program looks for them.
inline constexpr TextView installedFolder
    = u"C:\\Program Files\\Sparrowfield House\\Sparrowfield Interactive Software";
inline constexpr char const* installedProgram = "sparrowfield.exe";

struct SetupPlaces {
    std::filesystem::path disc; ///< the folder of the running Setup
    std::filesystem::path target; ///< the folder of the installed copy, existing or not
    std::filesystem::path menu; ///< of the user's own menu entries
    std::filesystem::path icons; ///< the user's own part of the common icon theme
};

/// `userData` is the program's folder in the user's data (user_folders.h), which contains drive C:
/// and is beside the folders of menu and icons.
SetupPlaces FindPlaces(std::filesystem::path const& disc, std::filesystem::path const& userData);

/// True if the place is the folder or inside it. Both are absolute, without links.
bool IsInside(std::filesystem::path const& place, std::filesystem::path const& folder);

/// True if anything is at the place of the copy, even if it is damaged.
bool IsInstalled(SetupPlaces const& places);

/// True if Setup was started from the installed copy, which can't be the source of a new one.
bool RunsFromCopy(SetupPlaces const& places);

#pragma once
// Where Setup copies from and to.

#include "base/text.h"

#include <filesystem>

/// The folder of the installed copy, and the program's name in it, as the program itself knows
/// them.
inline constexpr TextView installedFolder
    = u"C:\\Program Files\\Sparrowfield House\\Sparrowfield Interactive Software";
inline constexpr char const* installedProgram = "sparrowfield.exe";

struct SetupPlaces {
    std::filesystem::path disc; ///< the folder of the running Setup
    std::filesystem::path target; ///< the folder of the installed copy, there or not
    std::filesystem::path menu; ///< of the user's own menu entries
    std::filesystem::path icons; ///< the user's own part of the common icon theme
};

/// `userData` is the program's folder in the user's data (user_folders.h); it holds drive C:, and
/// menu and icons lie beside it.
SetupPlaces FindPlaces(std::filesystem::path const& disc, std::filesystem::path const& userData);

/// True if anything stands where the copy goes, be it damaged.
bool IsInstalled(SetupPlaces const& places);

/// True if Setup runs from the installed copy, which then can't be the source of another.
bool RunsFromCopy(SetupPlaces const& places);

#pragma once
// Where the user's own data lies on this machine.

#include <filesystem>

/// `sparrowfield` in the folder that the platform names for users' data: $XDG_DATA_HOME, else
/// ~/.local/share (the XDG base directories, version 0.8). Made with the folders above it, private
/// to the user, where it is missing; where that fails, so does each later use of it.
std::filesystem::path UserDataFolder();

/// The folder of the running program's file.
std::filesystem::path ProgramFolder();

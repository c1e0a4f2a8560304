#pragma once
// Where the user's own data is on this machine.

#include <filesystem>

/// `sparrowfield` in the folder that the platform names for users' data: $XDG_DATA_HOME, else
/// ~/.local/share (the XDG base directories, version 0.8). Made with the folders above it, private
/// to the user, where it is missing; where that fails, so does each later use of it.
std::filesystem::path UserDataFolder();

/// What is in a user's data folder: the settings store, and the folder that the program knows as
/// drive C:.
std::filesystem::path SettingsFile(std::filesystem::path const& userFolder);
std::filesystem::path DriveFolder(std::filesystem::path const& userFolder);

/// The folder of the running program's file.
std::filesystem::path ProgramFolder();

#pragma once
// The file that contains all that a user has written, or what a deletion has removed
// (docs/formats/backup.md).

#include "base/failure.h"
#include "platform/settings_store.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// All that a user has written: the entries of the settings store and the files of the notes.
struct UserWork {
    std::vector<SettingsStore::Entry> entries; ///< ordered by section, then key
    std::map<std::string, std::string> notes; ///< bytes by the file's name
};

/// True for a name that stays in its folder and isn't that of a hidden file.
bool IsNoteName(std::string const& name);

/// Writes the backup, whole or not at all, readable by its owner alone.
Outcome<Done> WriteBackup(UserWork const& work, std::filesystem::path const& file);

/// Fails if the file isn't a backup, is damaged or cut off, comes from a newer version, or has
/// notes whose names could lead out of their folder.
Outcome<UserWork> ReadBackup(std::filesystem::path const& file);

/// Writes what is about to be deleted into `before-delete-N.backup` in the folder, with a number
/// above all that are there. Only the last ten of these files are kept.
Outcome<Done> WriteBackupBeforeDelete(UserWork const& work, std::filesystem::path const& folder);

#pragma once
// The one file in which all that a user has written is kept (docs/formats/backup.md).

#include "kit/user_work.h"

/// Writes the backup, whole or not at all, readable by its owner alone.
Outcome<Done> WriteBackup(UserWork const& work, std::filesystem::path const& file);

/// Fails for what is no backup, is damaged or cut off, comes from a newer version, or has notes
/// whose names could lead out of their folder.
Outcome<UserWork> ReadBackup(std::filesystem::path const& file);

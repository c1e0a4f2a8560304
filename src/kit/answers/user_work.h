#pragma once
// Reads and restores everything that a user has written: the entries of the store and the files of
// the notes.

#include "platform/posix/backup_file.h"

/// The work in a user's folder as it is now; the program may be running. Empty if nothing has been
/// written yet. A damaged store, or one of a newer version, isn't set aside.
Outcome<UserWork> LoadUserWork(std::filesystem::path const& userFolder);

/// What a restore would do to the present work.
struct RestorePlan {
    std::vector<SettingsStore::Entry> entries; ///< to be written
    std::map<std::string, std::string> notes; ///< to be written
    std::size_t same = 0; ///< answers and notes that the user has already
    std::vector<std::string> differing; ///< answers and notes that have a different text now
};

/// An empty text counts as missing. Where something differs, the present text is kept unless
/// `replaces`.
RestorePlan PlanRestore(UserWork const& present, UserWork const& backup, bool replaces);

/// Notes first, then the store in one transaction. A failure names what couldn't be written; what
/// was written before it stays, and the restore can be done again.
Outcome<Done> Restore(
    RestorePlan const& plan, std::filesystem::path const& userFolder, bool replaces);

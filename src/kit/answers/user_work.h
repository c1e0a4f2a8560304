#pragma once
// All that a user has written, the entries of the store and the files of the notes: how it is read
// and restored.

#include "platform/posix/backup_file.h"

/// Where the notes are in a user's folder.
std::filesystem::path NotesFolder(std::filesystem::path const& userFolder);

/// The work in a user's folder as it is at this moment; the program may be running. Empty where
/// nothing has been written yet. A damaged store, or one of a newer version, is left alone, and a
/// failure.
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

#pragma once
// The settings store's file as the system sees it, with those that SQLite keeps beside it: looked
// at before SQLite opens them, and renamed together. What is in the database is
// sqlite_settings_store's business.

#include "base/failure.h"

#include <chrono>
#include <filesystem>
#include <optional>

/// A failure if the file, or one that SQLite may keep beside it, isn't a regular file; one that
/// isn't there is no failure. Nothing is opened: a pipe would make SQLite wait for its other end.
std::optional<Failure> CheckKinds(std::filesystem::path const& file);

/// True if a journal lies beside the file.
bool HasJournal(std::filesystem::path const& file);

/// True if the journal beside the file names a super-journal. SQLite writes one for changes to
/// several databases, which this program never makes, and deletes whatever file is named there when
/// it plays the journal.
bool NamesSuperJournal(std::filesystem::path const& file);

using FileIdentity = std::pair<std::uint64_t, std::uint64_t>; // device and number

/// Of the file that now bears the name; of none, the empty one.
FileIdentity IdentityOf(std::filesystem::path const& file);

/// Renames the file, and its journal if there is one, to the first free name with
/// ".damaged-<number>" behind it, and gives that name. Nothing if the name doesn't belong to
/// `identity` any more: another copy of the program has done it. Copies agree by a lock on the
/// file, for which this waits until the deadline.
Outcome<std::optional<std::filesystem::path>> SetStoreAside(std::filesystem::path const& file,
    FileIdentity const& identity, std::chrono::steady_clock::time_point deadline);

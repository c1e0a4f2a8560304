#pragma once
// The settings store's file, and those that SQLite keeps beside it: how they are checked before
// SQLite opens them, and renamed together. What is in the database is the work of sqlite_schema.

#include "base/failure.h"

#include <chrono>
#include <filesystem>
#include <optional>

/// What is done with a file that is damaged or not a settings store: it is renamed and a new one
/// made, or it is left alone and every operation fails, for a program that only reads.
enum class OnDamage { SetAside, Fail };

/// Makes the file, empty, with its folder, if it is missing. Fails if it, or a file that SQLite may
/// keep beside it, isn't a regular file. That is found without opening them, since a pipe would
/// make SQLite wait for its other end.
Outcome<Done> PrepareStoreFile(std::filesystem::path const& file);

/// True if there is a journal beside the file.
bool HasJournal(std::filesystem::path const& file);

/// True if the journal beside the file names a super-journal. SQLite writes one for changes to
/// several databases, which this program never makes. No setting of SQLite's refuses it: when the
/// journal is played, the file named there is deleted.
bool NamesSuperJournal(std::filesystem::path const& file);

using FileIdentity = std::pair<std::uint64_t, std::uint64_t>; // device and number

/// Of the file that has this name now; zeros if there is none.
FileIdentity IdentityOf(std::filesystem::path const& file);

/// Renames the file, and its journal if there is one, to the first free name of the form
/// "<file>.damaged-<number>", and returns that name. Nothing if the file that has the name isn't
/// `identity` any more: another copy of the program was faster. Copies agree by a lock on the file,
/// for which this waits until the deadline.
Outcome<std::optional<std::filesystem::path>> SetStoreAside(std::filesystem::path const& file,
    FileIdentity const& identity, std::chrono::steady_clock::time_point deadline);

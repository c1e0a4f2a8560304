#pragma once
// Folders: how they are made and flushed, and whose they are.

#include "platform/posix/descriptor.h"

#include <filesystem>

/// The failure that the system's last error number describes, about a file that was to be made:
/// where the number says that something is missing, that is the file's folder.
Failure FolderFailure(TextView path);

/// The folder of a file or folder; "." for a bare name.
std::filesystem::path FolderOf(std::filesystem::path const& file);

/// Makes a folder, private to its owner, in a parent that exists. One that exists already is no
/// failure. `path` is its name in failures.
Outcome<Done> MakeFolder(std::filesystem::path const& folder, TextView path);

/// Makes a folder and those above it, each private to the user, where they are missing. Existing
/// folders keep their rights. A failure names the folder that couldn't be made.
Outcome<Done> MakeFolders(std::filesystem::path const& folder);

/// Flushes the names in an open folder to the disk. On an error returns false, with the reason in
/// the system's last error number.
bool FlushFolder(Descriptor const& folder);
Outcome<Done> FlushFolder(std::filesystem::path const& folder);

/// True if what is at the place is itself of this type, not a link to it, and belongs to this user.
bool IsOwnedByUser(std::filesystem::path const& place, std::filesystem::file_type type);

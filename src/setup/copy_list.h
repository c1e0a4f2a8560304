#pragma once
// The list of the files that Setup has put into the installed copy. All others in it are the
// user's own.

#include "setup/copy_plan.h"

/// The list's file in the folder of the copy (docs/setup.md). A disc's file of this name isn't
/// copied.
inline constexpr char const* copyListName = ".installed-files";

/// Writes the list into a copy that was made by the plan.
Outcome<Done> WriteCopyList(CopyPlan const& plan, std::filesystem::path const& copy);

struct UserFile {
    std::filesystem::path name; ///< relative to the folder of the copy
    bool isChanged; ///< put there by Setup, with another size
};

/// Files and links in the copy that Setup didn't put there, or that have another size by now. Links
/// aren't followed. None if the copy is a link itself or has no list, like copies made by the first
/// versions.
std::vector<UserFile> FindUserFiles(std::filesystem::path const& copy);

/// Adds the files that Setup didn't put into the old copy to the new one. If the new one has a file
/// of that name, the user's is named "<name>.kept-<number>". The old copy isn't changed.
Outcome<Done> CarryUserFiles(std::filesystem::path const& old, std::filesystem::path const& fresh);

/// Moves the user's files out of the copy into a new folder "Kept files-<number>" in `folder`, and
/// returns the new folder; an empty path if there are none. On a failure each file is in one of the
/// two.
Outcome<std::filesystem::path> MoveUserFilesOut(
    std::filesystem::path const& copy, std::filesystem::path const& folder);

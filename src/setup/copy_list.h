#pragma once
// The list of what Setup has put into the installed copy, by which it tells the user's own files in
// it.

#include "setup/copy_plan.h"

/// The list's file in the folder of the copy (docs/setup.md). A disc's file of this name isn't
/// copied.
inline constexpr char const* copyListName = ".installed-files";

/// Writes the list into a copy that was made by the plan.
Outcome<Done> WriteCopyList(CopyPlan const& plan, std::filesystem::path const& copy);

struct UserFile {
    std::filesystem::path name; ///< below the folder of the copy
    bool isChanged; ///< Setup has put it there, of another size
};

/// Files and links in the copy that Setup hasn't put there, or of another size. Links aren't
/// followed. None if the copy has no list, as copies of the first versions, or is behind a link
/// itself.
std::vector<UserFile> FindUserFiles(std::filesystem::path const& copy);

/// Gives those files that Setup hasn't put into the old copy to the new one as well. Where the new
/// one has a file of that name, it becomes "<name>.kept-<number>". The old copy stays as it is.
Outcome<Done> CarryUserFiles(std::filesystem::path const& old, std::filesystem::path const& fresh);

/// Moves the user's files out of the copy into a new folder "Kept files-<number>" in the folder
/// given, and gives that folder; an empty path if there are none. On a failure each file is in one
/// of the two.
Outcome<std::filesystem::path> MoveUserFilesOut(
    std::filesystem::path const& copy, std::filesystem::path const& folder);

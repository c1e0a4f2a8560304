#pragma once
// The pages for the browser that a run which was killed has left in C:\Temp.

#include <filesystem>

/// Removes from the folder the files that bear names as PosixFileSystem makes them for a moment
/// (TemporaryName with ".htm", and the ".new-XXXXXX" of a page that was being written) and weren't
/// changed for a day: regular files of this user alone. A link in the folder's place isn't
/// followed. What can't be removed stays.
void RemoveLeftoverPages(std::filesystem::path const& folder);

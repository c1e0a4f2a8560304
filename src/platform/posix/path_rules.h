#pragma once
// How paths in Windows form lie on this machine.

#include "base/text.h"

#include <filesystem>
#include <optional>

/// The place of a path: `C:\...` below `drive`, `/...` from the root, anything else below the
/// current directory; "\" and "/" both part names. Each name is taken exactly, else as one that
/// differs in case alone, else as it stands, for a file that is to be made. Nothing for a path that
/// names another drive or machine, that goes up by a "..", or that no file can bear.
std::optional<std::filesystem::path> PlaceOf(TextView path, std::filesystem::path const& drive);

/// The path in Windows form of a place: `C:\...` if it lies below `drive`, else as it stands. Both
/// are absolute, and bear no separator at their ends.
Text PathOf(std::filesystem::path const& place, std::filesystem::path const& drive);

#pragma once
// How paths in Windows form lie on this machine.

#include "base/text.h"

#include <filesystem>
#include <optional>

/// The place of a path: `C:\...` below `drive`, `/...` as it stands, anything else below the current directory; "\" and "/"
/// both part names. Each name is taken exactly, else as one that differs in case alone. Nothing for a path that names another
/// drive or machine, or that leads up out of drive C: or the current directory.
std::optional<std::filesystem::path> PlaceOf(TextView path, std::filesystem::path const& drive);

/// The path in Windows form of a place: `C:\...` if it lies below `drive`, else as it stands.
Text PathOf(std::filesystem::path const& place, std::filesystem::path const& drive);

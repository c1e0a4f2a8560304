#pragma once
// The files that the kit reads and writes, by the machine's own paths.

#include "kit/common/faults.h"
#include "platform/file_system.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

/// ReadWholeFile for callers that collect faults: nothing, and a fault, if it fails.
std::optional<std::string> ReadWhole(std::filesystem::path const& path, Faults& faults,
    std::uint64_t atMost = FileSystem::largestWhole);

/// Contents by path relative to a target folder; the path may contain folders.
using OutputFiles = std::map<std::filesystem::path, std::string>;

/// Who may read the files that are written: everyone whom the system's default allows, or their
/// owner alone.
enum class Readers { Everyone, Owner };

struct Replaced {
    std::size_t written = 0; ///< files that were new or differed
    std::size_t unchanged = 0;
};

/// Writes the files into the target folder, all of them or none: first into a temporary folder
/// there, with every write checked; then they are exchanged one by one, and a failure puts back the
/// old files. A file that has this content already is left alone. The target is made if only its
/// last part is missing, and removed again after a failure. Fails, too, for a name that leads out
/// of the target.
Outcome<Replaced> ReplaceFiles(std::filesystem::path const& target, OutputFiles const& files,
    Readers readers = Readers::Everyone);

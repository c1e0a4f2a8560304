#pragma once
// The files that the kit reads and writes: whole files of the machine, named by its own paths.

#include "kit/common/faults.h"
#include "platform/file_system.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

/// The bytes of a regular file; nothing, and a fault, if it is anything else, can't be read, or has
/// more than `atMost` bytes.
std::optional<std::string> ReadWhole(std::filesystem::path const& path, Faults& faults,
    std::uint64_t atMost = FileSystem::largestWhole);

/// Contents by path relative to a target folder, folders in between included.
using OutputFiles = std::map<std::filesystem::path, std::string>;

/// Who may read the files that are written: whom the system's default lets, or their owner alone.
enum class Readers { Everyone, Owner };

struct Replaced {
    std::size_t written = 0; ///< files that were new or differed
    std::size_t unchanged = 0;
};

/// Brings the files into the target folder, all of them or none: they are written in a folder
/// beside it first, with every write checked, and then exchanged one by one; a failure on the way
/// puts back what had been there. A file that has this content already is left alone. The target is
/// made if only its last part is missing, and goes again if nothing came of it. Nothing, and a
/// fault, on failure, and for a name that leads out of the target.
std::optional<Replaced> ReplaceFiles(std::filesystem::path const& target, OutputFiles const& files,
    Faults& faults, Readers readers = Readers::Everyone);

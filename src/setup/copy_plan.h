#pragma once
// What an installation copies.

#include "base/failure.h"

#include <cstdint>
#include <filesystem>
#include <vector>

struct PlannedFile {
    std::filesystem::path from; ///< absolute, without links
    std::filesystem::path to; ///< relative to the folder of the copy
    std::uint64_t size; ///< bytes
    bool isProgram; ///< executable
};

struct CopyPlan {
    std::vector<std::filesystem::path> folders; ///< relative to that of the copy, parents first
    std::vector<PlannedFile> files;
    std::uint64_t bytes = 0; ///< of all files
};

/// Everything on the disc under its own name, except the program, which becomes `sparrowfield.exe`.
/// A link is copied, as the file that it leads to, only if that file is on the disc. Devices and
/// the like, and names that begin with ".new-", are left out. Fails if the folder has no program or
/// can't be read.
Outcome<CopyPlan> PlanCopy(std::filesystem::path const& disc);

/// How many bytes must be free before the copying begins.
std::uint64_t NeededSpace(CopyPlan const& plan);

/// How many bytes are free on the disk of a folder, which needn't exist yet; 0 if that is unknown.
std::uint64_t FreeSpace(std::filesystem::path folder);

#pragma once
// What an installation copies.

#include "base/failure.h"

#include <cstdint>
#include <filesystem>
#include <vector>

struct PlannedFile {
    std::filesystem::path from; ///< whole, without links
    std::filesystem::path to; ///< below the folder of the copy
    std::uint64_t size; ///< bytes
    bool isProgram; ///< may be executed
};

struct CopyPlan {
    std::vector<std::filesystem::path> folders; ///< below the folder of the copy, parents first
    std::vector<PlannedFile> files;
    std::uint64_t bytes = 0; ///< of all files
};

/// Everything on the disc under its own name, but the program, which becomes `sparrowfield.exe`. Of
/// links only those that lead to a file on the disc are taken, as that file; devices and the like,
/// and names that begin with ".new-", are passed over. Fails where the folder holds no program, and
/// where a folder can't be read.
Outcome<CopyPlan> PlanCopy(std::filesystem::path const& disc);

/// The bytes that must be free before the copying begins.
std::uint64_t NeededSpace(CopyPlan const& plan);

/// The bytes that are free where a folder lies or will lie; 0 where that can't be known.
std::uint64_t FreeSpace(std::filesystem::path folder);

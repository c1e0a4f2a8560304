#pragma once
// Copies the files of a plan.

#include "setup/copy_plan.h"

#include <functional>

struct CopyProgress {
    std::uint64_t done, total; ///< bytes
    std::filesystem::path const& file; ///< relative to the folder of the copy
};

/// Called before each file and after each block. False ends the copying.
using Watcher = std::function<bool(CopyProgress const&)>;

enum class Ending { Complete, Cancelled };

/// Copies everything in the plan into an empty folder. A complete copy survives a power cut. After
/// a cancel or a failure part of it is there.
Outcome<Ending> CopyFiles(
    CopyPlan const& plan, std::filesystem::path const& to, Watcher const& shouldContinue);

#pragma once
// The copying itself.

#include "setup/copy_plan.h"

#include <functional>

struct CopyProgress {
    std::uint64_t done, total; ///< bytes
    std::filesystem::path const& file; ///< below the folder of the copy
};

/// Told of each file before it is copied, and of each block behind it. False ends the copying.
using Watcher = std::function<bool(CopyProgress const&)>;

enum class Ending { Complete, Cancelled };

/// Copies everything of the plan into a folder that is empty. What is complete survives a power
/// cut. What was cancelled or has failed leaves part of it there.
Outcome<Ending> CopyFiles(
    CopyPlan const& plan, std::filesystem::path const& to, Watcher const& goesOn);

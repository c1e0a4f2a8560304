#pragma once
// The check of study files, verse files and general texts against the grammar of
// docs/formats/study-files.md and docs/formats/verse-files.md: whatever the program would read as
// something else than it was meant, or would stop at.

#include "kit/common/faults.h"

#include <filesystem>

/// Checks a file, whose kind its name tells. Beside its lines a study file needs its other part,
/// with the same lessons, and the verse files that it names, in its own folder. A file that can't
/// be read is a fault too.
void CheckFile(std::filesystem::path const& path, Faults& faults);

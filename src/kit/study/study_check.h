#pragma once
// The check of study files, verse files and general texts against the grammar of
// docs/formats/study-files.md and docs/formats/verse-files.md: whatever the program would
// misread or stop at.

#include "kit/common/faults.h"

#include <filesystem>

/// Checks a file according to its name. In its folder, a study file needs the other part of the
/// study, with the same lessons, and the verse files that it names. A file that can't be read is a
/// fault too.
void CheckFile(std::filesystem::path const& path, Faults& faults);

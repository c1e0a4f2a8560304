#pragma once
// The files of a study: docs/formats/study-files.md and docs/formats/verse-files.md.

#include "kit/common/faults.h"
#include "kit/common/files.h"
#include "kit/study/study_source.h"

#include <string>

/// True for a name that the files of a study may have: letters, digits, "_" and "-", without "-1",
/// and not the name of a verse file.
bool IsStudyName(std::string const& name);

/// Both study files and the four verse files of a study. The lines are scrambled unless `isPlain`.
/// Anything that the program would read differently is a fault of `source`; then nothing is given.
OutputFiles WriteStudy(Study const& study, std::string const& name, bool isPlain,
    std::string const& source, Faults& faults);

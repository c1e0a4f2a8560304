#pragma once
// The check of the lines of a study file. What other files it needs is study_check.h's work.

#include "base/text.h"
#include "kit/study/check_lines.h"

#include <vector>

struct NamedVerseFile {
    Text name; ///< as the study file gives it
    int line = 0; ///< of the study file
};

/// What a study file says that other files have to agree with.
struct StudyOutline {
    std::vector<Text> lessons; ///< the lines of the list
    std::vector<NamedVerseFile> verseFiles;
};

/// Reads all lines, reports each that breaks the grammar with what was expected, and goes on where
/// it can.
StudyOutline CheckStudyLines(CheckLines& lines);

#pragma once
// Checks the lines of a study file. study_check.h checks the files that it needs.

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

/// Reads all lines and reports each that breaks the grammar, with what was expected. Continues
/// wherever possible.
StudyOutline CheckStudyLines(CheckLines& lines);

#pragma once
// The head of a study file, as the catalogue reads it: docs/formats/study-files.md.

#include "base/text.h"
#include "platform/file_system.h"

#include <optional>
#include <vector>

struct StudyHead {
    Text fileName; ///< the bare name
    Text title; ///< the first line, whole
    Text description; ///< the second line, each "/" as a blank
    std::vector<Text> lessonTitles;
};

/// Reads the head of a study file up to the line that begins with "-", and no further; the list of lessons also ends at a line
/// that begins with ">" and at the file's end. Nothing if the file can't be read or has fewer than two lines.
std::optional<StudyHead> ReadStudyHead(FileSystem const& files, TextView fileName);

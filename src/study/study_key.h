#pragma once
// The key of a lesson, "ruth-1.dat:2": the study file of one part, and the number of the lesson in
// it. The settings store has a section of the same name for the lesson (answer_keys.h).

#include "base/text.h"

/// A study key in its two fields. A missing field is empty.
struct StudyKey {
    Text fileName;
    Text lessonNumber;
};
StudyKey SplitStudyKey(TextView studyKey);

/// True for a section of the settings store that belongs to a lesson.
inline bool IsStudyKey(TextView section)
{
    return Contains(section, u':');
}

/// The ends of the names of a study's two files.
inline constexpr TextView partEndings[] = { u"-1.dat", u"-2.dat" };

/// "One" if the name of a study file has "-1" anywhere, else "Two".
TextView PartWord(TextView fileName);

/// The name of the file of Part Two. The ending of Part One may be in capitals, since file names
/// are found in any letter case.
Text PartTwoName(TextView partOne);

/// "ruth" of "ruth-1.dat": what comes before the last "-".
TextView StudyName(TextView fileName);

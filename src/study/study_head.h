#pragma once
// The head of a study file: the line of the study, its description, and the list of its lessons
// (docs/formats/study-files.md). StudyHead reads it for the catalogue; a lesson reads its own file
// with lesson_file.h.

#include "base/text.h"
#include "platform/text_lines.h"

#include <optional>

/// The first line, "<prefix>:<title>".
struct StudyLine {
    Text studyPrefix; ///< what comes before the first colon
    /// what comes between the first and the second colon, trimmed; empty without a colon
    Text studyTitle;
};
StudyLine SplitStudyLine(TextView line);

/// The titles in a line of the list of lessons, without a "/" at their end. Nothing for the line
/// that ends the list, which begins with "-" or ">".
std::optional<TextView> ReadLessonLine(TextView line);

/// The titles of a lesson, "<title>/<second title>". What follows a second "/" is ignored.
struct LessonTitles {
    TextView title;
    std::optional<TextView> secondTitle; ///< nothing without a "/"
};
LessonTitles SplitTitles(TextView titles);

/// A study file open for its head: the title, the description, and the lessons one after the other.
/// Nothing after the head is decoded.
class StudyHead {
public:
    /// Nothing if the file can't be read or has fewer than two lines.
    static std::optional<StudyHead> Open(FileSystem const& files, TextView fileName);

    Text const& Title() const { return m_title; } ///< the first line, whole
    /// the second line, each "/" as a blank
    Text const& Description() const { return m_description; }

    /// The titles of the next lesson, valid until the next call. Nothing at the end of the list or
    /// of the file.
    std::optional<TextView> NextLesson();

private:
    explicit StudyHead(TextLines lines);
    /// Reads the next line into `line`; false if there is none.
    bool ReadLine(Text& line);

    TextLines m_lines;
    Text m_title, m_description, m_lesson;
};

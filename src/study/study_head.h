#pragma once
// The head of a study file, as the catalogue reads it: docs/formats/study-files.md.

#include "base/text.h"
#include "platform/text_lines.h"

#include <optional>

/// A study file open for its head: the title, the description, and the lessons one after the other.
/// What is behind the head is never decoded.
class StudyHead {
public:
    /// Nothing if the file can't be read or has fewer than two lines.
    static std::optional<StudyHead> Open(FileSystem const& files, TextView fileName);

    Text const& Title() const { return m_title; } ///< the first line, whole
    /// the second line, each "/" as a blank
    Text const& Description() const { return m_description; }

    /// The title of the next lesson, valid until the next call. Nothing from the line on that
    /// begins with "-" or ">", or at the end of the file.
    std::optional<TextView> NextLesson();

private:
    explicit StudyHead(TextLines lines);
    /// Reads the next line into `line`; false if there is none.
    bool ReadLine(Text& line);

    TextLines m_lines;
    Text m_title, m_description, m_lesson;
};

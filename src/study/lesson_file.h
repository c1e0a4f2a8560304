#pragma once
// Reads one lesson of a study file (docs/formats/study-files.md). verse_file.h reads the verse
// files that a lesson names, study_head.h the list of a study's lessons.

#include "base/failure.h"
#include "base/text.h"
#include "base/turns.h"
#include "platform/file_system.h"
#include "platform/text_lines.h"
#include "study/study_head.h"
#include "study/study_key.h"

#include <cstdint>
#include <functional>
#include <vector>

struct IntroParagraph {
    Text text;
    bool bold = false;
};

struct LessonBody {
    std::vector<Text> pages; ///< page n has index n - 1; at least one
    std::vector<Text> answers; ///< the publisher's, one for each page
    Text closingLine; ///< the line that ended the pages
};

/// Everything that a study file says about one lesson.
struct LessonBlock {
    StudyLine study;
    Text partWord; ///< "One" or "Two"
    Text titleLine; ///< as SplitTitles takes it
    std::vector<IntroParagraph> introParagraphs;
    LessonBody body;
    Text mainVerseName;
    Text supplementalVerseName;
};

/// The size of a lesson in its study file, or in a verse file. Real lessons are far below these
/// limits, which keep a huge file from using up the memory of the machine.
class LessonSize {
public:
    static constexpr std::size_t mostBytes = std::size_t { 4 } << 20;
    static constexpr std::size_t mostLines = 40'000; ///< paragraphs of the introduction included

    /// False if this makes the lesson too large.
    bool Add(std::size_t bytes, std::size_t lines = 1)
    {
        m_bytes += bytes;
        m_lines += lines;
        return m_bytes <= mostBytes && m_lines <= mostLines;
    }

private:
    std::size_t m_bytes = 0, m_lines = 0;
};

/// Reads one lesson of a study file forward, step by step, so that a screen can show each piece
/// when it has been read. Call each step once (ReadName twice), in the order of their declarations,
/// and none after a failure. Each line read gives turns as DecodeLine does. The memory used depends
/// on the size of the lesson, not of the file.
class LessonReader {
public:
    /// Opens the study file. `files` and `turns` outlive the reader. Fails if the file can't be
    /// opened or the key has no lesson number of 1 or more.
    static Outcome<LessonReader> Open(FileSystem const& files, TextView studyKey, Turns& turns);

    /// As the key gives it.
    Text const& LessonNumber() const { return m_key.lessonNumber; }
    /// "One" or "Two", by the name of the file.
    Text PartWord() const { return Text(::PartWord(m_key.fileName)); }

    Outcome<StudyLine> ReadHead();
    /// Skips the description of the study and gives the titles of the lesson (SplitTitles).
    Outcome<Text> ReadTitleLine();
    /// Skips everything up to the marker of the lesson.
    Outcome<Done> FindBlock();
    /// Calls the listener with each paragraph of the introduction; there are none if its line is
    /// empty.
    Outcome<Done> ReadIntroduction(std::function<void(IntroParagraph const&)> const& listener);
    /// The pages with their answers, including the conclusion page if there is one. Fails also if
    /// there is no page at all.
    Outcome<LessonBody> ReadBody();
    /// The first call gives the name of the main verse file, the second that of the supplemental
    /// one, as in the file.
    Outcome<Text> ReadName();

private:
    LessonReader(
        FileSystem const& files, StudyKey key, std::int64_t number, TextLines lines, Turns& turns);
    /// Reads and decodes the next line into m_line. `wanted` names what is missing if there is
    /// none.
    Outcome<Done> Next(TextView wanted);
    Failure Fail(Text reason) const;

    FileSystem const* m_files;
    Turns* m_turns;
    StudyKey m_key;
    std::int64_t m_number;
    TextLines m_lines;
    Text m_line; // the current line
    bool m_isInLesson = false; // after its marker
    LessonSize m_size;
};

/// True if a line of a lesson's body is a page. The closing line, which begins with "-", can be one
/// as well. Of the other lines, those that begin with "[" are answers and the rest have no meaning.
bool IsPageLine(TextView line);

/// True for a closing line after which the general conclusion isn't shown.
bool ReplacesConclusion(TextView closingLine);

/// Reads one lesson as a whole.
Outcome<LessonBlock> ParseLessonBlock(FileSystem const& files, TextView studyKey, Turns& turns);

#pragma once
// The study file: the head of a study, then a block for each of its lessons. Its grammar, an
// example and what a bad file gets stand in docs/formats/study-files.md. The verse files that a
// lesson names are verse_file.h's work, the list of a study's lessons the catalogue's.

#include "base/failure.h"
#include "base/text.h"
#include "base/turns.h"
#include "platform/file_system.h"
#include "platform/text_lines.h"

#include <cstdint>
#include <functional>
#include <vector>

/// A study key, "<file name>:<lesson number>", in its two fields. A missing field is empty.
struct StudyKey {
    Text fileName;
    Text lessonNumber;
};
StudyKey SplitStudyKey(TextView studyKey);

struct StudyLine {
    Text studyPrefix; ///< before the first colon
    /// between the first and the second colon, without blanks at its ends; empty without a colon
    Text studyTitle;
};

struct IntroParagraph {
    Text text;
    bool bold = false;
};

struct LessonBody {
    std::vector<Text> pages; ///< page n has index n - 1; at least one
    std::vector<Text> answers; ///< the publisher's, one for each page
    Text closingLine; ///< the line that ended the pages
};

/// All that the study file says of one lesson.
struct LessonBlock {
    StudyLine study;
    Text partWord; ///< "One" or "Two"
    Text titleLine; ///< fields at "/"; the first two are of use
    std::vector<IntroParagraph> introParagraphs;
    LessonBody body;
    Text mainVerseName;
    Text supplementalVerseName;
};

/// What a lesson takes of its file, or of its verse file. No lesson comes near these limits;
/// without them a file of some hundred megabytes would take the memory of the whole machine.
class LessonSize {
public:
    static constexpr std::size_t mostBytes = std::size_t { 4 } << 20;
    static constexpr std::size_t mostLines = 40'000; ///< or paragraphs of the introduction

    /// False if the lesson gets too large by these.
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
/// when it has been read. The steps are called once each, in the order in which they stand here;
/// after a failure none may follow. Each line read gives turns as DecodeLine does. The memory in
/// use grows with the lesson, not with the file.
class LessonReader {
public:
    /// Opens the study file. `files` and `turns` outlive the reader. Fails where the file can't be
    /// opened or the key holds no lesson number from 1.
    static Outcome<LessonReader> Open(FileSystem const& files, TextView studyKey, Turns& turns);

    /// As the key gives it.
    Text const& LessonNumber() const { return m_key.lessonNumber; }
    /// "One" if the file name holds "-1" anywhere, else "Two".
    Text PartWord() const;

    Outcome<StudyLine> ReadHead();
    /// Passes over the description of the study and gives the line of the lesson.
    Outcome<Text> ReadTitleLine();
    /// Goes forward to the marker of the lesson, from the line of the lesson on.
    Outcome<Done> FindBlock();
    /// Hands on the paragraphs of the introduction; none if its line is empty.
    Outcome<Done> ReadIntroduction(std::function<void(IntroParagraph const&)> const& listener);
    /// The pages with their answers, the conclusion page included where there is one. Fails as well
    /// if there is no page at all.
    Outcome<LessonBody> ReadBody();
    /// The first time the name of the main verse file, the second time that of the supplemental
    /// one, as the file gives it.
    Outcome<Text> ReadName();

private:
    LessonReader(
        FileSystem const& files, StudyKey key, std::int64_t number, TextLines lines, Turns& turns);
    /// Reads and decodes the next line into m_line; `wanted` says in a failure what is missing.
    Outcome<Done> Next(TextView wanted);
    Failure Fail(Text reason) const;

    FileSystem const* m_files;
    Turns* m_turns;
    StudyKey m_key;
    std::int64_t m_number;
    TextLines m_lines;
    Text m_line; // the current line
    bool m_isInLesson = false; // behind its marker
    LessonSize m_size;
};

/// Reads one lesson as a whole.
Outcome<LessonBlock> ParseLessonBlock(FileSystem const& files, TextView studyKey, Turns& turns);

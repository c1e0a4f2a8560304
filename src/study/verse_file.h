#pragma once
// Reads verse files: Bible passages in sections, one for each lesson (docs/formats/verse-files.md).

#include "base/failure.h"
#include "base/text.h"
#include "base/turns.h"
#include "platform/file_system.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

struct VerseFileItem {
    enum class Kind { Heading, NumberedVerse, PlainVerse };
    Kind kind = Kind::Heading;
    /// of a numbered verse: at most two characters, a single digit after a blank; else empty
    Text number;
    Text text; ///< of a numbered verse: a blank and what follows the number
};

/// Follows the reading. A function that is empty isn't called.
struct VerseFileListener {
    /// once, before the first line: the size of the file
    std::function<void(std::uint64_t bytes)> size;
    /// a line that counts for the progress: its length without the line end
    std::function<void(std::size_t bytes)> line;
    /// an item of the lesson, in the order of the file
    std::function<void(VerseFileItem const&)> item;
};

/// The verse file of a name that a study file gives: "V-" and the name, trimmed and without "^".
Text VerseFileName(TextView name);

/// True if a file is a verse file by its name, in any letter case.
bool IsVerseFileName(TextView fileName);

/// Reads the section of a lesson in the verse file of this name (see VerseFileName). Lesson numbers
/// are compared by their numeric values. Each line read gives turns as DecodeLine does. Fails if
/// the file can't be opened. After that, a line that can't be read, or a section that gets too
/// large (LessonSize), ends the reading without a failure. A lesson without a section has no items.
Outcome<Done> ReadVerseSection(FileSystem const& files, TextView name, TextView lessonNumber,
    Turns& turns, VerseFileListener const& listener);

/// What a line of a section says, which isn't a section mark; nothing for an empty line.
std::optional<VerseFileItem> ClassifyVerseLine(TextView line);

#pragma once
// The verse file: Bible passages in sections, one for each lesson. Its grammar, an example and what
// a bad file gets stand in docs/formats/verse-files.md.

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
    /// of a numbered verse: at most two characters, one digit right-aligned behind a blank; else
    /// empty
    Text number;
    Text text; ///< of a numbered verse: a blank and what follows the number
};

/// Hears of the reading while it goes on. A function that is empty isn't called.
struct VerseFileListener {
    /// once, before the first line: the size of the file
    std::function<void(std::uint64_t bytes)> size;
    /// a line that counts for the progress: its length without the line end
    std::function<void(std::size_t bytes)> line;
    /// an item of the lesson, in the order of the file
    std::function<void(VerseFileItem const&)> item;
};

/// Reads the section of a lesson in the verse file of a name, "V-" and the name without blanks at
/// its ends and without "^". Lesson numbers are compared by their numeric values. Each line read
/// gives turns as DecodeLine does. Fails if the file can't be opened; later on, a line that can't
/// be read, or a section that gets too large (LessonSize), ends the reading without a word, and a
/// lesson without a section has no items.
Outcome<Done> ReadVerseSection(FileSystem const& files, TextView name, TextView lessonNumber,
    Turns& turns, VerseFileListener const& listener);

/// What one line of a section holds, which is no section mark; nothing for an empty line.
std::optional<VerseFileItem> ClassifyVerseLine(TextView line);

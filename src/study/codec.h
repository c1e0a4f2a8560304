#pragma once
// The text of one line of a study file, a verse file or a general text. A line is plain, or
// scrambled: "!", the body with its letters a to z shifted, and the shift letter. Either way it is
// tidied: runs of slashes, line ends and blanks become one. The form of the files stands in
// docs/formats/study-files.md. Splitting files into lines is platform/text_lines.h's work.

#include "base/text.h"
#include "base/turns.h"

#include <string_view>

/// The letters that scrambling shifts: `a` to `z`, and no accented one.
constexpr bool IsLowerLetter(char16_t character)
{
    return character >= u'a' && character <= u'z';
}

/// Decodes one raw line (code page 1252, without its line end) for the lesson side into `line`,
/// whose memory is reused: descrambled, runs of "/" and of line ends made one, tabs made blanks,
/// runs of blanks made one, and no blanks at either end. Gives one turn at the start and one more
/// for each character of a scrambled body. `raw` and `line` must not be touched during a turn. A
/// scrambled line of fewer than 3 characters is empty.
void DecodeLine(std::string_view raw, Turns& turns, Text& line);

/// The same, as a new text.
Text DecodeLine(std::string_view raw, Turns& turns);

/// Decodes one raw line for the catalogue into `line`, whose memory is reused: gives no turns, and
/// keeps runs of blanks and the blanks at the ends.
void DecodeCatalogueLine(std::string_view raw, Text& line);

/// The same, as a new text.
Text DecodeCatalogueLine(std::string_view raw);

/// Replaces abbreviated names of Bible books ("Jn.") by the full ones ("John"), anywhere in the
/// text, without a test of word boundaries.
void ExpandBookNames(Text& text);

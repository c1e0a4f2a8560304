#pragma once
// Decodes the lines of study files, verse files and general texts. A line is plain, or scrambled:
// "!", the body with its letters a to z shifted, and the shift letter. Runs of slashes, line ends
// and blanks become one. The format is described in docs/formats/study-files.md.
// platform/text_lines.h splits files into lines.

#include "base/text.h"
#include "base/turns.h"

#include <string_view>

/// True for the letters that scrambling shifts, `a` to `z` without accents.
constexpr bool IsLowerLetter(char16_t character)
{
    return character >= u'a' && character <= u'z';
}

/// A letter `a` to `z`, that many places further in the alphabet, with `a` after `z`. The remainder
/// takes the sign of the dividend, so that for less than -26 places the result may be no letter.
constexpr int ShiftedLetter(int letter, int places)
{
    return 'a' + (letter - 'a' + places + 26) % 26;
}

/// Decodes one raw line (code page 1252, without its line end) for the lesson screen into `line`,
/// whose memory is reused: descrambles it, makes one of each run of "/", of line ends and of blanks
/// (tabs count as blanks), and trims it. Gives one turn at the start and one for each character of
/// a scrambled body. `raw` and `line` must not be touched during a turn. A scrambled line of fewer
/// than 3 characters is empty.
void DecodeLine(std::string_view raw, Turns& turns, Text& line);

/// Decodes one raw line for the catalogue into `line`, whose memory is reused. Gives no turns, and
/// keeps runs of blanks and the blanks at the ends.
void DecodeCatalogueLine(std::string_view raw, Text& line);

/// Replaces abbreviated names of Bible books ("Jn.") by the full ones ("John") anywhere in the
/// text, even inside words.
void ExpandBookNames(Text& text);

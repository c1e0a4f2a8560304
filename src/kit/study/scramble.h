#pragma once
// Scrambles lines (docs/formats/study-files.md) byte by byte. Only the letters a to z change, so a
// line may be in any encoding that extends ASCII. study/codec.h decodes lines as the program does.

#include <string>
#include <string_view>

/// The characters that the body of a scrambled line may have in a file of the disc.
constexpr std::size_t longestBody = 32767;

/// "!", the line with each letter `a` to `z` moved forward by as many places as `shiftLetter` (`a`
/// to `z`) is from `a`, and the shift letter. `line` has no line end.
std::string ScrambleLine(std::string_view line, char shiftLetter);

/// The line that was scrambled, also for a shift letter outside `a` to `z`; a line that doesn't
/// begin with "!" as it is. A scrambled line of fewer than 3 characters is empty.
std::string DescrambleLine(std::string_view line);

/// The shift letter of the n-th line (from 0), different from line to line and never `a`, which
/// would leave the line readable.
constexpr char ChangingShiftLetter(std::size_t n)
{
    return static_cast<char>('b' + n * 7 % 25);
}

/// The line of a file: scrambled by ChangingShiftLetter or, if `isPlain`, left as it is; but a line
/// that begins with "!" has to be scrambled, and then its letters stay.
std::string FileLine(std::string_view line, std::size_t n, bool isPlain);

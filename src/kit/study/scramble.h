#pragma once
// Scrambled lines (docs/formats/study-files.md), byte by byte: only the letters a to z change, so a
// line may be in any encoding that has them where ASCII has them. Reading with the tidying of
// blanks and slashes is study/codec.h's work.

#include <string>
#include <string_view>

/// "!", the line with each letter `a` to `z` as many places further on as `shiftLetter` (`a` to
/// `z`) stands behind `a`, and the letter. `line` has no line end.
std::string ScrambleLine(std::string_view line, char shiftLetter);

/// The line that was scrambled; a line that doesn't begin with "!" as it is. One of fewer than 3
/// characters that does is empty. Outside of `a` to `z` the shift letter counts as the program's
/// reading counts it.
std::string DescrambleLine(std::string_view line);

/// The shift letter of the n-th line (from 0) where they are to change from line to line: never
/// `a`, which would leave the line readable.
constexpr char ChangingShiftLetter(std::size_t n)
{
    return static_cast<char>('b' + n * 7 % 25);
}

/// The line of a file: scrambled by ChangingShiftLetter or, if `isPlain`, left as it is; but a line
/// that begins with "!" has to be scrambled, and then its letters stay.
std::string FileLine(std::string_view line, std::size_t n, bool isPlain);

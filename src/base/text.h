#pragma once
// The program's text type and the few helpers on it that more than one folder needs.
// Code pages are code_page.h's work.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A text in 16-bit characters (UTF-16 code units; unpaired surrogates are allowed and kept).
using Text = std::u16string;
/// A text that is only read. Never kept beyond the call that it was given to.
using TextView = std::u16string_view;

/// True for the decimal digits 0 to 9.
constexpr bool IsDigit(char16_t character)
{
    return character >= u'0' && character <= u'9';
}

/// The number of digits at the start of the text.
std::size_t CountDigits(TextView text);

/// The text without leading and trailing blanks (U+0020 alone; tabs and line ends stay).
TextView Trim(TextView text);

/// The fields between the separators; an empty text has one empty field. The views point into
/// `text`.
std::vector<TextView> Split(TextView text, char16_t separator);

bool Contains(TextView text, TextView part);
bool Contains(TextView text, char16_t character);

/// Replaces every occurrence of `from` (not empty), found from left to right, by `to`.
void ReplaceAll(Text& text, TextView from, TextView to);

/// The text with every lone CR and lone LF as CR LF.
Text WithLineEnds(TextView text);

/// The number in decimal, without leading zeros.
Text FromNumber(std::int64_t number);

/// What a decimal number at the start of the text gives, leading blanks skipped: an optional sign,
/// digits, and an optional fraction. 0 where the text doesn't open with a number; infinite above
/// the range.
double NumericValue(TextView text);

/// The whole text as a decimal integer (optional sign, digits, blanks around it); nothing if it is
/// anything else or lies outside 64 bits.
std::optional<std::int64_t> ToInteger(TextView text);

/// UTF-8 both ways. An unpaired surrogate becomes its three-byte form and returns from it; bytes
/// that are no UTF-8 become U+FFFD.
std::string ToUtf8(TextView text);
Text FromUtf8(std::string_view bytes);

/// The text with the capital letters of code page 1252 as small ones, every other character as it
/// is.
Text ToLower(TextView text);
/// A small letter of code page 1252 as a capital, if that has one too; every other character as it
/// is.
char16_t ToUpper(char16_t character);

/// The text with `A` to `Z` as `a` to `z`, every other character as it is: the case rule of file
/// names.
Text ToLowerLatin(TextView text);

#pragma once
// The program's text type and the few helpers on it that more than one folder needs.
// code_page.h converts to and from code pages.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A text in 16-bit characters (UTF-16 code units; unpaired surrogates are allowed and kept).
using Text = std::u16string;
/// A text that is only read. A callee never keeps it after it returns.
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

/// The decimal number at the start of the text, after any blanks: an optional sign, digits, and an
/// optional fraction. 0 if the text doesn't begin with a number; infinite above the range.
double NumericValue(TextView text);

/// The whole text as a decimal integer (optional sign, digits, blanks around it); nothing if it is
/// anything else or doesn't fit 64 bits.
std::optional<std::int64_t> ToInteger(TextView text);

/// Conversions to and from UTF-8. An unpaired surrogate becomes its three-byte form and is restored
/// from it; bytes that are not UTF-8 become U+FFFD.
std::string ToUtf8(TextView text);
Text FromUtf8(std::string_view bytes);

/// The text with the capital letters of code page 1252 as small ones, all others unchanged.
Text ToLower(TextView text);
/// The capital of a small letter, if both are in code page 1252; any other character unchanged.
char16_t ToUpper(char16_t character);

/// The text with `A` to `Z` as `a` to `z`, all others unchanged: the case rule of file names.
Text ToLowerLatin(TextView text);

#pragma once
// Code page 1252, the single-byte form of every text file: all 256 values both ways. The five bytes
// that the code page leaves unassigned (81, 8D, 8F, 90, 9D) are the control characters of the same
// value.

#include "base/text.h"

#include <optional>
#include <string>
#include <string_view>

/// The 16-bit character of each byte value.
extern char16_t const codePageCharacters[256];

/// The text of the bytes, one character a byte.
Text FromCodePage(std::string_view bytes);

/// Writes one character for each byte to `to`, which must have room for them.
void ConvertFromCodePage(std::string_view bytes, char16_t* to);

/// Appends the text of the bytes to `text`.
void AppendFromCodePage(Text& text, std::string_view bytes);

/// The byte of a character; nothing if the code page lacks it.
std::optional<unsigned char> CodePageByte(char16_t character);

/// The bytes of a text that the code page can hold exactly; nothing otherwise.
std::optional<std::string> ToCodePage(TextView text);

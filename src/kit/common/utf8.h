#pragma once
// The test of input that has to be UTF-8; the conversion is base/text.h's work.

#include <string_view>

/// True if the bytes are UTF-8 throughout; lone surrogates in their three-byte form pass.
bool IsUtf8(std::string_view bytes);

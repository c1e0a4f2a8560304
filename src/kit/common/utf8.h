#pragma once
// UTF-8 in what the kit reads and says. The conversion is base/text.h's work.

#include "base/text.h"

#include <string>

/// True if the bytes are UTF-8 throughout; lone surrogates in their three-byte form pass.
bool IsUtf8(std::string_view bytes);

/// The text in quotation marks, for a message.
std::string Quoted(TextView text);

#pragma once
// Sizes for a person to read.

#include "base/text.h"

/// Such as "812 KB", "4.2 MB" or "17 GB": in steps of 1000, rounded down, with one decimal
/// below 10.
Text SizeText(std::uint64_t bytes);

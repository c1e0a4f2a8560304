#pragma once
// Sizes as a person reads them.

#include "base/text.h"

/// Such as "812 KB", "4.2 MB" or "17 GB": in steps of 1000, cut off, with one digit behind the
/// point below 10.
Text SizeText(std::uint64_t bytes);

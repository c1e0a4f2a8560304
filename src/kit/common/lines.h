#pragma once
// The lines of a text that is in memory as a whole, as platform/text_lines.h reads them from a
// file.

#include <string_view>
#include <vector>

/// A line ends at a line feed, one carriage return before it dropped. A text that ends in a line
/// feed has no further, empty line. The views point into `bytes`.
std::vector<std::string_view> SplitLines(std::string_view bytes);

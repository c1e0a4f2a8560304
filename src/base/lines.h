#pragma once
// The lines of a text that is in memory as a whole. platform/text_lines.h reads a file by the same
// rule, block by block; bible/book_lines.h drops all carriage returns.

#include <algorithm>
#include <string_view>
#include <vector>

/// Takes the next line off the front of `rest`. A line ends at a line feed; one carriage return
/// before it is dropped, any other stays.
inline std::string_view TakeLine(std::string_view& rest)
{
    auto const end = std::min(rest.find('\n'), rest.size());
    auto line = rest.substr(0, end);
    if (end < rest.size() && line.ends_with('\r'))
        line.remove_suffix(1);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return line;
}

/// All lines. A text that ends in a line feed has no further, empty line. The views point into
/// `bytes`.
inline std::vector<std::string_view> SplitLines(std::string_view bytes)
{
    std::vector<std::string_view> lines;
    while (!bytes.empty())
        lines.push_back(TakeLine(bytes));
    return lines;
}

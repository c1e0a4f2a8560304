#include "kit/common/lines.h"

#include <algorithm>

std::vector<std::string_view> SplitLines(std::string_view bytes)
{
    std::vector<std::string_view> lines;
    while (!bytes.empty()) {
        auto const end = std::min(bytes.find('\n'), bytes.size());
        auto line = bytes.substr(0, end);
        if (line.ends_with('\r') && end < bytes.size())
            line.remove_suffix(1);
        lines.push_back(line);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return lines;
}

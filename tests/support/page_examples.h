#pragma once
// The examples of the pages in docs/formats, so that what the pages say is tested.

#include <fstream>
#include <string>
#include <vector>

/// The fenced blocks of a page, each line ended by a line feed.
inline std::vector<std::string> FencedBlocks(std::string const& page)
{
    std::ifstream file(std::string(SPARROWFIELD_SOURCE_DIR "/docs/formats/") + page);
    std::vector<std::string> blocks;
    bool inside = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("```")) {
            inside = !inside;
            if (inside)
                blocks.emplace_back();
        } else if (inside) {
            blocks.back() += line + "\n";
        }
    }
    return blocks;
}

#include "bible/about_line.h"

#include "base/code_page.h"

#include <algorithm>

Text AboutLine(std::string_view bytes)
{
    // Longer than any line of use, so that a file of another kind costs nothing.
    constexpr std::size_t mostRead = 4096;
    auto const end = bytes.find('\n');
    Text line = FromCodePage(bytes.substr(0, std::min(end, mostRead)));
    std::erase_if(line, [](char16_t character) { return character < u' ' || character == 0x7F; });
    return Text(Trim(Trim(line).substr(0, longestAboutLine)));
}

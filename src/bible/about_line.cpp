#include "bible/about_line.h"

#include "base/code_page.h"
#include "base/lines.h"

Text AboutLine(std::string_view bytes)
{
    // Longer than any real line, so that a large file of another kind costs nothing.
    constexpr std::size_t mostRead = 4096;
    bytes = bytes.substr(0, mostRead);
    Text line = FromCodePage(TakeLine(bytes));
    std::erase_if(line, [](char16_t character) { return character < u' ' || character == 0x7F; });
    return Text(Trim(Trim(line).substr(0, longestAboutLine)));
}

#include "kit/utf8.h"

#include <algorithm>

namespace {

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The length of the UTF-8 sequence that the text begins with, in bytes; 0 if it is none.
std::size_t SequenceLength(std::string_view text)
{
    auto const lead = static_cast<unsigned char>(text.front());
    std::size_t const length = lead < 0x80 ? 1 : lead >> 5 == 6 ? 2 : lead >> 4 == 14 ? 3 : lead >> 3 == 30 ? 4 : 0;
    bool const isWhole = length <= text.size()
        && std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(std::max<std::size_t>(length, 1)),
            IsContinuation);
    return isWhole ? length : 0;
}

}

bool IsUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        auto const plain = std::find_if(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) != 0; });
        bytes.remove_prefix(static_cast<std::size_t>(plain - bytes.begin()));
        if (bytes.empty())
            return true;
        auto const length = SequenceLength(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

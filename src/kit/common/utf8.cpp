#include "kit/common/utf8.h"

#include <algorithm>

bool IsUtf8(std::string_view bytes)
{
    bool const isPlain = std::ranges::none_of(bytes, [](char byte) { return (byte & 0x80) != 0; });
    return isPlain || ToUtf8(FromUtf8(bytes)) == bytes;
}

std::string Quoted(TextView text)
{
    return "“" + ToUtf8(text) + "”";
}

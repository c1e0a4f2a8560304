#include "base/code_page.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

char16_t const codePageCharacters[256] = {
#define ROW(base)                                                                                  \
    (base), (base) + 1, (base) + 2, (base) + 3, (base) + 4, (base) + 5, (base) + 6, (base) + 7,    \
        (base) + 8, (base) + 9, (base) + 10, (base) + 11, (base) + 12, (base) + 13, (base) + 14,   \
        (base) + 15
    ROW(0x00), ROW(0x10), ROW(0x20), ROW(0x30), ROW(0x40), ROW(0x50), ROW(0x60), ROW(0x70), 0x20AC,
    0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, //
    ROW(0xA0), ROW(0xB0), ROW(0xC0), ROW(0xD0), ROW(0xE0), ROW(0xF0)
#undef ROW
};

Text FromCodePage(std::string_view bytes)
{
    Text text;
    AppendFromCodePage(text, bytes);
    return text;
}

static constexpr std::size_t blockSize = 16;

static bool IsAscii(char const* block)
{
    std::uint64_t words[blockSize / 8];
    std::memcpy(words, block, blockSize);
    return ((words[0] | words[1]) & 0x8080808080808080) == 0;
}

/// Makes each byte a character of the same value. The compiler knows that source and target don't
/// overlap, so it can convert a block at once.
static void Widen(char const* block, char16_t* to)
{
    unsigned char bytes[blockSize];
    std::memcpy(bytes, block, blockSize);
    char16_t characters[blockSize];
    std::copy_n(bytes, blockSize, characters);
    std::memcpy(to, characters, sizeof characters);
}

static void ConvertEach(std::string_view bytes, char16_t* to)
{
    std::transform(bytes.begin(), bytes.end(), to,
        [](char byte) { return codePageCharacters[static_cast<unsigned char>(byte)]; });
}

/// In nearly all blocks each byte has the value of its character.
static void ConvertBlock(char const* block, char16_t* to)
{
    if (IsAscii(block))
        Widen(block, to);
    else
        ConvertEach({ block, blockSize }, to);
}

void ConvertFromCodePage(std::string_view bytes, char16_t* to)
{
    if (bytes.size() < blockSize)
        return ConvertEach(bytes, to);
    auto const last = bytes.size() - blockSize;
    for (std::size_t at = 0; at < last; at += blockSize)
        ConvertBlock(bytes.data() + at, to + at);
    // The last block may convert some bytes twice; that is faster than converting the rest singly.
    ConvertBlock(bytes.data() + last, to + last);
}

void AppendFromCodePage(Text& text, std::string_view bytes)
{
    auto const start = text.size();
    text.resize(start + bytes.size());
    ConvertFromCodePage(bytes, text.data() + start);
}

std::optional<unsigned char> CodePageByte(char16_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<unsigned char>(character);
    auto const high = codePageCharacters + 0x80;
    auto const found = std::find(high, high + 0x20, character);
    if (found == high + 0x20)
        return std::nullopt;
    return static_cast<unsigned char>(found - codePageCharacters);
}

std::optional<std::string> ToCodePage(TextView text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (char16_t const character : text) {
        auto const byte = CodePageByte(character);
        if (!byte)
            return std::nullopt;
        bytes.push_back(static_cast<char>(*byte));
    }
    return bytes;
}

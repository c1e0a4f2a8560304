#include "study/codec.h"

#include "base/code_page.h"

#include <algorithm>
#include <array>

namespace {

using Alphabet = std::array<unsigned char, 256>;

/// What each byte of a scrambled body stands for, given the byte that ends the line. Outside a to z
/// the remainder takes the sign of the dividend, and what comes out may be no letter.
constexpr Alphabet AlphabetOf(int shiftLetter)
{
    Alphabet alphabet {};
    for (int byte = 0; byte < 256; ++byte) {
        bool const shifted = IsLowerLetter(static_cast<char16_t>(byte));
        auto const decoded = shifted ? 97 + ((byte - 97) - (shiftLetter - 97) + 26) % 26 : byte;
        alphabet[static_cast<std::size_t>(byte)] = static_cast<unsigned char>(decoded);
    }
    return alphabet;
}

constexpr auto letterAlphabets = [] {
    std::array<Alphabet, 26> alphabets {};
    for (int i = 0; i < 26; ++i)
        alphabets[static_cast<std::size_t>(i)] = AlphabetOf('a' + i);
    return alphabets;
}();

/// True if tidying may change a byte, given the one behind it. No letter is ever decoded into one
/// of these, nor one of them into anything else.
constexpr bool MayBeUntidy(char byte, char next)
{
    return (byte == '\t') | (byte == '\n') | ((byte == next) & ((byte == '/') | (byte == ' ')));
}

/// The bytes in which tidiness is looked for at once: a fixed number, so that the compiler looks at
/// several with one instruction.
constexpr std::size_t blockSize = 32;

/// Of a block, the byte behind it known.
bool IsTidyBlock(char const* block)
{
    unsigned char untidy = 0;
    for (std::size_t i = 0; i < blockSize; ++i)
        untidy |= MayBeUntidy(block[i], block[i + 1]);
    return untidy == 0;
}

/// True if tidying would change nothing; may be false without a reason.
bool IsTidy(std::string_view bytes)
{
    if (bytes.empty())
        return true;
    auto const last = bytes.size() - 1;
    bool tidy = !MayBeUntidy(bytes[last], '\0');
    std::size_t at = 0;
    for (; at + blockSize <= last; at += blockSize)
        tidy = tidy && IsTidyBlock(bytes.data() + at);
    if (last >= blockSize) // The last block may see some bytes again.
        return tidy && IsTidyBlock(bytes.data() + last - blockSize);
    for (; at < last; ++at)
        tidy = tidy && !MayBeUntidy(bytes[at], bytes[at + 1]);
    return tidy;
}

enum class Blanks { Single, All };

/// True if a line feed behind this text makes a second line end in a row.
bool EndsALineAndBeginsOne(TextView text)
{
    return text.size() >= 3 && text.ends_with(u'\r') && text[text.size() - 2] == u'\n'
        && text[text.size() - 3] == u'\r';
}

/// From a place on in a text that is tidy up to there, makes runs of slashes, line ends and, if
/// told so, blanks one, and tabs blanks. Each is about characters of its own, so one pass over the
/// text does what replacing until nothing is found would do.
void Tidy(Text& text, std::size_t from, Blanks blanks)
{
    char16_t const alsoSingle = blanks == Blanks::Single ? u' ' : u'/';
    char16_t* const start = text.data();
    char16_t const* next = start + from;
    char16_t const* const last = start + text.size();
    char16_t* end = start + from;
    char16_t previous = from > 0 ? text[from - 1] : u'\0';
    while (next != last) {
        char16_t const character = *next == u'\t' ? u' ' : *next;
        ++next;
        if (character == previous && (character == u'/' || character == alsoSingle)) {
            while (next != last && *next == character)
                ++next;
            continue;
        }
        previous = character;
        if (character == u'\n' && EndsALineAndBeginsOne({ start, end }))
            --end;
        else
            *end++ = character;
    }
    text.resize(static_cast<std::size_t>(end - start));
}

void TrimInPlace(Text& text)
{
    text.resize(text.find_last_not_of(u' ') + 1); // npos + 1 is 0
    if (text.starts_with(u' '))
        text.erase(0, text.find_first_not_of(u' '));
}

/// Appends the text of bytes, tidied. `withPrevious` begins one byte earlier where there is one.
void AppendTidied(Text& line, std::string_view bytes, std::string_view withPrevious, Blanks blanks)
{
    auto const from = line.size();
    AppendFromCodePage(line, bytes);
    if (!IsTidy(withPrevious))
        Tidy(line, from, blanks);
}

/// Appends a scrambled body's text, tidied, with a turn for each byte unless `turns` is null. It
/// goes by stretches that stay in the cache and end where a turn is due.
void AppendBody(
    Text& line, std::string_view body, Alphabet const& alphabet, Blanks blanks, Turns* turns)
{
    std::array<char, 512> decoded;
    for (std::size_t at = 0; at < body.size();) {
        auto count = std::min(body.size() - at, decoded.size());
        if (turns)
            count = static_cast<std::size_t>(std::min<Turns::Count>(count, turns->UntilDue()));
        std::transform(
            body.begin() + at, body.begin() + at + count, decoded.begin(), [&](char byte) {
                return static_cast<char>(alphabet[static_cast<unsigned char>(byte)]);
            });
        auto const before = std::min<std::size_t>(at, 1);
        AppendTidied(
            line, { decoded.data(), count }, body.substr(at - before, count + before), blanks);
        at += count;
        if (turns)
            turns->GiveMany(count);
    }
}

/// Makes the line the text of the raw line, tidied. `turns` may be null.
void Decode(std::string_view raw, Blanks blanks, Turns* turns, Text& line)
{
    line.clear();
    if (!raw.starts_with('!'))
        return AppendTidied(line, raw, raw, blanks);
    if (raw.size() < 3)
        return;
    auto const body = raw.substr(1, raw.size() - 2);
    auto const shiftLetter = static_cast<unsigned char>(raw.back());
    if (IsLowerLetter(shiftLetter))
        AppendBody(line, body, letterAlphabets[shiftLetter - 'a'], blanks, turns);
    else
        AppendBody(line, body, AlphabetOf(shiftLetter), blanks, turns);
}

} // namespace

void DecodeLine(std::string_view raw, Turns& turns, Text& line)
{
    turns.Give();
    Decode(raw, Blanks::Single, &turns, line);
    TrimInPlace(line);
}

Text DecodeLine(std::string_view raw, Turns& turns)
{
    Text line;
    DecodeLine(raw, turns, line);
    return line;
}

Text DecodeCatalogueLine(std::string_view raw)
{
    Text line;
    Decode(raw, Blanks::All, nullptr, line);
    return line;
}

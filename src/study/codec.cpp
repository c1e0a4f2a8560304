// A raw line becomes text in three steps: it is descrambled, tidied and, for the lesson, trimmed. A
// scrambled line begins with "!" and ends with the shift, a letter; every letter a to z between
// them has been moved forward by as many places as the shift is from "a":
//
//     !Sjnpo//Pfufsb      shift b: one place back
//     Simon/Peter         descrambled and tidied: the two slashes became one
//
// Every page of a lesson comes through here, so the usual line takes the fast way: blocks of bytes
// are shifted back without a branch, then converted from the code page. The raw bytes tell whether
// there is anything to tidy, since scrambling changes neither blanks nor slashes. Only a line that
// may need it is tidied, in place. A shift that isn't a letter takes a table instead. The body is
// decoded in stretches that end where a turn of the event loop is due.

#include "study/codec.h"

#include "base/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace {

/// The character for each byte of a scrambled body whose shift isn't a letter (see ShiftedLetter).
std::array<char16_t, 256> AlphabetOf(int shiftLetter)
{
    std::array<char16_t, 256> alphabet;
    std::copy_n(codePageCharacters, alphabet.size(), alphabet.begin());
    for (int letter = 'a'; letter <= 'z'; ++letter)
        alphabet[static_cast<std::size_t>(letter)]
            = static_cast<char16_t>(ShiftedLetter(letter, 'a' - shiftLetter));
    return alphabet;
}

/// The bytes that are shifted at once: a fixed number, so that the compiler vectorises the loop.
constexpr std::size_t shiftedAtOnce = 16;

/// Shifts the letters a to z of a block back by 0 to 25 places. Other bytes stay as they are.
void ShiftBack(char const* block, std::uint8_t shift, char* to)
{
    std::uint8_t bytes[shiftedAtOnce];
    std::memcpy(bytes, block, sizeof bytes);
    for (std::uint8_t& byte : bytes) {
        auto const letter = static_cast<std::uint8_t>(byte - 'a');
        auto const back = static_cast<std::uint8_t>(letter - shift);
        // Of the two, the one that didn't pass below zero is the smaller.
        auto const inAlphabet = std::min(back, static_cast<std::uint8_t>(back + 26));
        byte = letter < 26 ? static_cast<std::uint8_t>(inAlphabet + 'a') : byte;
    }
    std::memcpy(to, bytes, sizeof bytes);
}

/// The same for any number of bytes.
void ShiftBackAll(std::string_view bytes, std::uint8_t shift, char* to)
{
    if (bytes.size() < shiftedAtOnce) {
        char all[shiftedAtOnce] {}, shifted[shiftedAtOnce];
        std::copy(bytes.begin(), bytes.end(), all);
        ShiftBack(all, shift, shifted);
        std::copy_n(shifted, bytes.size(), to);
        return;
    }
    auto const last = bytes.size() - shiftedAtOnce;
    for (std::size_t at = 0; at < last; at += shiftedAtOnce)
        ShiftBack(bytes.data() + at, shift, to + at);
    // The last block may shift some bytes again. That is faster than one by one.
    ShiftBack(bytes.data() + last, shift, to + last);
}

void DescrambleLetters(std::string_view body, std::uint8_t shift, char16_t* to)
{
    std::array<char, 64 * shiftedAtOnce> letters;
    while (!body.empty()) {
        auto const part = body.substr(0, letters.size());
        ShiftBackAll(part, shift, letters.data());
        ConvertFromCodePage({ letters.data(), part.size() }, to);
        to += part.size();
        body.remove_prefix(part.size());
    }
}

/// Descrambles a body, given the last byte of its line: one character for each byte.
void Descramble(std::string_view body, unsigned char shiftLetter, char16_t* to)
{
    if (IsLowerLetter(shiftLetter))
        return DescrambleLetters(body, static_cast<std::uint8_t>(shiftLetter - 'a'), to);
    auto const alphabet = AlphabetOf(shiftLetter);
    std::transform(body.begin(), body.end(), to,
        [&](char byte) { return alphabet[static_cast<unsigned char>(byte)]; });
}

/// True if tidying may change a byte or the one after it. Scrambling changes none of these bytes.
constexpr bool MayBeUntidy(char byte, char next)
{
    return (byte == '\t') | (byte == '\n') | ((byte == next) & ((byte == '/') | (byte == ' ')));
}

/// The bytes that are tested at once, for the same reason.
constexpr std::size_t blockSize = 32;

/// Tests a block. The byte after it can be read.
bool IsTidyBlock(char const* block)
{
    unsigned char untidy = 0;
    for (std::size_t i = 0; i < blockSize; ++i)
        untidy |= MayBeUntidy(block[i], block[i + 1]);
    return untidy == 0;
}

/// True if tidying would change nothing. May be false for a tidy line.
bool IsTidy(std::string_view bytes)
{
    if (bytes.size() <= blockSize) {
        char all[blockSize + 1] {};
        std::copy(bytes.begin(), bytes.end(), all);
        return IsTidyBlock(all);
    }
    auto const last = bytes.size() - blockSize - 1;
    for (std::size_t at = 0; at < last; at += blockSize)
        if (!IsTidyBlock(bytes.data() + at))
            return false;
    // The last block may test some bytes again. That is faster than copying the rest.
    return IsTidyBlock(bytes.data() + last) && !MayBeUntidy(bytes.back(), '\0');
}

enum class Blanks { Single, All };

/// True if a line feed after this text completes a second line end in a row.
bool EndsALineAndBeginsOne(TextView text)
{
    return text.size() >= 3 && text.ends_with(u'\r') && text[text.size() - 2] == u'\n'
        && text[text.size() - 3] == u'\r';
}

/// Tidies a text from a place on; the text before it is tidy. Runs of slashes, of line ends and, if
/// `blanks` says so, of blanks become one, tabs become blanks. The rules concern different
/// characters, so one pass has the same result as repeated replacement.
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

/// Appends the text of a scrambled body, tidied, with a turn for each byte unless `turns` is null.
void AppendBody(
    Text& line, std::string_view body, unsigned char shiftLetter, Blanks blanks, Turns* turns)
{
    for (std::size_t at = 0; at < body.size();) {
        auto count = body.size() - at;
        if (turns)
            count = static_cast<std::size_t>(std::min<Turns::Count>(count, turns->UntilDue()));
        auto const from = line.size();
        line.resize(from + count);
        Descramble(body.substr(at, count), shiftLetter, line.data() + from);
        auto const before = std::min<std::size_t>(at, 1); // A run may cross two stretches.
        if (!IsTidy(body.substr(at - before, before + count)))
            Tidy(line, from, blanks);
        at += count;
        if (turns)
            turns->GiveMany(count);
    }
}

void AppendPlain(Text& line, std::string_view raw, Blanks blanks)
{
    AppendFromCodePage(line, raw);
    if (!IsTidy(raw))
        Tidy(line, 0, blanks);
}

/// Decodes and tidies a raw line into `line`. `turns` may be null.
void Decode(std::string_view raw, Blanks blanks, Turns* turns, Text& line)
{
    line.clear();
    line.reserve(raw.size());
    if (!raw.starts_with('!'))
        return AppendPlain(line, raw, blanks);
    if (raw.size() < 3)
        return;
    auto const body = raw.substr(1, raw.size() - 2);
    AppendBody(line, body, static_cast<unsigned char>(raw.back()), blanks, turns);
}

} // namespace

void DecodeLine(std::string_view raw, Turns& turns, Text& line)
{
    turns.Give();
    Decode(raw, Blanks::Single, &turns, line);
    TrimInPlace(line);
}

void DecodeCatalogueLine(std::string_view raw, Text& line)
{
    Decode(raw, Blanks::All, nullptr, line);
}

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

/// Kinds of bytes that tidying is about. No letter is ever decoded into one of them, nor one of
/// them into anything else.
enum Kind : unsigned char { other = 0, slash = 1, blank = 2, tab = 4, lineFeed = 8 };

constexpr auto kinds = [] {
    std::array<Kind, 256> table {};
    table['/'] = slash;
    table[' '] = blank;
    table['\t'] = tab;
    table['\n'] = lineFeed;
    return table;
}();

/// False for almost every line, which is then as tidy as can be but for the blanks at its ends.
bool NeedsTidying(std::string_view body)
{
    static constexpr std::size_t stretch = 256; // Long untidy lines show early what they are.
    unsigned previous = 0;
    for (std::size_t start = 0; start < body.size(); start += stretch) {
        unsigned pairs = 0;
        unsigned seen = 0;
        for (char const byte : body.substr(start, stretch)) {
            unsigned const kind = kinds[static_cast<unsigned char>(byte)];
            pairs |= kind & previous;
            seen |= kind;
            previous = kind;
        }
        if ((pairs & (slash | blank)) != 0 || (seen & (tab | lineFeed)) != 0)
            return true;
    }
    return false;
}

enum class Blanks { Single, All };

/// True if a line feed behind this text makes a second line end in a row.
bool EndsALineAndBeginsOne(TextView text)
{
    return text.size() >= 3 && text.ends_with(u'\r') && text[text.size() - 2] == u'\n'
        && text[text.size() - 3] == u'\r';
}

/// Makes runs of slashes, line ends and, if told so, blanks one, and tabs blanks. Each is about
/// characters of its own, so one pass over the text does what replacing until nothing is found
/// would do.
void Tidy(Text& text, Blanks blanks)
{
    char16_t const alsoSingle = blanks == Blanks::Single ? u' ' : u'/';
    char16_t* const start = text.data();
    char16_t* end = start;
    char16_t previous = 0;
    for (char16_t character : text) {
        if (character == u'\t')
            character = u' ';
        if (character == previous && (character == u'/' || character == alsoSingle))
            continue;
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

/// Makes the line the body's text, a turn for each character given in blocks that end where one is
/// due.
void PutDescrambled(Text& line, std::string_view body, Alphabet const& alphabet, Turns& turns)
{
    line.resize(body.size());
    char16_t* to = line.data();
    while (!body.empty()) {
        auto const count
            = static_cast<std::size_t>(std::min<Turns::Count>(turns.UntilDue(), body.size()));
        for (char const byte : body.substr(0, count))
            *to++ = codePageCharacters[alphabet[static_cast<unsigned char>(byte)]];
        body.remove_prefix(count);
        turns.GiveMany(count);
    }
}

/// Gives the bytes of the line that its text comes from.
std::string_view Descramble(std::string_view raw, Turns& turns, Text& line)
{
    line.clear();
    if (!raw.starts_with('!')) {
        AppendFromCodePage(line, raw);
        return raw;
    }
    if (raw.size() < 3)
        return {};
    auto const body = raw.substr(1, raw.size() - 2);
    auto const shiftLetter = static_cast<unsigned char>(raw.back());
    if (IsLowerLetter(shiftLetter))
        PutDescrambled(line, body, letterAlphabets[shiftLetter - 'a'], turns);
    else
        PutDescrambled(line, body, AlphabetOf(shiftLetter), turns);
    return body;
}

} // namespace

void DecodeLine(std::string_view raw, Turns& turns, Text& line)
{
    turns.Give();
    auto const body = Descramble(raw, turns, line);
    if (NeedsTidying(body))
        Tidy(line, Blanks::Single);
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
    Turns none;
    if (NeedsTidying(Descramble(raw, none, line)))
        Tidy(line, Blanks::All);
    return line;
}

#include "base/nearest_code_page.h"

#include "base/code_page.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

/// A row of letters with marks, as the letters without them; "_" for those that have none.
struct LetterRow {
    char16_t first;
    std::string_view letters;
};

/// Latin Extended-A, a part of Latin Extended-B, Latin Extended Additional and Greek Extended,
/// written in Latin letters (decompositions of Unicode 15).
constexpr LetterRow letterRows[] = {
    { 0x0100,
        "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi__JjKkkLlLlLlL"
        "lLlNnNnNnnNnOoOoOo__RrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs" },
    { 0x01CD,
        "AaIiOoUuUuUuUuUu_AaAa____GgKkOoOo__jDDdGg__NnAa____AaAaEeEeIiIiO"
        "oOoRrRrUuUuSsTt" },
    { 0x1E00,
        "AaBbBbBbCcDdDdDdDdDdEeEeEeEeEeFfGgHhHhHhHhHhIiIiKkKkKkLlLlLlLlMm"
        "MmMmNnNnNnNnOoOoOoOoPpPpRrRrRrRrSsSsSsSsSsTtTtTtTtUuUuUuUuUuVvVv"
        "WwWwWwWwWwXxXxYyZzZzZzhtwyas____AaAaAaAaAaAaAaAaAaAaAaAaEeEeEeEe"
        "EeEeEeEeIiIiOoOoOoOoOoOoOoOoOoOoOoOoUuUuUuUuUuUuUuYyYyYyYy______" },
    { 0x1F00,
        "aaaaaaaaAAAAAAAAeeeeee__EEEEEE__eeeeeeeeEEEEEEEEiiiiiiiiIIIIIIII"
        "oooooo__OOOOOO__yyyyyyyy_Y_Y_Y_YooooooooOOOOOOOOaaeeeeiiooyyoo__"
        "aaaaaaaaAAAAAAAAeeeeeeeeEEEEEEEEooooooooOOOOOOOOaaaaa_aaAAAAA_i_"
        "__eee_eeEEEEE___iiii__iiIIII____yyyyrryyYYYYR_____ooo_ooOOOOO___" },
};

/// U+0391 to U+03A9 and U+03B1 to U+03C9, capitals and small letters alike.
constexpr char const* greek[] = { "a", "b", "g", "d", "e", "z", "e", "th", "i", "k", "l", "m", "n",
    "x", "o", "p", "r", "s", "s", "t", "y", "ph", "ch", "ps", "o" };

/// U+05D0 to U+05EA.
constexpr char const* hebrew[] = { "'", "b", "g", "d", "h", "v", "z", "ch", "t", "y", "k", "k", "l",
    "m", "m", "n", "n", "s", "'", "p", "p", "ts", "ts", "q", "r", "sh", "t" };

struct Replacement {
    char16_t first, last;
    char const* bytes;
};

/// In ascending order.
constexpr Replacement replacements[] = {
    { 0x0132, 0x0132, "IJ" },
    { 0x0133, 0x0133, "ij" },
    { 0x0300, 0x036F, "" },
    { 0x0386, 0x0386, "A" },
    { 0x0388, 0x0389, "E" },
    { 0x038A, 0x038A, "I" },
    { 0x038C, 0x038C, "O" },
    { 0x038E, 0x038E, "Y" },
    { 0x038F, 0x038F, "O" },
    { 0x0390, 0x0390, "i" },
    { 0x03AA, 0x03AA, "I" },
    { 0x03AB, 0x03AB, "Y" },
    { 0x03AC, 0x03AC, "a" },
    { 0x03AD, 0x03AE, "e" },
    { 0x03AF, 0x03AF, "i" },
    { 0x03B0, 0x03B0, "y" },
    { 0x03CA, 0x03CA, "i" },
    { 0x03CB, 0x03CB, "y" },
    { 0x03CC, 0x03CC, "o" },
    { 0x03CD, 0x03CD, "y" },
    { 0x03CE, 0x03CE, "o" },
    { 0x0591, 0x05BD, "" },
    { 0x05BE, 0x05BE, "-" },
    { 0x05BF, 0x05C7, "" },
    { 0x2000, 0x200A, " " },
    { 0x200B, 0x200F, "" },
    { 0x2010, 0x2012, "-" },
    { 0x2015, 0x2015, "\x97" },
    { 0x201B, 0x201B, "\x91" },
    { 0x201F, 0x201F, "\x93" },
    { 0x2028, 0x2029, "\r\n" },
    { 0x202A, 0x202E, "" },
    { 0x202F, 0x202F, "\xA0" },
    { 0x2032, 0x2032, "'" },
    { 0x2033, 0x2033, "\"" },
    { 0x2044, 0x2044, "/" },
    { 0x2060, 0x2064, "" },
    { 0x2190, 0x2190, "<-" },
    { 0x2192, 0x2192, "->" },
    { 0x2212, 0x2212, "-" },
    { 0x3000, 0x3000, " " },
    { 0xFB00, 0xFB00, "ff" },
    { 0xFB01, 0xFB01, "fi" },
    { 0xFB02, 0xFB02, "fl" },
    { 0xFB03, 0xFB03, "ffi" },
    { 0xFB04, 0xFB04, "ffl" },
    { 0xFE00, 0xFE0F, "" },
    { 0xFEFF, 0xFEFF, "" },
};

constexpr bool IsBetween(char16_t character, char16_t first, char16_t last)
{
    return character >= first && character <= last;
}

char LetterOf(LetterRow const& row, char16_t character)
{
    auto const place = static_cast<std::size_t>(character) - row.first;
    return character >= row.first && place < row.letters.size() ? row.letters[place] : '_';
}

std::string ReplacementOf(char16_t character)
{
    auto const found = std::find_if(std::begin(replacements), std::end(replacements),
        [character](Replacement const& row) { return IsBetween(character, row.first, row.last); });
    if (found != std::end(replacements))
        return found->bytes;
    for (auto const& row : letterRows) {
        if (auto const letter = LetterOf(row, character); letter != '_')
            return { letter };
    }
    if (IsBetween(character, 0x0391, 0x03A9)) {
        std::string letters = greek[character - 0x0391];
        letters[0] = static_cast<char>(letters[0] - 'a' + 'A');
        return letters;
    }
    if (IsBetween(character, 0x03B1, 0x03C9))
        return greek[character - 0x03B1];
    if (IsBetween(character, 0x05D0, 0x05EA))
        return hebrew[character - 0x05D0];
    return "\xA4";
}

} // namespace

NearestBytes ToNearestCodePage(TextView text)
{
    NearestBytes form;
    form.bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (auto const byte = CodePageByte(text[i])) {
            form.bytes += static_cast<char>(*byte);
            continue;
        }
        bool const isPair = IsBetween(text[i], 0xD800, 0xDBFF) && i + 1 < text.size()
            && IsBetween(text[i + 1], 0xDC00, 0xDFFF);
        form.bytes += ReplacementOf(text[i]);
        form.replaced += 1;
        i += isPair;
    }
    return form;
}

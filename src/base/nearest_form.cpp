#include "base/nearest_form.h"

#include "base/code_page.h"

#include <algorithm>
#include <iterator>

namespace {

/// U+0100 to U+017F, a letter each; those of two letters stand in the table below.
constexpr char latinExtended[] = "AaAaAaCcCcCcCcDd"
                                 "DdEeEeEeEeEeGgGg"
                                 "GgGgHhHhIiIiIiIi"
                                 "Ii__JjKkkLlLlLlL"
                                 "lLlNnNnNnnNnOoOo"
                                 "Oo__RrRrRrSsSsSs"
                                 "SsTtTtTtUuUuUuUu"
                                 "UuUuWwYyYZzZzZzs";
static_assert(sizeof latinExtended == 0x80 + 1);

/// U+0391 to U+03A9 and U+03B1 to U+03C9, capitals and small letters alike.
constexpr char const* greek[]
    = { "a", "b", "g", "d", "e", "z", "e", "th", "i", "k", "l", "m", "n", "x", "o", "p", "r", "s", "s", "t",
          "y", "ph", "ch", "ps", "o" };

/// U+05D0 to U+05EA.
constexpr char const* hebrew[] = { "'", "b", "g", "d", "h", "v", "z", "ch", "t", "y", "k", "k", "l", "m", "m",
    "n", "n", "s", "'", "p", "p", "ts", "ts", "q", "r", "sh", "t" };

struct Replacement {
    char16_t first, last;
    char const* bytes;
};

/// In ascending order.
constexpr Replacement replacements[] = {
    { 0x0132, 0x0132, "IJ" },
    { 0x0133, 0x0133, "ij" },
    { 0x0300, 0x036F, "" },
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

std::string ReplacementOf(char16_t character)
{
    auto const found = std::find_if(std::begin(replacements), std::end(replacements),
        [character](Replacement const& row) { return IsBetween(character, row.first, row.last); });
    if (found != std::end(replacements))
        return found->bytes;
    if (IsBetween(character, 0x0100, 0x017F))
        return { latinExtended[character - 0x0100] };
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

}

NearestForm NearestCodePage(TextView text)
{
    NearestForm form;
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

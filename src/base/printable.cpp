#include "base/printable.h"

static constexpr char16_t replacement = u'\uFFFD';

static bool IsHigh(char16_t character)
{
    return character >= 0xD800 && character < 0xDC00;
}

static bool IsLow(char16_t character)
{
    return character >= 0xDC00 && character < 0xE000;
}

/// The Unicode standard: controls (Cc), separators (Zl, Zp), and of the format characters (Cf)
/// those for directions, the byte order mark and the anchors of annotations.
static bool IsUnprintable(char16_t character)
{
    return character < u' ' || (character >= 0x7F && character < 0xA0) || character == 0x061C
        || character == 0x200E || character == 0x200F
        || (character >= 0x2028 && character <= 0x202E)
        || (character >= 0x2066 && character <= 0x206F) || character == 0xFEFF
        || (character >= 0xFFF9 && character <= 0xFFFB) || character >= 0xFFFE;
}

Text Printable(TextView text)
{
    Text printable;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t const character = text[i];
        if (character == u'\t') {
            printable += u' ';
        } else if (IsHigh(character) && i + 1 < text.size() && IsLow(text[i + 1])) {
            char16_t const low = text[++i];
            if (character == 0xDB40 && low <= 0xDC7F) // U+E0000 to U+E007F, the tags
                printable += replacement;
            else
                printable += { character, low };
        } else {
            printable += IsHigh(character) || IsLow(character) || IsUnprintable(character)
                ? replacement
                : character;
        }
    }
    return printable;
}

std::string Printable(std::string_view text)
{
    return ToUtf8(Printable(FromUtf8(text)));
}

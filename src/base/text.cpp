#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

std::size_t CountDigits(TextView text)
{
    auto const end = std::find_if_not(text.begin(), text.end(), IsDigit);
    return static_cast<std::size_t>(end - text.begin());
}

TextView Trim(TextView text)
{
    auto const first = text.find_first_not_of(u' ');
    if (first == TextView::npos)
        return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

std::vector<TextView> Split(TextView text, char16_t separator)
{
    std::vector<TextView> fields;
    std::size_t start = 0;
    for (auto end = text.find(separator); end != TextView::npos;
         end = text.find(separator, start)) {
        fields.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    fields.push_back(text.substr(start));
    return fields;
}

bool Contains(TextView text, TextView part)
{
    return text.find(part) != TextView::npos;
}

bool Contains(TextView text, char16_t character)
{
    return text.find(character) != TextView::npos;
}

void ReplaceAll(Text& text, TextView from, TextView to)
{
    auto found = text.find(from);
    if (found == Text::npos)
        return;
    Text result;
    result.reserve(text.size());
    std::size_t start = 0;
    for (; found != Text::npos; found = text.find(from, start)) {
        result.append(text, start, found - start).append(to);
        start = found + from.size();
    }
    text = std::move(result.append(text, start));
}

Text WithLineEnds(TextView text)
{
    Text result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const isReturn = text[i] == u'\r';
        if (!isReturn && text[i] != u'\n') {
            result.push_back(text[i]);
            continue;
        }
        if (isReturn && i + 1 < text.size() && text[i + 1] == u'\n')
            ++i;
        result += u"\r\n";
    }
    return result;
}

Text FromNumber(std::int64_t number)
{
    char digits[24];
    auto const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return Text(digits, end);
}

/// True if a decimal number has only zeros before its point.
static bool IsBelowOne(std::string_view number)
{
    auto const first = number.find_first_not_of("-0");
    return first == std::string_view::npos || number[first] == '.';
}

double NumericValue(TextView text)
{
    auto at = text.find_first_not_of(u' ');
    if (at == TextView::npos)
        return 0;
    std::string narrow;
    if (text[at] == u'-')
        narrow += '-';
    if (text[at] == u'-' || text[at] == u'+')
        ++at;
    for (bool isFraction = false; at < text.size(); ++at) {
        bool const isPoint = text[at] == u'.' && !isFraction;
        if (!isPoint && !IsDigit(text[at]))
            break;
        isFraction = isFraction || isPoint;
        narrow.push_back(static_cast<char>(text[at]));
    }
    double value = 0;
    auto const [end, error] = std::from_chars(
        narrow.data(), narrow.data() + narrow.size(), value, std::chars_format::fixed);
    if (error == std::errc::result_out_of_range && !IsBelowOne(narrow))
        value = narrow[0] == '-' ? -HUGE_VAL : HUGE_VAL;
    return value;
}

std::optional<std::int64_t> ToInteger(TextView text)
{
    text = Trim(text);
    if (text.starts_with(u'+') && text.size() > 1 && IsDigit(text[1]))
        text.remove_prefix(1);
    std::string narrow;
    for (char16_t const character : text) {
        if (!IsDigit(character) && character != u'-')
            return std::nullopt;
        narrow.push_back(static_cast<char>(character));
    }
    std::int64_t number = 0;
    auto const [end, error] = std::from_chars(narrow.data(), narrow.data() + narrow.size(), number);
    if (error != std::errc {} || end != narrow.data() + narrow.size())
        return std::nullopt;
    return number;
}

static void AppendUtf8(std::string& bytes, char32_t code)
{
    auto const tail
        = [&](int shift) { bytes.push_back(static_cast<char>(0x80 | ((code >> shift) & 0x3F))); };
    if (code < 0x80) {
        bytes.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        bytes.push_back(static_cast<char>(0xC0 | (code >> 6)));
        tail(0);
    } else if (code < 0x10000) {
        bytes.push_back(static_cast<char>(0xE0 | (code >> 12)));
        tail(6);
        tail(0);
    } else {
        bytes.push_back(static_cast<char>(0xF0 | (code >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

std::string ToUtf8(TextView text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        bool const pair = code >= 0xD800 && code < 0xDC00 && i + 1 < text.size()
            && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
        if (pair)
            code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00);
        AppendUtf8(bytes, code);
    }
    return bytes;
}

/// Reads the character at `at` and advances past it; where the bytes are not UTF-8, returns U+FFFD
/// and advances by one byte.
static char32_t NextCode(std::string_view bytes, std::size_t& at)
{
    auto const lead = static_cast<unsigned char>(bytes[at++]);
    if (lead < 0x80)
        return lead;
    int const tails = lead >= 0xC2 && lead < 0xE0 ? 1
        : lead >= 0xE0 && lead < 0xF0             ? 2
        : lead >= 0xF0 && lead < 0xF5             ? 3
                                                  : 0;
    if (tails == 0 || at + static_cast<std::size_t>(tails) > bytes.size())
        return 0xFFFD;
    char32_t code = lead & (0x3F >> tails);
    for (int i = 0; i < tails; ++i) {
        auto const tail = static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
        if ((tail & 0xC0) != 0x80)
            return 0xFFFD;
        code = (code << 6) | (tail & 0x3F);
    }
    bool const overlong = (tails == 2 && code < 0x800) || (tails == 3 && code < 0x10000);
    if (overlong || code > 0x10FFFF)
        return 0xFFFD;
    at += static_cast<std::size_t>(tails);
    return code;
}

Text FromUtf8(std::string_view bytes)
{
    Text text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        char32_t const code = NextCode(bytes, at);
        if (code < 0x10000) {
            text.push_back(static_cast<char16_t>(code));
        } else {
            text.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
            text.push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
        }
    }
    return text;
}

static char16_t ToLower(char16_t character)
{
    bool const isBasic = character >= u'A' && character <= u'Z';
    bool const isMarked = character >= 0xC0 && character <= 0xDE && character != 0xD7;
    if (isBasic || isMarked)
        return static_cast<char16_t>(character + (u'a' - u'A'));
    switch (character) {
    case 0x160: // S, OE and Z lie beside their small letters
    case 0x152:
    case 0x17D:
        return static_cast<char16_t>(character + 1);
    case 0x178:
        return 0xFF; // Y with a diaeresis
    default:
        return character;
    }
}

Text ToLower(TextView text)
{
    Text lower(text);
    for (char16_t& character : lower)
        character = ToLower(character);
    return lower;
}

char16_t ToUpper(char16_t character)
{
    for (int const capital : { character - (u'a' - u'A'), character - 1, 0x178 }) {
        auto const candidate = static_cast<char16_t>(capital);
        if (candidate != character && ToLower(candidate) == character)
            return candidate;
    }
    return character;
}

Text ToLowerLatin(TextView text)
{
    Text lower(text);
    for (char16_t& character : lower)
        if (character >= u'A' && character <= u'Z')
            character = static_cast<char16_t>(character + (u'a' - u'A'));
    return lower;
}

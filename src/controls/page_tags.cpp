#include "controls/page_tags.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

using Bytes = std::string_view;

constexpr Bytes blanks = " \t\r\n\f";

constexpr bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

constexpr char Small(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// In the order of TagId.
constexpr Bytes names[] = { "p", "sup", "b", "i", "font", "a", "br", "u", "em", "strong", "sub",
    "span", "script", "style", "title" };
constexpr std::size_t longestName = 6;

/// A name of at most 8 characters as a number that is the same for capital and small letters.
constexpr std::uint64_t Packed(Bytes name)
{
    std::uint64_t packed = 0;
    for (char const c : name)
        packed = packed << 8 | static_cast<unsigned char>(Small(c));
    return packed;
}

constexpr auto packedNames = [] {
    std::array<std::uint64_t, std::size(names)> packed {};
    std::transform(std::begin(names), std::end(names), packed.begin(), Packed);
    return packed;
}();

TagId IdOf(std::uint64_t packed)
{
    auto const found = std::find(packedNames.begin(), packedNames.end(), packed);
    return static_cast<TagId>(found - packedNames.begin());
}

constexpr auto endsName = [] {
    std::array<bool, 256> ends {};
    for (char const c : { '>', '/', '<', ' ', '\t', '\r', '\n', '\f' })
        ends[static_cast<unsigned char>(c)] = true;
    return ends;
}();

struct Name {
    std::size_t end;
    TagId id;
    bool isSmall;
};

/// The name that begins at this place, up to a blank, "/", ">" or the next "<".
Name ReadName(Bytes page, std::size_t at)
{
    std::uint64_t packed = 0; // what is beyond 8 characters falls out
    auto end = at;
    for (; end < page.size() && !endsName[static_cast<unsigned char>(page[end])]; ++end)
        packed = packed << 8 | static_cast<unsigned char>(page[end]);
    if (end - at > longestName)
        return { end, TagId::Other, false };
    auto const id = IdOf(packed);
    return id != TagId::Other ? Name { end, id, true }
                              : Name { end, IdOf(Packed(page.substr(at, end - at))), false };
}

/// Only after a "=" does a quote begin a value.
bool OpensValue(Bytes text, std::size_t quote)
{
    auto const before = text.substr(0, quote).find_last_not_of(blanks);
    return before != text.npos && text[before] == '=';
}

/// The place of the ">" of a tag in `text`, which begins after the name and ends before the
/// next "<".
std::size_t FindTagEnd(Bytes text)
{
    std::size_t at = 0;
    while ((at = text.find_first_of(">\"'", at)) != text.npos && text[at] != '>') {
        auto const close = OpensValue(text, at) ? text.find(text[at], at + 1) : at;
        if (close == text.npos)
            break;
        at = close + 1;
    }
    return at != text.npos && text[at] == '>' ? at : text.find('>');
}

struct Attribute {
    Bytes name, value;
};

/// Takes the first attribute off the text.
std::optional<Attribute> TakeAttribute(Bytes& text)
{
    auto const skip = [&text](Bytes what) {
        text.remove_prefix(std::min(text.find_first_not_of(what), text.size()));
    };
    auto const take = [&text](std::size_t end) {
        auto const taken = text.substr(0, end);
        text.remove_prefix(taken.size());
        return taken;
    };
    skip(" \t\r\n\f/=");
    if (text.empty())
        return std::nullopt;
    Attribute attribute { take(text.find_first_of(" \t\r\n\f/=")), {} };
    skip(blanks);
    if (!text.starts_with('='))
        return attribute;
    text.remove_prefix(1);
    skip(blanks);
    bool const isQuoted = text.starts_with('"') || text.starts_with('\'');
    if (!isQuoted) {
        attribute.value = take(text.find_first_of(blanks));
        return attribute;
    }
    char const quote = text.front();
    text.remove_prefix(1);
    attribute.value = take(text.find(quote));
    text.remove_prefix(std::min<std::size_t>(text.size(), 1));
    return attribute;
}

/// The first attribute of this name; empty if there is none.
Bytes FindValue(Bytes attributes, Bytes name)
{
    while (auto const attribute = TakeAttribute(attributes))
        if (IsSameName(attribute->name, name))
            return attribute->value;
    return {};
}

bool IsColour(Bytes value)
{
    constexpr std::size_t longest = 20; // "lightgoldenrodyellow"
    if (!value.starts_with('#'))
        return !value.empty() && value.size() <= longest
            && std::all_of(value.begin(), value.end(), IsLetter);
    auto const isHexadecimal
        = [](char c) { return IsDigit(c) || (Small(c) >= 'a' && Small(c) <= 'f'); };
    return value.size() == 7 && std::all_of(value.begin() + 1, value.end(), isHexadecimal);
}

} // namespace

std::optional<Tag> ReadTag(Bytes page, std::size_t at)
{
    Tag tag;
    tag.closes = at + 1 < page.size() && page[at + 1] == '/';
    auto const name = at + (tag.closes ? 2 : 1);
    if (name >= page.size() || !IsLetter(page[name]))
        return std::nullopt;
    auto const [nameEnd, id, isSmall] = ReadName(page, name);
    tag.id = id;
    if (nameEnd < page.size() && page[nameEnd] == '>') {
        tag.end = nameEnd + 1;
        tag.isPlain = isSmall;
        return tag;
    }
    auto const next = page.find('<', nameEnd);
    auto const rest = page.substr(nameEnd, next == page.npos ? next : next - nameEnd);
    auto const end = FindTagEnd(rest);
    if (end == rest.npos)
        return std::nullopt;
    tag.attributes = rest.substr(0, end);
    tag.end = nameEnd + end + 1;
    return tag;
}

Bytes NameOf(TagId id)
{
    return names[static_cast<std::size_t>(id)];
}

std::string FontTag(Bytes attributes)
{
    std::string tag = "<font";
    if (auto const size = FindValue(attributes, "size");
        size.size() == 1 && size[0] >= '1' && size[0] <= '7')
        tag.append(" size=").append(size);
    auto const face = FindValue(attributes, "face");
    for (Bytes const known : { "verdana", "Arial" })
        if (IsSameName(face, known == "Arial" ? "arial" : known))
            tag.append(" face=\"").append(known).append("\"");
    if (auto const colour = FindValue(attributes, "color"); IsColour(colour))
        tag.append(" color=").append(colour);
    return tag + ">";
}

std::string AnchorTag(Bytes attributes)
{
    constexpr std::size_t longest = 64;
    auto const isNamePart
        = [](char c) { return IsLetter(c) || IsDigit(c) || c == '.' || c == '-' || c == '_'; };
    auto const name = FindValue(attributes, "name");
    if (name.empty() || name.size() > longest || !std::all_of(name.begin(), name.end(), isNamePart))
        return {};
    return "<a name=" + std::string(name) + "></a>";
}

bool IsSameName(Bytes text, Bytes small)
{
    return std::equal(text.begin(), text.end(), small.begin(), small.end(),
        [](char a, char b) { return Small(a) == b; });
}

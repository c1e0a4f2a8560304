#pragma once
// The tags of a page: where one ends, what it is, which attributes stay (for page_filter.cpp).

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

/// The tags that the filter knows. Those before `Script` are kept.
enum class TagId : std::uint8_t {
    Paragraph,
    Superscript,
    Bold,
    Italic,
    Font,
    Anchor,
    Break,
    Underline,
    Emphasis,
    Strong,
    Subscript,
    Span,
    Script,
    Style,
    Title,
    Other
};

struct Tag {
    TagId id = TagId::Other;
    bool closes = false; ///< `</name>`
    bool isPlain = false; ///< it reads as it would be written anew: small letters and no attributes
    std::string_view attributes; ///< everything between the name and the ">"
    std::size_t end = 0; ///< the place after the ">"
};

/// One of the most frequent tags, recognised by one comparison.
struct UsualTag {
    constexpr UsualTag(std::string_view text, TagId tagId)
        : id(tagId)
        , closes(text[1] == '/')
        , size(text.size())
        , mask(~std::uint64_t { 0 } >> (8 * (sizeof mask - size)))
    {
        for (auto i = size; i > 0; --i)
            bytes = bytes << 8 | static_cast<unsigned char>(text[i - 1]);
    }
    TagId id;
    bool closes;
    std::size_t size; ///< at most 8
    std::uint64_t mask, bytes = 0; ///< the first byte lowest
};

constexpr UsualTag usualTags[] = { { "<sup>", TagId::Superscript },
    { "</sup>", TagId::Superscript }, { "<p>", TagId::Paragraph } };

/// The usual tag at this place of the page; null if it is any other, or very near the end.
inline UsualTag const* FindUsualTag(std::string_view page, std::size_t at)
{
    if (page.size() - at < sizeof(std::uint64_t) || std::endian::native != std::endian::little)
        return nullptr;
    std::uint64_t bytes;
    std::memcpy(&bytes, page.data() + at, sizeof bytes);
    for (auto const& tag : usualTags)
        if ((bytes & tag.mask) == tag.bytes)
            return &tag;
    return nullptr;
}

/// The tag that begins at this "<" of the page; nothing if none does, as in `1 < 2` or if the next
/// "<" comes before a ">".
std::optional<Tag> ReadTag(std::string_view page, std::size_t at);

/// The name of a tag that isn't `Other`, in small letters.
std::string_view NameOf(TagId id);

/// The start tag of a font with those of its attributes that stay, in their only form.
std::string FontTag(std::string_view attributes);

/// An anchor, closed at once; empty without a name of 1 to 64 letters, digits, ".", "-", "_".
std::string AnchorTag(std::string_view attributes);

/// Compares with `small`, which is in small letters, ignoring case.
bool IsSameName(std::string_view text, std::string_view small);

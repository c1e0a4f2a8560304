#include "kit/bible/osis_text.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <vector>

namespace {

constexpr std::string_view pilcrow = "\xC2\xB6";
constexpr std::string_view closingQuote = "\xE2\x80\x9D";
constexpr std::string_view whiteSpace = " \t\r\n";
constexpr std::string_view runEnds = " \t\r\n&\\\xC2"; // the last one opens a pilcrow
constexpr std::string_view commentStart = "<!--", commentEnd = "-->";
constexpr std::array<std::string_view, 4> leftOut = { "note", "title", "rdg", "speaker" };
constexpr std::array<std::string_view, 3> outside = { "front", "introduction", "glossary" };

struct Entity {
    std::string_view name;
    char character;
};
constexpr std::array<Entity, 5> entities = { { { "&amp;", '&' }, { "&lt;", '<' }, { "&gt;", '>' },
    { "&quot;", '"' }, { "&apos;", '\'' } } };

template <class Range> bool IsOneOf(Range const& range, std::string_view word)
{
    return std::ranges::find(range, word) != range.end();
}

/// `name="value"` of a tag; empty without it.
std::string_view Attribute(std::string_view tag, std::string_view name)
{
    auto const start = tag.find(std::string(" ").append(name).append("=\""));
    if (start == tag.npos)
        return {};
    auto const value = start + name.size() + 3;
    return tag.substr(value, tag.find('"', value) - value);
}

std::string_view NameOf(std::string_view tag)
{
    auto const first = tag.starts_with('/') ? 1u : 0u;
    return tag.substr(first, tag.find_first_of(" /", first) - first);
}

/// True for a milestone that opens a paragraph, a stanza or a gap between stanzas.
bool OpensParagraph(std::string_view tag)
{
    auto const name = NameOf(tag);
    bool const opens = !Attribute(tag, "sID").empty();
    return (name == "div" && opens && Attribute(tag, "type") == "x-p") || (name == "lg" && opens)
        || name == "lb";
}

/// True for text that a blank has to part from a word before it: one that opens with a letter, a
/// figure or an opening quotation mark or bracket.
bool OpensWord(std::string_view text)
{
    auto const first = static_cast<unsigned char>(text.front());
    return std::isalnum(first) || first == '(' || text.starts_with("\xE2\x80\x9C")
        || text.starts_with("\xE2\x80\x98") || (first >= 0xC3 && first <= 0xC9);
}

bool IsStop(char character)
{
    return std::string_view(",.;:?!").find(character) != std::string_view::npos;
}

/// True if the word belongs to the one before it, from which a blank parts it.
bool IsClosing(std::string_view word, std::string_view textWithBlank)
{
    bool const isBehindStop
        = textWithBlank.size() > 1 && IsStop(textWithBlank[textWithBlank.size() - 2]);
    return IsStop(word.front()) || (word.starts_with(closingQuote) && isBehindStop);
}

/// The length of a marker of the text's own source that was left in the words ("\\nd ", "\\+nd*");
/// 0 for none.
std::size_t MarkerLength(std::string_view words)
{
    if (!words.starts_with('\\'))
        return 0;
    auto const end = std::min(words.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789",
                                  words.starts_with("\\+") ? 2 : 1),
        words.size());
    return end + (end < words.size() && (words[end] == '*' || words[end] == ' ') ? 1 : 0);
}

struct Replaced {
    std::size_t length = 0; ///< in bytes, of what is replaced; 0 for nothing
    std::string text; ///< UTF-8
};

/// The entity that the words begin with, by its name or its number.
Replaced EntityAt(std::string_view words)
{
    for (auto const& entity : entities) {
        if (words.starts_with(entity.name))
            return { entity.name.size(), std::string(1, entity.character) };
    }
    auto const end = words.find(';');
    if (!words.starts_with("&#") || end == words.npos)
        return {};
    bool const isHex = words.starts_with("&#x");
    unsigned code = 0;
    auto const digits = words.substr(isHex ? 3 : 2, end - (isHex ? 3 : 2));
    auto const [last, error]
        = std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? 16 : 10);
    if (error != std::errc() || last != digits.data() + digits.size() || code == 0 || code > 0xFFFF)
        return {};
    return { end + 1, ToUtf8(Text(1, static_cast<char16_t>(code))) };
}

/// True if a blank at this place would part what belongs together.
bool IsOpening(std::string_view text)
{
    return text.empty() || text.ends_with(' ') || text.ends_with('(')
        || text.ends_with("\xE2\x80\x94") || text.ends_with("\xE2\x80\x9C")
        || text.ends_with("\xE2\x80\x98");
}

} // namespace

/// The reading of one entry.
class OsisReader::Reading {
public:
    explicit Reading(OsisReader& reader)
        : m_reader(reader)
    {
    }

    void Tag(std::string_view tag)
    {
        auto const name = NameOf(tag);
        if (tag.ends_with('/'))
            Milestone(tag);
        else if (tag.starts_with('/'))
            Close(name);
        else
            m_open.push_back(name);
    }

    void Words(std::string_view words)
    {
        if (m_isOutside || IsLeavingOut())
            return;
        while (!words.empty()) {
            if (words.starts_with(pilcrow)) {
                m_reader.m_isParagraphDue = true;
                words.remove_prefix(pilcrow.size());
            } else if (auto const marker = MarkerLength(words); marker > 0) {
                words.remove_prefix(marker);
            } else if (auto const [length, text] = EntityAt(words); length > 0) {
                Put(text);
                words.remove_prefix(length);
            } else {
                auto const run = words.substr(0, words.find_first_of(runEnds, 1));
                Put(run);
                words.remove_prefix(run.size());
            }
        }
    }

    /// True inside of an element that is left out.
    bool IsLeavingOut() const
    {
        return std::ranges::any_of(m_open, [](auto name) { return IsOneOf(leftOut, name); });
    }

    OsisVerse Take()
    {
        while (m_verse.text.ends_with(' '))
            m_verse.text.pop_back();
        return std::move(m_verse);
    }

private:
    void Milestone(std::string_view tag)
    {
        if (NameOf(tag) == "div" && IsOneOf(outside, Attribute(tag, "type")))
            m_isOutside = !Attribute(tag, "sID").empty();
        else if (!m_isOutside && OpensParagraph(tag))
            m_reader.m_isParagraphDue = true;
    }

    /// Elements that were never closed end with the one around them; an end without a start is
    /// nothing.
    void Close(std::string_view name)
    {
        auto const open = std::find(m_open.rbegin(), m_open.rend(), name);
        if (open == m_open.rend())
            return;
        m_open.erase(open.base() - 1, m_open.end());
        m_isBehindLeftOut |= IsOneOf(leftOut, name);
    }

    /// Appends a run that has white space at its start, one character of it, or nowhere.
    void Put(std::string_view run)
    {
        auto& text = m_verse.text;
        bool const isSpaced = whiteSpace.find(run.front()) != whiteSpace.npos;
        auto const word = run.substr(isSpaced ? 1 : 0);
        if (isSpaced && !text.empty() && !text.ends_with(' '))
            text += ' ';
        if (word.empty())
            return;
        BeginWord();
        // Where a note or a closing quotation mark replaced a blank, the words
        // around it touch.
        if (OpensWord(word)
            && (text.ends_with(closingQuote) || (m_isBehindLeftOut && !IsOpening(text))))
            text += ' ';
        m_isBehindLeftOut = false;
        if (text.ends_with(' ') && IsClosing(word, text))
            text.pop_back();
        text += word;
    }

    void BeginWord()
    {
        if (m_reader.m_isParagraphDue) {
            if (m_verse.text.empty())
                m_verse.startsParagraph = true;
            else
                m_verse.innerParagraphs += 1;
        }
        m_reader.m_isParagraphDue = false;
    }

    OsisReader& m_reader;
    OsisVerse m_verse;
    /// names of the elements around the place, the innermost last
    std::vector<std::string_view> m_open;
    bool m_isBehindLeftOut = false;
    bool m_isOutside = false; ///< in a preface or a glossary
};

OsisVerse OsisReader::Read(std::string_view markup)
{
    Reading reading(*this);
    bool isCutOff = false;
    while (!markup.empty()) {

        auto const start = std::min(markup.find('<'), markup.size());
        reading.Words(markup.substr(0, start));
        markup.remove_prefix(start);
        if (markup.empty())
            break;
        auto const tagEnd = markup.starts_with(commentStart) ? commentEnd : std::string_view(">");
        auto const end = markup.find(tagEnd);
        isCutOff |= end == markup.npos;
        auto const length = std::min(end, markup.size() - tagEnd.size());
        if (tagEnd != commentEnd)
            reading.Tag(markup.substr(1, std::max<std::size_t>(length, 1) - 1));
        markup.remove_prefix(length + tagEnd.size());
    }
    auto verse = reading.Take();
    verse.isCutOff = isCutOff || reading.IsLeavingOut();
    return verse;
}

void OsisReader::BeginBook()
{
    m_isParagraphDue = false;
}

#include "kit/osis_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

namespace {

constexpr std::string_view pilcrow = "\xC2\xB6";
constexpr std::string_view closingQuote = "\xE2\x80\x9D";
constexpr std::string_view whiteSpace = " \t\r\n";
constexpr std::string_view runEnds = " \t\r\n&\xC2"; // the last one opens a pilcrow
constexpr std::array<std::string_view, 4> leftOut = { "note", "title", "rdg", "speaker" };
constexpr std::array<std::string_view, 3> outside = { "front", "introduction", "glossary" };

struct Entity {
    std::string_view name;
    char character;
};
constexpr std::array<Entity, 5> entities
    = { { { "&amp;", '&' }, { "&lt;", '<' }, { "&gt;", '>' }, { "&quot;", '"' }, { "&apos;", '\'' } } };

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
    return (name == "div" && opens && Attribute(tag, "type") == "x-p") || (name == "lg" && opens) || name == "lb";
}

/// True for text that a blank has to part from a word before it: one that opens with a letter, a figure or an opening
/// quotation mark or bracket.
bool OpensWord(std::string_view text)
{
    auto const first = static_cast<unsigned char>(text.front());
    return std::isalnum(first) || first == '(' || text.starts_with("\xE2\x80\x9C") || text.starts_with("\xE2\x80\x98")
        || (first >= 0xC3 && first <= 0xC9);
}

bool ClosesSentence(char character)
{
    return std::string_view(",.;:?!").find(character) != std::string_view::npos;
}

/// True if a blank at this place would part what belongs together.
bool IsOpening(std::string_view text)
{
    return text.empty() || text.ends_with(' ') || text.ends_with('(') || text.ends_with("\xE2\x80\x94")
        || text.ends_with("\xE2\x80\x9C") || text.ends_with("\xE2\x80\x98");
}

}

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
        if (m_isOutside || std::ranges::any_of(m_open, [](auto name) { return IsOneOf(leftOut, name); }))
            return;
        while (!words.empty()) {
            if (words.starts_with(pilcrow)) {
                m_reader.m_isParagraphDue = true;
                words.remove_prefix(pilcrow.size());
            } else if (auto const entity = EntityAt(words); entity.character != 0) {
                Put({ &entity.character, 1 });
                words.remove_prefix(entity.name.size());
            } else {
                auto const run = words.substr(0, words.find_first_of(runEnds, 1));
                Put(run);
                words.remove_prefix(run.size());
            }
        }
    }

    OsisVerse Take()
    {
        while (m_verse.text.ends_with(' '))
            m_verse.text.pop_back();
        return std::move(m_verse);
    }

private:
    static Entity EntityAt(std::string_view words)
    {
        auto const found
            = std::ranges::find_if(entities, [words](Entity const& entity) { return words.starts_with(entity.name); });
        return found == entities.end() ? Entity { {}, '\0' } : *found;
    }

    void Milestone(std::string_view tag)
    {
        if (NameOf(tag) == "div" && IsOneOf(outside, Attribute(tag, "type")))
            m_isOutside = !Attribute(tag, "sID").empty();
        else if (!m_isOutside && OpensParagraph(tag))
            m_reader.m_isParagraphDue = true;
    }

    /// Elements that were never closed end with the one around them; an end without a start is nothing.
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
        // Where a note or the end of somebody's words stood in the place of a blank, the words around it touch.
        if (OpensWord(word) && (text.ends_with(closingQuote) || (m_isBehindLeftOut && !IsOpening(text))))
            text += ' ';
        m_isBehindLeftOut = false;
        if (ClosesSentence(word.front()) && text.ends_with(' '))
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
    std::vector<std::string_view> m_open; ///< names of the elements around the place, the innermost last
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
        auto const end = markup.find('>');
        isCutOff |= end == markup.npos;
        reading.Tag(markup.substr(1, std::min(end, markup.size()) - 1));
        markup.remove_prefix(std::min(end, markup.size() - 1) + 1);
    }
    auto verse = reading.Take();
    verse.isCutOff = isCutOff;
    return verse;
}

void OsisReader::BeginBook()
{
    m_isParagraphDue = false;
}

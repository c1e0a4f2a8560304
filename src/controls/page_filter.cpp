#include "controls/page_filter.h"

#include "base/code_page.h"
#include "controls/page_tags.h"
#include "controls/page_words.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace {

using Bytes = std::string_view;

class PageFilter {
public:
    explicit PageFilter(Bytes page)
        : m_page(page)
    {
        m_shown.reserve(page.size() + page.size() / 64 + 256);
    }

    Text Filter(Bytes background)
    {
        auto const ownBody = "<body background=\"" + std::string(background) + "\">";
        auto const body = m_page.find("<body");
        bool const hasOwn = body != m_page.npos && m_page.substr(body).starts_with(ownBody);
        Write("<html>");
        Write(hasOwn ? "<body background=\"" + std::string(pageBackground) + "\">" : "<body>");
        std::size_t at = 0;
        for (std::size_t next; (next = m_page.find('<', at)) != m_page.npos;) {
            m_words.Pass(m_page.substr(at, next - at));
            at = hasOwn && next == body ? Replace(next, next + ownBody.size()) : TakeMarkup(next);
        }
        m_words.Pass(m_page.substr(at));
        Replace(m_page.size(), m_page.size(), "</body></html>");
        return m_words.MayBeLong() ? BreakLongWords(m_shown) : std::move(m_shown);
    }

private:
    static constexpr std::size_t deepest = 16, mostAnchors = 200;

    /// Handles what begins with this "<"; gives the place after it.
    std::size_t TakeMarkup(std::size_t at)
    {
        if (auto const* const usual = FindUsualTag(m_page, at)) {
            Tag const tag { usual->id, usual->closes, true, {}, at + usual->size };
            return tag.closes ? TakeEnd(at, tag) : TakeStart(at, tag);
        }
        if (auto const tag = ReadTag(m_page, at)) {
            if (tag->id >= TagId::Script)
                return Replace(
                    at, tag->closes || tag->id == TagId::Other ? tag->end : ContentEnd(*tag));
            return tag->closes ? TakeEnd(at, *tag) : TakeStart(at, *tag);
        }
        auto const declared = DeclarationEnd(at);
        return declared == at ? Replace(at, at + 1, "&lt;") : Replace(at, declared);
    }

    std::size_t TakeStart(std::size_t at, Tag const& tag)
    {
        if (tag.id == TagId::Anchor)
            return TakeAnchor(at, tag);
        if (tag.id == TagId::Break)
            return CopyTag(at, tag);
        // Only paragraphs may use the deepest level: deeply nested text keeps its paragraphs.
        bool const isParagraph = tag.id == TagId::Paragraph;
        if (isParagraph)
            Close(TagId::Paragraph);
        if (m_depth >= (isParagraph ? deepest : deepest - 1))
            return Replace(at, tag.end);
        m_open[m_depth++] = tag.id;
        return tag.id == TagId::Font ? TakeFont(at, tag) : CopyTag(at, tag);
    }

    /// Each name would cost time in proportion to the names before it.
    std::size_t TakeAnchor(std::size_t at, Tag const& tag)
    {
        auto const anchor = m_anchors < mostAnchors ? AnchorTag(tag.attributes) : "";
        m_anchors += anchor.empty() ? 0 : 1;
        return Replace(at, tag.end, anchor);
    }

    /// Most are like the one before.
    std::size_t TakeFont(std::size_t at, Tag const& tag)
    {
        if (m_fontTag.empty() || tag.attributes != m_fontAttributes) {
            m_fontAttributes = tag.attributes;
            m_fontTag = FontTag(tag.attributes);
        }
        return Replace(at, tag.end, m_fontTag);
    }

    std::size_t TakeEnd(std::size_t at, Tag const& tag)
    {
        return Close(tag.id) ? CopyTag(at, tag) : Replace(at, tag.end);
    }

    /// Closes the last open tag of this name, with what is open within it; false if there is none.
    bool Close(TagId id)
    {
        for (auto depth = m_depth; depth > 0; --depth)
            if (m_open[depth - 1] == id) {
                m_depth = depth - 1;
                return true;
            }
        return false;
    }

    /// The end of a tag with its content; of the tag alone if it isn't closed.
    std::size_t ContentEnd(Tag const& tag)
    {
        auto const name = NameOf(tag.id);
        bool& isOpenFromHere = m_unclosed[static_cast<std::size_t>(tag.id)
            - static_cast<std::size_t>(TagId::Script)];
        for (auto at = tag.end; !isOpenFromHere && (at = m_page.find("</", at)) != m_page.npos;
             at += 2)
            if (auto const end = IsSameName(m_page.substr(at + 2, name.size()), name)
                    ? ReadTag(m_page, at)
                    : std::nullopt;
                end && end->id == tag.id)
                return end->end;
        isOpenFromHere = true;
        return tag.end;
    }

    /// Where a comment or a declaration ends; `at` if none begins there.
    std::size_t DeclarationEnd(std::size_t at)
    {
        auto const rest = m_page.substr(at);
        if (rest.starts_with("<!--")) {
            auto const end = m_hasNoCommentEnd ? m_page.npos : m_page.find("-->", at + 4);
            m_hasNoCommentEnd = end == m_page.npos;
            if (end != m_page.npos)
                return end + 3;
        } else if (!rest.starts_with("<!") && !rest.starts_with("<?")) {
            return at;
        }
        auto const end = m_page.find_first_of("<>", at + 1);
        return end != m_page.npos && m_page[end] == '>' ? end + 1 : at;
    }

    /// A tag without attributes. A plain one is copied with the text around it.
    std::size_t CopyTag(std::size_t at, Tag const& tag)
    {
        if (tag.isPlain)
            return tag.end;
        return Replace(at, tag.end, (tag.closes ? "</" : "<") + std::string(NameOf(tag.id)) + ">");
    }

    /// Writes the page up to `at`, then `text` in place of the rest up to `end`; gives `end`.
    std::size_t Replace(std::size_t at, std::size_t end, Bytes text = {})
    {
        Write(m_page.substr(m_from, at - m_from));
        Write(text);
        m_from = end;
        return end;
    }

    void Write(Bytes bytes) { AppendFromCodePage(m_shown, bytes); }

    Bytes m_page;
    std::size_t m_from = 0; // everything before it is written
    Text m_shown;
    std::array<TagId, deepest> m_open {};
    std::size_t m_depth = 0;
    std::size_t m_anchors = 0;
    Bytes m_fontAttributes;
    std::string m_fontTag; // for these attributes
    WordWatch m_words;
    std::array<bool, 3> m_unclosed {}; // script, style, title: no closing tag follows any more
    bool m_hasNoCommentEnd = false; // likewise
};

} // namespace

Text FilterPage(Bytes page, Bytes background)
{
    return PageFilter(page).Filter(background);
}

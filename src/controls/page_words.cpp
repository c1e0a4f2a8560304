#include "controls/page_words.h"

#include <algorithm>
#include <cctype>

static constexpr std::string_view blanks = " \t\r\n";
static constexpr TextView breakMark = u"&#8203;";

/// From blank to blank, as far as one word may reach.
void WordWatch::Look(std::string_view text)
{
    auto left = longestWord - std::min(longestWord, m_length);
    while (text.size() >= left && !m_mayBeLong) {
        auto const blank = text.substr(0, left).find_last_of(blanks);
        m_mayBeLong = blank == text.npos;
        text.remove_prefix(blank + 1);
        left = longestWord;
    }
}

/// The length of what the text begins with: a tag, an entity or a character.
static std::size_t LengthOfFirst(TextView text)
{
    if (text.front() == u'<')
        return std::min(text.find(u'>'), text.size() - 1) + 1;
    if (text.front() != u'&')
        return 1;
    constexpr std::size_t longestEntity = 12;
    auto const isPart = [](char16_t c) { return c == u'#' || (c < 0x80 && std::isalnum(c)); };
    auto const name = text.substr(1, longestEntity - 1);
    auto const end = std::find_if_not(name.begin(), name.end(), isPart);
    return end != name.end() && *end == u';' ? static_cast<std::size_t>(end - name.begin()) + 2 : 1;
}

Text BreakLongWords(TextView page)
{
    Text broken;
    broken.reserve(page.size() + page.size() / 16);
    std::size_t length = 0;
    while (!page.empty()) {
        auto const first = page.substr(0, LengthOfFirst(page));
        bool const isText = first.front() != u'<';
        if (first == breakMark || first == u" " || first == u"\t" || first == u"\r"
            || first == u"\n") {
            length = 0;
        } else if (isText && ++length > longestWord) {
            broken += breakMark;
            length = 1;
        }
        broken += first;
        page.remove_prefix(first.size());
    }
    return broken;
}

#pragma once
// What a filtered page may hold, by a plain reading of its own.

#include "base/text.h"
#include "controls/page_words.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Takes an attribute off the front, with the blank before it, if it has one of the values.
inline void TakeAttribute(std::string_view& rest, std::string_view name, auto const& isValue)
{
    if (!rest.starts_with(name))
        return;
    auto const value
        = rest.substr(name.size(), rest.find_first_of(" >", name.size()) - name.size());
    if (isValue(value))
        rest.remove_prefix(name.size() + value.size());
}

inline bool IsOf(std::string_view value, std::string_view characters)
{
    return !value.empty() && value.find_first_not_of(characters) == value.npos;
}

/// True for a tag that may be in a filtered page; of an anchor, with its end.
inline bool MayBe(std::string_view tag)
{
    static std::string const letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ",
                             digits = "0123456789";
    static std::set<std::string_view> const plain { "p", "b", "i", "em", "strong", "u", "sup",
        "sub", "span", "font", "html", "body" };
    auto const inner = tag.substr(1, tag.size() - 2);
    if (plain.contains(inner) || (inner.starts_with('/') && plain.contains(inner.substr(1)))
        || inner == "br" || inner == "body background=\"bg.jpg\"")
        return true;
    if (tag.starts_with("<a name=") && tag.ends_with("></a>"))
        return IsOf(tag.substr(8, tag.size() - 13), letters + digits + "._-");
    auto rest = inner;
    if (!rest.starts_with("font"))
        return false;
    rest.remove_prefix(4);
    TakeAttribute(
        rest, " size=", [](auto value) { return value.size() == 1 && IsOf(value, "1234567"); });
    TakeAttribute(
        rest, " face=", [](auto value) { return value == "\"verdana\"" || value == "\"Arial\""; });
    TakeAttribute(rest, " color=", [](auto value) {
        return IsOf(value, letters)
            || (value.size() == 7 && value[0] == '#'
                && IsOf(value.substr(1), digits + "abcdefABCDEF"));
    });
    return rest.empty();
}

/// What is wrong with a filtered page; empty if nothing is.
inline std::string FaultOf(TextView page)
{
    std::string const text = ToUtf8(page);
    std::vector<std::string> open;
    std::size_t word = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] != '<') {
            bool const isBreak = text.compare(at, 7, "&#8203;") == 0
                || std::string_view(" \t\r\n").find(text[at]) != std::string_view::npos;
            // Bytes of an entity count one by one here.
            word = isBreak ? 0 : word + 1;
            if (word > longestWord * 10)
                return "a long word at " + std::to_string(at);
            ++at;
            continue;
        }
        auto const end = text.find('>', at);
        auto whole = text.substr(at, end == text.npos ? end : end + 1 - at);
        if (whole.starts_with("<a "))
            whole += "</a>";
        if (!MayBe(whole) || text.compare(at, whole.size(), whole) != 0)
            return "a foreign tag: " + whole;
        at += whole.size();
        auto const name = whole.substr(1, whole.find_first_of(" >") - 1);
        if (name == "br" || name == "a")
            continue;
        if (!name.starts_with('/')) {
            // A paragraph ends the one before it.
            if (auto const last = std::find(open.rbegin(), open.rend(), "p");
                name == "p" && last != open.rend())
                open.erase(last.base() - 1, open.end());
            open.push_back(name);
        } else if (auto const last = std::find(open.rbegin(), open.rend(), name.substr(1));
                   last != open.rend()) {
            open.erase(last.base() - 1, open.end());
        } else {
            return "nothing to close: " + whole;
        }
        if (open.size() > 2 + 16) // html and body
            return "too deep at " + std::to_string(at);
    }
    return "";
}

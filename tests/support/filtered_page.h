#pragma once
// What a filtered page may hold, by a plain reading of its own.

#include "base/text.h"
#include "controls/page_words.h"

#include <algorithm>
#include <regex>
#include <string>
#include <vector>

/// What is wrong with a filtered page; empty if nothing is.
inline std::string FaultOf(TextView page)
{
    static std::regex const tag(
        "</?(p|b|i|em|strong|u|sup|sub|span|font|html|body)>|<br>|<a "
        "name=[A-Za-z0-9._-]+></a>|<body background=\"bg\\.jpg\">"
        "|<font( size=[1-7])?( face=\"(verdana|Arial)\")?( color=([A-Za-z]+|#[0-9A-Fa-f]{6}))?>");
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
        if (!std::regex_match(whole, tag) || text.compare(at, whole.size(), whole) != 0)
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

#pragma once
// Long words of a page for the browser control, which breaks the lines of a word of n characters in
// O(n * n): 640,000 characters take half a minute. A "word" here continues through tags.

#include "base/text.h"

#include <cstddef>
#include <string_view>

/// In characters; an entity is one.
constexpr std::size_t longestWord = 250;

/// Looks for long words in a page's text, piece by piece, with about one look per 250 characters.
class WordWatch {
public:
    /// The text between two tags, in code page 1252.
    void Pass(std::string_view text)
    {
        auto end = text.size();
        while (end > 0 && !IsBlank(text[end - 1]))
            --end;
        if (m_length + text.size() >= longestWord)
            Look(text);
        // One more, for a "<" that is text.
        m_length = text.size() - end + 1 + (end == 0 ? m_length : 0);
    }

    /// False if no word can be longer than `longestWord`.
    bool MayBeLong() const { return m_mayBeLong; }

private:
    static bool IsBlank(char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; }
    void Look(std::string_view text);

    std::size_t m_length = 0; // of the word that goes on, at most
    bool m_mayBeLong = false;
};

/// Inserts an invisible break ("&#8203;") after each 250 characters of a word. `page` has been
/// filtered: each "<" begins a tag. Idempotent.
Text BreakLongWords(TextView page);

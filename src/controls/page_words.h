#pragma once
// Long words of a page for the browser control. To break the lines of a word of n characters takes
// the control time in proportion to n times n, so that one of 640,000 keeps it busy for half a
// minute. What a "word" is here goes on through tags.

#include "base/text.h"

#include <cstddef>
#include <string_view>

/// In characters; an entity is one.
constexpr std::size_t longestWord = 250;

/// Looks for long words in a page's text, piece by piece, at little more than a glance for each 250
/// characters.
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

/// The page with a place for a line break ("&#8203;", which is invisible) after each 250 characters
/// of a word. `page` has been filtered: each "<" begins a tag. Breaking the words of the result
/// changes nothing.
Text BreakLongWords(TextView page);

#pragma once
// A line of a script, parted into words.

#include <string>
#include <string_view>
#include <vector>

struct Word {
    std::string text; ///< UTF-8, unquoted
    bool quoted = false;
};

/// The words of a line, parted by blanks; a word that begins with `"` is a JSON string. Throws
/// CommandError for a string that is none.
std::vector<Word> SplitWords(std::string_view line);

#include "drive/words.h"

#include "drive/json.h"

/// The end of the JSON string that begins at `start`, after its closing quote.
static std::size_t StringEnd(std::string_view line, std::size_t start)
{
    for (std::size_t at = start + 1; at < line.size(); ++at) {
        if (line[at] == '\\')
            ++at;
        else if (line[at] == '"')
            return at + 1;
    }
    throw CommandError("a quoted word has no end");
}

static Word ReadString(std::string_view quoted)
{
    auto const string = Json::parse(quoted, nullptr, false);
    if (!string.is_string())
        throw CommandError("a quoted word is no JSON string: " + std::string(quoted));
    return { string.get<std::string>(), true };
}

std::vector<Word> SplitWords(std::string_view line)
{
    constexpr std::string_view blanks = " \t\r";
    std::vector<Word> words;
    for (auto at = line.find_first_not_of(blanks); at != std::string_view::npos;) {
        std::size_t end;
        if (line[at] == '"') {
            end = StringEnd(line, at);
            words.push_back(ReadString(line.substr(at, end - at)));
        } else {
            end = std::min(line.find_first_of(blanks, at), line.size());
            words.push_back({ std::string(line.substr(at, end - at)), false });
        }
        at = line.find_first_not_of(blanks, end);
    }
    return words;
}

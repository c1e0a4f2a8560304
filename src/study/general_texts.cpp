#include "study/general_texts.h"

#include "platform/text_lines.h"
#include "study/codec.h"

/// Calls the listener with each line of a file. False if it can't be read to its end.
template <class Listener>
static bool ReadLines(
    FileSystem const& files, TextView name, Turns& turns, Listener const& listener)
{
    auto lines = TextLines::Open(files, name);
    if (!lines)
        return false;
    Text line;
    while (!lines->AtEnd()) {
        auto const raw = lines->NextBytes();
        if (!raw)
            return false;
        DecodeLine(*raw, turns, line);
        ExpandBookNames(line);
        listener(line);
    }
    return true;
}

void ReadIntroduction(
    FileSystem const& files, Turns& turns, std::function<void(TextView)> const& listener)
{
    ReadLines(files, u"introduction.txt", turns, listener);
}

std::optional<Text> ReadConclusion(FileSystem const& files, Turns& turns)
{
    Text conclusion;
    auto const keep = [&](TextView line) { conclusion = line; };
    if (!ReadLines(files, u"conclusion.txt", turns, keep))
        return std::nullopt;
    return conclusion;
}

#include "headless/text_measure.h"

#include <algorithm>

namespace {

/// Counts the lines of a text, wrapped to `room` characters.
struct LineCounter {
    std::size_t room;
    std::size_t lines = 0;
    std::size_t widest = 0;

    void Count(TextView line)
    {
        std::size_t used = 0;
        for (std::size_t at = 0; at < line.size();) {
            auto const word = std::min(line.find_first_not_of(u' ', at), line.size());
            auto const end = std::min(line.find(u' ', word), line.size());
            Place(used, word - at, end - word, at == 0);
            at = end;
        }
        EndLine(used);
    }

private:
    void Place(std::size_t& used, std::size_t blanks, std::size_t word, bool first)
    {
        if (used + blanks + word <= room) {
            used += blanks + word;
            return;
        }
        if (word == 0)
            return; // Blanks at the end of a line take no room.
        if (!first || blanks > 0)
            EndLine(used);
        for (; word > room; word -= room)
            EndLine(room);
        used = word;
    }

    void EndLine(std::size_t used)
    {
        ++lines;
        widest = std::max(widest, used);
    }
};

} // namespace

Size MeasureFixed(Font const& font, TextView text, float wrapWidth)
{
    float const character = characterWidthPerPoint * font.size;
    auto const room = wrapWidth > 0 ? std::max(1.0F, wrapWidth / character) : 1e9F;
    LineCounter counter { static_cast<std::size_t>(room) };
    for (TextView line : Split(text, u'\n'))
        counter.Count(line.ends_with(u'\r') ? line.substr(0, line.size() - 1) : line);
    return { static_cast<float>(counter.widest) * character,
        static_cast<float>(counter.lines) * lineHeightPerPoint * font.size };
}

#include "bible/book_lines.h"

#include "base/lines.h"

#include <algorithm>
#include <utility>

/// The bytes that the survey takes at once: few enough for a count of one byte, and a fixed number,
/// so that the compiler vectorises the loop.
static constexpr std::size_t blockSize = 128;

/// Adds what a block holds. The byte after the block can be read.
void BookLines::AddBlock(Survey& survey, char const* block)
{
    unsigned char lineFeeds = 0, loneReturns = 0;
    for (std::size_t i = 0; i < blockSize; ++i) {
        lineFeeds = static_cast<unsigned char>(lineFeeds + (block[i] == '\n'));
        loneReturns |= (block[i] == '\r') & (block[i + 1] != '\n');
    }
    survey.lineFeeds += lineFeeds;
    survey.hasLoneReturns = survey.hasLoneReturns || loneReturns;
}

BookLines::Survey BookLines::SurveyOf(std::string_view bytes)
{
    Survey survey;
    survey.hasDroppedMarks = bytes.find(droppedMark) != bytes.npos;
    for (; bytes.size() > blockSize; bytes.remove_prefix(blockSize))
        AddBlock(survey, bytes.data());
    char last[blockSize + 1] {};
    std::copy(bytes.begin(), bytes.end(), last);
    AddBlock(survey, last);
    return survey;
}

BookLines::BookLines(std::string_view bytes)
    : m_rest(bytes)
    , m_survey(SurveyOf(bytes))
{
}

std::string_view BookLines::Next()
{
    auto const line = TakeLine(m_rest);
    ++m_index;
    return m_survey.hasLoneReturns ? Without('\r', line) : line;
}

std::string_view BookLines::Without(char character, std::string_view line)
{
    // Most lines have it at their start alone, if at all.
    while (line.starts_with(character))
        line.remove_prefix(1);
    if (line.find(character) == line.npos)
        return line;
    std::string kept(line); // The line may be m_remainder itself.
    std::erase(kept, character);
    m_remainder = std::move(kept);
    return m_remainder;
}

#include "bible/book_lines.h"

#include <algorithm>
#include <utility>

/// The survey takes so many bytes at once: few enough for a count of one byte, and a fixed number,
/// so that the compiler counts several with one instruction.
static constexpr std::size_t blockSize = 128;

/// Adds what a block holds, the byte behind it known.
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
    survey.hasAsterisks = bytes.find('*') != bytes.npos;
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
    auto const end = std::min(m_rest.find('\n'), m_rest.size());
    auto line = m_rest.substr(0, end);
    m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
    ++m_index;
    if (line.ends_with('\r'))
        line.remove_suffix(1);
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

#include "platform/text_lines.h"

#include "base/code_page.h"

#include <cstring>
#include <utility>

// Blocks double from the first to the largest: who reads only the head of a file reads little more
// than that.
static constexpr std::size_t firstBlock = 2048;
static constexpr std::size_t largestBlock = 65536;

TextLines::TextLines(std::unique_ptr<InputFile> file, TextView name)
    : m_file(std::move(file))
    , m_name(name)
    , m_buffer(firstBlock)
{
}

Outcome<TextLines> TextLines::Open(FileSystem const& files, TextView name)
{
    auto file = files.Open(name);
    if (!file)
        return file.failure();
    return TextLines(std::move(*file), name);
}

bool TextLines::AtEnd()
{
    if (m_start == m_end && !m_finished)
        Fill();
    return m_start == m_end && m_readFailure.empty();
}

Outcome<std::string_view> TextLines::NextBytes()
{
    // Each byte is searched once, however many blocks a line takes.
    std::size_t searched = 0;
    while (true) {
        auto const pending = m_end - m_start;
        char const* const from = m_buffer.data() + m_start;
        if (auto const found = std::memchr(from + searched, '\n', pending - searched)) {
            auto length = static_cast<std::size_t>(static_cast<char const*>(found) - from);
            auto const withLineEnd = length + 1;
            if (length > 0 && from[length - 1] == '\r')
                --length;
            if (length > longestLine)
                return GiveUp();
            return Take(length, withLineEnd);
        }
        searched = pending;
        if (m_finished)
            break;
        if (searched > longestLine + 1) // One may be a carriage return.
            return GiveUp();
        Fill();
    }
    if (!m_readFailure.empty())
        return Fail(m_readFailure);
    if (searched == 0)
        return Fail(u"the file ends here");
    if (searched > longestLine)
        return GiveUp();
    return Take(searched, searched);
}

Outcome<TextView> TextLines::Next()
{
    auto const bytes = NextBytes();
    if (!bytes)
        return bytes.failure();
    m_line.clear();
    AppendFromCodePage(m_line, *bytes);
    return TextView(m_line);
}

/// Ends the reading at a line that is too long.
Failure TextLines::GiveUp()
{
    ++m_lineNumber;
    m_readFailure = u"a line is longer than 16 MB";
    m_finished = true;
    m_start = m_end = 0;
    m_buffer = {};
    return Fail(m_readFailure);
}

std::string_view TextLines::Take(std::size_t length, std::size_t withLineEnd)
{
    std::string_view const line(m_buffer.data() + m_start, length);
    m_start += withLineEnd;
    ++m_lineNumber;
    return line;
}

/// Reads one more block behind the bytes not yet taken, or finds that there is none.
void TextLines::Fill()
{
    MakeRoom();
    auto const read = m_file->Read(std::span(m_buffer).subspan(m_end));
    if (!read)
        m_readFailure = read.failure().reason.empty() ? Text(u"the file can't be read")
                                                      : read.failure().reason;
    m_finished = !read || *read == 0;
    if (read)
        m_end += *read;
}

/// Moves the bytes not yet taken to the front; where a line fills the whole buffer, doubles that,
/// so that a line of any length costs time in proportion to it.
void TextLines::MakeRoom()
{
    if (m_start > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_start, m_end - m_start);
        m_end -= m_start;
        m_start = 0;
    }
    bool const mayGrow = m_lineNumber > 0 && m_buffer.size() < largestBlock;
    if (m_end == m_buffer.size() || mayGrow)
        m_buffer.resize(m_buffer.size() * 2);
}

Failure TextLines::Fail(TextView reason) const
{
    return { m_name, m_lineNumber, Text(reason) };
}

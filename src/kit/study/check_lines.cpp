#include "kit/study/check_lines.h"

#include "base/lines.h"
#include "kit/study/scramble.h"
#include "platform/text_lines.h"
#include "study/codec.h"

namespace {

constexpr std::size_t excerptLength = 30;

bool IsControl(char byte)
{
    auto const value = static_cast<unsigned char>(byte);
    return value < 0x20 && byte != '\t';
}

} // namespace

CheckLines::CheckLines(std::string_view bytes, std::string file, Faults& faults)
    : m_rest(bytes)
    , m_file(std::move(file))
    , m_faults(faults)
{
}

bool CheckLines::Next()
{
    if (m_rest.empty())
        return false;
    m_raw = TakeLine(m_rest);
    m_number += 1;
    if (m_raw.size() > TextLines::longestLine) {
        Report("a line is longer than 16 MB");
        m_rest = {};
        return false;
    }
    CheckRaw();
    DecodeLine(m_raw, m_turns, m_line);
    return true;
}

void CheckLines::CheckRaw()
{
    if (m_raw.starts_with('!')) {
        if (m_raw.size() < 2 || !IsLowerLetter(static_cast<unsigned char>(m_raw.back())))
            Report("a scrambled line has no shift letter: expected one from a to z at its end");
        if (m_raw.size() > longestBody + 2)
            Report("a scrambled line has more than 32,767 characters");
    }
    unsigned controls = 0;
    for (char const byte : m_raw)
        controls |= IsControl(byte);
    if (controls != 0)
        Report("a control character");
}

std::string Excerpt(TextView line)
{
    return "“" + ToUtf8(line.substr(0, excerptLength)) + (line.size() > excerptLength ? "…”" : "”");
}

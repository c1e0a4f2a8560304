#include "kit/study/check_lines.h"

#include "platform/text_lines.h"
#include "study/codec.h"

#include <algorithm>

namespace {

/// In characters, the body of a scrambled line.
constexpr std::size_t longestBody = 32767;

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
    auto const end = std::min(m_rest.find('\n'), m_rest.size());
    auto raw = m_rest.substr(0, end);
    auto const taken = std::min(end + 1, m_rest.size());
    if (taken > end && raw.ends_with('\r'))
        raw.remove_suffix(1);
    m_rest.remove_prefix(taken);
    m_number += 1;
    if (raw.size() > TextLines::longestLine) {
        Report("a line is longer than 16 MB");
        m_rest = {};
        return false;
    }
    m_raw = raw;
    CheckRaw(raw);
    DecodeLine(raw, m_turns, m_line);
    return true;
}

void CheckLines::CheckRaw(std::string_view raw)
{
    if (raw.starts_with('!')) {
        char const tail = raw.back();
        if (raw.size() < 2 || tail < 'a' || tail > 'z')
            Report("a scrambled line has no shift letter: expected one from a to z at its end");
        if (raw.size() > longestBody + 2)
            Report("a scrambled line has more than 32,767 characters");
    }
    unsigned controls = 0;
    for (char const byte : raw)
        controls |= IsControl(byte);
    if (controls != 0)
        Report("a control character");
}

std::string Excerpt(TextView line)
{
    return "“" + ToUtf8(line.substr(0, excerptLength)) + (line.size() > excerptLength ? "…”" : "”");
}

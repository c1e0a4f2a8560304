#include "kit/study/scramble.h"

#include "study/codec.h"

namespace {

std::string Shift(std::string_view text, int places)
{
    std::string shifted(text);
    for (char& letter : shifted) {
        if (IsLowerLetter(static_cast<unsigned char>(letter)))
            letter = static_cast<char>(ShiftedLetter(letter, places));
    }
    return shifted;
}

} // namespace

std::string ScrambleLine(std::string_view line, char shiftLetter)
{
    return '!' + Shift(line, shiftLetter - 'a') + shiftLetter;
}

std::string DescrambleLine(std::string_view line)
{
    if (!line.starts_with('!'))
        return std::string(line);
    if (line.size() < 3)
        return {};
    return Shift(line.substr(1, line.size() - 2), 'a' - static_cast<unsigned char>(line.back()));
}

std::string FileLine(std::string_view line, std::size_t n, bool isPlain)
{
    if (!isPlain)
        return ScrambleLine(line, ChangingShiftLetter(n));
    return line.starts_with('!') ? ScrambleLine(line, 'a') : std::string(line);
}

#pragma once
// Picture files for the tests, as far as their size is read from them.

#include <string>

/// The head of a JPEG of this size (ITU-T T.81, frame header), without a picture behind it.
inline std::string JpegHead(unsigned width, unsigned height)
{
    auto const high = [](unsigned value) { return static_cast<char>(value >> 8); };
    auto const low = [](unsigned value) { return static_cast<char>(value); };
    std::string head = "\xFF\xD8\xFF\xC0";
    head += { 0, 17, 8, high(height), low(height), high(width), low(width), 3 };
    return head + "\x01\x22\x01\x02\x11\x01\x03\x11\x01";
}
